#include <gtest/gtest.h>

#include "engines/distiller_job.h"
#include "members/distiller_member.h"
#include "members/endings.h"
#include "registered/classes.h"
#include "support/fault_cases.h"
#include "support/member_cases.h"

namespace foliant::members {
namespace {

using automation::Arguments;
using automation::Error;
using automation::named;
using automation::RuntimeError;
using automation::Value;
using platform::stage::Stage;
using platform::stage::StageObject;

const tests::MemberCall usual{
    .member = "CreatePDFfromPS",
    .arrange = [](Stage& stage) { stage.put_file("C:\\in\\a.ps"); },
    .arguments = {named("strPDFFile", "C:\\out\\a.pdf"), named("strPSFile", "C:\\in\\a.ps"),
                  named("strDistiller", "My printer")}};

const tests::WholeJournal journal(usual, R"(
    length C:\in\a.ps -> 1000
    length C:\out\a.pdf -> not found
    create Distiller
    listen to Distiller
    Distiller.bShowWindow = False
    Distiller.bSpoolJobs = False
    Distiller.FileToPDF("C:\in\a.ps", "C:\out\a.pdf", "")
    event JobStart("C:\in\a.ps", "C:\out\a.pdf")
    event PercentDone(Long(100))
    event PageNumber(Long(1))
    event JobDone("C:\in\a.ps", "C:\out\a.pdf")
    stop listening to Distiller
    release Distiller
)");

const tests::ParameterProbe parameters(
    {.member = "CreatePDFfromPS",
     .arrange = usual.arrange,
     .arguments = {named("strPDFFile", "C:\\out\\a.pdf"), named("strPSFile", "C:\\in\\a.ps"),
                   named("strDistiller", ""), named("blnShowWindow", true), named("blnSpoolJobs", false),
                   named("strJobOptionsFile", "C:\\x.joboptions"), named("blnApplySecurity", true)}},
    {.lines_with = {"Distiller."},
     .expected = R"(
        SecureDistiller.bShowWindow = True
        SecureDistiller.bSpoolJobs = False
        SecureDistiller.FileToPDF2("C:\in\a.ps", "C:\out\a.pdf", "C:\x.joboptions", True)
    )",
     .flags = R"(
        blnShowWindow:
            - SecureDistiller.bShowWindow = True
            + SecureDistiller.bShowWindow = False
        blnSpoolJobs:
            - SecureDistiller.bSpoolJobs = False
            + SecureDistiller.bSpoolJobs = True
        blnApplySecurity:
            - SecureDistiller.bShowWindow = True
            - SecureDistiller.bSpoolJobs = False
            - SecureDistiller.FileToPDF2("C:\in\a.ps", "C:\out\a.pdf", "C:\x.joboptions", True)
            + Distiller.bShowWindow = True
            + Distiller.bSpoolJobs = False
            + Distiller.FileToPDF("C:\in\a.ps", "C:\out\a.pdf", "C:\x.joboptions")
    )",
     .written = {{"strDistiller", "Adobe PDF"}}});

class CreatePDFfromPS : public DistillerMember {
  protected:
    CreatePDFfromPS() : DistillerMember(usual) {}
};

TEST_F(CreatePDFfromPS, HoldsNoDistillerAfterwards) {
    call();
    EXPECT_FALSE(holds_distiller());
}

TEST_F(CreatePDFfromPS, DeletesTheOldOutputBeforeDistillerIsCreated) {
    stage.put_file("C:\\out\\a.pdf");
    call();
    expect_journal(R"(
        length C:\in\a.ps -> 1000
        length C:\out\a.pdf -> 1000
        delete C:\out\a.pdf
        create Distiller
        listen to Distiller
        Distiller.bShowWindow = False
        Distiller.bSpoolJobs = False
        Distiller.FileToPDF("C:\in\a.ps", "C:\out\a.pdf", "")
        event JobStart("C:\in\a.ps", "C:\out\a.pdf")
        event PercentDone(Long(100))
        event PageNumber(Long(1))
        event JobDone("C:\in\a.ps", "C:\out\a.pdf")
        stop listening to Distiller
        release Distiller
    )");
}

