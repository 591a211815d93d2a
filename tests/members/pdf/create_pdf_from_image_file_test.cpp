#include <gtest/gtest.h>

#include "members/pdf/acrobat_endings.h"
#include "members/pdf/lists_of_files.h"
#include "platform/stage/stage_object.h"
#include "support/fault_cases.h"
#include "support/member_cases.h"
#include "support/member_test.h"

namespace foliant::members {
namespace {

using automation::named;
using automation::Value;
using platform::stage::Stage;

void put_image_and_old_output(Stage& stage) {
    put_files(stage, {"C:\\in\\scan.tif", "C:\\out\\scan.pdf"});
}

const tests::MemberCall usual{
    .member = "CreatePDFfromImageFile",
    .arrange = put_image_and_old_output,
    .arguments = {named("strPDFFile", "C:\\out\\scan.pdf"), named("strImageFile", "C:\\in\\scan.tif")}};

// What Acrobat has made of the image is the active document; the old output goes once it is there.
const tests::WholeJournal journal(usual, R"(
    length C:\in\scan.tif -> 1000
    create AcroExch.App
    create AcroExch.AVDoc
    AcroExch.AVDoc.Open("C:\in\scan.tif", "")
    AcroExch.App.GetActiveDoc()
    release AcroExch.AVDoc
    AcroExch.AVDoc.IsValid()
    length C:\out\scan.pdf -> 1000
    delete C:\out\scan.pdf
    AcroExch.AVDoc.GetPDDoc()
    AcroExch.PDDoc.Save(Integer(37), "C:\out\scan.pdf")
    AcroExch.PDDoc.Close()
    AcroExch.AVDoc.Close(True)
    AcroExch.App.Exit()
    release AcroExch.AVDoc
    release AcroExch.PDDoc
    release AcroExch.App
)");

const tests::MemberCall with_information{
    .member = "CreatePDFfromImageFile",
    .of = "WithInformation",
    .arrange = put_image_and_old_output,
    .arguments = {named("strPDFFile", "C:\\out\\scan.pdf"), named("strImageFile", "C:\\in\\scan.tif"),
                  named("strTitle", " The title "), named("strAuthor", "Somebody"),
                  named("strSubject", "A subject"), named("strKeywords", "one, two")}};

const tests::ParameterProbe parameters(with_information,
                                       {.lines_with = {"Open", "delete", "PDDoc."}, .expected = R"(
    AcroExch.AVDoc.Open("C:\in\scan.tif", "")
    delete C:\out\scan.pdf
    AcroExch.PDDoc.SetInfo("Title", " The title ")
    AcroExch.PDDoc.SetInfo("Author", "Somebody")
    AcroExch.PDDoc.SetInfo("Subject", "A subject")
    AcroExch.PDDoc.SetInfo("Keywords", "one, two")
    AcroExch.PDDoc.Save(Integer(37), "C:\out\scan.pdf")
    AcroExch.PDDoc.Close()
)"});

const tests::MemberFaults faults(with_information, {.endings = {let_both_go}, .report = R"(
    fails: length C:\in\scan.tif
        raise -2147467008 from Foliant: File C:\in\scan.tif does not exist.
    fails: create AcroExch.App
        raise the failure
    fails: create AcroExch.AVDoc
        AcroExch.App.Exit()
        release AcroExch.App
        raise the failure
    fails: AcroExch.AVDoc.Open("C:\in\scan.tif", "")
    fails: AcroExch.App.GetActiveDoc()
    fails: AcroExch.AVDoc.IsValid()
        AcroExch.AVDoc.Close(True)
        release AcroExch.AVDoc
        AcroExch.App.Exit()
        release AcroExch.App
        raise the failure
    fails: length C:\out\scan.pdf
        go on, but
        - delete C:\out\scan.pdf
    fails: delete C:\out\scan.pdf
    fails: AcroExch.AVDoc.GetPDDoc()
        AcroExch.AVDoc.Close(True)
        release AcroExch.AVDoc
        AcroExch.App.Exit()
        release AcroExch.App
        raise the failure
    fails: AcroExch.PDDoc.SetInfo("Title", " The title ")
    fails: AcroExch.PDDoc.SetInfo("Author", "Somebody")
    fails: AcroExch.PDDoc.SetInfo("Subject", "A subject")
    fails: AcroExch.PDDoc.SetInfo("Keywords", "one, two")
    fails: AcroExch.PDDoc.Save(Integer(37), "C:\out\scan.pdf")
    fails: AcroExch.PDDoc.Close()
    fails: AcroExch.AVDoc.Close(True)
    fails: AcroExch.App.Exit()
        let both go
        raise the failure
)"});

class CreatePDFfromImageFile : public tests::MemberTest {
  protected:
    CreatePDFfromImageFile() : MemberTest(usual) {}
};

TEST_F(CreatePDFfromImageFile, SetsNoInformationOfBlanksOnly) {
    call({named("strTitle", "  "), named("strSubject", " x")});
    EXPECT_EQ(line_with("SetInfo"), R"(AcroExch.PDDoc.SetInfo("Subject", " x"))");
}

TEST_F(CreatePDFfromImageFile, OfAnImageThatMakesNoDocumentSavesNothingAndKeepsTheOldOutput) {
    stage.answer("AcroExch.AVDoc.IsValid", false);
    call();
    tests::expect_text(journal_from("IsValid"), R"(
        AcroExch.AVDoc.IsValid()
        AcroExch.AVDoc.Close(True)
        AcroExch.App.Exit()
        release AcroExch.AVDoc
        release AcroExch.App
    )");
}

TEST_F(CreatePDFfromImageFile, ThatCannotBeSavedClosesTheDocumentTwiceAndNamesTheFile) {
    stage.answer("AcroExch.PDDoc.Save", false);
    call();
    tests::expect_text(journal_from("Save"), R"(
        AcroExch.PDDoc.Save(Integer(37), "C:\out\scan.pdf")
        AcroExch.PDDoc.Close()
        AcroExch.AVDoc.Close(True)
        release AcroExch.AVDoc
        AcroExch.PDDoc.Close()
        release AcroExch.PDDoc
        AcroExch.App.Exit()
        release AcroExch.App
        raise -2147467008 from Foliant: Can't save file C:\out\scan.pdf.
    )");
}

TEST_F(CreatePDFfromImageFile, TakesAnAnswerThatIsNoTruthValueForASaveThatFailed) {
    stage.answer("AcroExch.PDDoc.Save", Value());
    call();
    EXPECT_EQ(last_line(), R"(raise -2147467008 from Foliant: Can't save file C:\out\scan.pdf.)");
}

TEST_F(CreatePDFfromImageFile, DoesNotLookAtWhetherAcrobatOpenedTheImage) {
    stage.answer("AcroExch.AVDoc.Open", false);
    call();
    EXPECT_EQ(last_line(), "release AcroExch.App");
    EXPECT_NE(stage.journal().find("Save"), std::string::npos);
}

TEST_F(CreatePDFfromImageFile, AMissingImageStartsNothing) {
    stage.files.erase("C:\\in\\scan.tif");
    call();
    expect_journal(R"(
        length C:\in\scan.tif -> not found
        raise -2147467008 from Foliant: File C:\in\scan.tif does not exist.
    )");
}

}  // namespace
}  // namespace foliant::members
