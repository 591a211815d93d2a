#include <gtest/gtest.h>

#include "core/dispatch.h"
#include "support/fault_cases.h"
#include "support/member_cases.h"
#include "support/member_test.h"

namespace foliant::members {
namespace {

using automation::Access;
using automation::named;
using automation::Value;
using platform::stage::Stage;

// The get. The folder is the library's own until another is put.

const tests::MemberCall get{.member = "TempFilePath", .of = "Get", .access = Access::get};

const tests::WholeJournal journal_of_get(get, "");
const tests::ParameterProbe parameters_of_get(get, {.result = "C:\\Program Files\\Foliant\\"});
const tests::MemberFaults faults_of_get(get, {});

// The put. It never reports a failure: the former folder stays.

const tests::MemberCall put{.member = "TempFilePath",
                            .of = "Put",
                            .access = Access::set,
                            .arrange = [](Stage& stage) { stage.folders = {"C:"}; },
                            .arguments = {named("strFolder", "C:\\Temp")}};

const tests::WholeJournal journal_of_put(put, "make folder C:\\Temp");
const tests::ParameterProbe parameters_of_put(put,
                                              {.lines_with = {"folder"}, .expected = "make folder C:\\Temp"});
const tests::MemberFaults faults_of_put(put, {.report = R"(
    fails: make folder C:\Temp
        go on
)"});

class TempFilePath : public tests::MemberTest {
  protected:
    TempFilePath() : MemberTest(put) {}

    Value path() {
        automation::Arguments none;
        return core::invoke(object(), "TempFilePath", Access::get, none);
    }
};

TEST_F(TempFilePath, IsTheFolderThatWasPutWithASeparator) {
    call();
    EXPECT_EQ(path(), Value("C:\\Temp\\"));
}

TEST_F(TempFilePath, StaysWhenTheFolderCannotBeMade) {
    stage.folders.clear();
    call();
    EXPECT_EQ(path(), Value("C:\\Program Files\\Foliant\\"));
}

}  // namespace
}  // namespace foliant::members
