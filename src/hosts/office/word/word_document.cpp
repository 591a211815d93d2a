#include "hosts/office/word/word_document.h"

#include <string>
#include <utility>

#include "automation/coerce.h"
#include "hosts/late_bound.h"
#include "hosts/office/word/opened.h"
#include "hosts/office/word/print_out.h"
#include "hosts/office/word/word_content.h"
#include "hosts/office/word/word_page_setup.h"

namespace foliant::hosts::office {

using automation::ObjectPtr;
using automation::to_int32;
using automation::Value;

namespace {

/// Raises for an index that is not the one element that there is.
void expect_first(const Value& index, const std::string& what) {
    if (!is_given(index)) throw automation::Error(automation::RuntimeError::argument_not_optional);
    if (to_int32(index) != 1)
        throw word_error(WordError::no_such_element, "Only " + what + " 1 of a document can be reached.");
}

void add_page_number(Document& document, PageBand band, const Bound& arguments) {
    const std::int32_t alignment =
        is_given(arguments[0]) ? to_int32(arguments[0]) : static_cast<std::int32_t>(NumberAlignment::right);
    if (alignment < 0 || alignment > 2)
        throw microsoft_word.error(microsoft_word.value_out_of_range,
                                   "A page number is aligned 0 (left), 1 (centred) or 2 (right), not " +
                                       std::to_string(alignment) + ".");
    const bool on_first_page = !is_given(arguments[1]) || automation::to_bool(arguments[1]);
    document.add_page_number(band, static_cast<NumberAlignment>(alignment), on_first_page);
}

ObjectPtr make_page_numbers(const DocumentPtr& document, PageBand band) {
    auto numbers = std::make_shared<LateBound>(microsoft_word.name);
    numbers->add_method("Add", {"PageNumberAlignment", "FirstPage"},
                        [document, band](const Bound& arguments) {
                            add_page_number(opened(document), band, arguments);
                            return Value();
                        });
    return numbers;
}

ObjectPtr make_band(const DocumentPtr& document, PageBand band) {
    auto header_or_footer = std::make_shared<LateBound>(microsoft_word.name);
    header_or_footer->add_property("PageNumbers",
                                   [document, band] { return make_page_numbers(document, band); });
    return header_or_footer;
}

ObjectPtr make_section(const DocumentPtr& document) {
    auto section = std::make_shared<LateBound>(microsoft_word.name);
    const auto add_band = [&](std::string_view name, PageBand band) {
        section->add_method(name, {"Index"}, [document, band](const Bound& arguments) {
            expect_first(arguments[0], "header and footer");
            return make_band(document, band);
        });
    };
    add_band("Headers", PageBand::header);
    add_band("Footers", PageBand::footer);
    return section;
}

void close(Document& document, const Value& save_changes) {
    if (is_given(save_changes) && to_int32(save_changes) != 0)
        throw microsoft_word.error(microsoft_word.command_failed,
                                   document.title() +
                                       " cannot be saved: documents are only read here. "
                                       "Close it with False.");
    document.close();
}

}  // namespace

ObjectPtr make_word_document(std::shared_ptr<RunningWord> session, DocumentPtr document) {
    auto object = std::make_shared<LateBound>(microsoft_word.name);
    object->add_property("Content", [document] { return make_content(document); });
    object->add_property("PageSetup", [document] { return make_page_setup(document); });
    object->add_method("Sections", {"Index"}, [document](const Bound& arguments) {
        expect_first(arguments[0], "section");
        return make_section(document);
    });
    object->add_method("PrintOut", print_out_parameters(), [session, document](const Bound& arguments) {
        print(opened(document), read_print_request(arguments), session->active_printer, session->machine,
              microsoft_word);
        return Value();
    });
    object->add_method("Close", {"SaveChanges", "OriginalFormat", "RouteDocument"},
                       [document](const Bound& arguments) {
                           close(opened(document), arguments[0]);
                           return Value();
                       });
    return object;
}

}  // namespace foliant::hosts::office
