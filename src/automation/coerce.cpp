#include "automation/coerce.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

#include "automation/error.h"
#include "automation/text.h"

namespace foliant::automation {
namespace {

template <class... Ts>
struct overloaded : Ts... {
    using Ts::operator()...;
};
template <class... Ts>
overloaded(Ts...) -> overloaded<Ts...>;

[[noreturn]] void mismatch() {
    throw Error(RuntimeError::type_mismatch);
}

std::string shortest_text(double number, int significant_digits) {
    std::array<char, 64> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                                   std::chars_format::general, significant_digits);
    std::string text(buffer.data(), end.ptr);
    for (char& c : text) {
        if (c == 'e') c = 'E';
    }
    return text;
}

/// "&H1F" and "&O17", as people write such numbers in scripts.
std::optional<double> prefixed_number(std::string_view text) {
    if (text.size() < 3 || text[0] != '&') return std::nullopt;
    const int base = (text[1] == 'H' || text[1] == 'h') ? 16 : (text[1] == 'O' || text[1] == 'o') ? 8 : 0;
    if (base == 0) return std::nullopt;
    std::uint32_t bits = 0;
    const auto end = std::from_chars(text.data() + 2, text.data() + text.size(), bits, base);
    if (end.ec != std::errc() || end.ptr != text.data() + text.size()) return std::nullopt;
    return static_cast<double>(static_cast<std::int32_t>(bits));
}

double number_in(std::string_view whole) {
    std::string_view text = trim_blanks(whole);
    if (const auto number = prefixed_number(text)) return *number;
    if (text.starts_with('+') && text.size() > 1 && text[1] != '-') text.remove_prefix(1);
    double number = 0;
    const auto end = std::from_chars(text.data(), text.data() + text.size(), number);
    if (end.ec == std::errc::result_out_of_range) throw Error(RuntimeError::overflow);
    if (end.ec != std::errc() || end.ptr != text.data() + text.size() || !std::isfinite(number)) mismatch();
    return number;
}

template <class Integer>
Integer to_integer(const Value& value) {
    const double rounded = std::nearbyint(to_double(value));
    if (!(rounded >= std::numeric_limits<Integer>::min() && rounded <= std::numeric_limits<Integer>::max())) {
        throw Error(RuntimeError::overflow);
    }
    return static_cast<Integer>(rounded);
}

}  // namespace

std::string to_text(const Value& value) {
    return std::visit(overloaded{
                          [](Empty) { return std::string(); },
                          [](Null) -> std::string { throw Error(RuntimeError::invalid_use_of_null); },
                          [](bool truth) { return std::string(truth ? "True" : "False"); },
                          [](std::int16_t number) { return std::to_string(number); },
                          [](std::int32_t number) { return std::to_string(number); },
                          [](float number) { return shortest_text(number, 7); },
                          [](double number) { return shortest_text(number, 15); },
                          [](const std::string& text) { return text; },
                          [](const auto&) -> std::string { mismatch(); },
                      },
                      value.storage());
}

double to_double(const Value& value) {
    return std::visit(overloaded{
                          [](Empty) { return 0.0; },
                          [](Null) -> double { throw Error(RuntimeError::invalid_use_of_null); },
                          [](bool truth) { return truth ? -1.0 : 0.0; },
                          [](std::int16_t number) { return double{static_cast<double>(number)}; },
                          [](std::int32_t number) { return static_cast<double>(number); },
                          [](float number) { return static_cast<double>(number); },
                          [](double number) { return number; },
                          [](const std::string& text) { return number_in(text); },
                          [](const auto&) -> double { mismatch(); },
                      },
                      value.storage());
}

float to_single(const Value& value) {
    if (const auto* single = value.if_holds<float>()) return *single;
    const double number = to_double(value);
    if (std::abs(number) > static_cast<double>(std::numeric_limits<float>::max()))
        throw Error(RuntimeError::overflow);
    return static_cast<float>(number);
}

bool to_bool(const Value& value) {
    if (const auto* truth = value.if_holds<bool>()) return *truth;
    if (const auto* text = value.if_holds<std::string>()) {
        const std::string lower = to_lower(trim_blanks(*text));
        if (lower == "true") return true;
        if (lower == "false") return false;
    }
    return to_double(value) != 0;
}

std::int16_t to_int16(const Value& value) {
    return to_integer<std::int16_t>(value);
}
std::int32_t to_int32(const Value& value) {
    return to_integer<std::int32_t>(value);
}

double leading_number(std::string_view text) noexcept {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t'))
        text.remove_prefix(1);
    if (text.starts_with('+') && text.size() > 1 && text[1] != '-') text.remove_prefix(1);
    double number = 0;
    const auto end = std::from_chars(text.data(), text.data() + text.size(), number);
    return end.ec == std::errc() && std::isfinite(number) ? number : 0;
}

}  // namespace foliant::automation
