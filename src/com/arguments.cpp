#include "com/arguments.h"

#include <string>
#include <utility>

#include "automation/error.h"
#include "com/parameter_variant.h"
#include "core/dispatch.h"

namespace foliant::com {

using automation::Arguments;
using automation::Error;
using automation::Missing;
using automation::RuntimeError;
using automation::Value;

namespace {

/// The caller's value as the parameter's type; an error names the parameter, which helps in a list of twenty.
Value converted(const core::Parameter& parameter, const VARIANT& given) {
    try {
        return as_parameter(parameter.type, given);
    } catch (const Error& error) {
        throw Error(error.number(), error.source(), error.description() + ": " + std::string(parameter.name));
    }
}

/// The arguments on their way to the member and back.
class Conversion {
  public:
    Conversion(const core::Member& member, const GivenArguments& given) : member_(member), given_(given) {
        arguments_.reserve(member.parameter_count);
        for (std::size_t i = 0; i < member.parameter_count; ++i) {
            sent_[i] = given[i] == nullptr ? Value(Missing{}) : converted(member.parameters()[i], *given[i]);
            arguments_.emplace_back(sent_[i]);
        }
    }

    Arguments& arguments() noexcept { return arguments_; }

    void write_back() const {
        for (std::size_t i = 0; i < member_.parameter_count; ++i) {
            const bool can_change = member_.parameters()[i].by_reference && given_[i] != nullptr &&
                                    (given_[i]->vt & VT_BYREF) != 0 && !sent_[i].holds<Missing>();
            if (can_change && !(arguments_[i].value == sent_[i])) assign(*given_[i], arguments_[i].value);
        }
    }

  private:
    const core::Member& member_;
    const GivenArguments& given_;
    std::array<Value, core::most_parameters> sent_;
    Arguments arguments_;
};

void place(GivenArguments& given, const core::Member& member, std::size_t parameter, VARIANT& argument) {
    if (parameter >= member.parameter_count || given[parameter] != nullptr) {
        throw Error(RuntimeError::wrong_number_of_arguments,
                    "Wrong number of arguments or invalid property assignment: " + std::string(member.name));
    }
    given[parameter] = &argument;
}

/// The parameter that a sent DISPID names: its position, or the new value of a property.
std::size_t named_parameter(const core::Member& member, DISPID name) {
    if (name == DISPID_PROPERTYPUT && member.kind == core::MemberKind::property_put) {
        return member.parameter_count - 1;
    }
    if (name < 0 || static_cast<std::size_t>(name) >= member.parameter_count) {
        throw Error(RuntimeError::named_argument_not_found,
                    "Named argument not found in a call of " + std::string(member.name));
    }
    return static_cast<std::size_t>(name);
}

}  // namespace

Value call_member(core::BuildPDF& object, const core::Member& member, automation::Access access,
                  const GivenArguments& given) {
    Conversion conversion(member, given);
    Value result;
    try {
        result = core::invoke(object, member.dispid, access, conversion.arguments());
    } catch (...) {
        try {
            conversion.write_back();
        } catch (
            ...) {  // NOLINT(bugprone-empty-catch): the member's own error is the one that the caller sees
        }
        throw;
    }
    conversion.write_back();
    return result;
}

GivenArguments sort_arguments(const core::Member& member, const DISPPARAMS& sent) {
    GivenArguments given{};
    if (sent.cArgs > 0 && sent.rgvarg == nullptr) throw Error(RuntimeError::wrong_number_of_arguments);
    if (sent.cNamedArgs > sent.cArgs || (sent.cNamedArgs > 0 && sent.rgdispidNamedArgs == nullptr)) {
        throw Error(RuntimeError::named_argument_not_found);
    }
    // Named ones stand first; then the others, the last one first.
    for (UINT i = 0; i < sent.cArgs - sent.cNamedArgs; ++i)
        place(given, member, i, sent.rgvarg[sent.cArgs - 1 - i]);
    for (UINT i = 0; i < sent.cNamedArgs; ++i)
        place(given, member, named_parameter(member, sent.rgdispidNamedArgs[i]), sent.rgvarg[i]);
    return given;
}

}  // namespace foliant::com
