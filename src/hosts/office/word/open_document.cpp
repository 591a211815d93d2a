#include "hosts/office/word/open_document.h"

#include "hosts/office/engine/document_opener.h"
#include "hosts/office/word/content_kind.h"
#include "hosts/office/word/word_error.h"

namespace foliant::hosts::office {

std::unique_ptr<TextDocument> open_document(Machine& machine, const std::filesystem::path& path,
                                            const std::string& open_password,
                                            const std::string& write_password) {
    return std::make_unique<TextDocument>(
        open_in_office(machine, path, {open_password, write_password}, microsoft_word, import_filter));
}

}  // namespace foliant::hosts::office
