#include "hosts/office/word/open_document.h"

#include <utility>

#include "hosts/office/engine/content.h"
#include "hosts/office/engine/document_opener.h"
#include "hosts/office/word/content_kind.h"
#include "hosts/office/word/plain_document.h"
#include "hosts/office/word/text_document.h"
#include "hosts/office/word/word_error.h"

namespace foliant::hosts::office {

std::unique_ptr<Document> open_document(Machine& machine, const std::filesystem::path& path,
                                        const std::string& open_password, const std::string& write_password) {
    DocumentFile file = open_file(machine, path, microsoft_word);
    if (is_plain_text(file))
        return std::make_unique<PlainDocument>(machine, file.path, whole_content(file, microsoft_word));
    return std::make_unique<TextDocument>(load_in_office(
        machine, std::move(file), {open_password, write_password}, microsoft_word, import_filter));
}

}  // namespace foliant::hosts::office
