// Every member that the table calls available has a file here that states its whole journal, where its
// parameters go, and what comes of each failure; the others do nothing but say so.

#include <array>
#include <gtest/gtest.h>

#include "core/members.h"
#include "support/member_cases.h"
#include "support/staged_session.h"

namespace foliant::members {
namespace {

using automation::Value;
using core::Member;

TEST(EveryMember, ThatIsAvailableHasAWholeJournalAParameterProbeAndAFaultScene) {
    for (const Member& member : core::members) {
        if (!member.available) continue;
        EXPECT_EQ(tests::missing_cases(member), "") << "for " << member.name << ", slot " << member.slot;
    }
}

TEST(EveryMember, ThatComesLaterHasNone) {
    for (const Member& member : core::members)
        EXPECT_FALSE(!member.available && tests::has_cases(member))
            << member.name << ", slot " << member.slot;
}

/// An argument that every parameter of that type accepts.
Value argument_of(core::ValueType type) {
    switch (type) {
        case core::ValueType::string:
        case core::ValueType::variant:
            return "x";
        case core::ValueType::object:
            return automation::ObjectPtr();
        default:
            return std::int32_t{0};
    }
}

class MembersOfLaterVersions : public tests::StagedTest {
  protected:
    core::BuildPDF object{stage.platform(), events};
};

TEST_F(MembersOfLaterVersions, RaiseOneClearErrorAndDoNothing) {
    for (const Member& member : core::members) {
        if (member.available) continue;
        std::array<Value, core::most_parameters> arguments;
        for (std::size_t i = 0; i < member.parameter_count; ++i)
            arguments[i] = argument_of(member.parameters()[i].type);
        stage.clear_journal();
        tests::run_noting_error(stage, [&] {
            member.call(object, member, {arguments.data(), member.parameter_count});
        });
        expect_journal("raise 445 from Foliant: " + std::string(member.name) +
                       " is not available in this version of Foliant.");
    }
}

}  // namespace
}  // namespace foliant::members
