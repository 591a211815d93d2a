#include "engines/printer_job.h"

#include <gtest/gtest.h>

#include "automation/error.h"
#include "support/staged_session.h"

namespace foliant::engines {
namespace {

using automation::Error;
using automation::RuntimeError;

const std::string target = "C:\\out\\Report.PDF";

class PrinterJob : public tests::StagedSession {
  protected:
    void move_sender_to(const std::string& folder) {
        stage.files.clear();
        stage.programs.clear();
        if (folder.empty()) return;
        stage.put_file(folder + "\\quorixsend.exe");
        stage.programs.insert(folder + "\\quorixsend.exe");
    }
};

// Choosing the printer.

TEST_F(PrinterJob, ABlankPrinterNameIsFilledIn) {
    for (std::string name : {"", "   "}) {
        choose_printer(session(), name);
        EXPECT_EQ(name, "Adobe PDF");
    }
}

TEST_F(PrinterJob, AnyOtherPrinterNameStaysExactlyAsGiven) {
    std::string name = " My printer ";
    choose_printer(session(), name);
    EXPECT_EQ(name, " My printer ");
    std::string tab = "\t";  // only blanks are blank
    choose_printer(session(), tab);
    EXPECT_EQ(tab, "\t");
}

using PdfWriter = PrinterJob;

TEST_F(PdfWriter, FromAcrobatSixOnIsReplacedByThePdfPrinterWhateverWasPassed) {
    std::string name = "My PDFWriter";
    choose_pdf_writer(session(), name, target);
    EXPECT_EQ(name, "Adobe PDF");
    EXPECT_EQ(stage.journal(), "");
}

TEST_F(PdfWriter, UpToAcrobatFiveIsToldItsFileThroughTheRegistry) {
    register_acrobat("5.0");
    stage.registry["HKEY_CURRENT_USER\\Software\\Adobe\\Acrobat PDFWriter"];
    std::string name = "My PDFWriter";
    choose_pdf_writer(session(), name, target);
    EXPECT_EQ(name, "My PDFWriter");
    expect_journal(R"(
        open key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter (access 2000F)
        write value "PDFFilename" of HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter: type 1 C:\out\Report.PDF\0
        close key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter
    )");
}

TEST_F(PdfWriter, ItsKeyIsMadeWithEveryLevelWhenItIsMissing) {
    register_acrobat("");
    std::string name = "Acrobat PDFWriter";
    choose_pdf_writer(session(), name, target);
    expect_journal(R"(
        open key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter (access 2000F) -> not found
        open key HKEY_CURRENT_USER (access 2000F)
        create key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter (access F003F)
        close key HKEY_CURRENT_USER
        open key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter (access 2000F)
        write value "PDFFilename" of HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter: type 1 C:\out\Report.PDF\0
        close key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter
    )");
}

TEST_F(PdfWriter, WhoTellsItItsFileLaterOnlyHasThePrinterChosen) {
    std::string name = "My PDFWriter";
    override_pdf_writer(session(), name);
    EXPECT_EQ(name, "Adobe PDF");
}

TEST_F(PdfWriter, UpToAcrobatFiveItsNameStaysAndNothingElseIsDone) {
    register_acrobat("5.0");
    std::string name = "My PDFWriter";
    override_pdf_writer(session(), name);
    EXPECT_EQ(name, "My PDFWriter");
    EXPECT_EQ(stage.journal(), "");
}

// Answering the dialogs.

TEST_F(PrinterJob, TheSaveDialogIsAnsweredFirstAndTheSecurityNoticeSecond) {
    answer_printer_dialogs(session(), "C:\\My Files\\a.pdf");
    expect_journal(R"(
        special folder 37 (owner 100)
        length C:\WINDOWS\system32\quorixsend.exe -> 1000
        start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\My Files\a.pdf~0~0~
        start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe pdf - security~Button~~0~0~
    )");
}

TEST_F(PrinterJob, ASenderBesideTheLibraryIsStillStartedFromTheSystemFolder) {
    move_sender_to("C:\\Program Files\\Foliant");
    run([&] { answer_printer_dialogs(session(), target); });
    expect_journal(R"(
        special folder 37 (owner 100)
        length C:\WINDOWS\system32\quorixsend.exe -> not found
        length C:\Program Files\Foliant\quorixsend.exe -> 1000
        start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\Report.PDF~0~0~
        raise 53 from : File not found
    )");
}

TEST_F(PrinterJob, WithoutASenderAMessageBoxSaysSoAndTheJobGoesOn) {
    move_sender_to("");
    run([&] { answer_printer_dialogs(session(), target); });
    // One long line, which the editor may wrap: the prompt has no line break.
    expect_journal(
        "special folder 37 (owner 100)\n"
        "length C:\\WINDOWS\\system32\\quorixsend.exe -> not found\n"
        "length C:\\Program Files\\Foliant\\quorixsend.exe -> not found\n"
        "message box \"Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as "
        "QUORIX.OCX or into your Window's System Directory.\", title \"File QUORIXSEND.EXE not found\", "
        "style 4144\n");
}

TEST_F(PdfWriter, HasOnlyItsSaveDialogAnswered) {
    answer_save_dialog(session(), target);
    expect_journal(R"(
        special folder 37 (owner 100)
        length C:\WINDOWS\system32\quorixsend.exe -> 1000
        start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\Report.PDF~0~0~
    )");
}

TEST_F(PdfWriter, ASenderBesideTheLibraryIsStartedFromTheSystemFolderToo) {
    move_sender_to("C:\\Program Files\\Foliant");
    run([&] { answer_save_dialog(session(), target); });
    expect_journal(R"(
        special folder 37 (owner 100)
        length C:\WINDOWS\system32\quorixsend.exe -> not found
        length C:\Program Files\Foliant\quorixsend.exe -> 1000
        start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\Report.PDF~0~0~
        raise 53 from : File not found
    )");
}

TEST_F(PdfWriter, WithoutASenderTheComponentsErrorIsRaisedAndNoBoxShown) {
    move_sender_to("");
    run([&] { answer_save_dialog(session(), target); });
    expect_journal(
        "special folder 37 (owner 100)\n"
        "length C:\\WINDOWS\\system32\\quorixsend.exe -> not found\n"
        "length C:\\Program Files\\Foliant\\quorixsend.exe -> not found\n"
        "raise -2147467008 from Foliant: Error! Can't find file QUORIXSEND.EXE. Please copy this file into "
        "the same path as QUORIX.OCX or into your Window's System Directory.\n");
}

TEST_F(PdfWriter, ASystemFolderThatIsKnownIsNotLookedUpAgain) {
    move_sender_to("D:\\system");
    answer_save_dialog(session(), target, "D:\\system");
    expect_journal(R"(
        length D:\system\quorixsend.exe -> 1000
        start (hidden) D:\system\quorixsend.exe save pdf file as~Edit~C:\out\Report.PDF~0~0~
    )");
}

// Waiting for the file.

TEST_F(PrinterJob, AHostThatHasJustPrintedIsGivenTwoSeconds) {
    let_host_start_writing(session());
    expect_journal(R"(
        sleep 2000 ms
    )");
}

TEST_F(PrinterJob, AWaitWithoutThatPauseLooksAtOnce) {
    stage.files[target].lengths = {500};
    wait_until_complete(session(), target);
    expect_journal(R"(
        pump messages
        length C:\out\Report.PDF -> 500
        length C:\out\Report.PDF -> 500
        sleep 1000 ms
        length C:\out\Report.PDF -> 500
    )");
}

TEST_F(PrinterJob, AFileThatHoldsStillForASecondIsComplete) {
    stage.files[target].lengths = {500};
    wait_for_file(session(), target);
    expect_journal(R"(
        sleep 2000 ms
        pump messages
        length C:\out\Report.PDF -> 500
        length C:\out\Report.PDF -> 500
        sleep 1000 ms
        length C:\out\Report.PDF -> 500
    )");
}

TEST_F(PrinterJob, AFileThatStillGrowsKeepsTheWaitGoing) {
    // Each round looks three times: is it there, how long is it, how long is it a second later.
    stage.files[target].lengths = {0, 0, 400, 400, 400, 700, 700, 700, 700};
    wait_for_file(session(), target);
    expect_journal(R"(
        sleep 2000 ms
        pump messages
        length C:\out\Report.PDF -> 0
        length C:\out\Report.PDF -> 0
        sleep 1000 ms
        length C:\out\Report.PDF -> 400
        pump messages
        length C:\out\Report.PDF -> 400
        length C:\out\Report.PDF -> 400
        sleep 1000 ms
        length C:\out\Report.PDF -> 700
        pump messages
        length C:\out\Report.PDF -> 700
        length C:\out\Report.PDF -> 700
        sleep 1000 ms
        length C:\out\Report.PDF -> 700
    )");
}

TEST_F(PrinterJob, AFileThatShrinksKeepsTheWaitGoing) {
    stage.files[target].lengths = {700, 700, 400};
    wait_for_file(session(), target);
    EXPECT_EQ(stage.now, 4000U);
}

TEST_F(PrinterJob, AnEmptyFileThatHoldsStillIsComplete) {
    stage.files[target].lengths = {0};
    wait_for_file(session(), target);
    EXPECT_EQ(stage.now, 3000U);
}

TEST_F(PrinterJob, WhileTheFileIsAbsentMessagesArePumpedWithoutAPause) {
    stage.files[target].appears_at = 2300;
    stage.pump_takes = 100;
    wait_for_file(session(), target);
    expect_journal(R"(
        sleep 2000 ms
        pump messages
        length C:\out\Report.PDF -> not found
        pump messages
        length C:\out\Report.PDF -> not found
        pump messages
        length C:\out\Report.PDF -> 1000
        length C:\out\Report.PDF -> 1000
        sleep 1000 ms
        length C:\out\Report.PDF -> 1000
    )");
}

TEST_F(PrinterJob, AFileThatNeverComesIsWaitedForWithoutEnd) {
    session();
    stage.pump_takes = 60'000;
    int rounds = 0;
    stage.on_pump = [&] {
        if (++rounds == 5000) throw Error(RuntimeError::internal_error, "the test has seen enough");
    };
    run([&] { wait_for_file(session(), target); });
    EXPECT_EQ(rounds, 5000);
    EXPECT_EQ(last_line(), "raise 51 from : the test has seen enough");
}

TEST_F(PrinterJob, ALengthThatCannotBeReadAfterTheFileWasSeenIsAFailure) {
    stage.put_file(target);
    session();
    stage.fail_action(4, Error(RuntimeError::permission_denied));
    run([&] { wait_for_file(session(), target); });
    expect_journal(R"(
        sleep 2000 ms
        pump messages
        length C:\out\Report.PDF -> 1000
        length C:\out\Report.PDF -> fails
        raise 70 from : Permission denied
    )");
}

}  // namespace
}  // namespace foliant::engines
