// Every member of the table has a file here that states its whole journal, where its parameters go, and what
// comes of each failure; none of its flags goes nowhere.

#include <gtest/gtest.h>

#include "core/members.h"
#include "support/member_cases.h"

namespace foliant::members {
namespace {

TEST(EveryMember, HasAWholeJournalAParameterProbeAndAFaultScene) {
    for (const core::Member& member : core::members)
        EXPECT_EQ(tests::missing_cases(member), "") << "for " << member.name << ", slot " << member.slot;
}

TEST(EveryMember, HasAProbeThatSeesEachFlag) {
    for (const core::Member& member : core::members)
        EXPECT_EQ(tests::unseen_flags(member), "") << "for " << member.name;
}

}  // namespace
}  // namespace foliant::members
