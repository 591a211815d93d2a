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

const tests::MemberCall usual{
    .member = "CreateBookmarkInPDF",
    .arrange = put_pdf,
    .arguments = {named("strPDFFile", "C:\\in\\Report.pdf"), named("strBookmarkTitle", "Summary")}};

const tests::WholeJournal journal(usual, R"(
    length C:\in\Report.pdf -> 1000
    create AcroExch.App
    create AcroExch.PDDoc
    AcroExch.PDDoc.Open("C:\in\Report.pdf")
    AcroExch.PDDoc.OpenAVDoc("Report.pdf")
    create AcroExch.PDBookmark
    AcroExch.PDDoc.SetFlags(Integer(256))
    AcroExch.AVDoc.FindText("Summary", False, False, False)
    sleep 1000 ms
    AcroExch.App.MenuItemExecute("NewBookmark")
    AcroExch.PDBookmark.GetByTitle(<object>, "Untitled")
    AcroExch.PDBookmark.SetTitle("Summary")
    AcroExch.PDDoc.Save(Integer(0), "C:\in\Report.pdf")
    AcroExch.AVDoc.Close(True)
    AcroExch.PDDoc.Close()
    AcroExch.App.Exit()
    release AcroExch.AVDoc
    release AcroExch.PDDoc
    release AcroExch.App
    release AcroExch.PDBookmark
)");

// A title that is not found neither waits nor saves: the file stays as it is.
const tests::WholeJournal journal_not_found({.member = "CreateBookmarkInPDF",
                                             .of = "NotFound",
                                             .arrange =
                                                 [](Stage& stage) {
                                                     put_pdf(stage);
                                                     stage.answer("AcroExch.AVDoc.FindText", false);
                                                 },
                                             .arguments = usual.arguments},
                                            R"(
    length C:\in\Report.pdf -> 1000
    create AcroExch.App
    create AcroExch.PDDoc
    AcroExch.PDDoc.Open("C:\in\Report.pdf")
    AcroExch.PDDoc.OpenAVDoc("Report.pdf")
    create AcroExch.PDBookmark
    AcroExch.PDDoc.SetFlags(Integer(256))
    AcroExch.AVDoc.FindText("Summary", False, False, False)
    AcroExch.AVDoc.Close(True)
    AcroExch.PDDoc.Close()
    AcroExch.App.Exit()
    release AcroExch.AVDoc
    release AcroExch.PDDoc
    release AcroExch.App
    release AcroExch.PDBookmark
)");

const tests::MemberCall with_password{
    .member = "CreateBookmarkInPDF",
    .of = "WithPassword",
    .arrange = put_pdf,
    .arguments = {named("strPDFFile", "C:\\in\\Report.pdf"), named("strBookmarkTitle", "Summary"),
                  named("blnCaseSensitive", false), named("blnWholeWordsOnly", true),
                  named("blnReset", false), named("strOpenPassword", "open sesame")}};

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
    create AcroExch.PDBookmark
    AcroExch.PDDoc.SetFlags(Integer(256))
    AcroExch.AVDoc.FindText("Summary", False, True, False)
    sleep 1000 ms
    AcroExch.App.MenuItemExecute("NewBookmark")
    AcroExch.PDBookmark.GetByTitle(<object>, "Untitled")
    AcroExch.PDBookmark.SetTitle("Summary")
    AcroExch.PDDoc.Save(Integer(0), "C:\in\Report.pdf")
    AcroExch.AVDoc.Close(True)
    AcroExch.PDDoc.Close()
    AcroExch.App.Exit()
    release AcroExch.AVDoc
    release AcroExch.PDDoc
    release AcroExch.App
    release AcroExch.PDBookmark
)");

