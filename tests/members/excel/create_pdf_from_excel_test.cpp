#include <gtest/gtest.h>

#include "members/excel/excel_member.h"

namespace foliant::members {
namespace {

using automation::Arguments;
using automation::Error;
using automation::named;
using automation::RuntimeError;
using automation::Value;
using platform::stage::StageObject;

const tests::MemberCall usual{
    .member = "CreatePDFfromExcel",
    .arrange = put_workbook,
    .arguments = {named("strPDFFile", "C:\\out\\sales.pdf"), named("strExcelWorkbook", "C:\\in\\sales.xls"),
                  named("varExcelWorksheet", "Sheet1"), named("strRange", "A1:F40")}};

const tests::WholeJournal journal(usual, R"(
    length C:\in\sales.xls -> 1000
    create Excel.Application
    Excel.Application.Workbooks
    Excel.Workbooks.Open("C:\in\sales.xls", Password:="", WriteResPassword:="")
    Excel.Application.DisplayAlerts = False
    Excel.Workbook.Worksheets("Sheet1")
    Excel.Worksheet.PageSetup
    Excel.PageSetup.PrintGridlines = False
    Excel.PageSetup.Orientation = Integer(1)
    Excel.PageSetup.FirstPageNumber = Long(1)
    look for 13387663 in the current folder
    length C:\Temp\13387663.ps -> not found
    Excel.Worksheet.Range("A1:F40")
    Excel.Range.PrintOut(Copies:=Integer(1), preview:=False, PrintToFile:=True, Collate:=True, PrToFilename:="C:\Temp\13387663.ps", ActivePrinter:="Adobe PDF")
    release Excel.Worksheet
    sleep 2000 ms
    pump messages
    length C:\Temp\13387663.ps -> 1000
    length C:\Temp\13387663.ps -> 1000
    sleep 1000 ms
    length C:\Temp\13387663.ps -> 1000
    Excel.Application.DisplayAlerts = True
    Excel.Workbook.Close(False)
    release Excel.Workbook
    Excel.Application.Quit()
    release Excel.Application
    length C:\out\sales.pdf -> not found
    create Distiller
    listen to Distiller
    Distiller.bShowWindow = False
    Distiller.bSpoolJobs = False
    Distiller.FileToPDF("C:\Temp\13387663.ps", "C:\out\sales.pdf", "")
    event JobStart("C:\Temp\13387663.ps", "C:\out\sales.pdf")
    event PercentDone(Long(100))
    event PageNumber(Long(1))
    event JobDone("C:\Temp\13387663.ps", "C:\out\sales.pdf")
    stop listening to Distiller
    release Distiller
    delete C:\Temp\13387663.ps
)");

const tests::ParameterProbe parameters({.member = "CreatePDFfromExcel",
                                        .arrange = put_workbook,
                                        .arguments = {named("strPDFFile", "C:\\out\\sales.pdf"),
                                                      named("strExcelWorkbook", "C:\\in\\sales.xls"),
                                                      named("varExcelWorksheet", std::int32_t{3}),
                                                      named("strRange", "B2:C9"),
                                                      named("strPassword", "open"),
                                                      named("strWriteResPassword", "write"),
                                                      named("blnUseGrid", true),
                                                      named("blnLandscape", false),
                                                      named("strHeader", "Sales"),
                                                      named("lngHeaderAlignment", std::int32_t{0}),
                                                      named("strFooter", "Page &P"),
                                                      named("lngFooterAlignment", std::int32_t{2}),
                                                      named("dblTopMargin", 1.0),
                                                      named("dblLeftMargin", 2.0),
                                                      named("dblRightMargin", 3.0),
                                                      named("dblBottomMargin", 4.0),
                                                      named("dblHeaderMargin", 0.5),
                                                      named("dblFooterMargin", 0.25),
                                                      named("lngFirstPageNumber", std::int32_t{70000}),
                                                      named("strDistiller", ""),
                                                      named("blnShowWindow", false),
                                                      named("blnSpoolJobs", true),
                                                      named("strJobOptionsFile", "C:\\x.joboptions"),
                                                      named("blnApplySecurity", true)}},
                                       {.lines_with = {"Open", "Worksheets(", "PageSetup.", "Range(",
                                                       "PrintOut", "Distiller."},
                                        .expected = R"(
        Excel.Workbooks.Open("C:\in\sales.xls", Password:="open", WriteResPassword:="write")
        Excel.Workbook.Worksheets(Long(3))
        Excel.PageSetup.PrintGridlines = True
        Excel.PageSetup.Orientation = Integer(1)
        Excel.PageSetup.LeftHeader = "Sales"
        Excel.PageSetup.RightFooter = "Page &P"
        Excel.PageSetup.TopMargin = Double(72)
        Excel.PageSetup.LeftMargin = Double(144)
        Excel.PageSetup.RightMargin = Double(216)
        Excel.PageSetup.BottomMargin = Double(288)
        Excel.PageSetup.HeaderMargin = Double(36)
        Excel.PageSetup.FooterMargin = Double(18)
        Excel.PageSetup.FirstPageNumber = Long(70000)
        Excel.Worksheet.Range("B2:C9")
        Excel.Range.PrintOut(Copies:=Integer(1), preview:=False, PrintToFile:=True, Collate:=True, PrToFilename:="C:\Temp\13387663.ps", ActivePrinter:="Adobe PDF")
        SecureDistiller.bShowWindow = False
        SecureDistiller.bSpoolJobs = True
        SecureDistiller.FileToPDF2("C:\Temp\13387663.ps", "C:\out\sales.pdf", "C:\x.joboptions", True)
    )",
                                        .flags = R"(
        blnUseGrid:
            - Excel.PageSetup.PrintGridlines = True
            + Excel.PageSetup.PrintGridlines = False
        blnLandscape:
            - Excel.PageSetup.Orientation = Integer(1)
            + Excel.PageSetup.Orientation = Integer(2)
        blnShowWindow:
            - SecureDistiller.bShowWindow = False
            + SecureDistiller.bShowWindow = True
        blnSpoolJobs:
            - SecureDistiller.bSpoolJobs = True
            + SecureDistiller.bSpoolJobs = False
        blnApplySecurity:
            - SecureDistiller.bShowWindow = False
            - SecureDistiller.bSpoolJobs = True
            - SecureDistiller.FileToPDF2("C:\Temp\13387663.ps", "C:\out\sales.pdf", "C:\x.joboptions", True)
            + Distiller.bShowWindow = False
            + Distiller.bSpoolJobs = True
            + Distiller.FileToPDF("C:\Temp\13387663.ps", "C:\out\sales.pdf", "C:\x.joboptions")
    )",
                                        .written = {{"strDistiller", "Adobe PDF"}}});

