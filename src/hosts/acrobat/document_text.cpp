#include "hosts/acrobat/document_text.h"

#include <qpdf/QUtil.hh>
#include <string_view>
#include <utility>
#include <vector>

#include "hosts/acrobat/structure/write_pdf.h"

namespace foliant::hosts::acrobat {
namespace {

using text::TextReader;

/// Older files have their passwords in an encoding that whoever made them chose.
std::unique_ptr<TextReader> open(const text::Bytes& bytes, const std::string& password) {
    const std::vector<std::string> spellings = QUtil::possible_repaired_encodings(password);
    for (std::size_t i = 0; i + 1 < spellings.size(); ++i) {
        try {
            return std::make_unique<TextReader>(bytes, spellings[i]);
        } catch (const text::WrongPassword&) {  // NOLINT(bugprone-empty-catch): the next one may be right
        }
    }
    return std::make_unique<TextReader>(bytes, spellings.back());
}

/// The document as a file that needs no password.
text::Bytes current_bytes(structure::Pdf& pdf) {
    const auto bytes = std::make_shared<const std::string>(structure::written_pdf(pdf));
    return {*bytes, bytes};
}

}  // namespace

DocumentText::DocumentText(std::unique_ptr<TextReader> reader, std::size_t most_bytes)
    : reader_(std::move(reader)), finder_(*reader_, most_bytes) {}

DocumentText::DocumentText(const std::shared_ptr<const MappedFile>& file, const std::string& password,
                           std::size_t most_bytes)
    : DocumentText(open({file->bytes(), file}, password), most_bytes) {}

DocumentText::DocumentText(structure::Pdf& pdf, std::size_t most_bytes)
    : DocumentText(std::make_unique<TextReader>(current_bytes(pdf), ""), most_bytes) {}

}  // namespace foliant::hosts::acrobat
