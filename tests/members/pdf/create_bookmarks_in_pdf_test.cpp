#include <gtest/gtest.h>

#include "automation/array_bounds.h"
#include "automation/coerce.h"
#include "members/pdf/acrobat_endings.h"
#include "members/pdf/lists_of_files.h"
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

/// A document in which every title is found but "Nowhere".
void put_pdf(Stage& stage) {
    stage.put_file("C:\\in\\Report.pdf");
    stage.when("AcroExch.AVDoc.FindText", [](StageObject&, const Arguments& arguments) {
        return Value(automation::to_text(arguments.at(0).value) != "Nowhere");
    });
}

const tests::MemberCall usual{
    .member = "CreateBookmarksInPDF",
    .arrange = put_pdf,
    .arguments = {named("strPDFFile", "C:\\in\\Report.pdf"),
                  named("varBookmarkTitles", list_of({"Summary", "Nowhere", "Figures"}))}};

// There is a wait for each title that is found, and none for the others.
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
    AcroExch.AVDoc.FindText("Nowhere", False, False, False)
    AcroExch.AVDoc.FindText("Figures", False, False, False)
    sleep 1000 ms
    AcroExch.App.MenuItemExecute("NewBookmark")
    AcroExch.PDBookmark.GetByTitle(<object>, "Untitled")
    AcroExch.PDBookmark.SetTitle("Figures")
    AcroExch.PDDoc.Save(Integer(0), "C:\in\Report.pdf")
    AcroExch.AVDoc.Close(True)
    AcroExch.PDDoc.Close()
    AcroExch.App.Exit()
    release AcroExch.AVDoc
    release AcroExch.PDDoc
    release AcroExch.App
    release AcroExch.PDBookmark
)");

