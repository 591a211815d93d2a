#include <gtest/gtest.h>

#include "automation/coerce.h"
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

/// A document of so many pages, each with those words.
void put_words(Stage& stage, std::int32_t pages, const std::vector<std::string>& words) {
    stage.answer("AcroExch.PDDoc.GetNumPages", pages);
    stage.answer("AcroExch.PDTextSelect.GetNumText", static_cast<std::int32_t>(words.size()));
    stage.when("AcroExch.PDTextSelect.GetText", [words](StageObject&, const Arguments& arguments) {
        return Value(words.at(static_cast<std::size_t>(automation::to_int32(arguments.at(0).value))));
    });
}

void put_one_page(Stage& stage) {
    put_words(stage, 1, {"two ", "words\r\n", "end"});
}

const tests::MemberCall usual{
    .member = "CreateTextfileFromPDF",
    .arrange =
        [](Stage& stage) {
            put_words(stage, 2, {"two ", "words\r\n"});
        },
    .arguments = {named("strPDFFile", "C:\\in\\a.pdf"), named("strTextfile", "C:\\out\\a.txt")}};

// The text file is opened before there is an Acrobat, and whether the PDF exists is not tested. Of two
// documents the second is used. The objects of a page stay until the next one replaces them.
const tests::WholeJournal journal(usual, R"(
    create text file C:\out\a.txt
    create AcroExch.App
    create AcroExch.PDDoc
    create AcroExch.Rect
    create AcroExch.PDDoc
    release AcroExch.PDDoc
    AcroExch.PDDoc.Open("C:\in\a.pdf")
    AcroExch.PDDoc.GetNumPages()
    AcroExch.PDDoc.AcquirePage(Long(0))
    AcroExch.PDPage.GetSize()
    AcroExch.Rect.Left = Integer(0)
    AcroExch.Point.x -> Integer(612)
    AcroExch.Rect.Right = Integer(6120)
    AcroExch.Rect.bottom = Integer(0)
    AcroExch.Point.y -> Integer(792)
    AcroExch.Rect.Top = Integer(7920)
    AcroExch.PDDoc.CreateTextSelect(Long(0), <object>)
    AcroExch.PDTextSelect.GetNumText()
    pump messages
    AcroExch.PDTextSelect.GetText(Long(0))
    pump messages
    AcroExch.PDTextSelect.GetText(Long(1))
    write C:\out\a.txt: two words
    write C:\out\a.txt:
    AcroExch.PDDoc.AcquirePage(Long(1))
    release AcroExch.PDPage
    AcroExch.PDPage.GetSize()
    release AcroExch.Point
    AcroExch.Rect.Left = Integer(0)
    AcroExch.Point.x -> Integer(612)
    AcroExch.Rect.Right = Integer(6120)
    AcroExch.Rect.bottom = Integer(0)
    AcroExch.Point.y -> Integer(792)
    AcroExch.Rect.Top = Integer(7920)
    AcroExch.PDDoc.CreateTextSelect(Long(1), <object>)
    release AcroExch.PDTextSelect
    AcroExch.PDTextSelect.GetNumText()
    pump messages
    AcroExch.PDTextSelect.GetText(Long(0))
    pump messages
    AcroExch.PDTextSelect.GetText(Long(1))
    write C:\out\a.txt: two words
    write C:\out\a.txt:
    AcroExch.PDDoc.Close()
    close C:\out\a.txt
    AcroExch.App.Exit()
    release AcroExch.PDDoc
    release AcroExch.Point
    release AcroExch.Rect
    release AcroExch.PDTextSelect
    release AcroExch.PDPage
    release AcroExch.App
)");

const tests::MemberCall with_password{
    .member = "CreateTextfileFromPDF",
    .of = "WithPassword",
    .arrange = put_one_page,
    .arguments = {named("strPDFFile", "C:\\in\\a.pdf"), named("strTextfile", "C:\\out\\a.txt"),
                  named("blnDoubleSpace", true), named("strOpenPassword", " open sesame")}};

