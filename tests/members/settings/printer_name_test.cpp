#include <gtest/gtest.h>

#include "support/fault_cases.h"
#include "support/member_cases.h"
#include "support/member_test.h"

namespace foliant::members {
namespace {

const tests::MemberCall usual{.member = "PrinterName"};

// It was read when the object was made.
const tests::WholeJournal journal(usual, "");
const tests::ParameterProbe parameters(usual, {.result = "Adobe PDF"});
const tests::MemberFaults faults(usual, {});

class PrinterName : public tests::MemberTest {
  protected:
    PrinterName() : MemberTest(usual) {}
};

TEST_F(PrinterName, IsWhatDistillerRegistered) {
    stage.set_registry_text("HKEY_LOCAL_MACHINE\\SOFTWARE\\Adobe\\Acrobat Distiller\\6.0\\PrinterName", "",
                            "My PDF printer");
    call();
    EXPECT_EQ(result, automation::Value("My PDF printer"));
}

}  // namespace
}  // namespace foliant::members
