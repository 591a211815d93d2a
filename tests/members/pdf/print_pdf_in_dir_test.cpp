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

void put_folder_and_printers(Stage& stage) {
    put_files(stage, {"C:\\in\\b.pdf", "C:\\in\\a.pdf", "C:\\in\\notes.txt"});
    stage.profile["PrinterPorts"]["Office printer"] = "winspool,Ne01:,15,45";
    stage.profile["PrinterPorts"]["Hall"] = "winspool,Ne02:,15,45";
}

const tests::MemberCall usual{.member = "PrintPDFinDir",
                              .arrange = put_folder_and_printers,
                              .arguments = {named("strDirectory", "C:\\in")}};

// One viewer opens all of them. There is no application: Acrobat is neither started for it nor exited.
const tests::WholeJournal journal(usual, R"(
    create AcroExch.AVDoc
    create AcroExch.PDDoc
    list C:\in\*.pdf
    next file -> a.pdf
    AcroExch.AVDoc.Open("C:\in\a.pdf", "")
    AcroExch.AVDoc.GetPDDoc()
    release AcroExch.PDDoc
    AcroExch.PDDoc.GetNumPages()
    AcroExch.AVDoc.PrintPages(Integer(0), Integer(2), Integer(2), True, False)
    AcroExch.AVDoc.Close(True)
    next file -> b.pdf
    AcroExch.AVDoc.Open("C:\in\b.pdf", "")
    AcroExch.AVDoc.GetPDDoc()
    release AcroExch.PDDoc
    AcroExch.PDDoc.GetNumPages()
    AcroExch.AVDoc.PrintPages(Integer(0), Integer(2), Integer(2), True, False)
    AcroExch.AVDoc.Close(True)
    next file -> none
    release AcroExch.AVDoc
    release AcroExch.PDDoc
)");

const tests::MemberCall on_a_printer{
    .member = "PrintPDFinDir",
    .of = "OnAPrinter",
    .arrange = put_folder_and_printers,
    .arguments = {named("strDirectory", "C:\\in\\"), named("strFiles", "b*.pdf"), named("strPrinter", "Hall"),
                  named("blnSilent", true)}};

// The printer is switched once the first file is known, whether there is one or not.
const tests::WholeJournal journal_on_a_printer(on_a_printer, R"(
    create AcroExch.AVDoc
    create AcroExch.PDDoc
    list C:\in\b*.pdf
    next file -> b.pdf
    default printer -> Office printer
    platform identifier -> 2
    profile [PrinterPorts] Hall -> winspool,Ne02:,15,45
    write profile [windows] Device = Hall,winspool,Ne02:
    tell all windows that profile [windows] has changed
    AcroExch.AVDoc.Open("C:\in\b.pdf", "")
    AcroExch.AVDoc.GetPDDoc()
    release AcroExch.PDDoc
    AcroExch.PDDoc.GetNumPages()
    AcroExch.AVDoc.PrintPagesSilent(Integer(0), Integer(2), Integer(2), True, False)
    AcroExch.AVDoc.Close(True)
    next file -> none
    platform identifier -> 2
    profile [PrinterPorts] Office printer -> winspool,Ne01:,15,45
    write profile [windows] Device = Office printer,winspool,Ne01:
    tell all windows that profile [windows] has changed
    release AcroExch.AVDoc
    release AcroExch.PDDoc
)");

const tests::ParameterProbe parameters(on_a_printer, {.lines_with = {"list", "Device", "Open", "PrintPages"},
                                                      .expected = R"(
    list C:\in\b*.pdf
    write profile [windows] Device = Hall,winspool,Ne02:
    AcroExch.AVDoc.Open("C:\in\b.pdf", "")
    AcroExch.AVDoc.PrintPagesSilent(Integer(0), Integer(2), Integer(2), True, False)
    write profile [windows] Device = Office printer,winspool,Ne01:
)"});

const tests::MemberFaults faults(on_a_printer, {.endings = {close_viewer_and_release}, .report = R"(
    fails: create AcroExch.AVDoc
        raise the failure
    fails: create AcroExch.PDDoc
        AcroExch.AVDoc.Close(True)
        release AcroExch.AVDoc
        raise the failure
    fails: list C:\in\b*.pdf
    fails: next file
        close the viewer and release
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
    fails: AcroExch.AVDoc.Open("C:\in\b.pdf", "")
    fails: AcroExch.AVDoc.GetPDDoc()
    fails: AcroExch.PDDoc.GetNumPages()
    fails: AcroExch.AVDoc.PrintPagesSilent(Integer(0), Integer(2), Integer(2), True, False)
    fails: AcroExch.AVDoc.Close(True)
    fails: next file
        close the viewer and release
        raise the failure
    fails: profile [PrinterPorts] Office printer
        go on, but
        - write profile [windows] Device = Office printer,winspool,Ne01:
        - tell all windows that profile [windows] has changed
    fails: write profile [windows] Device = Office printer,winspool,Ne01:
    fails: tell all windows that profile [windows] has changed
        go on
)"});

class PrintPDFinDir : public tests::MemberTest {
  protected:
    PrintPDFinDir() : MemberTest(usual) {}
};

TEST_F(PrintPDFinDir, WithoutAMatchPrintsNothingButSwitchesAndRestoresThePrinter) {
    call({named("strFiles", "*.doc"), named("strPrinter", "Hall")});
    expect_journal(R"(
        create AcroExch.AVDoc
        create AcroExch.PDDoc
        list C:\in\*.doc
        next file -> none
        default printer -> Office printer
        platform identifier -> 2
        profile [PrinterPorts] Hall -> winspool,Ne02:,15,45
        write profile [windows] Device = Hall,winspool,Ne02:
        tell all windows that profile [windows] has changed
        platform identifier -> 2
        profile [PrinterPorts] Office printer -> winspool,Ne01:,15,45
        write profile [windows] Device = Office printer,winspool,Ne01:
        tell all windows that profile [windows] has changed
        release AcroExch.AVDoc
        release AcroExch.PDDoc
    )");
}

TEST_F(PrintPDFinDir, GivesTheSamePathsWithASeparatorAtTheEndOfTheFolder) {
    call({named("strDirectory", "C:\\in\\")});
    tests::expect_text(lines_with({"Open"}), R"(
        AcroExch.AVDoc.Open("C:\in\a.pdf", "")
        AcroExch.AVDoc.Open("C:\in\b.pdf", "")
    )");
}

TEST_F(PrintPDFinDir, HoldsTheLastPageInSixteenBits) {
    stage.answer("AcroExch.PDDoc.GetNumPages", std::int32_t{32768});
    call();
    EXPECT_EQ(lines_with({"PrintPages"}).at(0),
              "AcroExch.AVDoc.PrintPages(Integer(0), Integer(32767), Integer(2), True, False)");

    stage.clear_journal();
    stage.answer("AcroExch.PDDoc.GetNumPages", std::int32_t{32769});
    call();
    tests::expect_text(journal_from("GetNumPages"), R"(
        AcroExch.PDDoc.GetNumPages()
        AcroExch.AVDoc.Close(True)
        release AcroExch.AVDoc
        release AcroExch.PDDoc
        raise 6 from Foliant: Overflow
    )");
}

}  // namespace
}  // namespace foliant::members
