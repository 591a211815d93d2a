#pragma once

#include <com/sun/star/uno/XComponentContext.hpp>
#include <filesystem>

namespace foliant::hosts::office {

/// The LibreOffice that runs in this process; apart from start.h, so that one stays free of UNO.
struct Office {
    com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext> context;
    std::filesystem::path temporary_folder;
};

}  // namespace foliant::hosts::office
