#include "hosts/office/engine/document_opener.h"

#include <cerrno>
#include <utility>

#include "hosts/office/engine/content.h"
#include "hosts/office/engine/process_guard.h"
#include "hosts/office/engine/start.h"

namespace foliant::hosts::office {

namespace {

/// Why a document cannot be opened, in the application's words.
automation::Error open_error(const std::filesystem::filesystem_error& failure,
                             const Application& application) {
    const std::filesystem::path& path = failure.path1();
    switch (failure.code().value()) {
        case ENOENT:
        case ENOTDIR:
            return application.error(application.file_not_found,
                                     path.string() + " does not exist. Check the name and the folder.");
        case EISDIR:
            return not_a_document(path, "it is a folder", application);
        case ENOTSUP:
            return not_a_document(path, "it is a device or a pipe", application);
        default:
            return application.error(automation::RuntimeError::permission_denied,
                                     "Cannot read " + path.string() + ": " + failure.code().message() + ".");
    }
}

}  // namespace

DocumentFile open_file(Machine& machine, const std::filesystem::path& path, const Application& application) {
    try {
        return machine.open_document(path);
    } catch (const std::filesystem::filesystem_error& failure) {
        throw open_error(failure, application);
    }
}

std::unique_ptr<LoadedDocument> load_in_office(Machine& machine, DocumentFile file,
                                               const Passwords& passwords, const Application& application,
                                               const ChooseFilter& choose) {
    const Office& office = start_office(machine.private_folder(), application);
    const CallGuard call(office.temporary_folder);
    const StandStill from_the_beginning;
    const ImportFilter filter = choose(file, office);
    const Application& reader = filter.application == nullptr ? application : *filter.application;
    require_office(reader);
    return load_document(office, std::move(file), filter, passwords, machine, reader);
}

std::unique_ptr<LoadedDocument> open_in_office(Machine& machine, const std::filesystem::path& path,
                                               const Passwords& passwords, const Application& application,
                                               const ChooseFilter& choose) {
    // In this order: a process is contained when it gets its first document, and that has to be before
    // LibreOffice has threads.
    DocumentFile file = open_file(machine, path, application);
    return load_in_office(machine, std::move(file), passwords, application, choose);
}

}  // namespace foliant::hosts::office