TEST_F(CreatePDFfromPS, PassesItsOptionsToDistiller) {
    call({named("blnShowWindow", true), named("blnSpoolJobs", true),
          named("strJobOptionsFile", "C:\\Screen.joboptions")});
    tests::expect_text(journal_between("listen to", "JobStart"), R"(
        listen to Distiller
        Distiller.bShowWindow = True
        Distiller.bSpoolJobs = True
        Distiller.FileToPDF("C:\in\a.ps", "C:\out\a.pdf", "C:\Screen.joboptions")
        event JobStart("C:\in\a.ps", "C:\out\a.pdf")
    )");
}

TEST_F(CreatePDFfromPS, WithSecurityAndAcrobatSixUsesTheOtherDistillerAndRaisesNoEvents) {
    call({named("blnApplySecurity", true), named("strJobOptionsFile", "C:\\Screen.joboptions")});
    expect_journal(R"(
        length C:\in\a.ps -> 1000
        length C:\out\a.pdf -> not found
        create SecureDistiller
        SecureDistiller.bShowWindow = False
        SecureDistiller.bSpoolJobs = False
        SecureDistiller.FileToPDF2("C:\in\a.ps", "C:\out\a.pdf", "C:\Screen.joboptions", True)
        release SecureDistiller
    )");
}

class CreatePDFfromPSWithOldAcrobat : public CreatePDFfromPS,
                                      public testing::WithParamInterface<const char*> {};

TEST_P(CreatePDFfromPSWithOldAcrobat, RaisesEventsAlsoWhenSecurityIsWished) {
    register_acrobat(GetParam());
    call({named("blnApplySecurity", true)});
    expect_journal(journal.expected);
}

INSTANTIATE_TEST_SUITE_P(Versions, CreatePDFfromPSWithOldAcrobat, testing::Values("5.0", "4.05", ""));

TEST_F(CreatePDFfromPS, ABlankPrinterNameIsFilledInForTheCaller) {
    for (const char* blank : {"", "   "}) {
        call({named("strDistiller", blank)});
        EXPECT_EQ(variable("strDistiller"), Value("Adobe PDF"));
    }
}

TEST_F(CreatePDFfromPS, AnyOtherPrinterNameStaysAsItIs) {
    call({named("strDistiller", " My printer ")});
    EXPECT_EQ(variable("strDistiller"), Value(" My printer "));
}

TEST_F(CreatePDFfromPS, AMissingInputIsSaidAndNothingIsDone) {
    stage.put_file("C:\\out\\a.pdf");
    stage.files.erase("C:\\in\\a.ps");
    call({named("strDistiller", "")});
    expect_journal(R"(
        length C:\in\a.ps -> not found
        raise -2147467008 from Foliant: File C:\in\a.ps does not exist.
    )");
    EXPECT_EQ(variable("strDistiller"), Value(""));
}

TEST_F(CreatePDFfromPS, AnOldOutputThatCannotBeDeletedIsAFailureBeforeDistiller) {
    stage.put_file("C:\\out\\a.pdf");
    object();
    stage.fail_action(3, Error(RuntimeError::permission_denied));
    call();
    expect_journal(R"(
        length C:\in\a.ps -> 1000
        length C:\out\a.pdf -> 1000
        delete C:\out\a.pdf -> fails
        raise 70 from Foliant: Permission denied
    )");
}

TEST_F(CreatePDFfromPS, WithoutDistillerIsError429AndTheOldOutputIsGone) {
    stage.put_file("C:\\out\\a.pdf");
    stage.missing_classes.insert(std::string(registered::event_bound_distiller));
    call({named("strDistiller", "")});
    expect_journal(R"(
        length C:\in\a.ps -> 1000
        length C:\out\a.pdf -> 1000
        delete C:\out\a.pdf
        create Distiller
        raise 429 from Foliant: ActiveX component can't create object
    )");
    EXPECT_EQ(variable("strDistiller"), Value("Adobe PDF"));
}

TEST_F(CreatePDFfromPS, ReleasesDistillerWhenConvertingFails) {
    make_distiller_fail();
    call();
    expect_journal(R"(
        length C:\in\a.ps -> 1000
        length C:\out\a.pdf -> not found
        create Distiller
        listen to Distiller
        Distiller.bShowWindow = False
        Distiller.bSpoolJobs = False
        Distiller.FileToPDF("C:\in\a.ps", "C:\out\a.pdf", "")
        stop listening to Distiller
        release Distiller
        raise -2147352567 from Foliant: Out of paper
    )");
    EXPECT_FALSE(holds_distiller());
}

