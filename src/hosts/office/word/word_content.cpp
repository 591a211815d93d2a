#include "hosts/office/word/word_content.h"

#include <string>

#include "automation/coerce.h"
#include "hosts/late_bound.h"
#include "hosts/office/word/text_font.h"

namespace foliant::hosts::office {

using automation::to_int32;
using automation::Value;

namespace {

constexpr float smallest_points = 1;
constexpr float largest_points = 1638;
constexpr std::int32_t automatic_color = -16777216;
constexpr std::int32_t largest_color = 0xFFFFFF;
constexpr std::int32_t no_underline = 0;
constexpr std::int32_t single_underline = 1;

/// Word and callers count red first, LibreOffice blue.
std::int32_t other_way_round(std::int32_t color) {
    const auto bits = static_cast<std::uint32_t>(color);
    return static_cast<std::int32_t>((bits & 0xFFU) << 16U | (bits & 0xFF00U) | bits >> 16U);
}

void set_points(TextFont& font, float points) {
    if (!(points >= smallest_points && points <= largest_points))
        throw microsoft_word.error(microsoft_word.value_out_of_range,
                                   "A font has 1 to 1638 points, not " + automation::to_text(points) + ".");
    font.set_points(points);
}

void set_color(TextFont& font, std::int32_t color) {
    if (color == automatic_color) return font.set_color(-1);
    if (color < 0 || color > largest_color)
        throw microsoft_word.error(microsoft_word.value_out_of_range,
                                   "A colour is red + green * 256 + blue * 65536, at most 16777215, not " +
                                       std::to_string(color) + ".");
    font.set_color(other_way_round(color));
}

std::int32_t color_of(const TextFont& font) {
    const std::int32_t color = font.color();
    return color < 0 ? automatic_color : other_way_round(color);
}

/// Word's number of a kind of underline; a truth value stands for none and a single one.
void set_underline(TextFont& font, std::int32_t kind) {
    const bool on = kind == single_underline || kind == -1;
    if (!on && kind != no_underline)
        throw microsoft_word.error(
            microsoft_word.value_out_of_range,
            "An underline is 0 (none) or 1 (single), not " + std::to_string(kind) + ".");
    font.set_underlined(on);
}

/// A property of the font, by what reads it from LibreOffice's and what writes it there.
template <class Read, class Write>
void add_font_property(LateBound& object, const DocumentPtr& document, std::string_view name, Read read,
                       Write write) {
    object.add_property(
        name,
        [document, read] {
            Value value;
            opened(document).with_content_font([&](TextFont& font) { value = Value(read(font)); });
            return value;
        },
        [document, write](const Value& value) {
            opened(document).with_content_font([&](TextFont& font) { write(font, value); });
        });
}

automation::ObjectPtr make_font(const DocumentPtr& document) {
    auto object = std::make_shared<LateBound>(microsoft_word.name);
    const auto add = [&](std::string_view name, auto read, auto write) {
        add_font_property(*object, document, name, read, write);
    };
    using Font = TextFont;
    add(
        "Name", [](const Font& font) { return font.name(); },
        [](Font& font, const Value& value) { font.set_name(automation::to_text(value)); });
    add(
        "Size", [](const Font& font) { return font.points(); },
        [](Font& font, const Value& value) { set_points(font, automation::to_single(value)); });
    add("Color", color_of, [](Font& font, const Value& value) { set_color(font, to_int32(value)); });
    add(
        "Bold", [](const Font& font) { return font.is_bold(); },
        [](Font& font, const Value& value) { font.set_bold(automation::to_bool(value)); });
    add(
        "Italic", [](const Font& font) { return font.is_italic(); },
        [](Font& font, const Value& value) { font.set_italic(automation::to_bool(value)); });
    add(
        "Underline", [](const Font& font) { return font.is_underlined() ? single_underline : no_underline; },
        [](Font& font, const Value& value) { set_underline(font, to_int32(value)); });
    object->add_method("Reset", {}, [document](const Bound&) {
        opened(document).with_content_font([](Font& font) { font.reset(); });
        return Value();
    });
    return object;
}

}  // namespace

automation::ObjectPtr make_content(const DocumentPtr& document) {
    auto content = std::make_shared<LateBound>(microsoft_word.name);
    content->add_property("Font", [document] { return make_font(document); });
    return content;
}

}  // namespace foliant::hosts::office
