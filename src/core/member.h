#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <exception>
#include <initializer_list>
#include <optional>
#include <span>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <variant>

#include "automation/value.h"
#include "core/build_pdf.h"
#include "core/family.h"
#include "core/value_type.h"

namespace foliant::core {

enum class MemberKind { method, property_get, property_put };

/// What an optional parameter holds when the caller leaves it out: the zero of its type unless the table
/// names one.
using DefaultValue = std::variant<std::monostate, std::int32_t, std::string_view>;

struct Parameter {
    std::string_view name;
    ValueType type = ValueType::string;
    bool by_reference = false;
    bool optional = false;
    DefaultValue default_value;
};

/// No member has more (the Excel converters).
inline constexpr std::size_t most_parameters = 24;

/// One member of the interface.
struct Member {
    /// Calls the member. `arguments` has one value per parameter, in order, `Missing` where the caller gave
    /// none. By-reference parameters are written back into it, also when the member fails. Returns the
    /// result, if there is one.
    using Call = automation::Value (*)(BuildPDF& object, const Member& self,
                                       std::span<automation::Value> arguments);

    int slot = 0;
    std::int32_t dispid = 0;
    Family family = Family::settings;
    MemberKind kind = MemberKind::method;
    std::string_view name;
    std::string_view help;
    std::array<Parameter, most_parameters> parameter_storage{};
    std::size_t parameter_count = 0;
    std::optional<ValueType> result;
    Call call = nullptr;

    constexpr std::span<const Parameter> parameters() const {
        return {parameter_storage.data(), parameter_count};
    }
    constexpr std::size_t required_parameters() const {
        return static_cast<std::size_t>(
            std::count_if(parameter_storage.begin(), parameter_storage.begin() + parameter_count,
                          [](const Parameter& parameter) { return !parameter.optional; }));
    }
};

/// One entry of a row's parameter list; type and passing are added from the signature.
struct ParameterEntry {
    std::string_view name;
    bool optional = false;
    DefaultValue default_value;
};
constexpr ParameterEntry required(std::string_view name) {
    return {name, false, {}};
}
constexpr ParameterEntry optional(std::string_view name) {
    return {name, true, {}};
}
constexpr ParameterEntry optional(std::string_view name, std::int32_t number) {
    return {name, true, number};
}
constexpr ParameterEntry optional(std::string_view name, const char* text) {
    return {name, true, std::string_view(text)};
}

namespace detail {

/// The value that an optional parameter starts with when it is left out, or the coerced argument.
template <class T>
T argument_for(const Parameter& parameter, const automation::Value& given) {
    if (!given.holds<automation::Missing>()) return from_value<T>(given);
    if constexpr (std::is_same_v<T, automation::Value>) {
        if (parameter.optional) return given;
    }
    if (!parameter.optional) throw argument_not_optional(parameter.name);
    if (const auto* number = std::get_if<std::int32_t>(&parameter.default_value)) {
        return from_value<T>(automation::Value(*number));
    }
    if (const auto* text = std::get_if<std::string_view>(&parameter.default_value)) {
        return from_value<T>(automation::Value(*text));
    }
    return T{};
}

template <auto Method>
struct Signature;

template <class Result, class... Args, Result (BuildPDF::*Method)(Args...)>
struct Signature<Method> {
    static constexpr std::size_t count = sizeof...(Args);
    static constexpr std::array<ValueType, count> types{value_type_of<std::remove_cvref_t<Args>>...};
    static constexpr std::array<bool, count> by_reference{std::is_lvalue_reference_v<Args>...};

    static constexpr std::optional<ValueType> result() {
        if constexpr (std::is_void_v<Result>) {
            return std::nullopt;
        } else {
            return value_type_of<Result>;
        }
    }

    static automation::Value call(BuildPDF& object, const Member& self,
                                  std::span<automation::Value> arguments) {
        return call_with(object, self, arguments, std::index_sequence_for<Args...>());
    }

  private:
    using Locals = std::tuple<std::remove_cvref_t<Args>...>;

