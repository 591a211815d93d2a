#pragma once

#include <com/sun/star/lang/XComponent.hpp>
#include <filesystem>

#include "hosts/office/text_document.h"

namespace foliant::hosts::office {

/// What a TextDocument holds on to; apart, so that its header stays free of UNO.
struct TextDocument::Model {
    com::sun::star::uno::Reference<com::sun::star::lang::XComponent> component;
    std::filesystem::path path;              ///< the document's own, for messages
    std::filesystem::path temporary_folder;  ///< for what LibreOffice writes while it exports
};

}  // namespace foliant::hosts::office