TEST_F(CreatePDFfromPS, ReleasesTheSecurityCapableDistillerWhenConvertingFails) {
    stage.when("SecureDistiller.FileToPDF2",
               [](StageObject&, const Arguments&) -> Value { throw Error(RuntimeError::disk_full); });
    call({named("blnApplySecurity", true)});
    expect_journal(R"(
        length C:\in\a.ps -> 1000
        length C:\out\a.pdf -> not found
        create SecureDistiller
        SecureDistiller.bShowWindow = False
        SecureDistiller.bSpoolJobs = False
        SecureDistiller.FileToPDF2("C:\in\a.ps", "C:\out\a.pdf", "", True)
        release SecureDistiller
        raise 61 from Foliant: Disk full
    )");
}

TEST_F(CreatePDFfromPS, AJobThatFailsWithoutRaisingIsKnownByItsEventOnly) {
    stage.when("Distiller.FileToPDF", [](StageObject& distiller, const Arguments& arguments) {
        distiller.notify("OnJobStart", {arguments.at(0).value, arguments.at(1).value});
        distiller.notify("OnLogMessage", {"%%[ Error: undefined; OffendingCommand: x ]%%"});
        distiller.notify("OnJobFail", {arguments.at(0).value, arguments.at(1).value});
        return Value(std::int16_t{-1});
    });
    call();
    expect_journal(R"(
        length C:\in\a.ps -> 1000
        length C:\out\a.pdf -> not found
        create Distiller
        listen to Distiller
        Distiller.bShowWindow = False
        Distiller.bSpoolJobs = False
        Distiller.FileToPDF("C:\in\a.ps", "C:\out\a.pdf", "")
        event JobStart("C:\in\a.ps", "C:\out\a.pdf")
        event LogMessage("%%[ Error: undefined; OffendingCommand: x ]%%")
        event JobFail("C:\in\a.ps", "C:\out\a.pdf")
        stop listening to Distiller
        release Distiller
    )");
}

// Passed over by rule: the two existence tests. The first then says that the input is missing, the second
// leaves the old output to Distiller.

void put_input_and_old_output(Stage& stage) {
    stage.put_file("C:\\in\\a.ps");
    stage.put_file("C:\\out\\a.pdf");
}

const tests::MemberFaults faults({.member = "CreatePDFfromPS",
                                  .arrange = put_input_and_old_output,
                                  .arguments = {"C:\\out\\a.pdf", "C:\\in\\a.ps"}},
                                 {.endings = {let_distiller_go}, .report = R"(
    fails: length C:\in\a.ps
        raise -2147467008 from Foliant: File C:\in\a.ps does not exist.
    fails: length C:\out\a.pdf
        go on, but
        - delete C:\out\a.pdf
    fails: delete C:\out\a.pdf
    fails: create Distiller
        raise the failure
    fails: listen to Distiller
        release Distiller
        raise the failure
    fails: Distiller.bShowWindow = False
    fails: Distiller.bSpoolJobs = False
    fails: Distiller.FileToPDF("C:\in\a.ps", "C:\out\a.pdf", "")
        let Distiller go
        raise the failure
)"});

const tests::MemberFaults faults_with_security({.member = "CreatePDFfromPS",
                                                .of = "WithSecurity",
                                                .arrange = put_input_and_old_output,
                                                .arguments = {"C:\\out\\a.pdf", "C:\\in\\a.ps",
                                                              named("blnApplySecurity", true)}},
                                               {.from = "delete C:\\out\\a.pdf", .report = R"(
    fails: delete C:\out\a.pdf
    fails: create SecureDistiller
        raise the failure
    fails: SecureDistiller.bShowWindow = False
    fails: SecureDistiller.bSpoolJobs = False
    fails: SecureDistiller.FileToPDF2("C:\in\a.ps", "C:\out\a.pdf", "", True)
        release SecureDistiller
        raise the failure
)"});

}  // namespace
}  // namespace foliant::members
