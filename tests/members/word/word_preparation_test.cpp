// What the three Word members do alike before and after they print, shown on the shortest of them.

#include <gtest/gtest.h>

#include "members/word/word_member.h"

namespace foliant::members {
namespace {

using automation::named;
using automation::Value;
using platform::stage::StageObject;

class WordPreparation : public WordMember {
  protected:
    WordPreparation()
        : WordMember({.member = "CreatePSfromWord",
                      .arrange = put_document,
                      .arguments = {named("strPSFile", "C:\\out\\letter.ps"),
                                    named("strWordDocument", "C:\\in\\letter.doc")}}) {}

    /// How Word is told to number the pages, when the caller asks for that alignment.
    std::string numbering_for(std::int32_t alignment) {
        stage.clear_journal();
        call({named("blnPageNumberInFooter", true), named("lngPageNumberAlignment", alignment)});
        return line_with("Word.PageNumbers.Add");
    }
};

TEST_F(WordPreparation, AMissingDocumentIsSaidBeforeWordIsStarted) {
    stage.files.clear();
    call();
    expect_journal(R"(
        length C:\in\letter.doc -> not found
        raise -2147467008 from Foliant: File C:\in\letter.doc does not exist.
    )");
}

TEST_F(WordPreparation, EveryOptionReachesWordInOrder) {
    call({named("strPassword", "open me"), named("strWritePassword", "change me"), named("strPages", "1-3,5"),
          named("blnLandscape", true), named("blnPageNumberInFooter", true),
          named("blnPageNumberInHeader", true), named("lngPageNumberAlignment", std::int32_t{2}),
          named("blnFirstPage", true), named("strDistiller", "My printer")});
    expect_journal(R"(
        length C:\in\letter.doc -> 1000
        create Word.Application
        Word.Application.Documents
        Word.Documents.Open("C:\in\letter.doc", PasswordDocument:="open me", WritePasswordDocument:="change me")
        Word.Application.DisplayAlerts = Integer(0)
        Word.Document.PageSetup
        Word.PageSetup.Orientation = Integer(1)
        Word.Document.Sections(Integer(1))
        Word.Sections.Footers(Integer(1))
        Word.Footers.PageNumbers
        Word.PageNumbers.Add(PageNumberAlignment:=Integer(2), FirstPage:=True)
        Word.Document.Sections(Integer(1))
        Word.Sections.Headers(Integer(1))
        Word.Headers.PageNumbers
        Word.PageNumbers.Add(PageNumberAlignment:=Integer(2), FirstPage:=True)
        Word.Application.ActivePrinter -> "Office printer"
        Word.Application.ActivePrinter = "My printer"
        length C:\out\letter.ps -> not found
        Word.Document.PrintOut(Outputfilename:="C:\out\letter.ps", Range:=Integer(4), Pages:="1-3,5")
        sleep 2000 ms
        pump messages
        length C:\out\letter.ps -> 1000
        length C:\out\letter.ps -> 1000
        sleep 1000 ms
        length C:\out\letter.ps -> 1000
        Word.Application.ActivePrinter = "Office printer"
        Word.Application.DisplayAlerts = Integer(-1)
        Word.Document.Close(False)
        release Word.Document
        Word.Application.Quit()
        release Word.Application
    )");
}

TEST_F(WordPreparation, AnOrientationThatCannotBeSetIsPassedOver) {
    make_word_fail_in("Word.PageSetup.Orientation");
    call();
    tests::expect_text(journal_between("Word.Document.PageSetup", "PrintOut"), R"(
        Word.Document.PageSetup
        Word.PageSetup.Orientation = Integer(0)
        Word.Application.ActivePrinter -> "Office printer"
        Word.Application.ActivePrinter = "Adobe PDF"
        length C:\out\letter.ps -> not found
        Word.Document.PrintOut(Outputfilename:="C:\out\letter.ps")
    )");
}

TEST_F(WordPreparation, ADocumentWithoutPageSetupIsPrintedAllTheSame) {
    make_word_fail_in("Word.Document.PageSetup");
    call();
    tests::expect_text(journal_between("PageSetup", "ActivePrinter"), R"(
        Word.Document.PageSetup
        Word.Application.ActivePrinter -> "Office printer"
    )");
    EXPECT_EQ(last_line(), "release Word.Application");
}

TEST_F(WordPreparation, AnyAlignmentButLeftAndRightIsCentred) {
    EXPECT_EQ(numbering_for(0), "Word.PageNumbers.Add(PageNumberAlignment:=Integer(0), FirstPage:=False)");
    EXPECT_EQ(numbering_for(2), "Word.PageNumbers.Add(PageNumberAlignment:=Integer(2), FirstPage:=False)");
    for (const std::int32_t alignment : {1, 7, -1, 3, 65536, 2147483647}) {
        EXPECT_EQ(numbering_for(alignment),
                  "Word.PageNumbers.Add(PageNumberAlignment:=Integer(1), FirstPage:=False)")
            << alignment;
    }
}

TEST_F(WordPreparation, NumbersGoIntoTheHeaderAloneWhenOnlyThatIsWished) {
    call({named("blnPageNumberInHeader", true)});
    tests::expect_text(journal_between("Orientation", "ActivePrinter"), R"(
        Word.PageSetup.Orientation = Integer(0)
        Word.Document.Sections(Integer(1))
        Word.Sections.Headers(Integer(1))
        Word.Headers.PageNumbers
        Word.PageNumbers.Add(PageNumberAlignment:=Integer(1), FirstPage:=False)
        Word.Application.ActivePrinter -> "Office printer"
    )");
}

TEST_F(WordPreparation, ABlankPrinterMeansTheComponentsOwn) {
    for (const char* blank : {"", "   "}) {
        stage.clear_journal();
        call({named("strDistiller", blank)});
        EXPECT_NE(stage.journal().find("Word.Application.ActivePrinter = \"Adobe PDF\"\n"),
                  std::string::npos);
    }
}

TEST_F(WordPreparation, APrinterThatIsNamedIsPassedAsItIs) {
    call({named("strDistiller", " My printer ")});
    EXPECT_NE(stage.journal().find("Word.Application.ActivePrinter = \" My printer \"\n"), std::string::npos);
}

TEST_F(WordPreparation, APrinterThatWordDoesNotKnowIsRaisedAfterWordWasQuit) {
    stage.when("Word.Application.ActivePrinter", [](StageObject&, const automation::Arguments& arguments) {
        if (arguments.empty()) return Value("Office printer");
        throw automation::Error(-2147352567, "Microsoft Word", "There is no such printer.");
    });
    call({named("strDistiller", "Lost printer")});
    tests::expect_text(journal_from("ActivePrinter ->"), R"(
        Word.Application.ActivePrinter -> "Office printer"
        Word.Application.ActivePrinter = "Lost printer"
        Word.Document.Close(False)
        release Word.Document
        Word.Application.Quit()
        release Word.Application
        raise -2147352567 from Foliant: There is no such printer.
    )");
}

TEST_F(WordPreparation, AWordThatIsNotInstalledIsError429) {
    stage.missing_classes = {"Word.Application"};
    call();
    expect_journal(R"(
        length C:\in\letter.doc -> 1000
        create Word.Application
        raise 429 from Foliant: ActiveX component can't create object
    )");
}

TEST_F(WordPreparation, ADocumentThatDoesNotOpenQuitsWordAndClosesNothing) {
    make_word_fail_in("Word.Documents.Open");
    call();
    expect_journal(R"(
        length C:\in\letter.doc -> 1000
        create Word.Application
        Word.Application.Documents
        Word.Documents.Open("C:\in\letter.doc", PasswordDocument:="", WritePasswordDocument:="")
        Word.Application.Quit()
        release Word.Application
        raise -2147352567 from Foliant: Word cannot do that.
    )");
}

TEST_F(WordPreparation, PageNumbersThatCannotBeAddedAreAFailure) {
    make_word_fail_in("Word.PageNumbers.Add");
    call({named("blnPageNumberInFooter", true)});
    tests::expect_text(journal_from("Orientation"), R"(
        Word.PageSetup.Orientation = Integer(0)
        Word.Document.Sections(Integer(1))
        Word.Sections.Footers(Integer(1))
        Word.Footers.PageNumbers
        Word.PageNumbers.Add(PageNumberAlignment:=Integer(1), FirstPage:=False)
        Word.Document.Close(False)
        release Word.Document
        Word.Application.Quit()
        release Word.Application
        raise -2147352567 from Foliant: Word cannot do that.
    )");
}

TEST_F(WordPreparation, AFailingCloseAtTheEndIsTriedAgainBeforeWordIsQuit) {
    make_word_fail_in("Word.Document.Close");
    call();
    tests::expect_text(journal_from("Word.Document.Close"), R"(
        Word.Document.Close(False)
        Word.Document.Close(False)
        release Word.Document
        Word.Application.Quit()
        release Word.Application
        raise -2147352567 from Foliant: Word cannot do that.
    )");
}

TEST_F(WordPreparation, AFailingQuitAtTheEndIsTriedAgain) {
    make_word_fail_in("Word.Application.Quit");
    call();
    tests::expect_text(journal_from("Word.Document.Close"), R"(
        Word.Document.Close(False)
        release Word.Document
        Word.Application.Quit()
        Word.Application.Quit()
        release Word.Application
        raise -2147352567 from Foliant: Word cannot do that.
    )");
}

TEST_F(WordPreparation, AWordThatOpensNothingIsQuit) {
    stage.answer("Word.Documents.Open", automation::ObjectPtr());
    call();
    tests::expect_text(journal_from("Word.Application.Quit"), R"(
        Word.Application.Quit()
        release Word.Application
        raise 91 from Foliant: Object variable or With block variable not set
    )");
}

TEST_F(WordPreparation, APrinterNameThatIsNoTextIsATypeMismatch) {
    stage.when("Word.Application.ActivePrinter", [](StageObject& word, const automation::Arguments&) {
        return Value(word.stage().make_object("Printer"));
    });
    call();
    tests::expect_text(journal_from("Word.Document.Close"), R"(
        Word.Document.Close(False)
        release Word.Document
        Word.Application.Quit()
        release Word.Application
        raise 13 from Foliant: Type mismatch
    )");
}

}  // namespace
}  // namespace foliant::members