    /// By-reference results reach the caller's variables however the member ends, as they would if the member
    /// had been handed the variables themselves.
    template <std::size_t... I>
    class WriteBack {
      public:
        WriteBack(Locals& locals, std::span<automation::Value> arguments)
            : locals_(locals), arguments_(arguments) {}
        ~WriteBack() {
            (
                [&] {
                    if constexpr (by_reference[I]) arguments_[I] = to_value(std::get<I>(locals_));
                }(),
                ...);
        }

      private:
        [[maybe_unused]] Locals& locals_;
        [[maybe_unused]] std::span<automation::Value> arguments_;
    };

    template <std::size_t... I>
    static automation::Value call_with(BuildPDF& object, const Member& self,
                                       [[maybe_unused]] std::span<automation::Value> arguments,
                                       std::index_sequence<I...>) {
        [[maybe_unused]] const auto parameters = self.parameters();
        Locals locals{argument_for<std::remove_cvref_t<Args>>(parameters[I], arguments[I])...};
        const WriteBack<I...> write_back(locals, arguments);
        if constexpr (std::is_void_v<Result>) {
            (object.*Method)(static_cast<Args>(std::get<I>(locals))...);
            return {};
        } else {
            return to_value((object.*Method)(static_cast<Args>(std::get<I>(locals))...));
        }
    }
};

/// The name of the C++ function, as the compiler spells it.
template <auto Method>
consteval std::string_view function_name() {
    std::string_view name = __PRETTY_FUNCTION__;
    name.remove_prefix(name.rfind("BuildPDF::") + std::string_view("BuildPDF::").size());
    return name.substr(0, name.find_first_of(";]"));
}

}  // namespace detail

/// Makes a row of the table. A row that does not fit the function it names does not compile.
template <auto Method>
consteval Member row(int slot, std::uint32_t dispid, Family family, MemberKind kind, std::string_view name,
                     std::string_view help, std::initializer_list<ParameterEntry> entries) {
    using Signature = detail::Signature<Method>;
    std::string_view function = detail::function_name<Method>();
    if (kind != MemberKind::method) function.remove_prefix(std::string_view("get_").size());
    if (function != name) throw "the row names another function";
    if (entries.size() != Signature::count)
        throw "the row has another number of parameters than the function";
    Member member{.slot = slot,
                  .dispid = static_cast<std::int32_t>(dispid),
                  .family = family,
                  .kind = kind,
                  .name = name,
                  .help = help,
                  .parameter_count = entries.size(),
                  .result = Signature::result(),
                  .call = &Signature::call};
    std::size_t index = 0;
    for (const ParameterEntry& entry : entries) {
        member.parameter_storage[index] = {entry.name, Signature::types[index],
                                           Signature::by_reference[index], entry.optional,
                                           entry.default_value};
        ++index;
    }
    return member;
}

template <std::size_t N>
consteval bool in_slot_order(const std::array<Member, N>& members) {
    for (std::size_t i = 0; i < N; ++i) {
        if (members[i].slot != static_cast<int>(i)) return false;
    }
    return true;
}

/// A text that can be a template argument.
template <std::size_t N>
struct FixedText {
    consteval FixedText(const char (&text)[N]) { std::copy_n(text, N, data); }
    char data[N];
};

/// The slots in the order in which the type library lists the functions: property accessors stand before
/// `Name`, all else as in the table.
template <FixedText Name, std::size_t N>
consteval std::array<std::size_t, N> order_with_accessors_before(const std::array<Member, N>& members) {
    std::array<std::size_t, N> order{};
    std::size_t next = 0;
    for (std::size_t i = 0; i < N; ++i) {
        if (members[i].kind != MemberKind::method) continue;
        if (members[i].name == Name.data) {
            for (std::size_t accessor = 0; accessor < N; ++accessor) {
                if (members[accessor].kind != MemberKind::method) order[next++] = accessor;
            }
        }
        order[next++] = i;
    }
    return order;
}

}  // namespace foliant::core
