#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/object.h"
#include "hosts/late_bound.h"

namespace foliant::hosts {

/// A member of an object that always gives the same results: a single one, or as many as it is asked for with
/// an index, from 0.
struct SettledMember {
    std::string name;
    bool is_list = false;
    std::vector<automation::Value> results;  ///< texts, numbers and the like; no objects, no arrays
};

/// What such members give.
class SettledResults {
  public:
    void add(SettledMember member) { members_.push_back(std::move(member)); }
    const std::vector<SettledMember>& members() const noexcept { return members_; }

    /// The result of a call; nothing for a member that is not here, or arguments that it is not asked with.
    std::optional<automation::Value> find(automation::Access access, std::string_view member,
                                          const automation::Arguments& arguments) const;

  private:
    const SettledMember* member_of_name(std::string_view name) const;

    std::vector<SettledMember> members_;
};

/// An object with settled members. One that goes to another process takes their results along: they are asked
/// for there without a call between the processes.
class SettledObject : public LateBound {
  public:
    using LateBound::LateBound;

    /// A member without arguments.
    void settle(std::string_view name, automation::Value result);
    /// A member that is asked with an index, from 0; raises 9 for another one.
    void settle_list(std::string_view name, std::vector<automation::Value> results);

    const SettledResults& settled() const noexcept { return settled_; }

  private:
    SettledResults settled_;
};

}  // namespace foliant::hosts
