#include "hosts/office/word/word_page_setup.h"

#include <string>

#include "automation/coerce.h"
#include "hosts/late_bound.h"

namespace foliant::hosts::office {

using automation::Value;

namespace {

constexpr std::int32_t portrait = 0;
constexpr std::int32_t landscape = 1;

void set_orientation(Document& document, std::int32_t orientation) {
    if (orientation != portrait && orientation != landscape)
        throw microsoft_word.error(
            microsoft_word.value_out_of_range,
            "An orientation is 0 (portrait) or 1 (landscape), not " + std::to_string(orientation) + ".");
    document.set_orientation(orientation == landscape);
}

}  // namespace

automation::ObjectPtr make_page_setup(const DocumentPtr& document) {
    auto setup = std::make_shared<LateBound>(microsoft_word.name);
    setup->add_property(
        "Orientation", [document] { return opened(document).is_landscape() ? landscape : portrait; },
        [document](const Value& value) { set_orientation(opened(document), automation::to_int32(value)); });
    const auto add_margin = [&](std::string_view name, Edge edge) {
        setup->add_property(
            name, [document, edge] { return opened(document).margin(edge); },
            [document, edge](const Value& value) {
                opened(document).set_margin(edge, automation::to_single(value));
            });
    };
    add_margin("TopMargin", Edge::top);
    add_margin("LeftMargin", Edge::left);
    add_margin("RightMargin", Edge::right);
    add_margin("BottomMargin", Edge::bottom);
    return setup;
}

}  // namespace foliant::hosts::office
