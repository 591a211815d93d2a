#include "hosts/office/document_loader.h"

#include <com/sun/star/document/MacroExecMode.hpp>
#include <com/sun/star/document/UpdateDocMode.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>

#include "hosts/office/content_kind.h"
#include "hosts/office/errors.h"
#include "hosts/office/load_interaction.h"
#include "hosts/office/uno_support.h"

namespace foliant::hosts::office {

namespace {

using css::lang::XComponent;
using css::uno::Reference;

css::uno::Sequence<css::beans::PropertyValue> load_arguments(const ImportFilter& filter,
                                                             const Reference<LoadInteraction>& interaction) {
    using css::task::XInteractionHandler;
    return uno_sequence<css::beans::PropertyValue>({
        uno_argument("Hidden", true),
        uno_argument("ReadOnly", true),
        uno_argument("FilterName", to_uno(filter.name)),
        uno_argument("FilterOptions", to_uno(filter.options)),
        uno_argument("MacroExecutionMode", css::document::MacroExecMode::NEVER_EXECUTE),
        uno_argument("UpdateDocMode", css::document::UpdateDocMode::NO_UPDATE),
        uno_argument("InteractionHandler", Reference<XInteractionHandler>(interaction.get())),
    });
}

automation::Error password_error(const std::filesystem::path& path, bool given) {
    return word_error(WordError::wrong_password,
                      path.string() + (given ? ": the password is incorrect. Give the open password that "
                                               "belongs to this document."
                                             : " is encrypted. Give its open password."));
}

automation::Error load_error(const std::filesystem::path& path, const std::string& reason) {
    return word_error(WordError::file_corrupted, path.string() + " cannot be opened: it seems to be damaged" +
                                                     (reason.empty() ? "" : " (" + reason + ")") +
                                                     ". Use another copy.");
}

}  // namespace

Reference<XComponent> load_document(const Reference<css::uno::XComponentContext>& office,
                                    const std::filesystem::path& path, const Passwords& passwords) {
    const ImportFilter filter = import_filter(path, office);
    const Reference<LoadInteraction> interaction(new LoadInteraction(passwords));
    Reference<XComponent> document;
    std::string reason;
    try {
        document = css::frame::Desktop::create(office)->loadComponentFromURL(
            file_url(path), to_uno("_blank"), 0, load_arguments(filter, interaction));
    } catch (const css::uno::Exception& exception) {
        reason = from_uno(exception.Message);
    }
    if (document.is()) return document;
    if (interaction->password_was_asked()) throw password_error(path, !passwords.open.empty());
    throw load_error(path, reason);
}

}  // namespace foliant::hosts::office
