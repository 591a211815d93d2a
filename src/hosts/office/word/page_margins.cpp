#include "hosts/office/word/page_margins.h"

#include <algorithm>

#include "hosts/office/engine/uno_support.h"
#include "hosts/office/word/page_rules.h"

namespace foliant::hosts::office {

namespace {

/// The properties that tell how far from an edge the text is: the margin, and, at the top and the bottom,
/// the header or footer behind it.
struct EdgeProperties {
    const char* margin;
    const char* is_on = nullptr;
    const char* height = nullptr;
    const char* distance = nullptr;
};

constexpr EdgeProperties left{"LeftMargin"};
constexpr EdgeProperties right{"RightMargin"};
constexpr EdgeProperties top{"TopMargin", "HeaderIsOn", "HeaderHeight", "HeaderBodyDistance"};
constexpr EdgeProperties bottom{"BottomMargin", "FooterIsOn", "FooterHeight", "FooterBodyDistance"};

const EdgeProperties& properties_of(Edge edge) {
    switch (edge) {
        case Edge::top:
            return top;
        case Edge::left:
            return left;
        case Edge::right:
            return right;
        case Edge::bottom:
            break;
    }
    return bottom;
}

bool has_band(const PageStyle& style, const EdgeProperties& edge) {
    return edge.is_on != nullptr && uno_property<bool>(style, edge.is_on);
}

}  // namespace

sal_Int32 text_margin(const PageStyle& style, Edge edge) {
    const EdgeProperties& at = properties_of(edge);
    const auto margin = uno_property<sal_Int32>(style, at.margin);
    return has_band(style, at) ? margin + uno_property<sal_Int32>(style, at.height) : margin;
}

void set_text_margin(const PageStyle& style, Edge edge, sal_Int32 wanted) {
    const EdgeProperties& at = properties_of(edge);
    if (!has_band(style, at)) {
        set_uno_property(style, at.margin, wanted);
        return;
    }
    // The space between the header or footer and the text gives way.
    const auto height = uno_property<sal_Int32>(style, at.height);
    const auto distance = uno_property<sal_Int32>(style, at.distance);
    const sal_Int32 change = std::max(wanted - text_margin(style, edge), -distance);
    set_uno_property(style, at.distance, distance + change);
    set_uno_property(style, at.height, height + change);
}

sal_Int32 largest_text_margin(const PageStyle& style, Edge edge) {
    const auto room = [&](const char* paper, Edge opposite) {
        return uno_property<sal_Int32>(style, paper) - text_margin(style, opposite) - least_room;
    };
    switch (edge) {
        case Edge::top:
            return room("Height", Edge::bottom);
        case Edge::left:
            return room("Width", Edge::right);
        case Edge::right:
            return room("Width", Edge::left);
        case Edge::bottom:
            break;
    }
    return room("Height", Edge::top);
}

Margins margins_of(const PageStyle& style) {
    return {text_margin(style, Edge::left), text_margin(style, Edge::top), text_margin(style, Edge::right),
            text_margin(style, Edge::bottom)};
}

}  // namespace foliant::hosts::office
