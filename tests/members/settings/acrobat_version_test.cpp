#include <gtest/gtest.h>

#include "support/fault_cases.h"
#include "support/member_cases.h"
#include "support/member_test.h"

namespace foliant::members {
namespace {

const tests::MemberCall usual{.member = "AcrobatVersion"};

// It was read when the object was made.
const tests::WholeJournal journal(usual, "");
const tests::ParameterProbe parameters(usual, {.result = "6.0"});
const tests::MemberFaults faults(usual, {});

class AcrobatVersion : public tests::MemberTest {
  protected:
    AcrobatVersion() : MemberTest(usual) {}
};

TEST_F(AcrobatVersion, IsTheTextThatAcrobatRegistered) {
    register_acrobat("7.0 beta");
    call();
    EXPECT_EQ(result, automation::Value("7.0 beta"));
}

}  // namespace
}  // namespace foliant::members
