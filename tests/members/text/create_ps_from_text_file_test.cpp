#include <gtest/gtest.h>

#include "members/text/text_member.h"

namespace foliant::members {
namespace {

using automation::named;

const tests::MemberCall usual{
    .member = "CreatePSfromTextFile",
    .arrange = put_text,
    .arguments = {named("strPSFile", "C:\\out\\notes.ps"), named("strTextfile", "C:\\in\\notes.txt")}};

const tests::WholeJournal journal(usual, R"(
    length C:\in\notes.txt -> 1000
    create Word.Application
    Word.Application.Documents
    Word.Documents.Open("C:\in\notes.txt")
    Word.Document.PageSetup
    Word.PageSetup.Orientation = Integer(0)
    Word.Document.Content
    Word.Content.Font
    Word.Font.Bold = False
    Word.Font.Size = Integer(8)
    Word.Font.Italic = False
    Word.Font.Underline = False
    Word.Application.DisplayAlerts = Integer(0)
    Word.Application.ActivePrinter -> "Office printer"
    Word.Application.ActivePrinter = "Adobe PDF"
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

const tests::ParameterProbe parameters(
    {.member = "CreatePSfromTextFile",
     .arrange = put_text,
     .arguments = {named("strPSFile", "C:\\out\\notes.ps"), named("strTextfile", "C:\\in\\notes.txt"),
                   named("blnLandscape", true), named("strFont", "Arial"), named("blnFontBold", false),
                   named("intFontSize", std::int16_t{12}), named("lngFontColor", std::int32_t{16711680}),
                   named("blnFontItalic", false), named("blnFontUnderline", true),
                   named("blnPageNumberInFooter", false), named("blnPageNumberInHeader", true),
                   named("lngPageNumberAlignment", std::int32_t{0}), named("sngTopMargin", 1.0F),
                   named("sngLeftMargin", 2.0F), named("sngRightMargin", 3.0F),
                   named("sngBottomMargin", 4.0F), named("blnFirstPage", true),
                   named("strDistiller", "My printer")}},
    {.lines_with = {"Open", "Orientation", "Font.", "Margin", "ers(", ".Add", "ActivePrinter", "PrintOut"},
     .expected = R"(
        Word.Documents.Open("C:\in\notes.txt")
        Word.PageSetup.Orientation = Integer(1)
        Word.Font.Name = "Arial"
        Word.Font.Bold = False
        Word.Font.Size = Integer(12)
        Word.Font.Color = Long(16711680)
        Word.Font.Italic = False
        Word.Font.Underline = True
        Word.Sections.Headers(Integer(1))
        Word.PageNumbers.Add(PageNumberAlignment:=Integer(0), FirstPage:=True)
        Word.PageSetup.TopMargin = Single(1)
        Word.PageSetup.LeftMargin = Single(2)
        Word.PageSetup.RightMargin = Single(3)
        Word.PageSetup.BottomMargin = Single(4)
        Word.Application.ActivePrinter -> "Office printer"
        Word.Application.ActivePrinter = "My printer"
        Word.Document.PrintOut(Outputfilename:="C:\out\notes.ps")
        Word.Application.ActivePrinter = "Office printer"
        Word.Font.Reset()
    )",
     .flags = R"(
        blnLandscape:
            - Word.PageSetup.Orientation = Integer(1)
            + Word.PageSetup.Orientation = Integer(0)
        blnFontBold:
            - Word.Font.Bold = False
            + Word.Font.Bold = True
        blnFontItalic:
            - Word.Font.Italic = False
            + Word.Font.Italic = True
        blnFontUnderline:
            - Word.Font.Underline = True
            + Word.Font.Underline = False
        blnPageNumberInFooter:
            + Word.Sections.Footers(Integer(1))
            + Word.PageNumbers.Add(PageNumberAlignment:=Integer(0), FirstPage:=True)
        blnPageNumberInHeader:
            - Word.Sections.Headers(Integer(1))
            - Word.PageNumbers.Add(PageNumberAlignment:=Integer(0), FirstPage:=True)
        blnFirstPage:
            - Word.PageNumbers.Add(PageNumberAlignment:=Integer(0), FirstPage:=True)
            + Word.PageNumbers.Add(PageNumberAlignment:=Integer(0), FirstPage:=False)
    )"});

class CreatePSfromTextFile : public WordMember {
  protected:
    CreatePSfromTextFile() : WordMember(usual) {}
};

TEST_F(CreatePSfromTextFile, DeletesTheOldFileRightBeforePrinting) {
    stage.put_file("C:\\out\\notes.ps");
    call();
    tests::expect_text(journal_between("length C:\\out\\notes.ps", "PrintOut"), R"(
        length C:\out\notes.ps -> 1000
        delete C:\out\notes.ps
        Word.Document.PrintOut(Outputfilename:="C:\out\notes.ps")
    )");
}

// Passed over by rule: the existence tests; the one that waits for the printed file takes another round. A
// failing Close or Quit is called again.

const tests::MemberFaults faults({.member = "CreatePSfromTextFile",
                                  .arrange = put_text_and_old_output,
                                  .arguments = {"C:\\out\\notes.ps", "C:\\in\\notes.txt"}},
                                 {.endings = {let_word_go, quit_word}, .report = R"(
    fails: length C:\in\notes.txt
        raise -2147467008 from Foliant: File C:\in\notes.txt does not exist.
    fails: create Word.Application
        raise the failure
    fails: Word.Application.Documents
    fails: Word.Documents.Open("C:\in\notes.txt")
        quit Word
        raise the failure
    fails: Word.Document.PageSetup
    fails: Word.PageSetup.Orientation = Integer(0)
    fails: Word.Document.Content
    fails: Word.Content.Font
    fails: Word.Font.Bold = False
    fails: Word.Font.Size = Integer(8)
    fails: Word.Font.Italic = False
    fails: Word.Font.Underline = False
    fails: Word.Application.DisplayAlerts = Integer(0)
    fails: Word.Application.ActivePrinter
    fails: Word.Application.ActivePrinter = "Adobe PDF"
        let Word go
        raise the failure
    fails: length C:\out\notes.ps
        go on, but
        - delete C:\out\notes.ps
    fails: delete C:\out\notes.ps
    fails: Word.Document.PrintOut(Outputfilename:="C:\out\notes.ps")
    fails: sleep 2000 ms
    fails: pump messages
        let Word go
        raise the failure
    fails: length C:\out\notes.ps
        go on, but
        + pump messages
        + length C:\out\notes.ps -> 1000
    fails: length C:\out\notes.ps
    fails: sleep 1000 ms
    fails: length C:\out\notes.ps
    fails: Word.Application.ActivePrinter = "Office printer"
    fails: Word.Application.DisplayAlerts = Integer(-1)
    fails: Word.Document.Content
    fails: Word.Content.Font
    fails: Word.Font.Reset()
    fails: Word.Document.Close(False)
        let Word go
        raise the failure
    fails: Word.Application.Quit()
        quit Word
        raise the failure
)"});

}  // namespace
}  // namespace foliant::members
