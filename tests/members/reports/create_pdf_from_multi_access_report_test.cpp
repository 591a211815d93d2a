#include <gtest/gtest.h>

#include "members/pdf/lists_of_files.h"
#include "members/reports/report_member.h"

namespace foliant::members {
namespace {

using automation::named;
using automation::Value;
using platform::stage::Stage;
using platform::stage::StageObject;

const tests::MemberCall usual{
    .member = "CreatePDFfromMultiAccessReport",
    .arrange = put_database,
    .arguments = {named("strPDFFile", "C:\\out\\Sales.PDF"), named("strDatabase", "C:\\in\\sales.mdb"),
                  named("varReportNames", list_of({"Turnover", "Stock"}))}};

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
    pump messages
    look for 13387663 in the current folder
    length C:\Temp\13387663.pdf -> not found
    special folder 37 (owner 100)
    length C:\WINDOWS\system32\quorixsend.exe -> 1000
    start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\Temp\13387663.pdf~0~0~
    Access.Application.DoCmd
    Access.DoCmd.OpenReport("Turnover", View:=Integer(0), WindowMode:=Integer(1))
    Access.Application.DoCmd
    Access.DoCmd.Close(Integer(3), "Turnover", Integer(2))
    sleep 2000 ms
    pump messages
    length C:\Temp\13387663.pdf -> 1000
    length C:\Temp\13387663.pdf -> 1000
    sleep 1000 ms
    length C:\Temp\13387663.pdf -> 1000
    pump messages
    look for 90360397 in the current folder
    length C:\Temp\90360397.pdf -> not found
    special folder 37 (owner 100)
    length C:\WINDOWS\system32\quorixsend.exe -> 1000
    start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\Temp\90360397.pdf~0~0~
    Access.Application.DoCmd
    Access.DoCmd.OpenReport("Stock", View:=Integer(0), WindowMode:=Integer(1))
    Access.Application.DoCmd
    Access.DoCmd.Close(Integer(3), "Stock", Integer(2))
    sleep 2000 ms
    pump messages
    length C:\Temp\90360397.pdf -> 1000
    length C:\Temp\90360397.pdf -> 1000
    sleep 1000 ms
    length C:\Temp\90360397.pdf -> 1000
    Access.Application.CloseCurrentDatabase()
    Access.Application.Quit()
    release Access.Application
    length C:\out\Sales.PDF -> not found
    create AcroExch.PDDoc
    create AcroExch.PDDoc
    AcroExch.PDDoc.Create()
    length C:\out\Sales.PDF -> not found
    pump messages
    length C:\Temp\13387663.pdf -> 1000
    AcroExch.PDDoc.Open("C:\Temp\13387663.pdf")
    AcroExch.PDDoc.GetNumPages()
    AcroExch.PDDoc.GetNumPages()
    AcroExch.PDDoc.InsertPages(Integer(-1), <object>, Integer(0), Integer(3), True)
    AcroExch.PDDoc.Close()
    pump messages
    length C:\Temp\90360397.pdf -> 1000
    AcroExch.PDDoc.Open("C:\Temp\90360397.pdf")
    AcroExch.PDDoc.GetNumPages()
    AcroExch.PDDoc.GetNumPages()
    AcroExch.PDDoc.InsertPages(Integer(2), <object>, Integer(0), Integer(3), True)
    AcroExch.PDDoc.Close()
    AcroExch.PDDoc.Save(Integer(5), "C:\out\Sales.PDF")
    AcroExch.PDDoc.Close()
    release AcroExch.PDDoc
    release AcroExch.PDDoc
    delete C:\Temp\13387663.pdf
    delete C:\Temp\90360397.pdf
)");

const tests::MemberCall with_acrobat5{.member = usual.member,
                                      .of = "WithAcrobat5",
                                      .arrange =
                                          [](Stage& stage) {
                                              put_database(stage);
                                              tests::register_acrobat(stage, "5.0");
                                          },
                                      .arguments = usual.arguments};

const tests::WholeJournal journal_with_acrobat5(with_acrobat5, R"(
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
    pump messages
    look for 13387663 in the current folder
    open key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter (access 2000F) -> not found
    open key HKEY_CURRENT_USER (access 2000F)
    create key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter (access F003F)
    close key HKEY_CURRENT_USER
    open key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter (access 2000F)
    write value "PDFFilename" of HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter: type 1 C:\Temp\13387663.pdf\0
    close key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter
    length C:\Temp\13387663.pdf -> not found
    Access.Application.DoCmd
    Access.DoCmd.OpenReport("Turnover", View:=Integer(0), WindowMode:=Integer(1))
    Access.Application.DoCmd
    Access.DoCmd.Close(Integer(3), "Turnover", Integer(2))
    sleep 2000 ms
    pump messages
    look for 90360397 in the current folder
    open key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter (access 2000F)
    write value "PDFFilename" of HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter: type 1 C:\Temp\90360397.pdf\0
    close key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter
    length C:\Temp\90360397.pdf -> not found
    Access.Application.DoCmd
    Access.DoCmd.OpenReport("Stock", View:=Integer(0), WindowMode:=Integer(1))
    Access.Application.DoCmd
    Access.DoCmd.Close(Integer(3), "Stock", Integer(2))
    sleep 2000 ms
    Access.Application.CloseCurrentDatabase()
    Access.Application.Quit()
    release Access.Application
    length C:\out\Sales.PDF -> not found
    create AcroExch.PDDoc
    create AcroExch.PDDoc
    AcroExch.PDDoc.Create()
    length C:\out\Sales.PDF -> not found
    pump messages
    length C:\Temp\13387663.pdf -> 1000
    AcroExch.PDDoc.Open("C:\Temp\13387663.pdf")
    AcroExch.PDDoc.GetNumPages()
    AcroExch.PDDoc.GetNumPages()
    AcroExch.PDDoc.InsertPages(Integer(-1), <object>, Integer(0), Integer(3), True)
    AcroExch.PDDoc.Close()
    pump messages
    length C:\Temp\90360397.pdf -> 1000
    AcroExch.PDDoc.Open("C:\Temp\90360397.pdf")
    AcroExch.PDDoc.GetNumPages()
    AcroExch.PDDoc.GetNumPages()
    AcroExch.PDDoc.InsertPages(Integer(2), <object>, Integer(0), Integer(3), True)
    AcroExch.PDDoc.Close()
    AcroExch.PDDoc.Save(Integer(5), "C:\out\Sales.PDF")
    AcroExch.PDDoc.Close()
    release AcroExch.PDDoc
    release AcroExch.PDDoc
    delete C:\Temp\13387663.pdf
    delete C:\Temp\90360397.pdf
)");

const tests::ParameterProbe parameters(
    {.member = "CreatePDFfromMultiAccessReport",
     .arrange = put_database,
     .arguments = {named("strPDFFile", "C:\\out\\sales.pdf"), named("strDatabase", "C:\\in\\sales.mdb"),
                   named("varReportNames", list_of({"Turnover"})), named("strPassword", "open me"),
                   named("strPDFWriter", "Office printer"), named("blnCloseAcrobat", true)}},
    {.lines_with = {"OpenCurrent", "DeviceName", "save pdf", "DoCmd.", "WM_CLOSE", "Save("}, .expected = R"(
        Access.Printer.DeviceName -> "Office printer"
        Access.Printer.DeviceName -> "Acrobat PDFWriter"
        Access.Printer.DeviceName -> "Adobe PDF"
        Access.Application.OpenCurrentDatabase(filepath:="C:\in\sales.mdb", bstrPassword:="open me")
        start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\Temp\13387663.pdf~0~0~
        Access.DoCmd.OpenReport("Turnover", View:=Integer(0), WindowMode:=Integer(1))
        Access.DoCmd.Close(Integer(3), "Turnover", Integer(2))
        send WM_CLOSE (0, "0") to "Adobe Acrobat Professional - [13387663.pdf]"
        AcroExch.PDDoc.Save(Integer(5), "C:\out\sales.pdf")
    )"});

class CreatePDFfromMultiAccessReport : public ReportMember {
  protected:
    CreatePDFfromMultiAccessReport() : ReportMember(usual) {}

    /// What happens once the database is open.
    tests::Lines after_opening() const { return journal_from("OpenCurrentDatabase"); }
};

TEST_F(CreatePDFfromMultiAccessReport, BetweenAcrobatFiveAndSixWritesTheRegistryAndAnswersTheDialog) {
    register_acrobat("5.05");
    call({named("varReportNames", list_of({"Turnover"})), named("blnCloseAcrobat", true)});
    tests::expect_text(lines_with({"Set ", "write value", "start", "OpenReport", "WM_CLOSE"}), R"(
        Set Access.Application.Printer = <object>
        write value "PDFFilename" of HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter: type 1 C:\Temp\13387663.pdf\0
        start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\Temp\13387663.pdf~0~0~
        Access.DoCmd.OpenReport("Turnover", View:=Integer(0), WindowMode:=Integer(1))
        send WM_CLOSE (0, "0") to "Adobe Acrobat Professional - [13387663.pdf]"
    )");
}

TEST_F(CreatePDFfromMultiAccessReport, UpToAcrobatFiveNobodyNeedsASenderAndNoWindowIsClosed) {
    register_acrobat("5.0");
    stage.files.erase("C:\\WINDOWS\\system32\\quorixsend.exe");
    call({named("blnCloseAcrobat", true)});
    EXPECT_EQ(last_line(), "delete C:\\Temp\\90360397.pdf");
    EXPECT_EQ(stage.journal().find("find window"), std::string::npos);
}

TEST_F(CreatePDFfromMultiAccessReport,
       WithAcrobatFiveThePrinterIsFoundInAnyCaseAndOneThatIsMissingLeavesAccessItsOwn) {
    register_acrobat("5.0");
    call({named("strPDFWriter", "OFFICE Printer")});
    EXPECT_EQ(lines_with({"Set "}).size(), 1U);
    stage.clear_journal();
    call({named("strPDFWriter", "Lost printer")});
    EXPECT_EQ(stage.journal().find("Set "), std::string::npos);
    EXPECT_EQ(lines_with({"OpenReport"}).size(), 2U);
}

TEST_F(CreatePDFfromMultiAccessReport, AnEmptyListSaysThatThereIsNoReportAndAccessIsQuit) {
    call({named("varReportNames", list_of({}))});
    tests::expect_text(after_opening(), R"(
        Access.Application.OpenCurrentDatabase(filepath:="C:\in\sales.mdb", bstrPassword:="")
        Access.Application.CloseCurrentDatabase()
        Access.Application.Quit()
        release Access.Application
        raise -2147467008 from Foliant: There is no report to print.
    )");
}

TEST_F(CreatePDFfromMultiAccessReport, WhatIsNoListIsATypeMismatchAndAccessIsQuit) {
    call({named("varReportNames", "Turnover")});
    tests::expect_text(after_opening(), R"(
        Access.Application.OpenCurrentDatabase(filepath:="C:\in\sales.mdb", bstrPassword:="")
        Access.Application.CloseCurrentDatabase()
        Access.Application.Quit()
        release Access.Application
        raise 13 from Foliant: Type mismatch
    )");
}

TEST_F(CreatePDFfromMultiAccessReport, AListFrom1LeavesItsElement0EmptyWhichNoFileIsCalled) {
    call({named("varReportNames", list_of({"Turnover"}, 1))});
    tests::expect_text(journal_from("release Access.Application"), R"(
        release Access.Application
        length C:\out\Sales.PDF -> not found
        create AcroExch.PDDoc
        create AcroExch.PDDoc
        AcroExch.PDDoc.Create()
        length C:\out\Sales.PDF -> not found
        pump messages
        length  -> not found
        pump messages
        length C:\Temp\13387663.pdf -> 1000
        AcroExch.PDDoc.Open("C:\Temp\13387663.pdf")
        AcroExch.PDDoc.GetNumPages()
        AcroExch.PDDoc.GetNumPages()
        AcroExch.PDDoc.InsertPages(Integer(-1), <object>, Integer(0), Integer(3), True)
        AcroExch.PDDoc.Close()
        AcroExch.PDDoc.Save(Integer(5), "C:\out\Sales.PDF")
        AcroExch.PDDoc.Close()
        release AcroExch.PDDoc
        release AcroExch.PDDoc
        delete C:\Temp\13387663.pdf
    )");
}

TEST_F(CreatePDFfromMultiAccessReport, AListFromBelow0IsOutOfRangeOnceItsFirstReportIsPrinted) {
    call({named("varReportNames", list_of({"Turnover"}, -1))});
    tests::expect_text(journal_from("CloseCurrentDatabase"), R"(
        Access.Application.CloseCurrentDatabase()
        Access.Application.Quit()
        release Access.Application
        raise 9 from Foliant: Subscript out of range
    )");
}

TEST_F(CreatePDFfromMultiAccessReport, ElementsAreReadAsTexts) {
    call({named("varReportNames", list_of({std::int16_t{2024}}))});
    EXPECT_EQ(line_with("OpenReport"),
              "Access.DoCmd.OpenReport(\"2024\", View:=Integer(0), WindowMode:=Integer(1))");
}

TEST_F(CreatePDFfromMultiAccessReport, MoreNamesThan16BitsCountAreAnOverflow) {
    call({named("varReportNames", list_of(std::vector<Value>(32768, Value("Turnover"))))});
    EXPECT_EQ(last_line(), "raise 6 from Foliant: Overflow");
    EXPECT_EQ(stage.journal().find("OpenReport"), std::string::npos);
}

TEST_F(CreatePDFfromMultiAccessReport, AMissingSenderIsAnErrorAndAccessIsQuit) {
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

TEST_F(CreatePDFfromMultiAccessReport, TheReportsThatWerePrintedStayWhenALaterOneFails) {
    stage.when("Access.DoCmd.OpenReport", [this](StageObject& self, const automation::Arguments& arguments) {
        if (arguments.at(0).value == Value("Stock"))
            throw automation::Error(-2147352567, "Microsoft Access", "Access cannot do that.");
        self.stage().put_file("C:\\Temp\\13387663.pdf");
        return Value();
    });
    call();
    EXPECT_EQ(last_line(), "raise -2147352567 from Foliant: Access cannot do that.");
    EXPECT_TRUE(stage.files.contains("C:\\Temp\\13387663.pdf"));
}

TEST_F(CreatePDFfromMultiAccessReport, ATemporaryFileThatIsGoneAtTheEndIsAFailure) {
    stage.when("AcroExch.PDDoc.Save", [](StageObject& self, const automation::Arguments&) {
        self.stage().files.erase("C:\\Temp\\13387663.pdf");
        return Value(true);
    });
    call();
    EXPECT_EQ(last_line(), "raise 53 from Foliant: File not found");
}

// Passed over by rule: what CreatePDFfromAccessReport passes over, and the look for a file that is named like
// the temporary one.

const tests::MemberFaults faults({.member = "CreatePDFfromMultiAccessReport",
                                  .arrange = put_database_and_old_output,
                                  .arguments = {"C:\\out\\sales.pdf", "C:\\in\\sales.mdb",
                                                list_of({"Turnover"}), named("blnCloseAcrobat", true)}},
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
    fails: pump messages
        let Access go
        raise the failure
    fails: look for 13387663 in the current folder
    fails: length C:\Temp\13387663.pdf
        go on
    fails: special folder 37 (owner 100)
        length \quorixsend.exe -> not found
        length C:\Temp\quorixsend.exe -> not found
        let Access go
        raise -2147467008 from Foliant: Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as QUORIX.OCX or into your Window's System Directory.
    fails: length C:\WINDOWS\system32\quorixsend.exe
        length C:\Temp\quorixsend.exe -> not found
        let Access go
        raise -2147467008 from Foliant: Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as QUORIX.OCX or into your Window's System Directory.
    fails: start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\Temp\13387663.pdf~0~0~
    fails: Access.Application.DoCmd
    fails: Access.DoCmd.OpenReport("Turnover", View:=Integer(0), WindowMode:=Integer(1))
    fails: Access.Application.DoCmd
    fails: Access.DoCmd.Close(Integer(3), "Turnover", Integer(2))
    fails: sleep 2000 ms
    fails: pump messages
        let Access go
        raise the failure
    fails: length C:\Temp\13387663.pdf
        go on, but
        + pump messages
        + length C:\Temp\13387663.pdf -> 1000
    fails: length C:\Temp\13387663.pdf
    fails: sleep 1000 ms
    fails: length C:\Temp\13387663.pdf
    fails: pump messages
    fails: find window "adobe acrobat - [13387663.pdf]"
    fails: find window "adobe acrobat professional - [13387663.pdf]"
    fails: send WM_CLOSE (0, "0") to "Adobe Acrobat Professional - [13387663.pdf]"
    fails: Access.Application.CloseCurrentDatabase()
    fails: Access.Application.Quit()
        let Access go
        raise the failure
    fails: length C:\out\sales.pdf
        go on, but
        - delete C:\out\sales.pdf
        - length C:\out\sales.pdf -> not found
        + length C:\out\sales.pdf -> 1000
        + delete C:\out\sales.pdf
    fails: delete C:\out\sales.pdf
    fails: create AcroExch.PDDoc
        raise the failure
    fails: create AcroExch.PDDoc
        release AcroExch.PDDoc
        raise the failure
    fails: AcroExch.PDDoc.Create()
        release AcroExch.PDDoc
        release AcroExch.PDDoc
        raise the failure
    fails: length C:\out\sales.pdf
        go on
    fails: pump messages
        release AcroExch.PDDoc
        release AcroExch.PDDoc
        raise the failure
    fails: length C:\Temp\13387663.pdf
        go on, but
        - AcroExch.PDDoc.Open("C:\Temp\13387663.pdf")
        - AcroExch.PDDoc.GetNumPages()
        - AcroExch.PDDoc.GetNumPages()
        - AcroExch.PDDoc.InsertPages(Integer(-1), <object>, Integer(0), Integer(3), True)
        - AcroExch.PDDoc.Close()
    fails: AcroExch.PDDoc.Open("C:\Temp\13387663.pdf")
    fails: AcroExch.PDDoc.GetNumPages()
    fails: AcroExch.PDDoc.GetNumPages()
    fails: AcroExch.PDDoc.InsertPages(Integer(-1), <object>, Integer(0), Integer(3), True)
    fails: AcroExch.PDDoc.Close()
    fails: AcroExch.PDDoc.Save(Integer(5), "C:\out\sales.pdf")
    fails: AcroExch.PDDoc.Close()
        release AcroExch.PDDoc
        release AcroExch.PDDoc
        raise the failure
    fails: delete C:\Temp\13387663.pdf
        raise the failure
)"});

}  // namespace
}  // namespace foliant::members
