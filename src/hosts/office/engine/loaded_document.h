#pragma once

#include <com/sun/star/lang/XComponent.hpp>
#include <filesystem>

#include "hosts/machine.h"
#include "hosts/office/application.h"
#include "hosts/office/engine/stand_still.h"

namespace foliant::hosts::office {

/// A document that LibreOffice has loaded, as long as the application holds it open.
struct LoadedDocument {
    StandStill stand_still;
    DocumentFile file;  ///< LibreOffice may read from it at any time
    com::sun::star::uno::Reference<com::sun::star::lang::XComponent> component;
    std::filesystem::path temporary_folder;  ///< for what LibreOffice writes while it exports
    Machine& machine;                        ///< makes its outputs
    const Application& application;          ///< whose errors it raises
};

}  // namespace foliant::hosts::office
