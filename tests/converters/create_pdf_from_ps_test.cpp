#include <gtest/gtest.h>

#include "converters/postscript_member.h"

namespace foliant::converters {
namespace {

using automation::Arguments;
using automation::Error;
using automation::RuntimeError;
using automation::Value;
using platform::stage::StageObject;

class CreatePDFfromPS : public PostScriptMember {
  protected:
    CreatePDFfromPS() { stage.put_file("C:\\in\\a.ps"); }

    void call() {
        run([&] {
            converters::CreatePDFfromPS(session(), "C:\\out\\a.pdf", "C:\\in\\a.ps", printer, options);
        });
    }
};

TEST_F(CreatePDFfromPS, ConvertsWithEventsAndLeavesTheInput) {
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
        event PercentDone(Long(100))
        event PageNumber(Long(1))
        event JobDone("C:\in\a.ps", "C:\out\a.pdf")
        stop listening to Distiller
        release Distiller
    )");
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
    options = {.show_window = true,
               .spool_jobs = true,
               .job_options_file = "C:\\Screen.joboptions",
               .apply_security = false};
    call();
    expect_journal(R"(
        length C:\in\a.ps -> 1000
        length C:\out\a.pdf -> not found
        create Distiller
        listen to Distiller
        Distiller.bShowWindow = True
        Distiller.bSpoolJobs = True
        Distiller.FileToPDF("C:\in\a.ps", "C:\out\a.pdf", "C:\Screen.joboptions")
        event JobStart("C:\in\a.ps", "C:\out\a.pdf")
        event PercentDone(Long(100))
        event PageNumber(Long(1))
        event JobDone("C:\in\a.ps", "C:\out\a.pdf")
        stop listening to Distiller
        release Distiller
    )");
}

TEST_F(CreatePDFfromPS, WithSecurityAndAcrobatSixUsesTheOtherDistillerAndRaisesNoEvents) {
    options.apply_security = true;
    options.job_options_file = "C:\\Screen.joboptions";
    call();
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
    options.apply_security = true;
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
        event PercentDone(Long(100))
        event PageNumber(Long(1))
        event JobDone("C:\in\a.ps", "C:\out\a.pdf")
        stop listening to Distiller
        release Distiller
    )");
}

INSTANTIATE_TEST_SUITE_P(Versions, CreatePDFfromPSWithOldAcrobat, testing::Values("5.0", "4.05", ""));

TEST_F(CreatePDFfromPS, ABlankPrinterNameIsFilledInForTheCaller) {
    for (const char* blank : {"", "   "}) {
        printer = blank;
        call();
        EXPECT_EQ(printer, "Adobe PDF");
    }
}

TEST_F(CreatePDFfromPS, AnyOtherPrinterNameStaysAsItIs) {
    printer = " My printer ";
    call();
    EXPECT_EQ(printer, " My printer ");
}

TEST_F(CreatePDFfromPS, AMissingInputIsSaidAndNothingIsDone) {
    stage.put_file("C:\\out\\a.pdf");
    stage.files.erase("C:\\in\\a.ps");
    printer = "";
    call();
    expect_journal(R"(
        length C:\in\a.ps -> not found
        raise -2147467008 from Foliant: File C:\in\a.ps does not exist.
    )");
    EXPECT_EQ(printer, "");
}

TEST_F(CreatePDFfromPS, AnOldOutputThatCannotBeDeletedIsAFailureBeforeDistiller) {
    stage.put_file("C:\\out\\a.pdf");
    session();
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
    stage.missing_classes.insert(std::string(engines::event_bound_distiller));
    printer = "";
    call();
    expect_journal(R"(
        length C:\in\a.ps -> 1000
        length C:\out\a.pdf -> 1000
        delete C:\out\a.pdf
        create Distiller
        raise 429 from Foliant: ActiveX component can't create object
    )");
    EXPECT_EQ(printer, "Adobe PDF");
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
    options.apply_security = true;
    stage.when("SecureDistiller.FileToPDF2",
               [](StageObject&, const Arguments&) -> Value { throw Error(RuntimeError::disk_full); });
    call();
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

}  // namespace
}  // namespace foliant::converters
