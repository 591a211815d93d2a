#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "automation/object.h"
#include "hosts/late_bound.h"

namespace foliant::hosts {

/// Texts in one piece of memory: a page has hundreds of words.
class Texts {
  public:
    Texts() = default;
    /// `ends` is where each of them ends in `bytes`, in order and within it.
    Texts(std::string bytes, std::vector<std::uint32_t> ends)
        : bytes_(std::move(bytes)), ends_(std::move(ends)) {}

    std::size_t size() const noexcept { return ends_.size(); }
    std::string_view operator[](std::size_t number) const {
        const std::size_t begin = number == 0 ? 0 : ends_[number - 1];
        return std::string_view(bytes_).substr(begin, ends_[number] - begin);
    }
    const std::string& bytes() const noexcept { return bytes_; }
    const std::vector<std::uint32_t>& ends() const noexcept { return ends_; }

  private:
    std::string bytes_;
    std::vector<std::uint32_t> ends_;
};

/// A member of an object that always gives the same: one result, which is no array, and an object only when that is
/// settled itself and has none of its own; or a text for each index that it is asked with, from 0.
struct SettledMember {
    std::string name;
    std::variant<automation::Value, Texts> results;
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
    void settle_texts(std::string_view name, Texts texts);

    const SettledResults& settled() const noexcept { return settled_; }

  private:
    SettledResults settled_;
};

}  // namespace foliant::hosts
