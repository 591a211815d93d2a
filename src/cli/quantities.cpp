#include "cli/quantities.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>

#include "automation/text.h"

namespace foliant::cli {
namespace {

struct Unit {
    std::string_view name;  ///< in lower case
    double factor;
};

constexpr double kibi = 1024;
constexpr std::array time_units{Unit{"", 1},   Unit{"s", 1},    Unit{"sec", 1},  Unit{"ms", 0.001},
                                Unit{"m", 60}, Unit{"min", 60}, Unit{"h", 3600}, Unit{"d", 86400}};
constexpr std::array size_units{
    Unit{"", 1},
    Unit{"b", 1},
    Unit{"k", kibi},
    Unit{"m", kibi* kibi},
    Unit{"g", kibi* kibi* kibi},
    Unit{"t", kibi* kibi* kibi* kibi},
};

/// A number that is not negative, and its unit.
template <std::size_t N>
std::optional<double> quantity_in(std::string_view text, const std::array<Unit, N>& units,
                                  std::string_view longer_form) {
    if (automation::equal_ignoring_case(text, "none")) return 0;
    double number = 0;
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (problem != std::errc() || !std::isfinite(number) || std::signbit(number)) return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    const std::string name = automation::to_lower(automation::trim_blanks(text));
    for (const Unit& unit : units) {
        const bool long_name = !longer_form.empty() && unit.factor > 1 && name.size() > unit.name.size() &&
                               name.starts_with(unit.name) &&
                               longer_form.ends_with(std::string_view(name).substr(unit.name.size()));
        if (name == unit.name || long_name) return number * unit.factor;
    }
    return std::nullopt;
}

}  // namespace

std::optional<double> seconds_in(std::string_view text) {
    return quantity_in(text, time_units, "");
}

std::optional<std::uint64_t> bytes_in(std::string_view text) {
    constexpr double most = 9e18;
    const auto bytes = quantity_in(text, size_units, "ib");
    if (!bytes || *bytes > most) return std::nullopt;
    return static_cast<std::uint64_t>(*bytes);
}

std::string readable_size(std::uint64_t bytes) {
    const auto number = static_cast<double>(bytes);
    const auto shown = [](const char* format, double value) {
        std::array<char, 48> text{};
        std::snprintf(text.data(), text.size(), format, value);
        return std::string(text.data());
    };
    if (number < kibi) return std::to_string(bytes) + " bytes";
    if (number < kibi * kibi) return shown("%.0f KiB", number / kibi);
    if (number < kibi * kibi * kibi) return shown("%.1f MiB", number / kibi / kibi);
    return shown("%.3g GiB", number / kibi / kibi / kibi);
}

}  // namespace foliant::cli
