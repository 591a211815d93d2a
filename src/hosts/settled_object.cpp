#include "hosts/settled_object.h"

#include <algorithm>
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

const SettledMember* SettledResults::member_of_name(std::string_view name) const {
    // Most callers write a name as it is; comparing in any case takes longer than all the rest.
    const auto same = std::ranges::find(members_, name, &SettledMember::name);
    if (same != members_.end()) return &*same;
    const auto alike = std::ranges::find_if(members_, [&](const SettledMember& member) {
        return automation::equal_ignoring_case(member.name, name);
    });
    return alike == members_.end() ? nullptr : &*alike;
}

std::optional<Value> SettledResults::find(Access access, std::string_view member,
                                          const Arguments& arguments) const {
    if (members_.empty() || (access != Access::get && access != Access::call)) return std::nullopt;
    const SettledMember* const settled = member_of_name(member);
    if (settled == nullptr) return std::nullopt;
    const auto* const texts = std::get_if<Texts>(&settled->results);
    if (texts == nullptr) {
        if (!arguments.empty()) return std::nullopt;
        return std::get<Value>(settled->results);
    }
    const auto index = index_in(arguments);
    if (!index || *index < 0 || static_cast<std::size_t>(*index) >= texts->size()) return std::nullopt;
    return Value((*texts)[static_cast<std::size_t>(*index)]);
}

void SettledObject::settle(std::string_view name, Value result) {
    add_method(name, {}, [result](const Bound&) { return result; });
    settled_.add({std::string(name), std::move(result)});
}

void SettledObject::settle_texts(std::string_view name, Texts texts) {
    settled_.add({std::string(name), std::move(texts)});
    add_method(name, {"nIndex"}, [this, member = settled_.members().size() - 1](const Bound& given) -> Value {
        const auto& list = std::get<Texts>(settled_.members()[member].results);
        const std::int32_t index = automation::to_int32(given[0]);
        if (index < 0 || static_cast<std::size_t>(index) >= list.size())
            throw automation::Error(automation::RuntimeError::subscript_out_of_range);
        return list[static_cast<std::size_t>(index)];
    });
}

}  // namespace foliant::hosts
