#include "hosts/settled_object.h"

#include <cstdint>
#include <utility>

#include "automation/coerce.h"
#include "automation/error.h"
#include "automation/text.h"

namespace foliant::hosts {

using automation::Access;
using automation::Arguments;
using automation::Value;

namespace {

/// The index that a call is made with; nothing when it is made otherwise.
std::optional<std::int32_t> index_in(const Arguments& arguments) {
    if (arguments.size() != 1 || !arguments.front().name.empty()) return std::nullopt;
    const Value& index = arguments.front().value;
    if (const auto* number = index.if_holds<std::int32_t>()) return *number;
    if (const auto* number = index.if_holds<std::int16_t>()) return *number;
    return std::nullopt;
}

}  // namespace

std::optional<Value> SettledResults::find(Access access, std::string_view member,
                                          const Arguments& arguments) const {
    if (access != Access::get && access != Access::call) return std::nullopt;
    for (const SettledMember& settled : members_) {
        if (!automation::equal_ignoring_case(settled.name, member)) continue;
        if (!settled.is_list)
            return arguments.empty() ? std::optional(settled.results.front()) : std::nullopt;
        const auto index = index_in(arguments);
        const bool is_there =
            index && *index >= 0 && static_cast<std::size_t>(*index) < settled.results.size();
        return is_there ? std::optional(settled.results[static_cast<std::size_t>(*index)]) : std::nullopt;
    }
    return std::nullopt;
}

void SettledObject::settle(std::string_view name, Value result) {
    settled_.add({std::string(name), false, {std::move(result)}});
    add_method(name, {}, [this, member = settled_.members().size() - 1](const Bound&) {
        return settled_.members()[member].results.front();
    });
}

void SettledObject::settle_list(std::string_view name, std::vector<Value> results) {
    settled_.add({std::string(name), true, std::move(results)});
    add_method(name, {"nIndex"}, [this, member = settled_.members().size() - 1](const Bound& given) {
        const auto& list = settled_.members()[member].results;
        const std::int32_t index = automation::to_int32(given[0]);
        if (index < 0 || static_cast<std::size_t>(index) >= list.size())
            throw automation::Error(automation::RuntimeError::subscript_out_of_range);
        return list[static_cast<std::size_t>(index)];
    });
}

}  // namespace foliant::hosts
