#pragma once

#include <string>

#include "hosts/office/engine/loaded_document.h"
#include "hosts/office/engine/process_guard.h"
#include "hosts/office/engine/uno_support.h"

namespace foliant::hosts::office {

/// Runs `work`; a failure of LibreOffice becomes an error of the document's application that says what was to
/// be done to which document: "turn the pages of".
template <typename Work>
auto translated(const LoadedDocument& document, const std::string& what, Work work) {
    try {
        const CallGuard call(document.temporary_folder);
        return work();
    } catch (const css::uno::Exception& exception) {
        throw document.application.error(
            document.application.command_failed,
            "Cannot " + what + " " + document.file.path.string() + ": " + from_uno(exception.Message));
    }
}

}  // namespace foliant::hosts::office
