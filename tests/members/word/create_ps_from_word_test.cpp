#include <gtest/gtest.h>

#include "members/word/word_member.h"

namespace foliant::members {
namespace {

using automation::named;
using automation::Value;

const tests::MemberCall usual{
    .member = "CreatePSfromWord",
    .arrange = put_document,
    .arguments = {named("strPSFile", "C:\\out\\letter.ps"), named("strWordDocument", "C:\\in\\letter.doc")}};

// To the caller's file, and no Distiller is involved.
const tests::WholeJournal journal(usual, R"(
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

const tests::ParameterProbe parameters(
    {.member = "CreatePSfromWord",
     .arrange = put_document,
     .arguments = {named("strPSFile", "C:\\out\\letter.ps"), named("strWordDocument", "C:\\in\\letter.doc"),
                   named("strPassword", "open"), named("strWritePassword", "write"), named("strPages", "2-3"),
                   named("blnLandscape", true), named("blnPageNumberInFooter", true),
                   named("blnPageNumberInHeader", false), named("lngPageNumberAlignment", std::int32_t{0}),
                   named("blnFirstPage", true), named("strDistiller", "My printer")}},
    {.lines_with = {"Open", "Orientation", "ers(", ".Add", "ActivePrinter", "PrintOut"},
     .expected = R"(
        Word.Documents.Open("C:\in\letter.doc", PasswordDocument:="open", WritePasswordDocument:="write")
        Word.PageSetup.Orientation = Integer(1)
        Word.Sections.Footers(Integer(1))
        Word.PageNumbers.Add(PageNumberAlignment:=Integer(0), FirstPage:=True)
        Word.Application.ActivePrinter -> "Office printer"
        Word.Application.ActivePrinter = "My printer"
        Word.Document.PrintOut(Outputfilename:="C:\out\letter.ps", Range:=Integer(4), Pages:="2-3")
        Word.Application.ActivePrinter = "Office printer"
    )",
     .flags = R"(
        blnLandscape:
            - Word.PageSetup.Orientation = Integer(1)
            + Word.PageSetup.Orientation = Integer(0)
        blnPageNumberInFooter:
            - Word.Sections.Footers(Integer(1))
            - Word.PageNumbers.Add(PageNumberAlignment:=Integer(0), FirstPage:=True)
        blnPageNumberInHeader:
            + Word.Sections.Headers(Integer(1))
            + Word.PageNumbers.Add(PageNumberAlignment:=Integer(0), FirstPage:=True)
        blnFirstPage:
            - Word.PageNumbers.Add(PageNumberAlignment:=Integer(0), FirstPage:=True)
            + Word.PageNumbers.Add(PageNumberAlignment:=Integer(0), FirstPage:=False)
    )"});

class CreatePSfromWord : public WordMember {
  protected:
    CreatePSfromWord() : WordMember(usual) {}
};

TEST_F(CreatePSfromWord, LeavesABlankPrinterNameToTheCaller) {
    call({named("strDistiller", " ")});
    EXPECT_EQ(variable("strDistiller"), Value(" "));
}

TEST_F(CreatePSfromWord, CentresPageNumbersWhenNoAlignmentIsGiven) {
    call({named("blnPageNumberInFooter", true)});
    EXPECT_EQ(line_with(".Add"), "Word.PageNumbers.Add(PageNumberAlignment:=Integer(1), FirstPage:=False)");
}

TEST_F(CreatePSfromWord, DeletesTheOldFileAfterThePreparationAndBeforePrinting) {
    stage.put_file("C:\\out\\letter.ps");
    call();
    tests::expect_text(journal_between("ActivePrinter", "PrintOut"), R"(
        Word.Application.ActivePrinter -> "Office printer"
        Word.Application.ActivePrinter = "Adobe PDF"
        length C:\out\letter.ps -> 1000
        delete C:\out\letter.ps
        Word.Document.PrintOut(Outputfilename:="C:\out\letter.ps")
    )");
}

TEST_F(CreatePSfromWord, PageRangesOfBlanksPrintTheWholeDocument) {
    call({named("strPages", "   ")});
    EXPECT_EQ(line_with("PrintOut"), "Word.Document.PrintOut(Outputfilename:=\"C:\\out\\letter.ps\")");
}

TEST_F(CreatePSfromWord, QuitsWordWhenPrintingFails) {
    make_word_fail_in("Word.Document.PrintOut");
    call();
    tests::expect_text(journal_from("PrintOut"), R"(
        Word.Document.PrintOut(Outputfilename:="C:\out\letter.ps")
        Word.Document.Close(False)
        release Word.Document
        Word.Application.Quit()
        release Word.Application
        raise -2147352567 from Foliant: Word cannot do that.
    )");
}

// Passed over by rule: what CreatePDFfromWord passes over.

const tests::MemberFaults faults({.member = "CreatePSfromWord",
                                  .arrange = put_document_and_old_output,
                                  .arguments = {"C:\\out\\letter.ps", "C:\\in\\letter.doc",
                                                named("strPages", "2")}},
                                 {.endings = {let_word_go, quit_word}, .report = R"(
    fails: length C:\in\letter.doc
        raise -2147467008 from Foliant: File C:\in\letter.doc does not exist.
    fails: create Word.Application
        raise the failure
    fails: Word.Application.Documents
    fails: Word.Documents.Open("C:\in\letter.doc", PasswordDocument:="", WritePasswordDocument:="")
        quit Word
        raise the failure
    fails: Word.Application.DisplayAlerts = Integer(0)
        let Word go
        raise the failure
    fails: Word.Document.PageSetup
        go on, but
        - Word.PageSetup.Orientation = Integer(0)
    fails: Word.PageSetup.Orientation = Integer(0)
        go on
    fails: Word.Application.ActivePrinter
    fails: Word.Application.ActivePrinter = "Adobe PDF"
        let Word go
        raise the failure
    fails: length C:\out\letter.ps
        go on
    fails: Word.Document.PrintOut(Outputfilename:="C:\out\letter.ps", Range:=Integer(4), Pages:="2")
    fails: sleep 2000 ms
    fails: pump messages
        let Word go
        raise the failure
    fails: length C:\out\letter.ps
        go on, but
        + pump messages
        + length C:\out\letter.ps -> 1000
    fails: length C:\out\letter.ps
    fails: sleep 1000 ms
    fails: length C:\out\letter.ps
    fails: Word.Application.ActivePrinter = "Office printer"
    fails: Word.Application.DisplayAlerts = Integer(-1)
    fails: Word.Document.Close(False)
        let Word go
        raise the failure
    fails: Word.Application.Quit()
        quit Word
        raise the failure
)"});

}  // namespace
}  // namespace foliant::members
