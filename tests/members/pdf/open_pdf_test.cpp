#include <gtest/gtest.h>

#include "members/pdf/acrobat_endings.h"
#include "members/pdf/stage_names.h"
#include "platform/stage/stage_object.h"
#include "support/fault_cases.h"
#include "support/member_cases.h"
#include "support/member_test.h"

namespace foliant::members {
namespace {

using automation::Arguments;
using automation::named;
using automation::Value;
using platform::stage::Stage;
using platform::stage::StageObject;

const tests::MemberCall usual{.member = "OpenPDF",
                              .arrange = [](Stage& stage) { stage.put_file("C:\\in\\Report.pdf"); },
                              .arguments = {named("strPDFFile", "C:\\in\\Report.pdf")}};

// Acrobat is shown before there is anything in it. Nothing is closed at the end. A bookmark object is made in
// any case.
const tests::WholeJournal journal(usual, R"(
    length C:\in\Report.pdf -> 1000
    create AcroExch.App
    create AcroExch.PDDoc
    AcroExch.App.Show()
    AcroExch.PDDoc.Open("C:\in\Report.pdf")
    AcroExch.PDDoc.OpenAVDoc("Report.pdf")
    create AcroExch.PDBookmark
    release AcroExch.AVDoc
    release AcroExch.PDDoc
    release AcroExch.PDBookmark
    release AcroExch.App
)");

const tests::MemberCall at_a_place{
    .member = "OpenPDF",
    .of = "AtAPlace",
    .arrange = usual.arrange,
    .arguments = {named("strPDFFile", "C:\\in\\Report.pdf"), named("strBookmark", " Summary"),
                  named("lngGoToPageNo", std::int32_t{3}), named("lngReadType", std::int32_t{2})}};

// For a bookmark that is named the object is made a second time.
const tests::WholeJournal journal_at_a_place(at_a_place, R"(
    length C:\in\Report.pdf -> 1000
    create AcroExch.App
    create AcroExch.PDDoc
    AcroExch.App.Show()
    AcroExch.PDDoc.Open("C:\in\Report.pdf")
    AcroExch.PDDoc.OpenAVDoc("Report.pdf")
    create AcroExch.PDBookmark
    create AcroExch.PDBookmark
    release AcroExch.PDBookmark
    AcroExch.PDBookmark.GetByTitle(<object>, " Summary")
    AcroExch.PDBookmark.Perform(<object>)
    AcroExch.PDDoc.GetNumPages()
    special folder 37 (owner 100)
    length C:\WINDOWS\system32\quorixsend.exe -> 1000
    start (hidden) C:\WINDOWS\system32\quorixsend.exe go to page~RichEdit20W~3~0~0~
    AcroExch.App.MenuItemExecute("GoToPage")
    AcroExch.App.MenuItemExecute("ADBE:ReadAloudToEnd")
    release AcroExch.AVDoc
    release AcroExch.PDDoc
    release AcroExch.PDBookmark
    release AcroExch.App
)");

const tests::MemberCall with_password{
    .member = "OpenPDF",
    .of = "WithPassword",
    .arrange = usual.arrange,
    .arguments = {named("strPDFFile", "C:\\in\\Report.pdf"), named("strBookmark", "Summary"),
                  named("lngGoToPageNo", std::int32_t{1}), named("lngReadType", std::int32_t{1}),
                  named("strOpenPassword", "open sesame")}};

const tests::WholeJournal journal_with_password(with_password, R"(
    length C:\in\Report.pdf -> 1000
    create AcroExch.App
    create AcroExch.PDDoc
    AcroExch.App.Show()
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
    create AcroExch.PDBookmark
    release AcroExch.PDBookmark
    AcroExch.PDBookmark.GetByTitle(<object>, "Summary")
    AcroExch.PDBookmark.Perform(<object>)
    AcroExch.PDDoc.GetNumPages()
    special folder 37 (owner 100)
    length C:\WINDOWS\system32\quorixsend.exe -> 1000
    start (hidden) C:\WINDOWS\system32\quorixsend.exe go to page~RichEdit20W~1~0~0~
    AcroExch.App.MenuItemExecute("GoToPage")
    AcroExch.App.MenuItemExecute("ADBE:ReadAloudStart")
    release AcroExch.AVDoc
    release AcroExch.PDDoc
    release AcroExch.PDBookmark
    release AcroExch.App
)");

const tests::ParameterProbe parameters(with_password,
                                       {.lines_with = {"open~", "password~", "GetByTitle", "go to", "ADBE"},
                                        .expected = R"(
    start (hidden) C:\WINDOWS\system32\quorixsend.exe open~Edit~C:\in\Report.pdf~0~0~
    start (hidden) C:\WINDOWS\system32\quorixsend.exe password~Edit~open sesame~0~0~
    AcroExch.PDBookmark.GetByTitle(<object>, "Summary")
    start (hidden) C:\WINDOWS\system32\quorixsend.exe go to page~RichEdit20W~1~0~0~
    AcroExch.App.MenuItemExecute("ADBE:ReadAloudStart")
)"});

// Nothing is closed and nobody exits, whatever fails: Acrobat is the user's.
const tests::MemberFaults faults(at_a_place, {.endings = {leave_acrobat_to_user}, .report = R"(
    fails: length C:\in\Report.pdf
        raise -2147467008 from Foliant: File C:\in\Report.pdf does not exist.
    fails: create AcroExch.App
        raise the failure
    fails: create AcroExch.PDDoc
        release AcroExch.App
        raise the failure
    fails: AcroExch.App.Show()
    fails: AcroExch.PDDoc.Open("C:\in\Report.pdf")
    fails: AcroExch.PDDoc.OpenAVDoc("Report.pdf")
        release AcroExch.PDDoc
        release AcroExch.App
        raise the failure
    fails: create AcroExch.PDBookmark
        release AcroExch.AVDoc
        release AcroExch.PDDoc
        release AcroExch.App
        raise the failure
    fails: create AcroExch.PDBookmark
    fails: AcroExch.PDBookmark.GetByTitle(<object>, " Summary")
    fails: AcroExch.PDBookmark.Perform(<object>)
    fails: AcroExch.PDDoc.GetNumPages()
        leave Acrobat to the user
        raise the failure
    fails: special folder 37 (owner 100)
        length \quorixsend.exe -> not found
        length C:\Program Files\Foliant\quorixsend.exe -> not found
        leave Acrobat to the user
        raise -2147467008 from Foliant: Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as QUORIX.OCX or into your Window's System Directory.
    fails: length C:\WINDOWS\system32\quorixsend.exe
        length C:\Program Files\Foliant\quorixsend.exe -> not found
        leave Acrobat to the user
        raise -2147467008 from Foliant: Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as QUORIX.OCX or into your Window's System Directory.
    fails: start (hidden) C:\WINDOWS\system32\quorixsend.exe go to page~RichEdit20W~3~0~0~
    fails: AcroExch.App.MenuItemExecute("GoToPage")
    fails: AcroExch.App.MenuItemExecute("ADBE:ReadAloudToEnd")
        leave Acrobat to the user
        raise the failure
)"});

class OpenPDF : public tests::MemberTest {
  protected:
    OpenPDF() : MemberTest(usual) {}

    /// What was done by Acrobat's menu and by the sender.
    tests::Lines commands() { return lines_with({"start", "MenuItemExecute"}); }
};

TEST_F(OpenPDF, GoesToNoPageThatTheDocumentDoesNotHave) {
    for (const std::int32_t page : {4, 0, -1}) {
        stage.clear_journal();
        call({named("lngGoToPageNo", page)});
        EXPECT_EQ(stage.journal().find("start"), std::string::npos) << page;
        EXPECT_EQ(stage.journal().find("GoToPage"), std::string::npos) << page;
    }
}

TEST_F(OpenPDF, AnswersAnotherControlUpToAcrobatFive) {
    register_acrobat("5.0");
    call({named("lngGoToPageNo", std::int32_t{2})});
    tests::expect_text(commands(), R"(
        start (hidden) C:\WINDOWS\system32\quorixsend.exe go to page~Edit~2~0~0~
        AcroExch.App.MenuItemExecute("GoToPage")
    )");
}

TEST_F(OpenPDF, ReadsAloudFromTheFirstAcrobatThatIsNewerThanFive) {
    register_acrobat("5.05");
    call({named("lngReadType", std::int32_t{2})});
    EXPECT_EQ(line_with("ADBE"), R"(AcroExch.App.MenuItemExecute("ADBE:ReadAloudToEnd"))");
}

TEST_F(OpenPDF, DoesNotReadAloudInAcrobatFive) {
    register_acrobat("5.0");
    call({named("lngReadType", std::int32_t{2})});
    EXPECT_EQ(stage.journal().find("ADBE"), std::string::npos);
}

TEST_F(OpenPDF, ReadsNothingAloudForAnyOtherNumber) {
    for (const std::int32_t number : {0, -1, 3}) {
        stage.clear_journal();
        call({named("lngReadType", number)});
        EXPECT_EQ(stage.journal().find("ADBE"), std::string::npos) << number;
    }
}

TEST_F(OpenPDF, TakesABookmarkOfBlanksForNone) {
    call({named("strBookmark", "  ")});
    tests::expect_text(lines_with({"PDBookmark"}), R"(
        create AcroExch.PDBookmark
        release AcroExch.PDBookmark
    )");
}

TEST_F(OpenPDF, DoesNotLookAtWhetherThereIsSuchABookmark) {
    stage.answer("AcroExch.PDBookmark.GetByTitle", false);
    call({named("strBookmark", "Nowhere")});
    EXPECT_EQ(line_with("Perform"), "AcroExch.PDBookmark.Perform(<object>)");
}

TEST_F(OpenPDF, LooksForTheBookmarkInTheDocumentAndGoesThereInTheViewer) {
    std::string looked_in;
    std::string performed_in;
    stage.when("AcroExch.PDBookmark.GetByTitle", [&](StageObject&, const Arguments& arguments) {
        looked_in = stage_name_of(arguments.at(0).value);
        return Value(true);
    });
    stage.when("AcroExch.PDBookmark.Perform", [&](StageObject&, const Arguments& arguments) {
        performed_in = stage_name_of(arguments.at(0).value);
        return Value(true);
    });
    call({named("strBookmark", "Summary")});
    EXPECT_EQ(looked_in, "AcroExch.PDDoc");
    EXPECT_EQ(performed_in, "AcroExch.AVDoc");
}

TEST_F(OpenPDF, TakesAPasswordOfBlanksForNone) {
    call({named("strOpenPassword", "  ")});
    EXPECT_EQ(line_with("PDDoc.Open("), R"(AcroExch.PDDoc.Open("C:\in\Report.pdf"))");
    EXPECT_EQ(stage.journal().find("start"), std::string::npos);
}

TEST_F(OpenPDF, TitlesTheWindowOnlyInAcrobatSixPointNought) {
    register_acrobat("6.0.1");
    call();
    EXPECT_EQ(line_with("OpenAVDoc"), R"(AcroExch.PDDoc.OpenAVDoc(""))");
}

TEST_F(OpenPDF, WithAPasswordAndNoSenderLeavesAnEmptyAcrobatShown) {
    stage.files.erase("C:\\WINDOWS\\system32\\quorixsend.exe");
    call({named("strOpenPassword", "x")});
    tests::expect_text(journal_from("Show"), R"(
        AcroExch.App.Show()
        special folder 37 (owner 100)
        length C:\WINDOWS\system32\quorixsend.exe -> not found
        length C:\Program Files\Foliant\quorixsend.exe -> not found
        release AcroExch.PDDoc
        release AcroExch.App
        raise -2147467008 from Foliant: Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as QUORIX.OCX or into your Window's System Directory.
    )");
}

TEST_F(OpenPDF, AMissingFileStartsNothing) {
    stage.files.erase("C:\\in\\Report.pdf");
    call();
    expect_journal(R"(
        length C:\in\Report.pdf -> not found
        raise -2147467008 from Foliant: File C:\in\Report.pdf does not exist.
    )");
}

}  // namespace
}  // namespace foliant::members
