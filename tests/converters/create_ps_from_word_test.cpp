#include <gtest/gtest.h>

#include "converters/word_member.h"

namespace foliant::converters {
namespace {

class CreatePSfromWord : public WordMember {
  protected:
    void call() {
        run([&] { converters::CreatePSfromWord(session(), "C:\\out\\letter.ps", job); });
    }
};

TEST_F(CreatePSfromWord, PrintsToTheCallersFileAndInvolvesNoDistiller) {
    call();
    expect_journal(R"(
        length C:\in\letter.doc -> 1000
        create Word.Application
        Word.Application.Documents
        Word.Documents.Open("C:\in\letter.doc", PasswordDocument:="", WritePasswordDocument:="")
        Word.Application.DisplayAlerts = Integer(0)
        Word.Document.PageSetup
        Word.PageSetup.Orientation = Integer(0)
        Word.Application.ActivePrinter -> "Office printer"
        Word.Application.ActivePrinter = "Adobe PDF"
        length C:\out\letter.ps -> not found
        Word.Document.PrintOut(Outputfilename:="C:\out\letter.ps")
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

TEST_F(CreatePSfromWord, DeletesTheOldFileAfterThePreparationAndBeforePrinting) {
    stage.put_file("C:\\out\\letter.ps");
    call();
    const tests::Lines middle(stage.lines().begin() + 7, stage.lines().begin() + 12);
    tests::expect_text(middle, R"(
        Word.Application.ActivePrinter -> "Office printer"
        Word.Application.ActivePrinter = "Adobe PDF"
        length C:\out\letter.ps -> 1000
        delete C:\out\letter.ps
        Word.Document.PrintOut(Outputfilename:="C:\out\letter.ps")
    )");
}

TEST_F(CreatePSfromWord, PageRangesOfBlanksPrintTheWholeDocument) {
    job.pages = "   ";
    call();
    EXPECT_EQ(stage.lines().at(10), "Word.Document.PrintOut(Outputfilename:=\"C:\\out\\letter.ps\")");
}

TEST_F(CreatePSfromWord, QuitsWordWhenPrintingFails) {
    make_word_fail_in("Word.Document.PrintOut");
    call();
    expect_journal(R"(
        length C:\in\letter.doc -> 1000
        create Word.Application
        Word.Application.Documents
        Word.Documents.Open("C:\in\letter.doc", PasswordDocument:="", WritePasswordDocument:="")
        Word.Application.DisplayAlerts = Integer(0)
        Word.Document.PageSetup
        Word.PageSetup.Orientation = Integer(0)
        Word.Application.ActivePrinter -> "Office printer"
        Word.Application.ActivePrinter = "Adobe PDF"
        length C:\out\letter.ps -> not found
        Word.Document.PrintOut(Outputfilename:="C:\out\letter.ps")
        Word.Document.Close(False)
        release Word.Document
        Word.Application.Quit()
        release Word.Application
        raise -2147352567 from Foliant: Word cannot do that.
    )");
}

}  // namespace
}  // namespace foliant::converters