const tests::MemberCall with_password{
    .member = "CreateBookmarksInPDF",
    .of = "WithPassword",
    .arrange = put_pdf,
    .arguments = {named("strPDFFile", "C:\\in\\Report.pdf"), named("varBookmarkTitles", list_of({"Summary"})),
                  named("blnCaseSensitive", true), named("blnWholeWordsOnly", false), named("blnReset", true),
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
    create AcroExch.PDBookmark
    AcroExch.PDDoc.SetFlags(Integer(256))
    AcroExch.AVDoc.FindText("Summary", True, False, True)
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
    AcroExch.AVDoc.FindText("Summary", True, False, True)
    AcroExch.PDBookmark.SetTitle("Summary")
    AcroExch.PDDoc.Save(Integer(0), "C:\in\Report.pdf")
)"});

const tests::MemberFaults faults({.member = "CreateBookmarksInPDF",
                                  .arrange = put_pdf,
                                  .arguments = {"C:\\in\\Report.pdf", list_of({"Summary"})}},
                                 {.endings = {release_acrobat}, .report = R"(
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
    fails: create AcroExch.PDBookmark
        release Acrobat
        raise -2147467008 from Foliant: Can't open file C:\in\Report.pdf.
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
        raise -2147467008 from Foliant: Can't open file C:\in\Report.pdf.
)"});

class CreateBookmarksInPDF : public tests::MemberTest {
  protected:
    CreateBookmarksInPDF() : MemberTest(usual) {}
};

TEST_F(CreateBookmarksInPDF, SavesAlsoWhenNothingIsFound) {
    call({named("varBookmarkTitles", list_of({"Nowhere", "Nowhere"}))});
    tests::expect_text(journal_between("SetFlags", "Save"), R"(
        AcroExch.PDDoc.SetFlags(Integer(256))
        AcroExch.AVDoc.FindText("Nowhere", False, False, False)
        AcroExch.AVDoc.FindText("Nowhere", False, False, False)
        AcroExch.PDDoc.Save(Integer(0), "C:\in\Report.pdf")
    )");
}

TEST_F(CreateBookmarksInPDF, LooksForTheNewBookmarkInTheDocument) {
    std::vector<std::string> looked_in;
    stage.when("AcroExch.PDBookmark.GetByTitle", [&](StageObject&, const Arguments& arguments) {
        looked_in.push_back(stage_name_of(arguments.at(0).value));
        return Value(true);
    });
    call();
    EXPECT_EQ(looked_in, (std::vector<std::string>{"AcroExch.PDDoc", "AcroExch.PDDoc"}));
}

TEST_F(CreateBookmarksInPDF, DoesNotLookAtWhetherThereIsANewBookmarkAndWhetherItTookTheTitle) {
    stage.answer("AcroExch.App.MenuItemExecute", false);
    stage.answer("AcroExch.PDBookmark.GetByTitle", false);
    stage.answer("AcroExch.PDBookmark.SetTitle", false);
    stage.answer("AcroExch.PDDoc.Save", false);
    call();
    expect_journal(journal.expected);
}

TEST_F(CreateBookmarksInPDF, TakesNumbersAndAnEmptyElementForTexts) {
    call({named("varBookmarkTitles", list_of({std::int32_t{2024}, Value(), Value(true)}, 1))});
    tests::expect_text(lines_with({"SetTitle"}), R"(
        AcroExch.PDBookmark.SetTitle("2024")
        AcroExch.PDBookmark.SetTitle("")
        AcroExch.PDBookmark.SetTitle("True")
    )");
}

TEST_F(CreateBookmarksInPDF, MarksWhatComesBeforeATitleThatIsNoTextAndSavesNothing) {
    call({named("varBookmarkTitles", list_of({"Summary", automation::Null{}, "Figures"}))});
    tests::expect_text(journal_from("SetTitle"), R"(
        AcroExch.PDBookmark.SetTitle("Summary")
        release AcroExch.PDBookmark
        release AcroExch.AVDoc
        release AcroExch.PDDoc
        release AcroExch.App
        raise -2147467008 from Foliant: Can't open file C:\in\Report.pdf.
    )");
}

TEST_F(CreateBookmarksInPDF, OfAListWithoutElementsOnlySaves) {
    call({named("varBookmarkTitles", list_of({}))});
    tests::expect_text(journal_between("SetFlags", "Save"), R"(
        AcroExch.PDDoc.SetFlags(Integer(256))
        AcroExch.PDDoc.Save(Integer(0), "C:\in\Report.pdf")
    )");
}

TEST_F(CreateBookmarksInPDF, FindsWholeWordsOnlyOnRequest) {
    call({named("varBookmarkTitles", list_of({"Summary"})), named("blnWholeWordsOnly", true)});
    EXPECT_EQ(line_with("FindText"), R"(AcroExch.AVDoc.FindText("Summary", False, True, False))");
}

TEST_F(CreateBookmarksInPDF, WalksTheTitlesFromTheirOwnLowerBound) {
    call({named("varBookmarkTitles", list_of({"Summary", "Figures"}, -1))});
    tests::expect_text(lines_with({"SetTitle"}), R"(
        AcroExch.PDBookmark.SetTitle("Summary")
        AcroExch.PDBookmark.SetTitle("Figures")
    )");
}

TEST_F(CreateBookmarksInPDF, CountsTitlesBeyondSixteenBits) {
    call({named("varBookmarkTitles", list_of({"Summary"}, 70000))});
    EXPECT_EQ(line_with("SetTitle"), R"(AcroExch.PDBookmark.SetTitle("Summary"))");
}

TEST_F(CreateBookmarksInPDF, WithAListThatIsNoneCannotOpenTheFile) {
    call({named("varBookmarkTitles", "Summary")});
    EXPECT_EQ(last_line(), R"(raise -2147467008 from Foliant: Can't open file C:\in\Report.pdf.)");
    EXPECT_EQ(stage.journal().find("Save"), std::string::npos);
}

TEST_F(CreateBookmarksInPDF, WithAListWithoutBoundsCannotOpenTheFile) {
    call({named("varBookmarkTitles", automation::array_without_bounds())});
    tests::expect_text(journal_from("SetFlags"), R"(
        AcroExch.PDDoc.SetFlags(Integer(256))
        release AcroExch.PDBookmark
        release AcroExch.AVDoc
        release AcroExch.PDDoc
        release AcroExch.App
        raise -2147467008 from Foliant: Can't open file C:\in\Report.pdf.
    )");
}

TEST_F(CreateBookmarksInPDF, TitlesTheWindowOnlyInAcrobatSixPointNought) {
    register_acrobat("6.0.1");
    call();
    EXPECT_EQ(line_with("OpenAVDoc"), R"(AcroExch.PDDoc.OpenAVDoc(""))");
}

TEST_F(CreateBookmarksInPDF, WithAPasswordAndNoSenderCannotOpenTheFile) {
    stage.files.erase("C:\\WINDOWS\\system32\\quorixsend.exe");
    call({named("strOpenPassword", "x")});
    EXPECT_EQ(last_line(), R"(raise -2147467008 from Foliant: Can't open file C:\in\Report.pdf.)");
    EXPECT_EQ(stage.journal().find("Exit"), std::string::npos);
}

TEST_F(CreateBookmarksInPDF, AMissingFileStartsNothing) {
    stage.files.erase("C:\\in\\Report.pdf");
    call();
    expect_journal(R"(
        length C:\in\Report.pdf -> not found
        raise -2147467008 from Foliant: File C:\in\Report.pdf does not exist.
    )");
}

}  // namespace
}  // namespace foliant::members
