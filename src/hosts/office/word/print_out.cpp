#include "hosts/office/word/print_out.h"

#include "automation/coerce.h"
#include "hosts/office/word/word_error.h"

namespace foliant::hosts::office {

using automation::Missing;
using automation::to_int32;
using automation::Value;

namespace {

enum Parameter : std::size_t { range = 2, output_file_name, from, to, item, copies, pages };

enum class PrintRange : std::int32_t { all = 0, from_to = 3, pages = 4 };

automation::Error not_offered(const std::string& what) {
    return microsoft_word.error(microsoft_word.value_out_of_range, what);
}

std::string requested_pages(const Bound& arguments) {
    const std::int32_t chosen = is_given(arguments[range]) ? to_int32(arguments[range]) : 0;
    switch (static_cast<PrintRange>(chosen)) {
        case PrintRange::all:
            return {};
        case PrintRange::from_to:
            return automation::to_text(arguments[from]) + "-" + automation::to_text(arguments[to]);
        case PrintRange::pages:
            return automation::to_text(arguments[pages]);
    }
    throw not_offered(
        "Documents are printed whole (Range 0), from a page to a page (3) or by a list of pages "
        "(4), not with Range " +
        std::to_string(chosen) + ".");
}

}  // namespace

std::vector<std::string_view> print_out_parameters() {
    return {"Background", "Append", "Range", "OutputFileName", "From",        "To",
            "Item",       "Copies", "Pages", "PageType",       "PrintToFile", "Collate"};
}

PrintRequest read_print_request(const Bound& arguments) {
    if (is_given(arguments[copies]) && to_int32(arguments[copies]) != 1)
        throw not_offered("One copy is printed at a time.");
    PrintRequest request;
    if (is_given(arguments[output_file_name]))
        request.output = automation::to_text(arguments[output_file_name]);
    request.pages = requested_pages(arguments);
    return request;
}

}  // namespace foliant::hosts::office
