#include <gtest/gtest.h>

#include "engines/distiller_job.h"
#include "members/word/word_member.h"
#include "registered/classes.h"

namespace foliant::members {
namespace {

using automation::named;
using automation::Value;
using platform::stage::Stage;
using platform::stage::StageObject;

const tests::MemberCall usual{.member = "CreatePDFfromWord2",
                              .arrange = put_document,
                              .arguments = {named("strPDFFile", "C:\\out\\Letter.PDF"),
                                            named("strWordDocument", "C:\\in\\letter.doc")}};

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
    length C:\out\Letter.PDF -> not found
    special folder 37 (owner 100)
    length C:\WINDOWS\system32\quorixsend.exe -> 1000
    start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\Letter.PDF~0~0~
    start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe pdf - security~Button~~0~0~
    Word.Document.PrintOut()
    sleep 2000 ms
    pump messages
    length C:\out\Letter.PDF -> 1000
    length C:\out\Letter.PDF -> 1000
    sleep 1000 ms
    length C:\out\Letter.PDF -> 1000
    Word.Application.ActivePrinter = "Office printer"
    Word.Application.DisplayAlerts = Integer(-1)
    Word.Document.Close(False)
    release Word.Document
    Word.Application.Quit()
    release Word.Application
)");

const tests::ParameterProbe parameters(
    {.member = "CreatePDFfromWord2",
     .arrange = put_document,
     .arguments = {named("strPDFFile", "C:\\out\\letter.pdf"), named("strWordDocument", "C:\\in\\letter.doc"),
                   named("strPassword", "open"), named("strWritePassword", "write"), named("strPages", "2-3"),
                   named("blnLandscape", false), named("blnPageNumberInFooter", false),
                   named("blnPageNumberInHeader", true), named("lngPageNumberAlignment", std::int32_t{0}),
                   named("blnFirstPage", false), named("strDistiller", "My printer"),
                   named("blnCloseAcrobat", true)}},
    {.lines_with = {"Open", "Orientation", "ers(", ".Add", "ActivePrinter", "save pdf", "PrintOut",
                    "WM_CLOSE"},
     .expected = R"(
        Word.Documents.Open("C:\in\letter.doc", PasswordDocument:="open", WritePasswordDocument:="write")
        Word.PageSetup.Orientation = Integer(0)
        Word.Sections.Headers(Integer(1))
        Word.PageNumbers.Add(PageNumberAlignment:=Integer(0), FirstPage:=False)
        Word.Application.ActivePrinter -> "Office printer"
        Word.Application.ActivePrinter = "My printer"
        start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\letter.pdf~0~0~
        Word.Document.PrintOut(Range:=Integer(4), Pages:="2-3")
        send WM_CLOSE (0, "0") to "Adobe Acrobat Professional - [letter.pdf]"
        Word.Application.ActivePrinter = "Office printer"
    )",
     .flags = R"(
        blnLandscape:
            - Word.PageSetup.Orientation = Integer(0)
            + Word.PageSetup.Orientation = Integer(1)
        blnPageNumberInFooter:
            + Word.Sections.Footers(Integer(1))
            + Word.PageNumbers.Add(PageNumberAlignment:=Integer(0), FirstPage:=False)
        blnPageNumberInHeader:
            - Word.Sections.Headers(Integer(1))
            - Word.PageNumbers.Add(PageNumberAlignment:=Integer(0), FirstPage:=False)
        blnFirstPage:
            - Word.PageNumbers.Add(PageNumberAlignment:=Integer(0), FirstPage:=False)
            + Word.PageNumbers.Add(PageNumberAlignment:=Integer(0), FirstPage:=True)
        blnCloseAcrobat:
            - send WM_CLOSE (0, "0") to "Adobe Acrobat Professional - [letter.pdf]"
    )"});

class CreatePDFfromWord2 : public WordMember {
  protected:
    CreatePDFfromWord2() : WordMember(usual) {}

