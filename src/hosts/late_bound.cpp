#include "hosts/late_bound.h"

#include <algorithm>
#include <utility>

#include "automation/error.h"
#include "automation/text.h"

namespace foliant::hosts {

using automation::Access;
using automation::Argument;
using automation::Arguments;
using automation::Error;
using automation::RuntimeError;
using automation::Value;

Bound bind(const Arguments& arguments, const std::vector<std::string_view>& parameters) {
    Bound bound(parameters.size(), automation::Missing());
    std::size_t position = 0;
    for (const Argument& argument : arguments) {
        if (argument.name.empty()) {
            if (position >= bound.size()) throw Error(RuntimeError::wrong_number_of_arguments);
            bound[position++] = argument.value;
            continue;
        }
        const auto parameter = std::ranges::find_if(parameters, [&](std::string_view name) {
            return automation::equal_ignoring_case(name, argument.name);
        });
        if (parameter == parameters.end()) throw Error(RuntimeError::named_argument_not_found);
        bound[static_cast<std::size_t>(parameter - parameters.begin())] = argument.value;
    }
    return bound;
}

void LateBound::add_method(std::string_view name, Parameters parameters, Body body) {
    members_[automation::to_lower(name)] = {std::move(parameters), std::move(body), {}};
}

void LateBound::add_property(std::string_view name, std::function<Value()> getter, Setter setter) {
    members_[automation::to_lower(name)] = {
        {}, [getter = std::move(getter)](const Bound&) { return getter(); }, std::move(setter)};
}

Value LateBound::invoke(Access access, std::string_view member, const Arguments& arguments) {
    const auto found = members_.find(automation::to_lower(member));
    if (found == members_.end())
        throw Error(RuntimeError::no_such_member, std::string(application_) + " has no member \"" +
                                                      std::string(member) +
                                                      "\" here, or none that this stand-in knows.");
    const automation::ObjectPtr alive = shared_from_this();  // a member may let go of the object
    const Member& chosen = found->second;
    if (access == Access::get || access == Access::call)
        return chosen.body(bind(arguments, chosen.parameters));
    if (!chosen.setter) throw Error(RuntimeError::no_such_member);
    if (arguments.size() != 1) throw Error(RuntimeError::wrong_number_of_arguments);
    chosen.setter(arguments.front().value);
    return {};
}

}  // namespace foliant::hosts
