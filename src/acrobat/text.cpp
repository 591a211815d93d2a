#include "acrobat/text.h"

#include <memory>
#include <string_view>
#include <utility>

#include "acrobat/acrobat.h"
#include "acrobat/pages.h"
#include "automation/coerce.h"
#include "registered/classes.h"
#include "session/errors.h"

namespace foliant::acrobat {

using automation::Value;
using session::Session;

namespace {

constexpr std::string_view line_end = "\r\n";

/// The objects by which Acrobat gives the words of one page after the other.
struct PageText {
    Value size;
    Value rectangle;
    Value selection;
    Value page;
};

/// A product of whole numbers in the type of its factor, or in the next one that holds it.
Value ten_times_whole(std::int32_t length, bool fits_in_16_bits) {
    const std::int64_t product = std::int64_t{length} * 10;
    if (fits_in_16_bits && std::in_range<std::int16_t>(product)) return static_cast<std::int16_t>(product);
    if (std::in_range<std::int32_t>(product)) return static_cast<std::int32_t>(product);
    return static_cast<double>(product);
}

/// Long enough that nothing on a page of that width or height lies outside. Nothing is rounded: which numbers a
/// rectangle takes is Acrobat's to say.
Value far_beyond(const Value& length) {
    if (const auto* number = length.if_holds<std::int16_t>()) return ten_times_whole(*number, true);
    if (const auto* number = length.if_holds<std::int32_t>()) return ten_times_whole(*number, false);
    return automation::to_double(length) * 10;
}

void select_page(const Value& document, std::int32_t page, PageText& text) {
    text.page = document.call("AcquirePage", {page});
    text.size = text.page.call("GetSize");
    text.rectangle.set("Left", std::int16_t{0});
    text.rectangle.set("Right", far_beyond(text.size.get("x")));
    text.rectangle.set("bottom", std::int16_t{0});
    text.rectangle.set("Top", far_beyond(text.size.get("y")));
    text.selection = document.call("CreateTextSelect", {page, text.rectangle});
}

std::string without_line_ends(std::string line) {
    for (auto found = line.find(line_end); found != std::string::npos; found = line.find(line_end, found))
        line.erase(found, line_end.size());
    return line;
}

/// Joins the words as they come: blanks and line ends are those that Acrobat puts into them.
void write_words(const Session& session, const Value& selection, bool double_space,
                 platform::TextFile& file) {
    std::string line;
    const std::int32_t words = automation::to_int32(selection.call("GetNumText"));
    automation::Arguments index{0};
    for (std::int32_t i = 0; i < words; ++i) {
        session.outside().clock.pump_messages();
        index.front().value = i;
        const std::string word = automation::to_text(selection.call("GetText", index));
        line += word;
        if (word.find(line_end) == std::string::npos) continue;
        file.write_line(double_space ? line : without_line_ends(line));
        line.clear();
    }
    file.write_line(line);
    if (double_space) file.write_line("");
}

}  // namespace

void CreateTextfileFromPDF(const Session& session, const PdfFile& file, const std::string& strTextfile,
                           bool blnDoubleSpace) {
    Acrobat acrobat;
    PageText text;
    session::with_error_trap(
        [&] {
            const std::unique_ptr<platform::TextFile> output =
                session.outside().files.create_text(strTextfile, platform::TextPurpose::result);
            acrobat.application = new_application(session);
            acrobat.document = new_document(session);
            text.rectangle = session.outside().servers.create(registered::acrobat_rectangle);
            // A second one takes the place of the first, as it always has.
            acrobat.document = new_document(session);
            open_document(session, acrobat, file);
            const std::int32_t last = last_page(acrobat.document);
            for (std::int32_t page = 0; page <= last; ++page) {
                select_page(acrobat.document, page, text);
                write_words(session, text.selection, blnDoubleSpace, *output);
            }
            acrobat.document.call("Close");
            output->close();
            acrobat.application.call("Exit");
            acrobat.document = {};
            text = {};
            acrobat.application = {};
        },
        [&] { acrobat.let_go(); });
}

}  // namespace foliant::acrobat
