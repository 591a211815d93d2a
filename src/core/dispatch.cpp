#include "core/dispatch.h"

#include <algorithm>
#include <array>
#include <vector>

#include "automation/error.h"
#include "core/member_table.h"
#include "core/members.h"
#include "session/errors.h"

namespace foliant::core {

using automation::Access;
using automation::Argument;
using automation::Arguments;
using automation::Error;
using automation::RuntimeError;
using automation::Value;

namespace {

constexpr char lower(char c) noexcept {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

/// Order of names without regard to case; member and parameter names are plain ASCII.
constexpr int compare(std::string_view a, std::string_view b) noexcept {
    const std::size_t shared = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < shared; ++i) {
        if (lower(a[i]) != lower(b[i])) return lower(a[i]) < lower(b[i]) ? -1 : 1;
    }
    return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}

constexpr auto rows_by_name = [] {
    std::array<std::size_t, member_count> rows{};
    for (std::size_t i = 0; i < rows.size(); ++i)
        rows[i] = i;
    std::sort(rows.begin(), rows.end(), [](std::size_t a, std::size_t b) {
        return compare(member_table[a].name, member_table[b].name) < 0;
    });
    return rows;
}();

constexpr bool is_reached_by(MemberKind kind, Access access) noexcept {
    const bool assigns = access == Access::set || access == Access::set_reference;
    return assigns == (kind == MemberKind::property_put);
}

std::size_t place_of(const Member& member, const Argument& argument, std::size_t position) {
    if (argument.name.empty()) {
        if (position >= member.parameter_count) throw Error(RuntimeError::wrong_number_of_arguments);
        return position;
    }
    if (const auto place = find_parameter(member, argument.name)) return *place;
    throw Error(RuntimeError::named_argument_not_found, "Named argument not found: " + argument.name);
}

Value call_member(BuildPDF& object, const Member& member, Arguments& arguments) {
    std::array<Value, most_parameters> values;
    std::array<Argument*, most_parameters> given{};
    values.fill(automation::Missing{});
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::size_t place = place_of(member, arguments[i], i);
        if (given[place] != nullptr) throw Error(RuntimeError::wrong_number_of_arguments);
        given[place] = &arguments[i];
        values[place] = arguments[i].value;
    }
    const auto write_back = [&] {
        for (std::size_t i = 0; i < member.parameter_count; ++i) {
            if (given[i] != nullptr && member.parameter_storage[i].by_reference) {
                given[i]->value = std::move(values[i]);
            }
        }
    };
    try {
        Value result = member.call(object, member, {values.data(), member.parameter_count});
        write_back();
        return result;
    } catch (...) {
        write_back();
        throw;
    }
}

}  // namespace

std::optional<std::int32_t> find_dispid(std::string_view name) noexcept {
    const auto row = std::lower_bound(rows_by_name.begin(), rows_by_name.end(), name,
                                      [](std::size_t candidate, std::string_view wanted) {
                                          return compare(members[candidate].name, wanted) < 0;
                                      });
    if (row == rows_by_name.end() || compare(members[*row].name, name) != 0) return std::nullopt;
    return members[*row].dispid;
}

const Member* find_member(std::int32_t dispid, Access access) noexcept {
    const auto row = std::find_if(members.begin(), members.end(), [&](const Member& member) {
        return member.dispid == dispid && is_reached_by(member.kind, access);
    });
    return row == members.end() ? nullptr : &*row;
}

std::optional<std::size_t> find_parameter(const Member& member, std::string_view name) noexcept {
    const auto parameters = member.parameters();
    const auto found = std::find_if(parameters.begin(), parameters.end(), [&](const Parameter& parameter) {
        return compare(parameter.name, name) == 0;
    });
    if (found == parameters.end()) return std::nullopt;
    return static_cast<std::size_t>(found - parameters.begin());
}

Value invoke(BuildPDF& object, std::int32_t dispid, Access access, Arguments& arguments) {
    Value result;
    session::with_error_trap(
        [&] {
            const Member* member = find_member(dispid, access);
            if (member == nullptr) throw Error(RuntimeError::no_such_member);
            result = call_member(object, *member, arguments);
        },
        [] {});
    return result;
}

Value invoke(BuildPDF& object, std::string_view name, Access access, Arguments& arguments) {
    const auto dispid = find_dispid(name);
    return invoke(object, dispid.value_or(0), access, arguments);
}

}  // namespace foliant::core
