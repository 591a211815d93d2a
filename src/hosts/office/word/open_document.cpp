#include "hosts/office/word/open_document.h"

#include "hosts/office/engine/document_loader.h"
#include "hosts/office/engine/process_guard.h"
#include "hosts/office/word/content_kind.h"
#include "hosts/office/word/word_error.h"

namespace foliant::hosts::office {

std::unique_ptr<TextDocument> open_document(const Office& office, const std::filesystem::path& path,
                                            const std::string& open_password,
                                            const std::string& write_password) {
    const std::filesystem::path absolute = std::filesystem::absolute(path);
    const CallGuard call(office.temporary_folder);
    const StandStill from_the_beginning;
    return std::make_unique<TextDocument>(load_document(office, absolute, import_filter(absolute, office),
                                                        {open_password, write_password}, microsoft_word));
}

}  // namespace foliant::hosts::office
