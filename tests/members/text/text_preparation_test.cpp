// What the three members that print a text with Word do alike before and after they print, shown on the
// shortest of them.

#include <gtest/gtest.h>

#include "members/text/text_member.h"

namespace foliant::members {
namespace {

using automation::named;
using automation::Value;
using platform::stage::StageObject;

class TextPreparation : public WordMember {
  protected:
    TextPreparation()
        : WordMember({.member = "CreatePSfromTextFile",
                      .arrange = put_text,
                      .arguments = {named("strPSFile", "C:\\out\\notes.ps"),
                                    named("strTextfile", "C:\\in\\notes.txt")}}) {}

    /// What is done to the font of the whole text, and read for it.
    tests::Lines font_lines() const { return journal_between("Word.Document.Content", "DisplayAlerts"); }
};

TEST_F(TextPreparation, AMissingTextIsSaidBeforeWordIsStarted) {
    stage.files.clear();
    call();
    expect_journal(R"(
        length C:\in\notes.txt -> not found
        raise -2147467008 from Foliant: File C:\in\notes.txt does not exist.
    )");
}

TEST_F(TextPreparation, EveryOptionReachesWordInOrder) {
    call({named("blnLandscape", true), named("strFont", "  Courier New "), named("blnFontBold", true),
          named("intFontSize", std::int16_t{11}), named("lngFontColor", std::int32_t{255}),
          named("blnFontItalic", true), named("blnFontUnderline", true), named("blnPageNumberInFooter", true),
          named("blnPageNumberInHeader", true), named("lngPageNumberAlignment", std::int32_t{2}),
          named("sngTopMargin", 10.5F), named("sngLeftMargin", 20.0F), named("sngRightMargin", 30.0F),
          named("sngBottomMargin", 40.0F), named("blnFirstPage", true), named("strDistiller", "My printer")});
    expect_journal(R"(
        length C:\in\notes.txt -> 1000
        create Word.Application
        Word.Application.Documents
        Word.Documents.Open("C:\in\notes.txt")
        Word.Document.PageSetup
        Word.PageSetup.Orientation = Integer(1)
        Word.Document.Content
        Word.Content.Font
        Word.Font.Name = "Courier New"
        Word.Font.Bold = True
        Word.Font.Size = Integer(11)
        Word.Font.Color = Long(255)
        Word.Font.Italic = True
        Word.Font.Underline = True
        Word.Document.Sections(Integer(1))
        Word.Sections.Footers(Integer(1))
        Word.Footers.PageNumbers
        Word.PageNumbers.Add(PageNumberAlignment:=Integer(2), FirstPage:=True)
        Word.Document.Sections(Integer(1))
        Word.Sections.Headers(Integer(1))
        Word.Headers.PageNumbers
        Word.PageNumbers.Add(PageNumberAlignment:=Integer(2), FirstPage:=True)
        Word.Document.PageSetup
        Word.PageSetup.TopMargin = Single(10.5)
        Word.Document.PageSetup
        Word.PageSetup.LeftMargin = Single(20)
        Word.Document.PageSetup
        Word.PageSetup.RightMargin = Single(30)
        Word.Document.PageSetup
        Word.PageSetup.BottomMargin = Single(40)
        Word.Application.DisplayAlerts = Integer(0)
        Word.Application.ActivePrinter -> "Office printer"
        Word.Application.ActivePrinter = "My printer"
        length C:\out\notes.ps -> not found
        Word.Document.PrintOut(Outputfilename:="C:\out\notes.ps")
        sleep 2000 ms
        pump messages
        length C:\out\notes.ps -> 1000
        length C:\out\notes.ps -> 1000
        sleep 1000 ms
        length C:\out\notes.ps -> 1000
        Word.Application.ActivePrinter = "Office printer"
        Word.Application.DisplayAlerts = Integer(-1)
        Word.Document.Content
        Word.Content.Font
        Word.Font.Reset()
        Word.Document.Close(False)
        release Word.Document
        Word.Application.Quit()
        release Word.Application
    )");
}

TEST_F(TextPreparation, WithoutOptionsTheTextIsSetInEightPointsOfWordsOwnFontAndColour) {
    call();
    tests::expect_text(font_lines(), R"(
        Word.Document.Content
        Word.Content.Font
        Word.Font.Bold = False
        Word.Font.Size = Integer(8)
        Word.Font.Italic = False
        Word.Font.Underline = False
        Word.Application.DisplayAlerts = Integer(0)
    )");
}

TEST_F(TextPreparation, ABlankFontKeepsWordsOwn) {
    call({named("strFont", "   ")});
    EXPECT_EQ(stage.journal().find("Word.Font.Name"), std::string::npos);
}

TEST_F(TextPreparation, OnlyAColourAboveZeroIsWritten) {
    for (const std::int32_t color : {0, -1, -16777216}) {
        stage.clear_journal();
        call({named("lngFontColor", color)});
        EXPECT_EQ(stage.journal().find("Color"), std::string::npos) << color;
    }
    stage.clear_journal();
    call({named("lngFontColor", std::int32_t{1})});
    EXPECT_EQ(line_with("Color"), "Word.Font.Color = Long(1)");
}

TEST_F(TextPreparation, OnlyMarginsAboveZeroAreWritten) {
    call({named("sngTopMargin", 0.0F), named("sngLeftMargin", 72.0F), named("sngRightMargin", -3.0F),
          named("sngBottomMargin", 0.25F)});
    tests::expect_text(lines_with({"Margin"}), R"(
        Word.PageSetup.LeftMargin = Single(72)
        Word.PageSetup.BottomMargin = Single(0.25)
    )");
}

TEST_F(TextPreparation, AnyAlignmentButLeftAndRightIsCentred) {
    const auto numbering_for = [&](std::int32_t alignment) {
        stage.clear_journal();
        call({named("blnPageNumberInHeader", true), named("lngPageNumberAlignment", alignment)});
        return line_with("Word.PageNumbers.Add");
    };
    EXPECT_EQ(numbering_for(0), "Word.PageNumbers.Add(PageNumberAlignment:=Integer(0), FirstPage:=False)");
    EXPECT_EQ(numbering_for(7), "Word.PageNumbers.Add(PageNumberAlignment:=Integer(1), FirstPage:=False)");
}

TEST_F(TextPreparation, AnOrientationThatCannotBeSetIsAFailure) {
    make_word_fail_in("Word.PageSetup.Orientation");
    call();
    tests::expect_text(journal_from("Orientation"), R"(
        Word.PageSetup.Orientation = Integer(0)
        Word.Document.Close(False)
        release Word.Document
        Word.Application.Quit()
        release Word.Application
        raise -2147352567 from Foliant: Word cannot do that.
    )");
}

TEST_F(TextPreparation, ABlankPrinterMeansTheComponentsOwnAndStaysWithTheCaller) {
    call({named("strDistiller", "   ")});
    EXPECT_NE(stage.journal().find("Word.Application.ActivePrinter = \"Adobe PDF\"\n"), std::string::npos);
    EXPECT_EQ(variable("strDistiller"), Value("   "));
}

TEST_F(TextPreparation, APrinterThatWordDoesNotKnowIsRaisedAfterWordWasQuit) {
    stage.when("Word.Application.ActivePrinter", [](StageObject&, const automation::Arguments& arguments) {
        if (arguments.empty()) return Value("Office printer");
        throw automation::Error(-2147352567, "Microsoft Word", "There is no such printer.");
    });
    call({named("strDistiller", "Lost printer")});
    tests::expect_text(journal_from("ActivePrinter ="), R"(
        Word.Application.ActivePrinter = "Lost printer"
        Word.Document.Close(False)
        release Word.Document
        Word.Application.Quit()
        release Word.Application
        raise -2147352567 from Foliant: There is no such printer.
    )");
}

TEST_F(TextPreparation, AFontThatCannotBeResetAtTheEndIsAFailureAndWordIsQuit) {
    make_word_fail_in("Word.Font.Reset");
    call();
    tests::expect_text(journal_from("Reset"), R"(
        Word.Font.Reset()
        Word.Document.Close(False)
        release Word.Document
        Word.Application.Quit()
        release Word.Application
        raise -2147352567 from Foliant: Word cannot do that.
    )");
}

}  // namespace
}  // namespace foliant::members
