#pragma once

#include <com/sun/star/lang/XComponent.hpp>
#include <filesystem>
#include <utility>

#include "hosts/office/stand_still.h"
#include "hosts/office/text_document.h"

namespace foliant::hosts::office {

/// What a TextDocument holds on to; apart, so that its header stays free of UNO.
struct TextDocument::Model {
    Model(const com::sun::star::uno::Reference<com::sun::star::lang::XComponent>& loaded,
          std::filesystem::path document, std::filesystem::path temporary)
        : component(loaded), path(std::move(document)), temporary_folder(std::move(temporary)) {}

    StandStill stand_still;
    com::sun::star::uno::Reference<com::sun::star::lang::XComponent> component;
    std::filesystem::path path;              ///< the document's own, for messages
    std::filesystem::path temporary_folder;  ///< for what LibreOffice writes while it exports
};

}  // namespace foliant::hosts::office
