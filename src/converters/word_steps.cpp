#include "converters/word_steps.h"

#include "automation/coerce.h"
#include "automation/text.h"

namespace foliant::converters {

using automation::named;
using engines::HostProgram;
using session::Session;

namespace {

constexpr std::int16_t alerts_none = 0;
constexpr std::int16_t alerts_all = -1;
constexpr std::int16_t first_section = 1;
constexpr std::int16_t primary = 1;

std::int16_t word_alignment(std::int32_t alignment) noexcept {
    return static_cast<std::int16_t>(alignment == 0 || alignment == 2 ? alignment : 1);
}

void add_page_number(const HostProgram& word, const char* headers_or_footers, const PageNumbers& numbers) {
    word.document.get("Sections", {first_section})
        .get(headers_or_footers, {primary})
        .get("PageNumbers")
        .call("Add", {named("PageNumberAlignment", word_alignment(numbers.alignment)),
                      named("FirstPage", numbers.on_first_page)});
}

}  // namespace

void set_orientation(const HostProgram& word, bool landscape) {
    word.document.get("PageSetup").set("Orientation", static_cast<std::int16_t>(landscape ? 1 : 0));
}

void add_page_numbers(const HostProgram& word, const PageNumbers& numbers) {
    if (numbers.in_footer) add_page_number(word, "Footers", numbers);
    if (numbers.in_header) add_page_number(word, "Headers", numbers);
}

void silence_alerts(const HostProgram& word) {
    word.application.set("DisplayAlerts", alerts_none);
}

std::string choose_active_printer(const Session& session, const HostProgram& word,
                                  const std::string& printer) {
    std::string former = automation::to_text(word.application.get("ActivePrinter"));
    const bool blank = automation::trim_blanks(printer).empty();
    word.application.set("ActivePrinter", blank ? session.PrinterName() : printer);
    return former;
}

automation::Argument to_file(const std::string& path) {
    return named("Outputfilename", path);
}

void restore_printer_and_alerts(const HostProgram& word, const std::string& former_printer) {
    word.application.set("ActivePrinter", former_printer);
    word.application.set("DisplayAlerts", alerts_all);
}

}  // namespace foliant::converters
