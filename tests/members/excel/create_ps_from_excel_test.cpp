#include <gtest/gtest.h>

#include "members/excel/excel_member.h"

namespace foliant::members {
namespace {

using automation::named;

const tests::MemberCall usual{
    .member = "CreatePSfromExcel",
    .arrange = put_workbook,
    .arguments = {named("strPSFile", "C:\\out\\sales.ps"), named("strExcelWorkbook", "C:\\in\\sales.xls"),
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
    length C:\out\sales.ps -> not found
    Excel.Worksheet.Range("A1:F40")
    Excel.Range.PrintOut(Copies:=Integer(1), preview:=False, PrintToFile:=True, Collate:=True, PrToFilename:="C:\out\sales.ps", ActivePrinter:="Adobe PDF")
    release Excel.Worksheet
    sleep 2000 ms
    pump messages
    length C:\out\sales.ps -> 1000
    length C:\out\sales.ps -> 1000
    sleep 1000 ms
    length C:\out\sales.ps -> 1000
    Excel.Application.DisplayAlerts = True
    Excel.Workbook.Close(False)
    release Excel.Workbook
    Excel.Application.Quit()
    release Excel.Application
)");

const tests::ParameterProbe parameters({.member = "CreatePSfromExcel",
                                        .arrange = put_workbook,
                                        .arguments = {named("strPSFile", "C:\\out\\sales.ps"),
                                                      named("strExcelWorkbook", "C:\\in\\sales.xls"),
                                                      named("varExcelWorksheet", "Sheet1"),
                                                      named("strRange", "B2:C9"),
                                                      named("strPassword", "open"),
                                                      named("strWriteResPassword", "write"),
                                                      named("blnUseGrid", true),
                                                      named("blnLandscape", true),
                                                      named("strHeader", "Sales"),
                                                      named("lngHeaderAlignment", std::int32_t{1}),
                                                      named("strFooter", "Page &P"),
                                                      named("lngFooterAlignment", std::int32_t{0}),
                                                      named("dblTopMargin", 1.0),
                                                      named("dblLeftMargin", 2.0),
                                                      named("dblRightMargin", 3.0),
                                                      named("dblBottomMargin", 4.0),
                                                      named("dblHeaderMargin", 0.5),
                                                      named("dblFooterMargin", 0.25),
                                                      named("lngFirstPageNumber", std::int32_t{5}),
                                                      named("strDistiller", " "),
                                                      named("blnShowWindow", true),
                                                      named("blnSpoolJobs", true)}},
                                       {.lines_with = {"Open", "Worksheets(", "PageSetup.", "Range(",
                                                       "PrintOut", "Distiller"},
                                        .expected = R"(
        Excel.Workbooks.Open("C:\in\sales.xls", Password:="open", WriteResPassword:="write")
        Excel.Workbook.Worksheets("Sheet1")
        Excel.PageSetup.PrintGridlines = True
        Excel.PageSetup.Orientation = Integer(2)
        Excel.PageSetup.CenterHeader = "Sales"
        Excel.PageSetup.LeftFooter = "Page &P"
        Excel.PageSetup.TopMargin = Double(72)
        Excel.PageSetup.LeftMargin = Double(144)
        Excel.PageSetup.RightMargin = Double(216)
        Excel.PageSetup.BottomMargin = Double(288)
        Excel.PageSetup.HeaderMargin = Double(36)
        Excel.PageSetup.FooterMargin = Double(18)
        Excel.PageSetup.FirstPageNumber = Long(5)
        Excel.Worksheet.Range("B2:C9")
        Excel.Range.PrintOut(Copies:=Integer(1), preview:=False, PrintToFile:=True, Collate:=True, PrToFilename:="C:\out\sales.ps", ActivePrinter:="Adobe PDF")
    )",
                                        .flags = R"(
        blnUseGrid:
            - Excel.PageSetup.PrintGridlines = True
            + Excel.PageSetup.PrintGridlines = False
        blnLandscape:
            - Excel.PageSetup.Orientation = Integer(2)
            + Excel.PageSetup.Orientation = Integer(1)
        blnShowWindow:
        blnSpoolJobs:
    )",
                                        .written = {{"strDistiller", "Adobe PDF"}}});

class CreatePSfromExcel : public ExcelMember {
  protected:
    CreatePSfromExcel() : ExcelMember(usual) {}
};

TEST_F(CreatePSfromExcel, DeletesTheOldFileBeforePrinting) {
    stage.put_file("C:\\out\\sales.ps");
    call();
    tests::expect_text(journal_between("length C:\\out\\sales.ps", "Range("), R"(
        length C:\out\sales.ps -> 1000
        delete C:\out\sales.ps
        Excel.Worksheet.Range("A1:F40")
    )");
}

TEST_F(CreatePSfromExcel, TakesNoNoticeOfShowWindowAndSpoolJobs) {
    call();
    const std::string without = stage.journal();
    stage.clear_journal();
    stage.files.erase("C:\\out\\sales.ps");
    call({named("blnShowWindow", true), named("blnSpoolJobs", true)});
    EXPECT_EQ(stage.journal(), without);
}

void put_workbook_and_old_postscript(platform::stage::Stage& stage) {
    put_workbook(stage);
    stage.put_file("C:\\out\\sales.ps");
}

const tests::MemberFaults faults({.member = "CreatePSfromExcel",
                                  .arrange = put_workbook_and_old_postscript,
                                  .arguments = {"C:\\out\\sales.ps", "C:\\in\\sales.xls", "Sheet1",
                                                "A1:F40"}},
                                 {.endings = {let_excel_go, quit_excel}, .report = R"(
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
    fails: Excel.PageSetup.FirstPageNumber = Long(1)
        release Excel.Worksheet
        let Excel go
        raise the failure
    fails: length C:\out\sales.ps
        go on, but
        - delete C:\out\sales.ps
    fails: delete C:\out\sales.ps
    fails: Excel.Worksheet.Range("A1:F40")
    fails: Excel.Range.PrintOut(Copies:=Integer(1), preview:=False, PrintToFile:=True, Collate:=True, PrToFilename:="C:\out\sales.ps", ActivePrinter:="Adobe PDF")
        release Excel.Worksheet
        let Excel go
        raise the failure
    fails: sleep 2000 ms
    fails: pump messages
        let Excel go
        raise the failure
    fails: length C:\out\sales.ps
        go on, but
        + pump messages
        + length C:\out\sales.ps -> 1000
    fails: length C:\out\sales.ps
    fails: sleep 1000 ms
    fails: length C:\out\sales.ps
    fails: Excel.Application.DisplayAlerts = True
    fails: Excel.Workbook.Close(False)
        let Excel go
        raise the failure
    fails: Excel.Application.Quit()
        quit Excel
        raise the failure
)"});

}  // namespace
}  // namespace foliant::members
