#include "hosts/office/engine/document_loader.h"

#include <cerrno>
#include <com/sun/star/document/MacroExecMode.hpp>
#include <com/sun/star/document/UpdateDocMode.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>
#include <dlfcn.h>
#include <fcntl.h>
#include <filesystem>
#include <sys/sendfile.h>
#include <system_error>
#include <utility>

#include "hosts/office/engine/content.h"
#include "hosts/office/engine/file_stream.h"
#include "hosts/office/engine/load_interaction.h"
#include "hosts/office/engine/print_mode.h"
#include "hosts/office/engine/process_guard.h"
#include "hosts/office/engine/progress_relay.h"
#include "hosts/office/engine/uno_support.h"

namespace foliant::hosts::office {

namespace {

using css::lang::XComponent;
using css::uno::Reference;

css::uno::Sequence<css::beans::PropertyValue> load_arguments(const ImportFilter& filter,
                                                             const DocumentFile& file,
                                                             const Reference<LoadInteraction>& interaction,
                                                             Machine& machine) {
    using css::task::XInteractionHandler;
    return uno_sequence<css::beans::PropertyValue>({
        uno_argument("InputStream", stream_of(file)),
        uno_argument("Hidden", true),
        uno_argument("ReadOnly", true),
        uno_argument("FilterName", to_uno(filter.name)),
        uno_argument("FilterOptions", to_uno(filter.options)),
        uno_argument("MacroExecutionMode", css::document::MacroExecMode::NEVER_EXECUTE),
        uno_argument("UpdateDocMode", css::document::UpdateDocMode::NO_UPDATE),
        uno_argument("InteractionHandler", Reference<XInteractionHandler>(interaction.get())),
        uno_argument("StatusIndicator", relay_progress(machine, "Opening")),
    });
}

automation::Error password_error(const std::filesystem::path& path, bool given,
                                 const Application& application) {
    if (!given) return encrypted(path, application);
    return application.error(
        application.wrong_password,
        path.string() + ": the password is incorrect. Give the open password that belongs to this document.");
}

automation::Error load_error(const std::filesystem::path& path, const std::string& reason,
                             const Application& application) {
    return application.error(application.file_corrupted,
                             path.string() + " cannot be opened: it seems to be damaged" +
                                 (reason.empty() ? "" : " (" + reason + ")") + ". Use another copy.");
}

/// Starts NSS, by which LibreOffice decrypts OpenDocument. LibreOffice would have it make a database of keys and set that
/// file's mode, which a contained process may not; what has started without one is taken as it is.
void start_nss_without_database() {
    void* const nss = dlopen("libnss3.so", RTLD_LAZY | RTLD_LOCAL);
    if (nss == nullptr) return;
    if (auto* const start = reinterpret_cast<int (*)(const char*)>(dlsym(nss, "NSS_NoDB_Init")))
        start(nullptr);
}

/// LibreOffice's texts have no room for bytes that are no UTF-8. A document with such a path is copied, so
/// that LibreOffice finds one when it looks again.
std::filesystem::path nameable_place(const DocumentFile& file, const std::filesystem::path& own_folder) {
    if (from_uno(to_uno(file.place.native())) == file.place.native()) return file.place;
    std::filesystem::path place = own_folder / ("document-" + std::to_string(file.descriptor.get()));
    const std::string extension = file.place.extension().string();
    if (from_uno(to_uno(extension)) == extension) place += extension;
    const posix::FileDescriptor copy(
        ::open(place.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC, 0600));
    constexpr std::size_t piece = std::size_t{1} << 20U;
    off_t position = 0;
    ssize_t sent = copy ? 1 : -1;
    while (sent > 0)
        sent = ::sendfile(copy.get(), file.descriptor.get(), &position, piece);
    if (sent < 0) {
        throw std::filesystem::filesystem_error("cannot copy", file.path,
                                                std::error_code(errno, std::generic_category()));
    }
    return place;
}

}  // namespace

std::unique_ptr<LoadedDocument> load_document(const Office& office, DocumentFile file,
                                              const ImportFilter& filter, const Passwords& passwords,
                                              Machine& machine, const Application& application) {
    const CallGuard call(office.temporary_folder);
    file.place = nameable_place(file, office.temporary_folder);
    const StandStill from_the_beginning;
    const PrintMode with_formats_of_the_locale;
    if (!passwords.open.empty()) start_nss_without_database();
    const Reference<LoadInteraction> interaction(new LoadInteraction(passwords));
    Reference<XComponent> document;
    std::string reason;
    try {
        document = css::frame::Desktop::create(office.context)
                       ->loadComponentFromURL(file_url(file.place), to_uno("_blank"), 0,
                                              load_arguments(filter, file, interaction, machine));
    } catch (const css::uno::Exception& exception) {
        reason = from_uno(exception.Message);
    }
    if (!document.is() && interaction->password_was_asked())
        throw password_error(file.path, !passwords.open.empty(), application);
    if (!document.is()) throw load_error(file.path, reason, application);
    // An aggregate is made with braces, which std::make_unique does not have.
    return std::unique_ptr<LoadedDocument>(  // NOLINT(modernize-make-unique)
        new LoadedDocument{{}, std::move(file), document, office.temporary_folder, machine, application});
}

}  // namespace foliant::hosts::office
