#include <gtest/gtest.h>

#include "members/text/text_member.h"

namespace foliant::members {
namespace {

using automation::named;
using automation::Value;
using platform::stage::Stage;
using platform::stage::StageObject;

const tests::MemberCall usual{
    .member = "CreatePDFfromTextFile2",
    .arrange = put_text,
    .arguments = {named("strPDFFile", "C:\\out\\Notes.PDF"), named("strTextfile", "C:\\in\\notes.txt")}};

// Unlike its siblings it looks for the PDF at once, without giving Word two seconds first.
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
    length C:\out\Notes.PDF -> not found
    special folder 37 (owner 100)
    length C:\WINDOWS\system32\quorixsend.exe -> 1000
    start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\Notes.PDF~0~0~
    start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe pdf - security~Button~~0~0~
    Word.Document.PrintOut()
    pump messages
    length C:\out\Notes.PDF -> 1000
    length C:\out\Notes.PDF -> 1000
    sleep 1000 ms
    length C:\out\Notes.PDF -> 1000
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
    {.member = "CreatePDFfromTextFile2",
     .arrange = put_text,
     .arguments = {named("strPDFFile", "C:\\out\\notes.pdf"), named("strTextfile", "C:\\in\\notes.txt"),
                   named("blnLandscape", true), named("strFont", "Arial"), named("blnFontBold", false),
                   named("intFontSize", std::int16_t{12}), named("lngFontColor", std::int32_t{65280}),
                   named("blnFontItalic", true), named("blnFontUnderline", false),
                   named("blnPageNumberInFooter", false), named("blnPageNumberInHeader", true),
                   named("lngPageNumberAlignment", std::int32_t{0}), named("sngTopMargin", 1.0F),
                   named("sngLeftMargin", 2.0F), named("sngRightMargin", 3.0F),
                   named("sngBottomMargin", 4.0F), named("blnFirstPage", true),
                   named("strDistiller", "My printer"), named("blnCloseAcrobat", true)}},
    {.lines_with = {"Open", "Orientation", "Font.", "Margin", "ers(", ".Add", "ActivePrinter", "save pdf",
                    "PrintOut", "WM_CLOSE"},
     .expected = R"(
        Word.Documents.Open("C:\in\notes.txt")
        Word.PageSetup.Orientation = Integer(1)
        Word.Font.Name = "Arial"
        Word.Font.Bold = False
        Word.Font.Size = Integer(12)
        Word.Font.Color = Long(65280)
        Word.Font.Italic = True
        Word.Font.Underline = False
        Word.Sections.Headers(Integer(1))
        Word.PageNumbers.Add(PageNumberAlignment:=Integer(0), FirstPage:=True)
        Word.PageSetup.TopMargin = Single(1)
        Word.PageSetup.LeftMargin = Single(2)
        Word.PageSetup.RightMargin = Single(3)
        Word.PageSetup.BottomMargin = Single(4)
        Word.Application.ActivePrinter -> "Office printer"
        Word.Application.ActivePrinter = "My printer"
        start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\notes.pdf~0~0~
        Word.Document.PrintOut()
        send WM_CLOSE (0, "0") to "Adobe Acrobat Professional - [notes.pdf]"
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
            - Word.Font.Italic = True
            + Word.Font.Italic = False
        blnFontUnderline:
            - Word.Font.Underline = False
            + Word.Font.Underline = True
        blnPageNumberInFooter:
            + Word.Sections.Footers(Integer(1))
            + Word.PageNumbers.Add(PageNumberAlignment:=Integer(0), FirstPage:=True)
        blnPageNumberInHeader:
            - Word.Sections.Headers(Integer(1))
            - Word.PageNumbers.Add(PageNumberAlignment:=Integer(0), FirstPage:=True)
        blnFirstPage:
            - Word.PageNumbers.Add(PageNumberAlignment:=Integer(0), FirstPage:=True)
            + Word.PageNumbers.Add(PageNumberAlignment:=Integer(0), FirstPage:=False)
        blnCloseAcrobat:
            - send WM_CLOSE (0, "0") to "Adobe Acrobat Professional - [notes.pdf]"
    )"});

class CreatePDFfromTextFile2 : public WordMember {
  protected:
    CreatePDFfromTextFile2() : WordMember(usual) {}
};

TEST_F(CreatePDFfromTextFile2, PrintsAlsoWhenTheSenderIsMissing) {
    stage.files.erase("C:\\WINDOWS\\system32\\quorixsend.exe");
    have_the_printer_write("C:\\out\\Notes.PDF");  // somebody types the name into the dialog
    call();
    tests::expect_text(
        journal_between("special folder", "pump"),
        "special folder 37 (owner 100)\n"
        "length C:\\WINDOWS\\system32\\quorixsend.exe -> not found\n"
        "length C:\\Temp\\quorixsend.exe -> not found\n"
        "message box \"Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same "
        "path as QUORIX.OCX or into your Window's System Directory.\", title \"File QUORIXSEND.EXE "
        "not found\", style 4144\n"
        "Word.Document.PrintOut()\n"
        "pump messages\n");
}

TEST_F(CreatePDFfromTextFile2, DeletesTheOldPdfBeforeTheSendersStart) {
    stage.put_file("C:\\out\\Notes.PDF");
    call();
    tests::expect_text(journal_between("length C:\\out\\Notes.PDF", "special folder"), R"(
        length C:\out\Notes.PDF -> 1000
        delete C:\out\Notes.PDF
        special folder 37 (owner 100)
    )");
}

TEST_F(CreatePDFfromTextFile2, ClosesAcrobatsWindowBeforeWordIsRestored) {
    call({named("blnCloseAcrobat", true)});
    tests::expect_text(journal_between("sleep 1000 ms", "ActivePrinter"), R"(
        sleep 1000 ms
        length C:\out\Notes.PDF -> 1000
        pump messages
        find window "adobe acrobat - [notes.pdf]" -> none
        find window "adobe acrobat professional - [notes.pdf]" -> found
        send WM_CLOSE (0, "0") to "Adobe Acrobat Professional - [Notes.PDF]"
        Word.Application.ActivePrinter = "Office printer"
    )");
}

/// Whoever answers the printer's dialog, the sender or a person, the PDF is written; then Acrobat shows it.
void have_the_printer_write_the_pdf(Stage& stage) {
    put_text_and_old_output(stage);
    stage.when("Word.Document.PrintOut", [](StageObject& document, const automation::Arguments&) {
        document.stage().put_file("C:\\out\\notes.pdf");
        document.stage().windows["Adobe Acrobat Professional - [notes.pdf]"] = 0;
        return Value();
    });
}

// Passed over by rule: what CreatePDFfromTextFile passes over. A sender that does not seem to exist is told in
// a message box.

const tests::MemberFaults faults({.member = "CreatePDFfromTextFile2",
                                  .arrange = have_the_printer_write_the_pdf,
                                  .arguments = {"C:\\out\\notes.pdf", "C:\\in\\notes.txt",
                                                named("blnCloseAcrobat", true)}},
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
    fails: length C:\out\notes.pdf
        go on, but
        - delete C:\out\notes.pdf
    fails: delete C:\out\notes.pdf
        let Word go
        raise the failure
    fails: special folder 37 (owner 100)
        go on, but
        - length C:\WINDOWS\system32\quorixsend.exe -> 1000
        - start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\notes.pdf~0~0~
        - start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe pdf - security~Button~~0~0~
        + length \quorixsend.exe -> not found
        + length C:\Temp\quorixsend.exe -> not found
        + message box "Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as QUORIX.OCX or into your Window's System Directory.", title "File QUORIXSEND.EXE not found", style 4144
    fails: length C:\WINDOWS\system32\quorixsend.exe
        go on, but
        - start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\notes.pdf~0~0~
        - start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe pdf - security~Button~~0~0~
        + length C:\Temp\quorixsend.exe -> not found
        + message box "Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as QUORIX.OCX or into your Window's System Directory.", title "File QUORIXSEND.EXE not found", style 4144
    fails: start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\notes.pdf~0~0~
    fails: start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe pdf - security~Button~~0~0~
    fails: Word.Document.PrintOut()
    fails: pump messages
        let Word go
        raise the failure
    fails: length C:\out\notes.pdf
        go on, but
        + pump messages
        + length C:\out\notes.pdf -> 1000
    fails: length C:\out\notes.pdf
    fails: sleep 1000 ms
    fails: length C:\out\notes.pdf
    fails: pump messages
    fails: find window "adobe acrobat - [notes.pdf]"
    fails: find window "adobe acrobat professional - [notes.pdf]"
    fails: send WM_CLOSE (0, "0") to "Adobe Acrobat Professional - [notes.pdf]"
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