// The viewer in which Acrobat's dialogs have opened the PDF is released last, and not closed.
const tests::WholeJournal journal_with_password(with_password, R"(
    create text file C:\out\a.txt
    create AcroExch.App
    create AcroExch.PDDoc
    create AcroExch.Rect
    create AcroExch.PDDoc
    release AcroExch.PDDoc
    special folder 37 (owner 100)
    length C:\WINDOWS\system32\quorixsend.exe -> 1000
    start (hidden) C:\WINDOWS\system32\quorixsend.exe open~Edit~C:\in\a.pdf~0~0~
    start (hidden) C:\WINDOWS\system32\quorixsend.exe password~Edit~ open sesame~0~0~
    AcroExch.App.MenuItemExecute("Open")
    create AcroExch.AVDoc
    AcroExch.AVDoc.Open("C:\in\a.pdf", "")
    AcroExch.App.GetActiveDoc()
    release AcroExch.AVDoc
    AcroExch.AVDoc.GetPDDoc()
    release AcroExch.PDDoc
    AcroExch.PDDoc.GetNumPages()
    AcroExch.PDDoc.AcquirePage(Long(0))
    AcroExch.PDPage.GetSize()
    AcroExch.Rect.Left = Integer(0)
    AcroExch.Point.x -> Integer(612)
    AcroExch.Rect.Right = Integer(6120)
    AcroExch.Rect.bottom = Integer(0)
    AcroExch.Point.y -> Integer(792)
    AcroExch.Rect.Top = Integer(7920)
    AcroExch.PDDoc.CreateTextSelect(Long(0), <object>)
    AcroExch.PDTextSelect.GetNumText()
    pump messages
    AcroExch.PDTextSelect.GetText(Long(0))
    pump messages
    AcroExch.PDTextSelect.GetText(Long(1))
    write C:\out\a.txt: two words\r\n
    pump messages
    AcroExch.PDTextSelect.GetText(Long(2))
    write C:\out\a.txt: end
    write C:\out\a.txt:
    AcroExch.PDDoc.Close()
    close C:\out\a.txt
    AcroExch.App.Exit()
    release AcroExch.PDDoc
    release AcroExch.Point
    release AcroExch.Rect
    release AcroExch.PDTextSelect
    release AcroExch.PDPage
    release AcroExch.App
    release AcroExch.AVDoc
)");

