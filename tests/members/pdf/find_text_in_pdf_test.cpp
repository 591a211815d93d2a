#include <gtest/gtest.h>

#include "members/pdf/acrobat_endings.h"
#include "platform/stage/stage_object.h"
#include "support/fault_cases.h"
#include "support/member_cases.h"
#include "support/member_test.h"

namespace foliant::members {
namespace {

using automation::named;
using platform::stage::Stage;

void put_pdf(Stage& stage) {
    stage.put_file("C:\\in\\Report.pdf");
}

void put_pdf_without_hit(Stage& stage) {
    put_pdf(stage);
    stage.answer("AcroExch.AVDoc.FindText", false);
}

const tests::MemberCall usual{
    .member = "FindTextInPDF",
    .arrange = put_pdf,
    .arguments = {named("strPDFFile", "C:\\in\\Report.pdf"), named("strText", "budget")}};

// What is found stays open, in an Acrobat that is shown.
const tests::WholeJournal journal(usual, R"(
    length C:\in\Report.pdf -> 1000
    create AcroExch.App
    create AcroExch.PDDoc
    AcroExch.PDDoc.Open("C:\in\Report.pdf")
    AcroExch.PDDoc.OpenAVDoc("Report.pdf")
    AcroExch.AVDoc.FindText("budget", False, False, True)
    AcroExch.App.Show()
    AcroExch.PDDoc.Close()
    release AcroExch.AVDoc
    release AcroExch.PDDoc
    release AcroExch.App
)");

const tests::MemberCall not_found{
    .member = "FindTextInPDF",
    .of = "NotFound",
    .arrange = put_pdf_without_hit,
    .arguments = {named("strPDFFile", "C:\\in\\Report.pdf"), named("strText", "budget")}};

const tests::WholeJournal journal_not_found(not_found, R"(
    length C:\in\Report.pdf -> 1000
    create AcroExch.App
    create AcroExch.PDDoc
    AcroExch.PDDoc.Open("C:\in\Report.pdf")
    AcroExch.PDDoc.OpenAVDoc("Report.pdf")
    AcroExch.AVDoc.FindText("budget", False, False, True)
    AcroExch.AVDoc.Close(True)
    AcroExch.PDDoc.Close()
    AcroExch.App.Exit()
    release AcroExch.AVDoc
    release AcroExch.PDDoc
    release AcroExch.App
)");

const tests::MemberCall with_password{
    .member = "FindTextInPDF",
    .of = "WithPassword",
    .arrange = put_pdf,
    .arguments = {named("strPDFFile", "C:\\in\\Report.pdf"), named("strText", " Budget~"),
                  named("blnCaseSensitive", true), named("blnWholeWordsOnly", false),
                  named("strOpenPassword", "open sesame")}};

const tests::WholeJournal journal_with_password(with_password, R"(
    length C:\in\Report.pdf -> 1000
    create AcroExch.App
    create AcroExch.PDDoc
    special folder 37 (owner 100)
    length C:\WINDOWS\system32\quorixsend.exe -> 1000
    start (hidden) C:\WINDOWS\system32\quorixsend.exe open~Edit~C:\in\Report.pdf~0~0~
    start (hidden) C:\WINDOWS\system32\quorixsend.exe password~Edit~open sesame~0~0~
    AcroExch.App.MenuItemExecute("Open")
    create AcroExch.AVDoc
    AcroExch.AVDoc.Open("C:\in\Report.pdf", "")
    AcroExch.App.GetActiveDoc()
    release AcroExch.AVDoc
    AcroExch.AVDoc.GetPDDoc()
    release AcroExch.PDDoc
    AcroExch.AVDoc.FindText(" Budget~", True, False, True)
    AcroExch.App.Show()
    AcroExch.PDDoc.Close()
    release AcroExch.AVDoc
    release AcroExch.PDDoc
    release AcroExch.App
)");

const tests::ParameterProbe parameters(with_password,
                                       {.lines_with = {"open~", "password~", "FindText"}, .expected = R"(
    start (hidden) C:\WINDOWS\system32\quorixsend.exe open~Edit~C:\in\Report.pdf~0~0~
    start (hidden) C:\WINDOWS\system32\quorixsend.exe password~Edit~open sesame~0~0~
    AcroExch.AVDoc.FindText(" Budget~", True, False, True)
)"});

// Whatever fails once Acrobat is to be created is one sentence, and Acrobat stays as it is.
const tests::MemberFaults faults(usual, {.endings = {release_acrobat}, .report = R"(
    fails: length C:\in\Report.pdf
        raise -2147467008 from Foliant: File C:\in\Report.pdf does not exist.
    fails: create AcroExch.App
        raise -2147467008 from Foliant: Can't open file C:\in\Report.pdf.
    fails: create AcroExch.PDDoc
        release AcroExch.App
        raise -2147467008 from Foliant: Can't open file C:\in\Report.pdf.
    fails: AcroExch.PDDoc.Open("C:\in\Report.pdf")
    fails: AcroExch.PDDoc.OpenAVDoc("Report.pdf")
        release AcroExch.PDDoc
        release AcroExch.App
        raise -2147467008 from Foliant: Can't open file C:\in\Report.pdf.
    fails: AcroExch.AVDoc.FindText("budget", False, False, True)
    fails: AcroExch.App.Show()
    fails: AcroExch.PDDoc.Close()
        release Acrobat
        raise -2147467008 from Foliant: Can't open file C:\in\Report.pdf.
)"});

const tests::MemberFaults faults_not_found(not_found, {.endings = {release_acrobat},
                                                       .from = "AcroExch.AVDoc.FindText",
                                                       .report = R"(
    fails: AcroExch.AVDoc.FindText("budget", False, False, True)
    fails: AcroExch.AVDoc.Close(True)
    fails: AcroExch.PDDoc.Close()
    fails: AcroExch.App.Exit()
        release Acrobat
        raise -2147467008 from Foliant: Can't open file C:\in\Report.pdf.
)"});

class FindTextInPDF : public tests::MemberTest {
  protected:
    FindTextInPDF() : MemberTest(usual) {}
};

TEST_F(FindTextInPDF, FindsWholeWordsOnlyOnRequest) {
    call({named("blnWholeWordsOnly", true)});
    EXPECT_EQ(line_with("FindText"), R"(AcroExch.AVDoc.FindText("budget", False, True, True))");
}

TEST_F(FindTextInPDF, TitlesTheWindowOnlyInAcrobatSixPointNought) {
    register_acrobat("7.0");
    call();
    EXPECT_EQ(line_with("OpenAVDoc"), R"(AcroExch.PDDoc.OpenAVDoc(""))");
}

TEST_F(FindTextInPDF, WithAPasswordAndNoSenderCannotOpenTheFile) {
    stage.files.erase("C:\\WINDOWS\\system32\\quorixsend.exe");
    call({named("strOpenPassword", "x")});
    tests::expect_text(journal_from("special folder"), R"(
        special folder 37 (owner 100)
        length C:\WINDOWS\system32\quorixsend.exe -> not found
        length C:\Program Files\Foliant\quorixsend.exe -> not found
        release AcroExch.PDDoc
        release AcroExch.App
        raise -2147467008 from Foliant: Can't open file C:\in\Report.pdf.
    )");
}

TEST_F(FindTextInPDF, AMissingFileStartsNothing) {
    stage.files.erase("C:\\in\\Report.pdf");
    call();
    expect_journal(R"(
        length C:\in\Report.pdf -> not found
        raise -2147467008 from Foliant: File C:\in\Report.pdf does not exist.
    )");
}

}  // namespace
}  // namespace foliant::members
