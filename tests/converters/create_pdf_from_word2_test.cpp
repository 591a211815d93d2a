#include <gtest/gtest.h>

#include "converters/word_member.h"

namespace foliant::converters {
namespace {

class CreatePDFfromWord2 : public WordMember {
  protected:
    void call(bool close_acrobat = false) {
        run([&] { converters::CreatePDFfromWord2(session(), "C:\\out\\Letter.PDF", job, close_acrobat); });
    }

    /// What happens from the choice of Word's printer on.
    tests::Lines after_preparation() const { return {stage.lines().begin() + 9, stage.lines().end()}; }
};

TEST_F(CreatePDFfromWord2, AnswersTheDialogsBeforePrintingAndWaitsForThePdf) {
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
}

TEST_F(CreatePDFfromWord2, DeletesTheOldPdfBeforeTheSendersStart) {
    stage.put_file("C:\\out\\Letter.PDF");
    call();
    tests::expect_text(after_preparation(), R"(
        length C:\out\Letter.PDF -> 1000
        delete C:\out\Letter.PDF
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
}

TEST_F(CreatePDFfromWord2, PrintsARangeOfPagesWithoutNamingAFile) {
    job.pages = "2-4";
    call();
    EXPECT_EQ(stage.lines().at(14), "Word.Document.PrintOut(Range:=Integer(4), Pages:=\"2-4\")");
    stage.clear_journal();
    job.pages = "  ";
    call();
    EXPECT_NE(stage.journal().find("\nWord.Document.PrintOut()\n"), std::string::npos);
}

TEST_F(CreatePDFfromWord2, ClosesAcrobatsWindowOnRequestBeforeWordIsRestored) {
    call(true);
    tests::expect_text(after_preparation(), R"(
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
    call(true);
    EXPECT_EQ(stage.lines().back(), "release Word.Application");
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
    stage.missing_classes = {std::string(engines::event_bound_distiller)};
    call();
    EXPECT_EQ(stage.lines().back(), "release Word.Application");
}

}  // namespace
}  // namespace foliant::converters