const tests::ParameterProbe parameters(with_password,
                                       {.lines_with = {"open~", "password~", "FindText", "SetTitle", "Save"},
                                        .expected = R"(
    start (hidden) C:\WINDOWS\system32\quorixsend.exe open~Edit~C:\in\Report.pdf~0~0~
    start (hidden) C:\WINDOWS\system32\quorixsend.exe password~Edit~open sesame~0~0~
    AcroExch.AVDoc.FindText("Summary", False, True, False)
    AcroExch.PDBookmark.SetTitle("Summary")
    AcroExch.PDDoc.Save(Integer(0), "C:\in\Report.pdf")
)"});

// In this sentence no blank stands before the path.
const tests::MemberFaults faults(usual, {.endings = {release_acrobat}, .report = R"(
    fails: length C:\in\Report.pdf
        raise -2147467008 from Foliant: File C:\in\Report.pdf does not exist.
    fails: create AcroExch.App
        raise -2147467008 from Foliant: Can't open fileC:\in\Report.pdf.
    fails: create AcroExch.PDDoc
        release AcroExch.App
        raise -2147467008 from Foliant: Can't open fileC:\in\Report.pdf.
    fails: AcroExch.PDDoc.Open("C:\in\Report.pdf")
    fails: AcroExch.PDDoc.OpenAVDoc("Report.pdf")
        release AcroExch.PDDoc
        release AcroExch.App
        raise -2147467008 from Foliant: Can't open fileC:\in\Report.pdf.
    fails: create AcroExch.PDBookmark
        release Acrobat
        raise -2147467008 from Foliant: Can't open fileC:\in\Report.pdf.
    fails: AcroExch.PDDoc.SetFlags(Integer(256))
    fails: AcroExch.AVDoc.FindText("Summary", False, False, False)
    fails: sleep 1000 ms
    fails: AcroExch.App.MenuItemExecute("NewBookmark")
    fails: AcroExch.PDBookmark.GetByTitle(<object>, "Untitled")
    fails: AcroExch.PDBookmark.SetTitle("Summary")
    fails: AcroExch.PDDoc.Save(Integer(0), "C:\in\Report.pdf")
    fails: AcroExch.AVDoc.Close(True)
    fails: AcroExch.PDDoc.Close()
    fails: AcroExch.App.Exit()
        release AcroExch.PDBookmark
        release Acrobat
        raise -2147467008 from Foliant: Can't open fileC:\in\Report.pdf.
)"});

class CreateBookmarkInPDF : public tests::MemberTest {
  protected:
    CreateBookmarkInPDF() : MemberTest(usual) {}
};

TEST_F(CreateBookmarkInPDF, StartsTheSearchAnewOnRequest) {
    call({named("blnReset", true)});
    EXPECT_EQ(line_with("FindText"), R"(AcroExch.AVDoc.FindText("Summary", False, False, True))");
}

TEST_F(CreateBookmarkInPDF, TellsUpperFromLowerCaseOnRequest) {
    call({named("blnCaseSensitive", true)});
    EXPECT_EQ(line_with("FindText"), R"(AcroExch.AVDoc.FindText("Summary", True, False, False))");
}

TEST_F(CreateBookmarkInPDF, TitlesTheWindowOnlyInAcrobatSixPointNought) {
    register_acrobat("7.0");
    call();
    EXPECT_EQ(line_with("OpenAVDoc"), R"(AcroExch.PDDoc.OpenAVDoc(""))");
}

TEST_F(CreateBookmarkInPDF, WithAPasswordAndNoSenderCannotOpenTheFile) {
    stage.files.erase("C:\\WINDOWS\\system32\\quorixsend.exe");
    call({named("strOpenPassword", "x")});
    EXPECT_EQ(last_line(), R"(raise -2147467008 from Foliant: Can't open fileC:\in\Report.pdf.)");
}

TEST_F(CreateBookmarkInPDF, AMissingFileStartsNothing) {
    stage.files.erase("C:\\in\\Report.pdf");
    call();
    expect_journal(R"(
        length C:\in\Report.pdf -> not found
        raise -2147467008 from Foliant: File C:\in\Report.pdf does not exist.
    )");
}

}  // namespace
}  // namespace foliant::members