class CreatePDFfromExcel : public ExcelMember {
  protected:
    CreatePDFfromExcel() : ExcelMember(usual) {}

    /// What happens from Excel's end on.
    tests::Lines after_excel() const { return journal_from("release Excel.Application"); }
};

TEST_F(CreatePDFfromExcel, DeletesATemporaryFileOfThatNameBeforePrinting) {
    stage.put_file("C:\\Temp\\13387663.ps");
    call();
    tests::expect_text(journal_between("look for", "Range("), R"(
        look for 13387663 in the current folder
        length C:\Temp\13387663.ps -> 1000
        delete C:\Temp\13387663.ps
        Excel.Worksheet.Range("A1:F40")
    )");
}

TEST_F(CreatePDFfromExcel, DeletesTheOldPdfOnlyAfterExcelHasQuit) {
    stage.put_file("C:\\out\\sales.pdf");
    call();
    tests::expect_text(journal_between("release Excel.Application", "create Distiller"), R"(
        release Excel.Application
        length C:\out\sales.pdf -> 1000
        delete C:\out\sales.pdf
        create Distiller
    )");
}

TEST_F(CreatePDFfromExcel, TheOldPdfStaysWhenPrintingFails) {
    stage.put_file("C:\\out\\sales.pdf");
    make_excel_fail_in("Excel.Range.PrintOut");
    call();
    EXPECT_EQ(stage.journal().find("delete"), std::string::npos);
}

TEST_F(CreatePDFfromExcel, APrinterThatIsNamedIsPassedAsItIs) {
    call({named("strDistiller", " My printer ")});
    EXPECT_TRUE(line_with("PrintOut").ends_with("ActivePrinter:=\" My printer \")"));
    EXPECT_EQ(variable("strDistiller"), Value(" My printer "));
}

TEST_F(CreatePDFfromExcel, WithSecurityAndAcrobatFiveConvertsWithoutIt) {
    register_acrobat("5.0");
    call({named("blnApplySecurity", true)});
    EXPECT_EQ(stage.journal().find("SecureDistiller"), std::string::npos);
    EXPECT_NE(stage.journal().find("\nevent JobDone("), std::string::npos);
}

