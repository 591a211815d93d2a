#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "automation/object.h"

namespace foliant::hosts {

/// The arguments of a call in the order of its parameters; `Missing` where none was given.
using Bound = std::vector<automation::Value>;

/// Whether the caller gave the argument.
inline bool is_given(const automation::Value& argument) {
    return !argument.holds<automation::Missing>();
}

/// Puts positional and named arguments in the order of the parameters; names count in any case. Raises 450
/// for too many, 448 for a name that is none of the parameters.
Bound bind(const automation::Arguments& arguments, const std::vector<std::string_view>& parameters);

/// An automation object that is made by naming its members one by one. Case does not matter in names; a
/// method and a property with arguments are reached alike, as callers do not tell them apart.
class LateBound : public automation::Object {
  public:
    /// `application` is whose object it is, for messages; its text has to outlive the object.
    explicit LateBound(std::string_view application) : application_(application) {}

    using Parameters = std::vector<std::string_view>;
    using Body = std::function<automation::Value(const Bound&)>;
    using Setter = std::function<void(const automation::Value&)>;

    /// A method, or a property that is read with arguments.
    void add_method(std::string_view name, Parameters parameters, Body body);
    /// A property that is read; without a setter it cannot be assigned.
    void add_property(std::string_view name, std::function<automation::Value()> getter, Setter setter = {});

    automation::Value invoke(automation::Access access, std::string_view member,
                             const automation::Arguments& arguments) override;

  private:
    struct Member {
        Parameters parameters;
        Body body;
        Setter setter;
    };

    std::string_view application_;
    std::map<std::string, Member> members_;  ///< by name in lower case
};

}  // namespace foliant::hosts
