#include <gtest/gtest.h>

#include "members/reports/report_member.h"

namespace foliant::members {
namespace {

using automation::named;
using automation::Value;
using platform::stage::Stage;

const tests::MemberCall usual{
    .member = "CreatePDFfromCrystalReport",
    .arrange =
        [](Stage& stage) {
            stage.library_folder = "C:\\Temp";
            stage.put_file("C:\\in\\sales.rpt");
        },
    .arguments = {named("strPDFFile", "C:\\out\\Sales.PDF"), named("strCrystalReport", "C:\\in\\sales.rpt")}};

const tests::WholeJournal journal(usual, R"(
    length C:\in\sales.rpt -> 1000
    create crystal.crpe.application
    crystal.crpe.application.OpenReport("C:\in\sales.rpt")
    length C:\out\Sales.PDF -> not found
    crystal.Report.SelectPrinter("", "Adobe PDF", "")
    special folder 37 (owner 100)
    length C:\WINDOWS\system32\quorixsend.exe -> 1000
    start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\Sales.PDF~0~0~
    crystal.Report.PrintOut(False, Integer(1))
    sleep 2000 ms
    pump messages
    length C:\out\Sales.PDF -> 1000
    length C:\out\Sales.PDF -> 1000
    sleep 1000 ms
    length C:\out\Sales.PDF -> 1000
    release crystal.Report
    crystal.crpe.application.CanClose()
    release crystal.crpe.application
)");

const tests::ParameterProbe parameters(
    {.member = "CreatePDFfromCrystalReport",
     .arrange = usual.arrange,
     .arguments = {named("strPDFFile", "C:\\out\\sales.pdf"), named("strCrystalReport", "C:\\in\\sales.rpt"),
                   named("strDistiller", " "), named("blnCloseAcrobat", true)}},
    {.lines_with = {"OpenReport", "SelectPrinter", "save pdf", "WM_CLOSE"},
     .expected = R"(
        crystal.crpe.application.OpenReport("C:\in\sales.rpt")
        crystal.Report.SelectPrinter("", "Adobe PDF", "")
        start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\sales.pdf~0~0~
        send WM_CLOSE (0, "0") to "Adobe Acrobat Professional - [sales.pdf]"
    )",
     .written = {{"strDistiller", "Adobe PDF"}}});

const tests::ParameterProbe parameters_with_printer(
    {.member = "CreatePDFfromCrystalReport",
     .of = "WithPrinter",
     .arrange = usual.arrange,
     .arguments = {named("strPDFFile", "C:\\out\\sales.pdf"), named("strCrystalReport", "C:\\in\\sales.rpt"),
                   named("strDistiller", " My printer "), named("blnCloseAcrobat", false)}},
    {.lines_with = {"SelectPrinter"}, .expected = R"(
        crystal.Report.SelectPrinter("", " My printer ", "")
    )"});

class CreatePDFfromCrystalReport : public ReportMember {
  protected:
    CreatePDFfromCrystalReport() : ReportMember(usual) {}
};

TEST_F(CreatePDFfromCrystalReport, AMissingReportIsSaidBeforeCrystalReportsIsStarted) {
    stage.files.clear();
    call();
    expect_journal(R"(
        length C:\in\sales.rpt -> not found
        raise -2147467008 from Foliant: File C:\in\sales.rpt does not exist.
    )");
}

TEST_F(CreatePDFfromCrystalReport, WaitsAlsoWithAnOldAcrobat) {
    register_acrobat("5.0");
    call();
    tests::expect_text(lines_with({"PDFFilename", "save pdf", "sleep"}), R"(
        start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\Sales.PDF~0~0~
        sleep 2000 ms
        sleep 1000 ms
    )");
}

TEST_F(CreatePDFfromCrystalReport, DeletesTheOldPdfBeforeThePrinterIsSelected) {
    stage.put_file("C:\\out\\Sales.PDF");
    call();
    tests::expect_text(journal_between("OpenReport", "SelectPrinter"), R"(
        crystal.crpe.application.OpenReport("C:\in\sales.rpt")
        length C:\out\Sales.PDF -> 1000
        delete C:\out\Sales.PDF
        crystal.Report.SelectPrinter("", "Adobe PDF", "")
    )");
}

TEST_F(CreatePDFfromCrystalReport, AMissingSenderIsAnErrorAndCrystalReportsIsLetGo) {
    stage.files.erase("C:\\WINDOWS\\system32\\quorixsend.exe");
    call();
    tests::expect_text(journal_from("special folder"), R"(
        special folder 37 (owner 100)
        length C:\WINDOWS\system32\quorixsend.exe -> not found
        length C:\Temp\quorixsend.exe -> not found
        release crystal.Report
        crystal.crpe.application.CanClose()
        release crystal.crpe.application
        raise -2147467008 from Foliant: Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as QUORIX.OCX or into your Window's System Directory.
    )");
}

TEST_F(CreatePDFfromCrystalReport, AReportThatDoesNotOpenLeavesTheCallersPrinterAlone) {
    make_host_fail_in("crystal.crpe.application.OpenReport");
    call({named("strDistiller", "")});
    EXPECT_EQ(variable("strDistiller"), Value(""));
    tests::expect_text(journal_from("OpenReport"), R"(
        crystal.crpe.application.OpenReport("C:\in\sales.rpt")
        crystal.crpe.application.CanClose()
        release crystal.crpe.application
        raise -2147352567 from Foliant: Access cannot do that.
    )");
}

// Passed over by rule: the existence tests; the one that waits for the PDF takes another round. A failing
// CanClose is called again.

const tests::MemberFaults faults({.member = "CreatePDFfromCrystalReport",
                                  .arrange =
                                      [](Stage& stage) {
                                          usual.arrange(stage);
                                          stage.put_file("C:\\out\\sales.pdf");
                                      },
                                  .arguments = {"C:\\out\\sales.pdf", "C:\\in\\sales.rpt", "My printer",
                                                true}},
                                 {.report = R"(
    fails: length C:\in\sales.rpt
        raise -2147467008 from Foliant: File C:\in\sales.rpt does not exist.
    fails: create crystal.crpe.application
        raise the failure
    fails: crystal.crpe.application.OpenReport("C:\in\sales.rpt")
        crystal.crpe.application.CanClose()
        release crystal.crpe.application
        raise the failure
    fails: length C:\out\sales.pdf
        go on, but
        - delete C:\out\sales.pdf
    fails: delete C:\out\sales.pdf
    fails: crystal.Report.SelectPrinter("", "My printer", "")
        release crystal.Report
        crystal.crpe.application.CanClose()
        release crystal.crpe.application
        raise the failure
    fails: special folder 37 (owner 100)
        length \quorixsend.exe -> not found
        length C:\Temp\quorixsend.exe -> not found
        release crystal.Report
        crystal.crpe.application.CanClose()
        release crystal.crpe.application
        raise -2147467008 from Foliant: Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as QUORIX.OCX or into your Window's System Directory.
    fails: length C:\WINDOWS\system32\quorixsend.exe
        length C:\Temp\quorixsend.exe -> not found
        release crystal.Report
        crystal.crpe.application.CanClose()
        release crystal.crpe.application
        raise -2147467008 from Foliant: Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as QUORIX.OCX or into your Window's System Directory.
    fails: start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\sales.pdf~0~0~
    fails: crystal.Report.PrintOut(False, Integer(1))
    fails: sleep 2000 ms
    fails: pump messages
        release crystal.Report
        crystal.crpe.application.CanClose()
        release crystal.crpe.application
        raise the failure
    fails: length C:\out\sales.pdf
        go on, but
        + pump messages
        + length C:\out\sales.pdf -> 1000
    fails: length C:\out\sales.pdf
    fails: sleep 1000 ms
    fails: length C:\out\sales.pdf
    fails: pump messages
    fails: find window "adobe acrobat - [sales.pdf]"
    fails: find window "adobe acrobat professional - [sales.pdf]"
    fails: send WM_CLOSE (0, "0") to "Adobe Acrobat Professional - [sales.pdf]"
        release crystal.Report
        crystal.crpe.application.CanClose()
        release crystal.crpe.application
        raise the failure
    fails: crystal.crpe.application.CanClose()
        crystal.crpe.application.CanClose()
        release crystal.crpe.application
        raise the failure
)"});

}  // namespace
}  // namespace foliant::members
