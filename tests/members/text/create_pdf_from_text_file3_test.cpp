#include <gtest/gtest.h>

#include "automation/error.h"
#include "members/text/text_member.h"

namespace foliant::members {
namespace {

using automation::named;
using automation::Value;
using platform::stage::Stage;

/// Printers whose names the profile knows can be made the default.
void put_text_and_printers(Stage& stage) {
    put_text(stage);
    stage.profile["PrinterPorts"]["Office printer"] = "winspool,Ne01:,15,45";
    stage.profile["PrinterPorts"]["My printer"] = "winspool,Ne02:,15,45";
}

const tests::MemberCall usual{
    .member = "CreatePDFfromTextFile3",
    .arrange = put_text_and_printers,
    .arguments = {named("strPDFFile", "C:\\out\\Notes.PDF"), named("strTextfile", "C:\\in\\my notes.txt")}};

void put_my_text_and_printers(Stage& stage) {
    put_text_and_printers(stage);
    stage.put_file("C:\\in\\my notes.txt");
}

const tests::WholeJournal journal({.member = "CreatePDFfromTextFile3",
                                   .arrange = put_my_text_and_printers,
                                   .arguments = usual.arguments},
                                  R"(
    length C:\in\my notes.txt -> 1000
    default printer -> Office printer
    platform identifier -> 2
    profile [PrinterPorts] Adobe PDF -> winspool,Ne00:,15,45
    write profile [windows] Device = Adobe PDF,winspool,Ne00:
    tell all windows that profile [windows] has changed
    length C:\out\Notes.PDF -> not found
    special folder 37 (owner 100)
    length C:\WINDOWS\system32\quorixsend.exe -> 1000
    start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\Notes.PDF~0~0~
    start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe pdf - security~Button~~0~0~
    start (hidden) notepad.exe /p "C:\in\my notes.txt"
    pump messages
    length C:\out\Notes.PDF -> 1000
    length C:\out\Notes.PDF -> 1000
    sleep 1000 ms
    length C:\out\Notes.PDF -> 1000
    platform identifier -> 2
    profile [PrinterPorts] Office printer -> winspool,Ne01:,15,45
    write profile [windows] Device = Office printer,winspool,Ne01:
    tell all windows that profile [windows] has changed
)");

const tests::ParameterProbe parameters(
    {.member = "CreatePDFfromTextFile3",
     .arrange = put_text_and_printers,
     .arguments = {named("strPDFFile", "C:\\out\\notes.pdf"), named("strTextfile", "C:\\in\\notes.txt"),
                   named("strDistiller", "My printer"), named("blnCloseAcrobat", true)}},
    {.lines_with = {"Device", "save pdf", "notepad", "WM_CLOSE"}, .expected = R"(
    write profile [windows] Device = My printer,winspool,Ne02:
    start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\notes.pdf~0~0~
    start (hidden) notepad.exe /p "C:\in\notes.txt"
    send WM_CLOSE (0, "0") to "Adobe Acrobat Professional - [notes.pdf]"
    write profile [windows] Device = Office printer,winspool,Ne01:
    )"});

constexpr tests::Ending put_printer_back{"put the printer back", R"(
    platform identifier -> 2
    profile [PrinterPorts] Office printer -> winspool,Ne01:,15,45
    write profile [windows] Device = Office printer,winspool,Ne01:
    tell all windows that profile [windows] has changed
)"};

class CreatePDFfromTextFile3 : public WordMember {
  protected:
    CreatePDFfromTextFile3()
        : WordMember({.member = "CreatePDFfromTextFile3",
                      .arrange = put_my_text_and_printers,
                      .arguments = usual.arguments}) {}

    std::string default_printer() { return stage.profile["windows"]["Device"]; }
};

TEST_F(CreatePDFfromTextFile3, AMissingTextIsSaidBeforeAPrinterIsSwitched) {
    stage.files.clear();
    call();
    expect_journal(R"(
        length C:\in\my notes.txt -> not found
        raise -2147467008 from Foliant: File C:\in\my notes.txt does not exist.
    )");
}

TEST_F(CreatePDFfromTextFile3, ABlankPrinterMeansTheComponentsOwnAndStaysWithTheCaller) {
    call({named("strDistiller", "  ")});
    EXPECT_NE(stage.journal().find("Device = Adobe PDF,winspool,Ne00:\n"), std::string::npos);
    EXPECT_EQ(variable("strDistiller"), Value("  "));
}

TEST_F(CreatePDFfromTextFile3, APrinterThatIsNamedIsLookedForAsItIs) {
    call({named("strDistiller", " My printer ")});
    tests::expect_text(journal_between("default printer", "length C:\\out"), R"(
        default printer -> Office printer
        platform identifier -> 2
        profile [PrinterPorts]  My printer  -> nothing
        length C:\out\Notes.PDF -> not found
    )");
}

TEST_F(CreatePDFfromTextFile3, DeletesTheOldPdfOnceThePrinterIsSwitched) {
    stage.put_file("C:\\out\\Notes.PDF");
    call();
    tests::expect_text(journal_between("tell all windows", "special folder"), R"(
        tell all windows that profile [windows] has changed
        length C:\out\Notes.PDF -> 1000
        delete C:\out\Notes.PDF
        special folder 37 (owner 100)
    )");
}

TEST_F(CreatePDFfromTextFile3, StartsNotepadAlsoWhenTheSenderIsMissing) {
    stage.files.erase("C:\\WINDOWS\\system32\\quorixsend.exe");
    stage.when_program_starts([this](const std::string&) { stage.put_file("C:\\out\\Notes.PDF"); });
    call();
    tests::expect_text(lines_with({"message box", "notepad"}),
                       "message box \"Error! Can't find file QUORIXSEND.EXE. Please copy this file into the "
                       "same path as QUORIX.OCX or into your Window's System Directory.\", title \"File "
                       "QUORIXSEND.EXE not found\", style 4144\n"
                       "start (hidden) notepad.exe /p \"C:\\in\\my notes.txt\"\n");
}

TEST_F(CreatePDFfromTextFile3, TheDefaultPrinterIsTheFormerOneAfterwards) {
    call();
    EXPECT_EQ(default_printer(), "Office printer,winspool,Ne01:");
}

TEST_F(CreatePDFfromTextFile3, PutsTheDefaultPrinterBackWhenThereIsNoNotepad) {
    stage.programs.erase("notepad.exe");
    call();
    tests::expect_text(journal_from("notepad.exe"), R"(
    start (hidden) notepad.exe /p "C:\in\my notes.txt"
    platform identifier -> 2
    profile [PrinterPorts] Office printer -> winspool,Ne01:,15,45
    write profile [windows] Device = Office printer,winspool,Ne01:
    tell all windows that profile [windows] has changed
    raise 53 from Foliant: File not found
    )");
    EXPECT_EQ(default_printer(), "Office printer,winspool,Ne01:");
}

TEST_F(CreatePDFfromTextFile3, WaitsWithoutEndForAPdfThatIsNeverWritten) {
    stage.files.erase("C:\\WINDOWS\\system32\\quorixsend.exe");
    int rounds = 0;
    stage.on_pump = [&] {
        if (++rounds == 1000)
            throw automation::Error(automation::RuntimeError::internal_error, "the test has seen enough");
    };
    call();
    EXPECT_EQ(rounds, 1000);
    EXPECT_EQ(last_line(), "raise 51 from Foliant: the test has seen enough");
    EXPECT_EQ(default_printer(), "Office printer,winspool,Ne01:");
}

/// Whoever answers the printer's dialog, the sender or a person, the PDF is written; then Acrobat shows it.
void have_notepad_write_the_pdf(Stage& stage) {
    put_my_text_and_printers(stage);
    stage.put_file("C:\\out\\notes.pdf");
    stage.when_program_starts([&stage](const std::string& command_line) {
        if (!command_line.starts_with("notepad.exe")) return;
        stage.put_file("C:\\out\\notes.pdf");
        stage.windows["Adobe Acrobat Professional - [notes.pdf]"] = 0;
    });
}

// Passed over by rule: a printer that cannot be made the default, the existence tests, and a sender that does
// not seem to exist.

const tests::MemberFaults faults({.member = "CreatePDFfromTextFile3",
                                  .arrange = have_notepad_write_the_pdf,
                                  .arguments = {"C:\\out\\notes.pdf", "C:\\in\\my notes.txt",
                                                named("blnCloseAcrobat", true)}},
                                 {.endings = {put_printer_back}, .report = R"(
    fails: length C:\in\my notes.txt
        raise -2147467008 from Foliant: File C:\in\my notes.txt does not exist.
    fails: default printer
        go on, but
        - profile [PrinterPorts] Office printer -> winspool,Ne01:,15,45
        - write profile [windows] Device = Office printer,winspool,Ne01:
        - tell all windows that profile [windows] has changed
        + profile [PrinterPorts]  -> nothing
    fails: profile [PrinterPorts] Adobe PDF
        go on, but
        - write profile [windows] Device = Adobe PDF,winspool,Ne00:
        - tell all windows that profile [windows] has changed
    fails: write profile [windows] Device = Adobe PDF,winspool,Ne00:
    fails: tell all windows that profile [windows] has changed
        go on
    fails: length C:\out\notes.pdf
        go on, but
        - delete C:\out\notes.pdf
    fails: delete C:\out\notes.pdf
        put the printer back
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
    fails: start (hidden) notepad.exe /p "C:\in\my notes.txt"
    fails: pump messages
        put the printer back
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
        put the printer back
        raise the failure
    fails: profile [PrinterPorts] Office printer
        go on, but
        - write profile [windows] Device = Office printer,winspool,Ne01:
        - tell all windows that profile [windows] has changed
    fails: write profile [windows] Device = Office printer,winspool,Ne01:
    fails: tell all windows that profile [windows] has changed
        go on
)"});

}  // namespace
}  // namespace foliant::members
