#include <gtest/gtest.h>

#include "members/pdf/acrobat_endings.h"
#include "members/pdf/lists_of_files.h"
#include "platform/stage/stage_object.h"
#include "support/fault_cases.h"
#include "support/member_cases.h"
#include "support/member_test.h"

namespace foliant::members {
namespace {

using automation::named;
using platform::stage::Stage;

void put_pdf_and_printers(Stage& stage) {
    stage.put_file("C:\\in\\a.pdf");
    stage.profile["PrinterPorts"]["Office printer"] = "winspool,Ne01:,15,45";
    stage.profile["PrinterPorts"]["Hall"] = "winspool,Ne02:,15,45";
}

const tests::MemberCall usual{.member = "PrintPDF",
                              .arrange = put_pdf_and_printers,
                              .arguments = {named("strPDFFile", "C:\\in\\a.pdf")}};

const tests::WholeJournal journal(usual, R"(
    length C:\in\a.pdf -> 1000
    create AcroExch.App
    create AcroExch.AVDoc
    create AcroExch.PDDoc
    AcroExch.AVDoc.Open("C:\in\a.pdf", "")
    AcroExch.AVDoc.GetPDDoc()
    release AcroExch.PDDoc
    AcroExch.PDDoc.GetNumPages()
    AcroExch.AVDoc.PrintPages(Long(0), Long(2), Integer(2), True, False)
    AcroExch.AVDoc.Close(True)
    AcroExch.App.Exit()
    release AcroExch.AVDoc
    release AcroExch.PDDoc
    release AcroExch.App
)");

const tests::MemberCall on_a_printer{
    .member = "PrintPDF",
    .of = "OnAPrinter",
    .arrange = put_pdf_and_printers,
    .arguments = {named("strPDFFile", "C:\\in\\a.pdf"), named("strPrinter", "Hall")}};

const tests::WholeJournal journal_on_a_printer(on_a_printer, R"(
    length C:\in\a.pdf -> 1000
    create AcroExch.App
    create AcroExch.AVDoc
    create AcroExch.PDDoc
    AcroExch.AVDoc.Open("C:\in\a.pdf", "")
    AcroExch.AVDoc.GetPDDoc()
    release AcroExch.PDDoc
    default printer -> Office printer
    platform identifier -> 2
    profile [PrinterPorts] Hall -> winspool,Ne02:,15,45
    write profile [windows] Device = Hall,winspool,Ne02:
    tell all windows that profile [windows] has changed
    AcroExch.PDDoc.GetNumPages()
    AcroExch.AVDoc.PrintPages(Long(0), Long(2), Integer(2), True, False)
    platform identifier -> 2
    profile [PrinterPorts] Office printer -> winspool,Ne01:,15,45
    write profile [windows] Device = Office printer,winspool,Ne01:
    tell all windows that profile [windows] has changed
    AcroExch.AVDoc.Close(True)
    AcroExch.App.Exit()
    release AcroExch.AVDoc
    release AcroExch.PDDoc
    release AcroExch.App
)");

const tests::MemberCall with_everything{
    .member = "PrintPDF",
    .of = "WithEverything",
    .arrange = put_pdf_and_printers,
    .arguments = {named("strPDFFile", "C:\\in\\a.pdf"), named("strPrinter", "Hall"), named("blnSilent", true),
                  named("lngFirstPageNo", std::int32_t{2}), named("lngLastPageNo", std::int32_t{5}),
                  named("strOpenPassword", "open sesame")}};

// With a last page that is named nobody counts the pages, and nobody looks at whether the document has them.
const tests::WholeJournal journal_with_everything(with_everything, R"(
    length C:\in\a.pdf -> 1000
    create AcroExch.App
    create AcroExch.AVDoc
    create AcroExch.PDDoc
    special folder 37 (owner 100)
    length C:\WINDOWS\system32\quorixsend.exe -> 1000
    start (hidden) C:\WINDOWS\system32\quorixsend.exe open~Edit~C:\in\a.pdf~0~0~
    start (hidden) C:\WINDOWS\system32\quorixsend.exe password~Edit~open sesame~0~0~
    AcroExch.App.MenuItemExecute("Open")
    AcroExch.App.GetActiveDoc()
    release AcroExch.AVDoc
    AcroExch.AVDoc.GetPDDoc()
    release AcroExch.PDDoc
    default printer -> Office printer
    platform identifier -> 2
    profile [PrinterPorts] Hall -> winspool,Ne02:,15,45
    write profile [windows] Device = Hall,winspool,Ne02:
    tell all windows that profile [windows] has changed
    AcroExch.AVDoc.PrintPagesSilent(Long(1), Long(4), Integer(2), True, False)
    platform identifier -> 2
    profile [PrinterPorts] Office printer -> winspool,Ne01:,15,45
    write profile [windows] Device = Office printer,winspool,Ne01:
    tell all windows that profile [windows] has changed
    AcroExch.AVDoc.Close(True)
    AcroExch.App.Exit()
    release AcroExch.AVDoc
    release AcroExch.PDDoc
    release AcroExch.App
)");

const tests::ParameterProbe parameters(with_everything,
                                       {.lines_with = {"open~", "password~", "Device", "PrintPages"},
                                        .expected = R"(
    start (hidden) C:\WINDOWS\system32\quorixsend.exe open~Edit~C:\in\a.pdf~0~0~
    start (hidden) C:\WINDOWS\system32\quorixsend.exe password~Edit~open sesame~0~0~
    write profile [windows] Device = Hall,winspool,Ne02:
    AcroExch.AVDoc.PrintPagesSilent(Long(1), Long(4), Integer(2), True, False)
    write profile [windows] Device = Office printer,winspool,Ne01:
)"});

// A printer that fails to become the default one is passed over; when printing fails, nobody puts the former
// one back.
const tests::MemberFaults faults(on_a_printer, {.endings = {let_acrobat_go}, .report = R"(
    fails: length C:\in\a.pdf
        raise -2147467008 from Foliant: File C:\in\a.pdf does not exist.
    fails: create AcroExch.App
        raise the failure
    fails: create AcroExch.AVDoc
        AcroExch.App.Exit()
        release AcroExch.App
        raise the failure
    fails: create AcroExch.PDDoc
        AcroExch.AVDoc.Close(True)
        release AcroExch.AVDoc
        AcroExch.App.Exit()
        release AcroExch.App
        raise the failure
    fails: AcroExch.AVDoc.Open("C:\in\a.pdf", "")
    fails: AcroExch.AVDoc.GetPDDoc()
        let Acrobat go
        raise the failure
    fails: default printer
        go on, but
        - profile [PrinterPorts] Office printer -> winspool,Ne01:,15,45
        - write profile [windows] Device = Office printer,winspool,Ne01:
        - tell all windows that profile [windows] has changed
        + profile [PrinterPorts]  -> nothing
    fails: profile [PrinterPorts] Hall
        go on, but
        - write profile [windows] Device = Hall,winspool,Ne02:
        - tell all windows that profile [windows] has changed
    fails: write profile [windows] Device = Hall,winspool,Ne02:
    fails: tell all windows that profile [windows] has changed
        go on
    fails: AcroExch.PDDoc.GetNumPages()
    fails: AcroExch.AVDoc.PrintPages(Long(0), Long(2), Integer(2), True, False)
        let Acrobat go
        raise the failure
    fails: profile [PrinterPorts] Office printer
        go on, but
        - write profile [windows] Device = Office printer,winspool,Ne01:
        - tell all windows that profile [windows] has changed
    fails: write profile [windows] Device = Office printer,winspool,Ne01:
    fails: tell all windows that profile [windows] has changed
        go on
    fails: AcroExch.AVDoc.Close(True)
    fails: AcroExch.App.Exit()
        let Acrobat go
        raise the failure
)"});

class PrintPDF : public tests::MemberTest {
  protected:
    PrintPDF() : MemberTest(usual) {}
};

TEST_F(PrintPDF, TakesNumbersBelowOneForTheFirstAndTheLastPage) {
    for (const std::int32_t none : {0, -1, INT32_MIN}) {
        stage.clear_journal();
        call({named("lngFirstPageNo", none), named("lngLastPageNo", none)});
        EXPECT_EQ(line_with("PrintPages"),
                  "AcroExch.AVDoc.PrintPages(Long(0), Long(2), Integer(2), True, False)");
    }
}

TEST_F(PrintPDF, LeavesARangeThatRunsBackwardsToAcrobat) {
    call({named("lngFirstPageNo", std::int32_t{9}), named("lngLastPageNo", std::int32_t{1})});
    EXPECT_EQ(line_with("PrintPages"),
              "AcroExch.AVDoc.PrintPages(Long(8), Long(0), Integer(2), True, False)");
}

TEST_F(PrintPDF, TakesAPrinterOfBlanksForNone) {
    call({named("strPrinter", "  ")});
    EXPECT_EQ(stage.journal().find("default printer"), std::string::npos);
    EXPECT_EQ(stage.journal().find("profile"), std::string::npos);
}

TEST_F(PrintPDF, PassesAPrinterOnUntrimmed) {
    call({named("strPrinter", " Hall")});
    EXPECT_EQ(lines_with({"PrinterPorts"}).at(0), "profile [PrinterPorts]  Hall -> nothing");
}

TEST_F(PrintPDF, OnAPrinterThatDoesNotExistPrintsOnTheDefaultOneAndRestoresIt) {
    call({named("strPrinter", "Nowhere")});
    tests::expect_text(journal_between("default printer", "Close"), R"(
        default printer -> Office printer
        platform identifier -> 2
        profile [PrinterPorts] Nowhere -> nothing
        AcroExch.PDDoc.GetNumPages()
        AcroExch.AVDoc.PrintPages(Long(0), Long(2), Integer(2), True, False)
        platform identifier -> 2
        profile [PrinterPorts] Office printer -> winspool,Ne01:,15,45
        write profile [windows] Device = Office printer,winspool,Ne01:
        tell all windows that profile [windows] has changed
        AcroExch.AVDoc.Close(True)
    )");
}

TEST_F(PrintPDF, WithAPasswordAndNoSenderSaysWhichFileIsMissingAndExitsAcrobat) {
    stage.files.erase("C:\\WINDOWS\\system32\\quorixsend.exe");
    call({named("strOpenPassword", "x"), named("strPrinter", "Hall")});
    tests::expect_text(journal_from("special folder"), R"(
        special folder 37 (owner 100)
        length C:\WINDOWS\system32\quorixsend.exe -> not found
        length C:\Program Files\Foliant\quorixsend.exe -> not found
        AcroExch.AVDoc.Close(True)
        release AcroExch.AVDoc
        release AcroExch.PDDoc
        AcroExch.App.Exit()
        release AcroExch.App
        raise -2147467008 from Foliant: Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as QUORIX.OCX or into your Window's System Directory.
    )");
}

TEST_F(PrintPDF, AMissingFileStartsNothing) {
    stage.files.erase("C:\\in\\a.pdf");
    call();
    expect_journal(R"(
        length C:\in\a.pdf -> not found
        raise -2147467008 from Foliant: File C:\in\a.pdf does not exist.
    )");
}

}  // namespace
}  // namespace foliant::members
