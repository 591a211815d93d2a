#include <gtest/gtest.h>

#include "automation/error.h"
#include "platform/stage/stage_object.h"
#include "support/fault_cases.h"
#include "support/member_cases.h"
#include "support/member_test.h"

namespace foliant::members {
namespace {

using automation::Error;
using automation::named;
using platform::stage::Stage;

const tests::MemberCall usual{
    .member = "CreatePDF",
    .arrange = [](Stage& stage) { stage.put_file("C:\\Docs\\Letter.DOC"); },
    .arguments = {named("strSourceFile", "C:\\Docs\\Letter.DOC"), named("strPDFFile", "C:\\out\\a.pdf")}};

const tests::WholeJournal journal(usual, R"(
    length C:\Docs\Letter.DOC -> 1000
    create AdobePDFMakerX.Word
    length C:\out\a.pdf -> not found
    AdobePDFMakerX.Word.LaunchDocument("C:\Docs\Letter.DOC", Integer(0))
    pump messages
    find window "adobe acrobat - [letter.pdf]" -> none
    find window "Adobe Acrobat Professional - [letter.pdf]" -> found
    sleep 2000 ms
    create AcroExch.App
    create AcroExch.AVDoc
    AcroExch.App.GetActiveDoc()
    release AcroExch.AVDoc
    AcroExch.AVDoc.IsValid()
    AcroExch.AVDoc.GetPDDoc()
    AcroExch.PDDoc.Save(Integer(37), "C:\out\a.pdf")
    AcroExch.PDDoc.Close()
    AcroExch.AVDoc.Close(True)
    AcroExch.App.Exit()
    find window "adobe acrobat" -> none
    find window "adobe acrobat professional" -> none
    release AcroExch.PDDoc
    release AcroExch.AVDoc
    release AcroExch.App
    release AdobePDFMakerX.Word
)");

const tests::ParameterProbe parameters(
    {.member = "CreatePDF",
     .arrange = usual.arrange,
     .arguments = {named("strSourceFile", "C:\\Docs\\Letter.DOC"), named("strPDFFile", "C:\\out\\a.pdf"),
                   named("intSecsToWaitForPDF", std::int16_t{32})}},
    {.lines_with = {"Launch", "find window", "sleep", "Save"}, .expected = R"(
        AdobePDFMakerX.Word.LaunchDocument("C:\Docs\Letter.DOC", Integer(0))
        find window "adobe acrobat - [letter.pdf]" -> none
        find window "Adobe Acrobat Professional - [letter.pdf]" -> found
        sleep 32000 ms
        AcroExch.PDDoc.Save(Integer(37), "C:\out\a.pdf")
        find window "adobe acrobat" -> none
        find window "adobe acrobat professional" -> none
    )"});

class CreatePDF : public tests::MemberTest {
  protected:
    CreatePDF() : MemberTest(usual) {}
};

TEST_F(CreatePDF, AMissingSourceIsSaidBeforeAnythingIsStarted) {
    stage.files.clear();
    call();
    expect_journal(R"(
        length C:\Docs\Letter.DOC -> not found
        raise -2147467008 from Foliant: File C:\Docs\Letter.DOC does not exist.
    )");
}

TEST_F(CreatePDF, DeletesTheOldPdfBeforeTheConversionStarts) {
    stage.put_file("C:\\out\\a.pdf");
    call();
    tests::expect_text(journal_between("length C:\\out", "Launch"), R"(
        length C:\out\a.pdf -> 1000
        delete C:\out\a.pdf
        AdobePDFMakerX.Word.LaunchDocument("C:\Docs\Letter.DOC", Integer(0))
    )");
}

TEST_F(CreatePDF, ASourceWithoutAnExtensionIsWaitedForUnderTheBareCaption) {
    stage.put_file("C:\\Docs\\letter");
    stage.windows["Adobe Acrobat - [pdf]"] = 0;
    call({named("strSourceFile", "C:\\Docs\\letter")});
    EXPECT_EQ(line_with("find window \"adobe acrobat - "), "find window \"adobe acrobat - [pdf]\" -> found");
}

TEST_F(CreatePDF, MoreThan32SecondsOverflowOnceTheWindowIsThereAndAcrobatStays) {
    call({named("intSecsToWaitForPDF", std::int16_t{33})});
    tests::expect_text(journal_from("pump messages"), R"(
        pump messages
        find window "adobe acrobat - [letter.pdf]" -> none
        find window "Adobe Acrobat Professional - [letter.pdf]" -> found
        release AdobePDFMakerX.Word
        raise 6 from Foliant: Overflow
    )");
}

TEST_F(CreatePDF, ANegativeNumberOfSecondsIsNoTime) {
    call({named("intSecsToWaitForPDF", std::int16_t{-1})});
    EXPECT_EQ(line_with("sleep"), "sleep 0 ms");
}

TEST_F(CreatePDF, FewerThanMinus32SecondsOverflowAsWell) {
    call({named("intSecsToWaitForPDF", std::int16_t{-33})});
    EXPECT_EQ(last_line(), "raise 6 from Foliant: Overflow");
}

TEST_F(CreatePDF, ADocumentThatIsNotValidGivesNoPdfAndNoErrorAndIsClosed) {
    stage.answer("AcroExch.AVDoc.IsValid", false);
    call();
    tests::expect_text(journal_from("IsValid"), R"(
        AcroExch.AVDoc.IsValid()
        AcroExch.AVDoc.Close(True)
        AcroExch.App.Exit()
        find window "adobe acrobat" -> none
        find window "adobe acrobat professional" -> none
        release AcroExch.AVDoc
        release AcroExch.App
        release AdobePDFMakerX.Word
    )");
}

TEST_F(CreatePDF, WhatSavingAnswersIsNotLookedAt) {
    stage.answer("AcroExch.PDDoc.Save", false);
    call();
    EXPECT_EQ(last_line().substr(0, 7), "release");
}

TEST_F(CreatePDF, ClosesTheMainWindowsOfBothEditionsThatAreThere) {
    stage.windows["Adobe Acrobat"] = 0;
    stage.windows["Adobe Acrobat Professional"] = 0;
    call();
    tests::expect_text(lines_with({"WM_CLOSE"}), R"(
        send WM_CLOSE (0, "0") to "Adobe Acrobat"
        send WM_CLOSE (0, "0") to "Adobe Acrobat Professional"
    )");
}

TEST_F(CreatePDF, WaitsWithoutEndForAWindowThatNeverOpens) {
    stage.answer("AdobePDFMakerX.Word.LaunchDocument", std::int32_t{0});
    int rounds = 0;
    stage.on_pump = [&] {
        if (++rounds == 1000)
            throw Error(automation::RuntimeError::internal_error, "the test has seen enough");
    };
    call();
    EXPECT_EQ(rounds, 1000);
    EXPECT_EQ(last_line(), "raise 51 from Foliant: the test has seen enough");
}

// After a failure nothing is closed: Acrobat and what it shows stay with the user.

const tests::MemberFaults faults({.member = "CreatePDF",
                                  .arrange =
                                      [](Stage& stage) {
                                          usual.arrange(stage);
                                          stage.put_file("C:\\out\\a.pdf");
                                          stage.windows["Adobe Acrobat Professional"] = 0;
                                      },
                                  .arguments = usual.arguments},
                                 {.report = R"(
    fails: length C:\Docs\Letter.DOC
        raise -2147467008 from Foliant: File C:\Docs\Letter.DOC does not exist.
    fails: create AdobePDFMakerX.Word
        raise the failure
    fails: length C:\out\a.pdf
        go on, but
        - delete C:\out\a.pdf
    fails: delete C:\out\a.pdf
    fails: AdobePDFMakerX.Word.LaunchDocument("C:\Docs\Letter.DOC", Integer(0))
    fails: pump messages
    fails: find window "adobe acrobat - [letter.pdf]"
    fails: find window "Adobe Acrobat Professional - [letter.pdf]"
    fails: sleep 2000 ms
    fails: create AcroExch.App
        release AdobePDFMakerX.Word
        raise the failure
    fails: create AcroExch.AVDoc
        release AcroExch.App
        release AdobePDFMakerX.Word
        raise the failure
    fails: AcroExch.App.GetActiveDoc()
    fails: AcroExch.AVDoc.IsValid()
    fails: AcroExch.AVDoc.GetPDDoc()
        release AcroExch.AVDoc
        release AcroExch.App
        release AdobePDFMakerX.Word
        raise the failure
    fails: AcroExch.PDDoc.Save(Integer(37), "C:\out\a.pdf")
    fails: AcroExch.PDDoc.Close()
    fails: AcroExch.AVDoc.Close(True)
    fails: AcroExch.App.Exit()
    fails: find window "adobe acrobat"
    fails: find window "adobe acrobat professional"
    fails: send WM_CLOSE (0, "0") to "Adobe Acrobat Professional"
        release AcroExch.PDDoc
        release AcroExch.AVDoc
        release AcroExch.App
        release AdobePDFMakerX.Word
        raise the failure
)"});

}  // namespace
}  // namespace foliant::members
