#include "hosts/office/word/open_document.h"

#include <cerrno>
#include <utility>

#include "hosts/office/engine/document_loader.h"
#include "hosts/office/engine/process_guard.h"
#include "hosts/office/engine/start.h"
#include "hosts/office/word/content_kind.h"
#include "hosts/office/word/word_error.h"

namespace foliant::hosts::office {

namespace {

/// Why a document cannot be opened, in Word's words.
automation::Error open_error(const std::filesystem::filesystem_error& failure) {
    const std::string path = failure.path1().string();
    const auto no_document = [&](const std::string& what) {
        return microsoft_word.error(microsoft_word.unreadable,
                                    path + " is not a document that Word reads: it is " + what +
                                        ". Give a Word, OpenDocument, RTF, HTML or text file.");
    };
    switch (failure.code().value()) {
        case ENOENT:
        case ENOTDIR:
            return microsoft_word.error(microsoft_word.file_not_found,
                                        path + " does not exist. Check the name and the folder.");
        case EISDIR:
            return no_document("a folder");
        case ENOTSUP:
            return no_document("a device or a pipe");
        default:
            return microsoft_word.error(automation::RuntimeError::permission_denied,
                                        "Cannot read " + path + ": " + failure.code().message() + ".");
    }
}

DocumentFile open_file(Machine& machine, const std::filesystem::path& path) {
    try {
        return machine.open_document(path);
    } catch (const std::filesystem::filesystem_error& failure) {
        throw open_error(failure);
    }
}

}  // namespace

std::unique_ptr<TextDocument> open_document(Machine& machine, const std::filesystem::path& path,
                                            const std::string& open_password,
                                            const std::string& write_password) {
    // In this order: a process is contained when it gets its first document, and that has to be before
    // LibreOffice has threads.
    DocumentFile file = open_file(machine, path);
    const Office& office = start_office(machine.private_folder(), microsoft_word);
    const CallGuard call(office.temporary_folder);
    const StandStill from_the_beginning;
    const ImportFilter filter = import_filter(file, office);
    return std::make_unique<TextDocument>(load_document(
        office, std::move(file), filter, {open_password, write_password}, machine, microsoft_word));
}

}  // namespace foliant::hosts::office