TEST_F(CreatePDFfromExcel, TheTemporaryFileStaysWhenDistillerFails) {
    stage.when("Distiller.FileToPDF",
               [](StageObject&, const Arguments&) -> Value { throw Error(RuntimeError::disk_full); });
    call();
    tests::expect_text(after_excel(), R"(
        release Excel.Application
        length C:\out\sales.pdf -> not found
        create Distiller
        listen to Distiller
        Distiller.bShowWindow = False
        Distiller.bSpoolJobs = False
        Distiller.FileToPDF("C:\Temp\13387663.ps", "C:\out\sales.pdf", "")
        stop listening to Distiller
        release Distiller
        raise 61 from Foliant: Disk full
    )");
}

TEST_F(CreatePDFfromExcel, WaitsWithoutEndForAFileThatExcelNeverWrites) {
    stage.answer("Excel.Range.PrintOut", Value());
    int rounds = 0;
    stage.on_pump = [&] {
        if (++rounds == 1000) throw Error(RuntimeError::internal_error, "the test has seen enough");
    };
    call();
    EXPECT_EQ(rounds, 1000);
    EXPECT_EQ(last_line(), "raise 51 from Foliant: the test has seen enough");
}

// Passed over by rule: the existence tests (the one that waits for the printed file takes another round), the
// look for a file that is named like the temporary one. A failing Close or Quit is called again.

const tests::MemberFaults faults({.member = "CreatePDFfromExcel",
                                  .arrange = put_workbook_and_old_output,
                                  .arguments = {"C:\\out\\sales.pdf", "C:\\in\\sales.xls", "Sheet1", "A1:F40",
                                                named("strHeader", "Sales"), named("strFooter", "Page &P"),
                                                named("dblTopMargin", 1.0), named("dblFooterMargin", 1.0)}},
                                 {.endings = {let_excel_go, quit_excel, let_distiller_go}, .report = R"(
    fails: length C:\in\sales.xls
        raise -2147467008 from Foliant: File C:\in\sales.xls does not exist.
    fails: create Excel.Application
        raise the failure
    fails: Excel.Application.Workbooks
    fails: Excel.Workbooks.Open("C:\in\sales.xls", Password:="", WriteResPassword:="")
        quit Excel
        raise the failure
    fails: Excel.Application.DisplayAlerts = False
    fails: Excel.Workbook.Worksheets("Sheet1")
        let Excel go
        raise the failure
    fails: Excel.Worksheet.PageSetup
    fails: Excel.PageSetup.PrintGridlines = False
    fails: Excel.PageSetup.Orientation = Integer(1)
    fails: Excel.PageSetup.CenterHeader = "Sales"
    fails: Excel.PageSetup.LeftFooter = "Page &P"
    fails: Excel.Application.InchesToPoints(Double(1))
    fails: Excel.PageSetup.TopMargin = Double(72)
    fails: Excel.Application.InchesToPoints(Double(1))
    fails: Excel.PageSetup.FooterMargin = Double(72)
    fails: Excel.PageSetup.FirstPageNumber = Long(1)
        release Excel.Worksheet
        let Excel go
        raise the failure
    fails: look for 13387663 in the current folder
    fails: length C:\Temp\13387663.ps
        go on
    fails: Excel.Worksheet.Range("A1:F40")
    fails: Excel.Range.PrintOut(Copies:=Integer(1), preview:=False, PrintToFile:=True, Collate:=True, PrToFilename:="C:\Temp\13387663.ps", ActivePrinter:="Adobe PDF")
        release Excel.Worksheet
        let Excel go
        raise the failure
    fails: sleep 2000 ms
    fails: pump messages
        let Excel go
        raise the failure
    fails: length C:\Temp\13387663.ps
        go on, but
        + pump messages
        + length C:\Temp\13387663.ps -> 1000
    fails: length C:\Temp\13387663.ps
    fails: sleep 1000 ms
    fails: length C:\Temp\13387663.ps
    fails: Excel.Application.DisplayAlerts = True
    fails: Excel.Workbook.Close(False)
        let Excel go
        raise the failure
    fails: Excel.Application.Quit()
        quit Excel
        raise the failure
    fails: length C:\out\sales.pdf
        go on, but
        - delete C:\out\sales.pdf
    fails: delete C:\out\sales.pdf
    fails: create Distiller
        raise the failure
    fails: listen to Distiller
        release Distiller
        raise the failure
    fails: Distiller.bShowWindow = False
    fails: Distiller.bSpoolJobs = False
    fails: Distiller.FileToPDF("C:\Temp\13387663.ps", "C:\out\sales.pdf", "")
        let Distiller go
        raise the failure
    fails: delete C:\Temp\13387663.ps
        raise the failure
)"});

}  // namespace
}  // namespace foliant::members
