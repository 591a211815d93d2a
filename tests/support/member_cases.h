#pragma once

#include <iosfwd>
#include <map>
#include <source_location>
#include <string>
#include <string_view>
#include <vector>

#include "support/member_call.h"

/// What every member's file states about its member, as objects that say it once: making one is having it
/// tested. `missing_cases` holds them against the table.
namespace foliant::tests {

/// All that a call of the member does outside, from its first step to its last.
class WholeJournal {
  public:
    WholeJournal(MemberCall call, std::string_view expected,
                 std::source_location place = std::source_location::current());
    WholeJournal(const WholeJournal&) = delete;
    WholeJournal& operator=(const WholeJournal&) = delete;

    const MemberCall call;
    const std::string_view expected;
    const std::source_location place;
};

/// Where the arguments of a call are to be seen again.
struct Traces {
    std::vector<std::string_view> lines_with{};  ///< the lines of the journal that contain one of these
    std::string_view expected{};                 ///< ... and what they say, indented as you like
    /// What becomes of those lines when one flag of the call is turned round and nothing else: each flag's name
    /// and a colon, then the lines that are gone after "- " and the new ones after "+ ". It tells the flags of a
    /// member apart, of which several have the same value in one call. "" leaves it open.
    std::string_view flags{};
    automation::Value result{};  ///< of the call
    /// What the caller's variables hold afterwards, by the parameter's name. All others are as they were.
    std::map<std::string_view, automation::Value> written{};
};

/// A call that names every parameter of the member, by the name that clients know, and where each goes.
class ParameterProbe {
  public:
    ParameterProbe(MemberCall call, Traces traces,
                   std::source_location place = std::source_location::current());
    ParameterProbe(const ParameterProbe&) = delete;
    ParameterProbe& operator=(const ParameterProbe&) = delete;

    const MemberCall call;
    const Traces traces;
    const std::source_location place;
};

void PrintTo(const WholeJournal* journal, std::ostream* out);
void PrintTo(const ParameterProbe* probe, std::ostream* out);

/// What this program's files do not state about that member: "whole journal, fault scene", "" when they state
/// everything.
std::string missing_cases(const core::Member& member);

/// The flags of that member that no probe sees: turned round, they change none of its lines, and it does not say
/// that they should not. "" when there are none.
std::string unseen_flags(const core::Member& member);

}  // namespace foliant::tests