const tests::ParameterProbe parameters(with_password,
                                       {.lines_with = {"create text", "open~", "password~", "write"},
                                        .expected = R"(
    create text file C:\out\a.txt
    start (hidden) C:\WINDOWS\system32\quorixsend.exe open~Edit~C:\in\a.pdf~0~0~
    start (hidden) C:\WINDOWS\system32\quorixsend.exe password~Edit~ open sesame~0~0~
    write C:\out\a.txt: two words\r\n
    write C:\out\a.txt: end
    write C:\out\a.txt:
)"});

constexpr tests::Ending let_go_and_release_page{"let go and release the page", R"(
    release AcroExch.PDDoc
    AcroExch.App.Exit()
    release AcroExch.App
    release AcroExch.PDPage
    release AcroExch.PDTextSelect
    release AcroExch.Rect
    release AcroExch.Point
)"};

// The document is not closed by the trap, and the text file keeps what was written.
const tests::MemberFaults faults({.member = "CreateTextfileFromPDF",
                                  .arrange = put_one_page,
                                  .arguments = {"C:\\in\\a.pdf", "C:\\out\\a.txt"}},
                                 {.endings = {let_go_and_release_page}, .report = R"(
    fails: create text file C:\out\a.txt
        raise the failure
    fails: create AcroExch.App
        close C:\out\a.txt
        raise the failure
    fails: create AcroExch.PDDoc
        close C:\out\a.txt
        AcroExch.App.Exit()
        release AcroExch.App
        raise the failure
    fails: create AcroExch.Rect
        close C:\out\a.txt
        release AcroExch.PDDoc
        AcroExch.App.Exit()
        release AcroExch.App
        raise the failure
    fails: create AcroExch.PDDoc
    fails: AcroExch.PDDoc.Open("C:\in\a.pdf")
    fails: AcroExch.PDDoc.GetNumPages()
    fails: AcroExch.PDDoc.AcquirePage(Long(0))
        close C:\out\a.txt
        release AcroExch.PDDoc
        AcroExch.App.Exit()
        release AcroExch.App
        release AcroExch.Rect
        raise the failure
    fails: AcroExch.PDPage.GetSize()
        close C:\out\a.txt
        release AcroExch.PDDoc
        AcroExch.App.Exit()
        release AcroExch.App
        release AcroExch.PDPage
        release AcroExch.Rect
        raise the failure
    fails: AcroExch.Rect.Left = Integer(0)
    fails: AcroExch.Point.x
    fails: AcroExch.Rect.Right = Integer(6120)
    fails: AcroExch.Rect.bottom = Integer(0)
    fails: AcroExch.Point.y
    fails: AcroExch.Rect.Top = Integer(7920)
    fails: AcroExch.PDDoc.CreateTextSelect(Long(0), <object>)
        close C:\out\a.txt
        release AcroExch.PDDoc
        AcroExch.App.Exit()
        release AcroExch.App
        release AcroExch.PDPage
        release AcroExch.Rect
        release AcroExch.Point
        raise the failure
    fails: AcroExch.PDTextSelect.GetNumText()
    fails: pump messages
    fails: AcroExch.PDTextSelect.GetText(Long(0))
    fails: pump messages
    fails: AcroExch.PDTextSelect.GetText(Long(1))
    fails: write C:\out\a.txt: two words
    fails: pump messages
    fails: AcroExch.PDTextSelect.GetText(Long(2))
    fails: write C:\out\a.txt: end
    fails: AcroExch.PDDoc.Close()
    fails: close C:\out\a.txt
        close C:\out\a.txt
        let go and release the page
        raise the failure
    fails: AcroExch.App.Exit()
        let go and release the page
        raise the failure
)"});

class CreateTextfileFromPDF : public tests::MemberTest {
  protected:
    CreateTextfileFromPDF() : MemberTest(usual) {}

    const std::string& text() { return stage.files.at("C:\\out\\a.txt").content; }
};

TEST_F(CreateTextfileFromPDF, WritesALineOfTextAsOneLineAndEndsEachPageWithWhatIsLeft) {
    put_words(stage, 2, {"one ", "line\r\n", "and ", "more"});
    call();
    EXPECT_EQ(text(), "one line\r\nand more\r\none line\r\nand more\r\n");
}

TEST_F(CreateTextfileFromPDF, WithDoubleSpaceFollowsEveryLineAndPageByAnEmptyLine) {
    put_words(stage, 2, {"one ", "line\r\n", "and ", "more"});
    call({named("blnDoubleSpace", true)});
    EXPECT_EQ(text(), "one line\r\n\r\nand more\r\n\r\none line\r\n\r\nand more\r\n\r\n");
}

TEST_F(CreateTextfileFromPDF, OfPagesWithoutTextWritesOneEmptyLineForEach) {
    put_words(stage, 3, {});
    call();
    EXPECT_EQ(text(), "\r\n\r\n\r\n");
}

TEST_F(CreateTextfileFromPDF, OfPagesWithoutTextWritesTwoForEachWithDoubleSpace) {
    put_words(stage, 3, {});
    call({named("blnDoubleSpace", true)});
    EXPECT_EQ(text(), "\r\n\r\n\r\n\r\n\r\n\r\n");
}

TEST_F(CreateTextfileFromPDF, OfAWordWithALineEndInItsMiddleWritesTheWholeOfItAtOnce) {
    put_words(stage, 1, {"a ", "hyphen\r\nated ", "word\r\n"});
    call();
    EXPECT_EQ(text(), "a hyphenated \r\nword\r\n\r\n");
}

TEST_F(CreateTextfileFromPDF, TakesEveryLineEndOutOfALine) {
    put_words(stage, 1, {"a\r\nb\r\nc\r", "\r\n\n"});
    call();
    EXPECT_EQ(text(), "abc\r\r\n\n\r\n\r\n");
}

TEST_F(CreateTextfileFromPDF, LeavesALineEndThatComesOfTakingOthersOut) {
    put_words(stage, 1, {"a\r\r\n\nb\r\n"});
    call();
    EXPECT_EQ(text(), "a\r\nb\r\n\r\n");
}

TEST_F(CreateTextfileFromPDF, TakesAPasswordOfBlanksForNone) {
    call({named("strOpenPassword", "  ")});
    EXPECT_EQ(line_with("Open("), R"(AcroExch.PDDoc.Open("C:\in\a.pdf"))");
    EXPECT_EQ(stage.journal().find("start"), std::string::npos);
}

TEST_F(CreateTextfileFromPDF, SelectsTenTimesAPageHoweverLargeItIs) {
    stage.answer("AcroExch.Point.x", std::int16_t{14400});
    stage.answer("AcroExch.Point.y", std::int32_t{300'000'000});
    call();
    EXPECT_EQ(lines_with({"Right", "Top"}).at(0), "AcroExch.Rect.Right = Long(144000)");
    EXPECT_EQ(lines_with({"Right", "Top"}).at(1), "AcroExch.Rect.Top = Double(3000000000)");
}

TEST_F(CreateTextfileFromPDF, RoundsNoSizeAndKeepsTheTypeThatAcrobatGivesItIn) {
    stage.answer("AcroExch.Point.x", 595.28);
    stage.answer("AcroExch.Point.y", std::int32_t{842});
    call();
    EXPECT_EQ(lines_with({"Right", "Top"}).at(0), "AcroExch.Rect.Right = Double(5952.8)");
    EXPECT_EQ(lines_with({"Right", "Top"}).at(1), "AcroExch.Rect.Top = Long(8420)");
}

TEST_F(CreateTextfileFromPDF, SelectsByItsRectangle) {
    std::string given;
    stage.when("AcroExch.PDDoc.CreateTextSelect", [&](StageObject& self, const Arguments& arguments) {
        given = stage_name_of(arguments.at(1).value);
        return Value(self.stage().make_object("AcroExch.PDTextSelect"));
    });
    call();
    EXPECT_EQ(given, "AcroExch.Rect");
}

TEST_F(CreateTextfileFromPDF, OfADocumentWithoutPagesWritesAnEmptyFile) {
    put_words(stage, 0, {});
    call();
    EXPECT_EQ(text(), "");
    EXPECT_EQ(stage.journal().find("AcquirePage"), std::string::npos);
}

TEST_F(CreateTextfileFromPDF, DoesNotLookAtWhetherAcrobatOpenedTheFile) {
    stage.answer("AcroExch.PDDoc.Open", false);
    call();
    EXPECT_EQ(last_line(), "release AcroExch.App");
}

TEST_F(CreateTextfileFromPDF, LeavesWhatWasWrittenBeforeAFailure) {
    int page = 0;
    stage.when("AcroExch.PDPage.GetSize", [&](StageObject& self, const Arguments&) -> Value {
        if (++page == 2) throw automation::Error(-2147352567, "Acrobat", "The page is damaged.");
        return self.stage().make_object("AcroExch.Point");
    });
    call();
    EXPECT_EQ(text(), "two words\r\n\r\n");
    EXPECT_EQ(last_line(), "raise -2147352567 from Foliant: The page is damaged.");
}

TEST_F(CreateTextfileFromPDF, WithAPasswordAndNoSenderSaysWhichFileIsMissingAndExitsAcrobat) {
    stage.files.erase("C:\\WINDOWS\\system32\\quorixsend.exe");
    call({named("strOpenPassword", "x")});
    tests::expect_text(journal_from("special folder"), R"(
        special folder 37 (owner 100)
        length C:\WINDOWS\system32\quorixsend.exe -> not found
        length C:\Program Files\Foliant\quorixsend.exe -> not found
        close C:\out\a.txt
        release AcroExch.PDDoc
        AcroExch.App.Exit()
        release AcroExch.App
        release AcroExch.Rect
        raise -2147467008 from Foliant: Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as QUORIX.OCX or into your Window's System Directory.
    )");
}

}  // namespace
}  // namespace foliant::members
