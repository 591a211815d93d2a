#include <gtest/gtest.h>

#include "members/reports/report_member.h"

namespace foliant::members {
namespace {

using automation::named;
using platform::stage::Stage;

const tests::MemberCall usual{
    .member = "CreatePDFfromAccessReport",
    .arrange = put_database,
    .arguments = {named("strPDFFile", "C:\\out\\Sales.PDF"), named("strDatabase", "C:\\in\\sales.mdb"),
                  named("strReportName", "Turnover")}};

const tests::WholeJournal journal(usual, R"(
    length C:\in\sales.mdb -> 1000
    create Access.Application
    Access.Application.Printers
    enumerate Access.Printers
    next of Access.Printers -> Access.Printer
    pump messages
    Access.Printer.DeviceName -> "Office printer"
    release Access.Printer
    next of Access.Printers -> Access.Printer
    pump messages
    Access.Printer.DeviceName -> "Acrobat PDFWriter"
    release Access.Printer
    next of Access.Printers -> Access.Printer
    pump messages
    Access.Printer.DeviceName -> "Adobe PDF"
    Set Access.Application.Printer = <object>
    release Access.Printer
    Access.Application.OpenCurrentDatabase(filepath:="C:\in\sales.mdb", bstrPassword:="")
    length C:\out\Sales.PDF -> not found
    special folder 37 (owner 100)
    length C:\WINDOWS\system32\quorixsend.exe -> 1000
    start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\Sales.PDF~0~0~
    Access.Application.DoCmd
    Access.DoCmd.OpenReport("Turnover", Integer(0), "", "", Integer(1))
    Access.Application.DoCmd
    Access.DoCmd.Close(Integer(3), "Turnover", Integer(2))
    sleep 2000 ms
    pump messages
    length C:\out\Sales.PDF -> 1000
    length C:\out\Sales.PDF -> 1000
    sleep 1000 ms
    length C:\out\Sales.PDF -> 1000
    Access.Application.CloseCurrentDatabase()
    Access.Application.Quit()
    release Access.Application
)");

/// The same call where that version of Acrobat is registered.
tests::MemberCall with_acrobat(std::string_view of, const char* version) {
    return {.member = usual.member,
            .of = of,
            .arrange =
                [version](Stage& stage) {
                    put_database(stage);
                    tests::register_acrobat(stage, version);
                },
            .arguments = usual.arguments};
}

// Up to 5 PDFWriter takes its file from the registry; nobody asks, and nobody waits.
const tests::WholeJournal journal_with_acrobat5(with_acrobat("WithAcrobat5", "5.0"), R"(
    length C:\in\sales.mdb -> 1000
    create Access.Application
    Access.Application.Printers
    enumerate Access.Printers
    next of Access.Printers -> Access.Printer
    pump messages
    Access.Printer.DeviceName -> "Office printer"
    release Access.Printer
    next of Access.Printers -> Access.Printer
    pump messages
    Access.Printer.DeviceName -> "Acrobat PDFWriter"
    Set Access.Application.Printer = <object>
    release Access.Printer
    release Access.Printer
    Access.Application.OpenCurrentDatabase(filepath:="C:\in\sales.mdb", bstrPassword:="")
    open key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter (access 2000F) -> not found
    open key HKEY_CURRENT_USER (access 2000F)
    create key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter (access F003F)
    close key HKEY_CURRENT_USER
    open key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter (access 2000F)
    write value "PDFFilename" of HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter: type 1 C:\out\Sales.PDF\0
    close key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter
    length C:\out\Sales.PDF -> not found
    Access.Application.DoCmd
    Access.DoCmd.OpenReport("Turnover", Integer(0), "", "", Integer(1))
    Access.Application.DoCmd
    Access.DoCmd.Close(Integer(3), "Turnover", Integer(2))
    sleep 2000 ms
    Access.Application.CloseCurrentDatabase()
    Access.Application.Quit()
    release Access.Application
)");

// Between 5 and 6 the registry is written, and the dialog is answered as well.
const tests::WholeJournal journal_with_acrobat505(with_acrobat("WithAcrobat505", "5.05"), R"(
    length C:\in\sales.mdb -> 1000
    create Access.Application
    Access.Application.Printers
    enumerate Access.Printers
    next of Access.Printers -> Access.Printer
    pump messages
    Access.Printer.DeviceName -> "Office printer"
    release Access.Printer
    next of Access.Printers -> Access.Printer
    pump messages
    Access.Printer.DeviceName -> "Acrobat PDFWriter"
    release Access.Printer
    next of Access.Printers -> Access.Printer
    pump messages
    Access.Printer.DeviceName -> "Adobe PDF"
    Set Access.Application.Printer = <object>
    release Access.Printer
    Access.Application.OpenCurrentDatabase(filepath:="C:\in\sales.mdb", bstrPassword:="")
    open key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter (access 2000F) -> not found
    open key HKEY_CURRENT_USER (access 2000F)
    create key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter (access F003F)
    close key HKEY_CURRENT_USER
    open key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter (access 2000F)
    write value "PDFFilename" of HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter: type 1 C:\out\Sales.PDF\0
    close key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter
    length C:\out\Sales.PDF -> not found
    special folder 37 (owner 100)
    length C:\WINDOWS\system32\quorixsend.exe -> 1000
    start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\Sales.PDF~0~0~
    Access.Application.DoCmd
    Access.DoCmd.OpenReport("Turnover", Integer(0), "", "", Integer(1))
    Access.Application.DoCmd
    Access.DoCmd.Close(Integer(3), "Turnover", Integer(2))
    sleep 2000 ms
    pump messages
    length C:\out\Sales.PDF -> 1000
    length C:\out\Sales.PDF -> 1000
    sleep 1000 ms
    length C:\out\Sales.PDF -> 1000
    Access.Application.CloseCurrentDatabase()
    Access.Application.Quit()
    release Access.Application
)");

const tests::ParameterProbe parameters(
    {.member = "CreatePDFfromAccessReport",
     .arrange = put_database,
     .arguments = {named("strPDFFile", "C:\\out\\sales.pdf"), named("strDatabase", "C:\\in\\sales.mdb"),
                   named("strReportName", "Turnover"), named("strPassword", "open me"),
                   named("strFilter", "Current year"), named("strWhereCondition", "[Region] = 'North'"),
                   named("strPDFWriter", "office PRINTER"), named("blnCloseAcrobat", true)}},
    {.lines_with = {"OpenCurrent", "Set ", "save pdf", "DoCmd.", "WM_CLOSE"}, .expected = R"(
        Set Access.Application.Printer = <object>
        Access.Application.OpenCurrentDatabase(filepath:="C:\in\sales.mdb", bstrPassword:="open me")
        start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\sales.pdf~0~0~
        Access.DoCmd.OpenReport("Turnover", Integer(0), "Current year", "[Region] = 'North'", Integer(1))
        Access.DoCmd.Close(Integer(3), "Turnover", Integer(2))
        send WM_CLOSE (0, "0") to "Adobe Acrobat Professional - [sales.pdf]"
    )"});

class CreatePDFfromAccessReport : public ReportMember {
  protected:
    CreatePDFfromAccessReport() : ReportMember(usual) {}
};

TEST_F(CreatePDFfromAccessReport, AMissingDatabaseIsSaidBeforeAccessIsStarted) {
    stage.files.clear();
    call();
    expect_journal(R"(
        length C:\in\sales.mdb -> not found
        raise -2147467008 from Foliant: File C:\in\sales.mdb does not exist.
    )");
}

TEST_F(CreatePDFfromAccessReport, WithAcrobatSevenThePrinterIsTheComponentsOwnWhateverIsWishedFor) {
    register_acrobat("7.0");
    call({named("strPDFWriter", "Office printer")});
    tests::expect_text(journal_between("enumerate", "OpenCurrentDatabase"), R"(
        enumerate Access.Printers
        next of Access.Printers -> Access.Printer
        pump messages
        Access.Printer.DeviceName -> "Office printer"
        release Access.Printer
        next of Access.Printers -> Access.Printer
        pump messages
        Access.Printer.DeviceName -> "Acrobat PDFWriter"
        release Access.Printer
        next of Access.Printers -> Access.Printer
        pump messages
        Access.Printer.DeviceName -> "Adobe PDF"
        Set Access.Application.Printer = <object>
        release Access.Printer
        Access.Application.OpenCurrentDatabase(filepath:="C:\in\sales.mdb", bstrPassword:="")
    )");
}

TEST_F(CreatePDFfromAccessReport, WithAcrobatFiveThePrinterThatIsNamedIsFoundInAnyCase) {
    register_acrobat("5.0");
    call({named("strPDFWriter", "OFFICE Printer")});
    tests::expect_text(journal_between("enumerate", "OpenCurrentDatabase"), R"(
        enumerate Access.Printers
        next of Access.Printers -> Access.Printer
        pump messages
        Access.Printer.DeviceName -> "Office printer"
        Set Access.Application.Printer = <object>
        release Access.Printer
        release Access.Printer
        release Access.Printer
        Access.Application.OpenCurrentDatabase(filepath:="C:\in\sales.mdb", bstrPassword:="")
    )");
}

TEST_F(CreatePDFfromAccessReport, APrinterThatAccessDoesNotHaveLeavesItWithItsOwn) {
    register_acrobat("5.0");
    call({named("strPDFWriter", "Lost printer")});
    tests::expect_text(lines_with({"Printers", "Set ", "OpenReport"}), R"(
        Access.Application.Printers
        enumerate Access.Printers
        next of Access.Printers -> Access.Printer
        next of Access.Printers -> Access.Printer
        next of Access.Printers -> Access.Printer
        next of Access.Printers -> none
        Access.DoCmd.OpenReport("Turnover", Integer(0), "", "", Integer(1))
    )");
}

TEST_F(CreatePDFfromAccessReport, WithoutAnAcrobatItIsPdfWriterThatPrints) {
    register_acrobat("");
    call();
    EXPECT_EQ(last_line(), "release Access.Application");
    EXPECT_NE(stage.journal().find("write value \"PDFFilename\""), std::string::npos);
    EXPECT_EQ(stage.journal().find("save pdf file as"), std::string::npos);
}

TEST_F(CreatePDFfromAccessReport, FilterAndConditionAreHandedOnAlsoWhenEmpty) {
    call();
    EXPECT_EQ(line_with("OpenReport"),
              "Access.DoCmd.OpenReport(\"Turnover\", Integer(0), \"\", \"\", Integer(1))");
}

TEST_F(CreatePDFfromAccessReport, DeletesTheOldPdfOnceTheDatabaseIsOpen) {
    stage.put_file("C:\\out\\Sales.PDF");
    call();
    tests::expect_text(journal_between("OpenCurrentDatabase", "special folder"), R"(
        Access.Application.OpenCurrentDatabase(filepath:="C:\in\sales.mdb", bstrPassword:="")
        length C:\out\Sales.PDF -> 1000
        delete C:\out\Sales.PDF
        special folder 37 (owner 100)
    )");
}

TEST_F(CreatePDFfromAccessReport, AMissingSenderIsAnErrorAndAccessIsQuit) {
    stage.files.erase("C:\\WINDOWS\\system32\\quorixsend.exe");
    call();
    tests::expect_text(journal_from("special folder"), R"(
        special folder 37 (owner 100)
        length C:\WINDOWS\system32\quorixsend.exe -> not found
        length C:\Temp\quorixsend.exe -> not found
        Access.Application.CloseCurrentDatabase()
        Access.Application.Quit()
        release Access.Application
        raise -2147467008 from Foliant: Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as QUORIX.OCX or into your Window's System Directory.
    )");
}

TEST_F(CreatePDFfromAccessReport, UpToAcrobatFiveNobodyNeedsASender) {
    register_acrobat("5.0");
    stage.files.erase("C:\\WINDOWS\\system32\\quorixsend.exe");
    call({named("blnCloseAcrobat", true)});
    EXPECT_EQ(last_line(), "release Access.Application");
    EXPECT_EQ(stage.journal().find("find window"), std::string::npos);
}

TEST_F(CreatePDFfromAccessReport, ADatabaseThatDoesNotOpenIsClosedAllTheSameAndAccessIsQuit) {
    make_host_fail_in("Access.Application.OpenCurrentDatabase");
    call();
    tests::expect_text(journal_from("OpenCurrentDatabase"), R"(
        Access.Application.OpenCurrentDatabase(filepath:="C:\in\sales.mdb", bstrPassword:="")
        Access.Application.CloseCurrentDatabase()
        Access.Application.Quit()
        release Access.Application
        raise -2147352567 from Foliant: Access cannot do that.
    )");
}

TEST_F(CreatePDFfromAccessReport, AnAccessThatIsNotInstalledIsError429) {
    stage.missing_classes = {"Access.Application"};
    call();
    expect_journal(R"(
        length C:\in\sales.mdb -> 1000
        create Access.Application
        raise 429 from Foliant: ActiveX component can't create object
    )");
}

// Passed over by rule: the existence tests (the one that waits for the PDF takes another round), and what the
// registry refuses.

const tests::MemberFaults faults({.member = "CreatePDFfromAccessReport",
                                  .arrange = put_database_and_old_output,
                                  .arguments = {"C:\\out\\sales.pdf", "C:\\in\\sales.mdb", "Turnover",
                                                named("blnCloseAcrobat", true)}},
                                 {.endings = {let_access_go}, .report = R"(
    fails: length C:\in\sales.mdb
        raise -2147467008 from Foliant: File C:\in\sales.mdb does not exist.
    fails: create Access.Application
        raise the failure
    fails: Access.Application.Printers
    fails: enumerate Access.Printers
        let Access go
        raise the failure
    fails: next of Access.Printers
    fails: pump messages
    fails: Access.Printer.DeviceName
        release Access.Printer
        release Access.Printer
        release Access.Printer
        let Access go
        raise the failure
    fails: next of Access.Printers
    fails: pump messages
    fails: Access.Printer.DeviceName
        release Access.Printer
        release Access.Printer
        let Access go
        raise the failure
    fails: next of Access.Printers
    fails: pump messages
    fails: Access.Printer.DeviceName
    fails: Set Access.Application.Printer = <object>
        release Access.Printer
        let Access go
        raise the failure
    fails: Access.Application.OpenCurrentDatabase(filepath:="C:\in\sales.mdb", bstrPassword:="")
        let Access go
        raise the failure
    fails: length C:\out\sales.pdf
        go on, but
        - delete C:\out\sales.pdf
    fails: delete C:\out\sales.pdf
        let Access go
        raise the failure
    fails: special folder 37 (owner 100)
        length \quorixsend.exe -> not found
        length C:\Temp\quorixsend.exe -> not found
        let Access go
        raise -2147467008 from Foliant: Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as QUORIX.OCX or into your Window's System Directory.
    fails: length C:\WINDOWS\system32\quorixsend.exe
        length C:\Temp\quorixsend.exe -> not found
        let Access go
        raise -2147467008 from Foliant: Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as QUORIX.OCX or into your Window's System Directory.
    fails: start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\sales.pdf~0~0~
    fails: Access.Application.DoCmd
    fails: Access.DoCmd.OpenReport("Turnover", Integer(0), "", "", Integer(1))
    fails: Access.Application.DoCmd
    fails: Access.DoCmd.Close(Integer(3), "Turnover", Integer(2))
    fails: sleep 2000 ms
    fails: pump messages
        let Access go
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
    fails: Access.Application.CloseCurrentDatabase()
    fails: Access.Application.Quit()
        let Access go
        raise the failure
)"});

const tests::MemberFaults faults_with_acrobat5(with_acrobat("WithAcrobat5", "5.0"),
                                               {.endings = {let_access_go}, .report = R"(
    fails: length C:\in\sales.mdb
        raise -2147467008 from Foliant: File C:\in\sales.mdb does not exist.
    fails: create Access.Application
        raise the failure
    fails: Access.Application.Printers
    fails: enumerate Access.Printers
        let Access go
        raise the failure
    fails: next of Access.Printers
    fails: pump messages
    fails: Access.Printer.DeviceName
        release Access.Printer
        release Access.Printer
        release Access.Printer
        let Access go
        raise the failure
    fails: next of Access.Printers
    fails: pump messages
    fails: Access.Printer.DeviceName
    fails: Set Access.Application.Printer = <object>
        release Access.Printer
        release Access.Printer
        let Access go
        raise the failure
    fails: Access.Application.OpenCurrentDatabase(filepath:="C:\in\sales.mdb", bstrPassword:="")
        let Access go
        raise the failure
    fails: open key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter (access 2000F)
        go on
    fails: open key HKEY_CURRENT_USER (access 2000F)
        go on, but
        - create key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter (access F003F)
        - close key HKEY_CURRENT_USER
        - open key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter (access 2000F)
        - write value "PDFFilename" of HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter: type 1 C:\out\Sales.PDF\0
        - close key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter
        + open key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter (access 2000F) -> not found
        + close key (no key)
    fails: create key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter (access F003F)
        go on, but
        - open key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter (access 2000F)
        - write value "PDFFilename" of HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter: type 1 C:\out\Sales.PDF\0
        - close key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter
        + open key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter (access 2000F) -> not found
        + close key (no key)
    fails: close key HKEY_CURRENT_USER
        go on
    fails: open key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter (access 2000F)
        go on, but
        - write value "PDFFilename" of HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter: type 1 C:\out\Sales.PDF\0
        - close key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter
        + close key (no key)
    fails: write value "PDFFilename" of HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter: type 1 C:\out\Sales.PDF\0
        go on
    fails: close key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter
        go on, but
        + close key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter
    fails: length C:\out\Sales.PDF
        go on
    fails: Access.Application.DoCmd
    fails: Access.DoCmd.OpenReport("Turnover", Integer(0), "", "", Integer(1))
    fails: Access.Application.DoCmd
    fails: Access.DoCmd.Close(Integer(3), "Turnover", Integer(2))
    fails: sleep 2000 ms
    fails: Access.Application.CloseCurrentDatabase()
    fails: Access.Application.Quit()
        let Access go
        raise the failure
)"});

}  // namespace
}  // namespace foliant::members