    /// What happens once Word has its printer.
    tests::Lines after_preparation() const { return journal_from("length C:\\out\\Letter.PDF"); }
};

TEST_F(CreatePDFfromWord2, LeavesABlankPrinterNameToTheCaller) {
    call({named("strDistiller", " ")});
    EXPECT_EQ(variable("strDistiller"), Value(" "));
}

TEST_F(CreatePDFfromWord2, DeletesTheOldPdfBeforeTheSendersStart) {
    stage.put_file("C:\\out\\Letter.PDF");
    call();
    tests::expect_text(journal_between("length C:\\out\\Letter.PDF", "sleep"), R"(
        length C:\out\Letter.PDF -> 1000
        delete C:\out\Letter.PDF
        special folder 37 (owner 100)
        length C:\WINDOWS\system32\quorixsend.exe -> 1000
        start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\Letter.PDF~0~0~
        start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe pdf - security~Button~~0~0~
        Word.Document.PrintOut()
        sleep 2000 ms
    )");
}

TEST_F(CreatePDFfromWord2, PrintsARangeOfPagesWithoutNamingAFile) {
    call({named("strPages", "2-4")});
    EXPECT_EQ(line_with("PrintOut"), "Word.Document.PrintOut(Range:=Integer(4), Pages:=\"2-4\")");
    stage.clear_journal();
    call({named("strPages", "  ")});
    EXPECT_EQ(line_with("PrintOut"), "Word.Document.PrintOut()");
}

TEST_F(CreatePDFfromWord2, ClosesAcrobatsWindowOnRequestBeforeWordIsRestored) {
    call({named("blnCloseAcrobat", true)});
    tests::expect_text(journal_from("sleep 1000 ms"), R"(
        sleep 1000 ms
        length C:\out\Letter.PDF -> 1000
        pump messages
        find window "adobe acrobat - [letter.pdf]" -> none
        find window "adobe acrobat professional - [letter.pdf]" -> found
        send WM_CLOSE (0, "0") to "Adobe Acrobat Professional - [Letter.PDF]"
        Word.Application.ActivePrinter = "Office printer"
        Word.Application.DisplayAlerts = Integer(-1)
        Word.Document.Close(False)
        release Word.Document
        Word.Application.Quit()
        release Word.Application
    )");
}

TEST_F(CreatePDFfromWord2, WithoutAnAcrobatWindowItEndsNormallyAfterTheSearch) {
    stage.pump_takes = 8000;
    have_the_printer_write("C:\\out\\Letter.PDF");
    call({named("blnCloseAcrobat", true)});
    EXPECT_EQ(last_line(), "release Word.Application");
}

TEST_F(CreatePDFfromWord2, PrintsAlsoWhenTheSenderIsMissing) {
    stage.files.erase("C:\\WINDOWS\\system32\\quorixsend.exe");
    have_the_printer_write("C:\\out\\Letter.PDF");  // somebody types the name into the dialog
    call();
    tests::expect_text(
        after_preparation(),
        "length C:\\out\\Letter.PDF -> not found\n"
        "special folder 37 (owner 100)\n"
        "length C:\\WINDOWS\\system32\\quorixsend.exe -> not found\n"
        "length C:\\Temp\\quorixsend.exe -> not found\n"
        "message box \"Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same "
        "path as QUORIX.OCX or into your Window's System Directory.\", title \"File QUORIXSEND.EXE "
        "not found\", style 4144\n"
        "Word.Document.PrintOut()\n"
        "sleep 2000 ms\n"
        "pump messages\n"
        "length C:\\out\\Letter.PDF -> 1000\n"
        "length C:\\out\\Letter.PDF -> 1000\n"
        "sleep 1000 ms\n"
        "length C:\\out\\Letter.PDF -> 1000\n"
        "Word.Application.ActivePrinter = \"Office printer\"\n"
        "Word.Application.DisplayAlerts = Integer(-1)\n"
        "Word.Document.Close(False)\n"
        "release Word.Document\n"
        "Word.Application.Quit()\n"
        "release Word.Application\n");
}

TEST_F(CreatePDFfromWord2, ASenderOnlyBesideTheLibraryIsFileNotFoundAndWordIsQuit) {
    stage.files.erase("C:\\WINDOWS\\system32\\quorixsend.exe");
    stage.programs = {"C:\\Temp\\quorixsend.exe"};
    stage.put_file("C:\\Temp\\quorixsend.exe");
    call();
    tests::expect_text(after_preparation(), R"(
        length C:\out\Letter.PDF -> not found
        special folder 37 (owner 100)
        length C:\WINDOWS\system32\quorixsend.exe -> not found
        length C:\Temp\quorixsend.exe -> 1000
        start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\Letter.PDF~0~0~
        Word.Document.Close(False)
        release Word.Document
        Word.Application.Quit()
        release Word.Application
        raise 53 from Foliant: File not found
    )");
}

TEST_F(CreatePDFfromWord2, ClosesTheDocumentAndQuitsWordWhenPrintingFails) {
    make_word_fail_in("Word.Document.PrintOut");
    call();
    tests::expect_text(after_preparation(), R"(
        length C:\out\Letter.PDF -> not found
        special folder 37 (owner 100)
        length C:\WINDOWS\system32\quorixsend.exe -> 1000
        start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\Letter.PDF~0~0~
        start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe pdf - security~Button~~0~0~
        Word.Document.PrintOut()
        Word.Document.Close(False)
        release Word.Document
        Word.Application.Quit()
        release Word.Application
        raise -2147352567 from Foliant: Word cannot do that.
    )");
}

TEST_F(CreatePDFfromWord2, NeedsNoDistiller) {
    stage.missing_classes = {std::string(registered::event_bound_distiller)};
    call();
    EXPECT_EQ(last_line(), "release Word.Application");
}

/// Whoever answers the printer's dialog, the sender or a person, the PDF is written; then Acrobat shows it.
void have_the_printer_write_the_pdf(Stage& stage) {
    put_document_and_old_output(stage);
    stage.when("Word.Document.PrintOut", [](StageObject& document, const automation::Arguments&) {
        document.stage().put_file("C:\\out\\letter.pdf");
        document.stage().windows["Adobe Acrobat Professional - [letter.pdf]"] = 0;
        return Value();
    });
}

// Passed over by rule: what CreatePDFfromWord passes over. A sender that does not seem to exist is told in a
// message box.

const tests::MemberFaults faults({.member = "CreatePDFfromWord2",
                                  .arrange = have_the_printer_write_the_pdf,
                                  .arguments = {"C:\\out\\letter.pdf", "C:\\in\\letter.doc",
                                                named("blnPageNumberInHeader", true),
                                                named("blnCloseAcrobat", true)}},
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
    fails: Word.Document.Sections(Integer(1))
    fails: Word.Sections.Headers(Integer(1))
    fails: Word.Headers.PageNumbers
    fails: Word.PageNumbers.Add(PageNumberAlignment:=Integer(1), FirstPage:=False)
    fails: Word.Application.ActivePrinter
    fails: Word.Application.ActivePrinter = "Adobe PDF"
        let Word go
        raise the failure
    fails: length C:\out\letter.pdf
        go on, but
        - delete C:\out\letter.pdf
    fails: delete C:\out\letter.pdf
        let Word go
        raise the failure
    fails: special folder 37 (owner 100)
        go on, but
        - length C:\WINDOWS\system32\quorixsend.exe -> 1000
        - start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\letter.pdf~0~0~
        - start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe pdf - security~Button~~0~0~
        + length \quorixsend.exe -> not found
        + length C:\Temp\quorixsend.exe -> not found
        + message box "Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as QUORIX.OCX or into your Window's System Directory.", title "File QUORIXSEND.EXE not found", style 4144
    fails: length C:\WINDOWS\system32\quorixsend.exe
        go on, but
        - start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\letter.pdf~0~0~
        - start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe pdf - security~Button~~0~0~
        + length C:\Temp\quorixsend.exe -> not found
        + message box "Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as QUORIX.OCX or into your Window's System Directory.", title "File QUORIXSEND.EXE not found", style 4144
    fails: start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\letter.pdf~0~0~
    fails: start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe pdf - security~Button~~0~0~
    fails: Word.Document.PrintOut()
    fails: sleep 2000 ms
    fails: pump messages
        let Word go
        raise the failure
    fails: length C:\out\letter.pdf
        go on, but
        + pump messages
        + length C:\out\letter.pdf -> 1000
    fails: length C:\out\letter.pdf
    fails: sleep 1000 ms
    fails: length C:\out\letter.pdf
    fails: pump messages
    fails: find window "adobe acrobat - [letter.pdf]"
    fails: find window "adobe acrobat professional - [letter.pdf]"
    fails: send WM_CLOSE (0, "0") to "Adobe Acrobat Professional - [letter.pdf]"
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
