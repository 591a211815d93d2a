#include <gtest/gtest.h>

#include "members/excel/excel_member.h"
#include "registered/classes.h"

namespace foliant::members {
namespace {

using automation::named;
using automation::Value;
using platform::stage::Stage;
using platform::stage::StageObject;

const tests::MemberCall usual{
    .member = "CreatePDFfromExcel2",
    .arrange = put_workbook,
    .arguments = {named("strPDFFile", "C:\\out\\Sales.PDF"), named("strExcelWorkbook", "C:\\in\\sales.xls"),
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
    length C:\out\Sales.PDF -> not found
    special folder 37 (owner 100)
    length C:\WINDOWS\system32\quorixsend.exe -> 1000
    start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\Sales.PDF~0~0~
    start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe pdf - security~Button~~0~0~
    Excel.Worksheet.Range("A1:F40")
    Excel.Range.PrintOut(ActivePrinter:="Adobe PDF")
    release Excel.Worksheet
    sleep 2000 ms
    pump messages
    length C:\out\Sales.PDF -> 1000
    length C:\out\Sales.PDF -> 1000
    sleep 1000 ms
    length C:\out\Sales.PDF -> 1000
    Excel.Application.DisplayAlerts = True
    Excel.Workbook.Close(False)
    release Excel.Workbook
    Excel.Application.Quit()
    release Excel.Application
)");

const tests::ParameterProbe parameters({.member = "CreatePDFfromExcel2",
                                        .arrange = put_workbook,
                                        .arguments = {named("strPDFFile", "C:\\out\\sales.pdf"),
                                                      named("strExcelWorkbook", "C:\\in\\sales.xls"),
                                                      named("varExcelWorksheet", "Sheet1"),
                                                      named("strRange", "B2:C9"),
                                                      named("strPassword", "open"),
                                                      named("strWriteResPassword", "write"),
                                                      named("blnUseGrid", false),
                                                      named("blnLandscape", true),
                                                      named("strHeader", "Sales"),
                                                      named("lngHeaderAlignment", std::int32_t{2}),
                                                      named("strFooter", "Page &P"),
                                                      named("lngFooterAlignment", std::int32_t{1}),
                                                      named("dblTopMargin", 1.0),
                                                      named("dblLeftMargin", 2.0),
                                                      named("dblRightMargin", 3.0),
                                                      named("dblBottomMargin", 4.0),
                                                      named("dblHeaderMargin", 0.5),
                                                      named("dblFooterMargin", 0.25),
                                                      named("lngFirstPageNumber", std::int32_t{-7}),
                                                      named("strDistiller", "  "),
                                                      named("blnCloseAcrobat", true)}},
                                       {.lines_with = {"Open", "Worksheets(", "PageSetup.", "save pdf",
                                                       "Range(", "PrintOut", "WM_CLOSE"},
                                        .expected = R"(
        Excel.Workbooks.Open("C:\in\sales.xls", Password:="open", WriteResPassword:="write")
        Excel.Workbook.Worksheets("Sheet1")
        Excel.PageSetup.PrintGridlines = False
        Excel.PageSetup.Orientation = Integer(2)
        Excel.PageSetup.RightHeader = "Sales"
        Excel.PageSetup.CenterFooter = "Page &P"
        Excel.PageSetup.TopMargin = Double(72)
        Excel.PageSetup.LeftMargin = Double(144)
        Excel.PageSetup.RightMargin = Double(216)
        Excel.PageSetup.BottomMargin = Double(288)
        Excel.PageSetup.HeaderMargin = Double(36)
        Excel.PageSetup.FooterMargin = Double(18)
        Excel.PageSetup.FirstPageNumber = Long(-7)
        start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\sales.pdf~0~0~
        Excel.Worksheet.Range("B2:C9")
        Excel.Range.PrintOut(ActivePrinter:="Adobe PDF")
        send WM_CLOSE (0, "0") to "Adobe Acrobat Professional - [sales.pdf]"
    )",
                                        .flags = R"(
        blnUseGrid:
            - Excel.PageSetup.PrintGridlines = False
            + Excel.PageSetup.PrintGridlines = True
        blnLandscape:
            - Excel.PageSetup.Orientation = Integer(2)
            + Excel.PageSetup.Orientation = Integer(1)
        blnCloseAcrobat:
            - send WM_CLOSE (0, "0") to "Adobe Acrobat Professional - [sales.pdf]"
    )",
                                        .written = {{"strDistiller", "Adobe PDF"}}});

class CreatePDFfromExcel2 : public ExcelMember {
  protected:
    CreatePDFfromExcel2() : ExcelMember(usual) {}
};

/// The printer writes that file, whoever answers its dialog, and no window of Acrobat opens.
void have_the_printer_write(Stage& stage, const std::string& target) {
    stage.when("Excel.Range.PrintOut", [target](StageObject& range, const automation::Arguments&) {
        range.stage().put_file(target);
        return Value();
    });
}

TEST_F(CreatePDFfromExcel2, DeletesTheOldPdfBeforeTheSendersStart) {
    stage.put_file("C:\\out\\Sales.PDF");
    call();
    tests::expect_text(journal_between("length C:\\out\\Sales.PDF", "Range("), R"(
        length C:\out\Sales.PDF -> 1000
        delete C:\out\Sales.PDF
        special folder 37 (owner 100)
        length C:\WINDOWS\system32\quorixsend.exe -> 1000
        start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\Sales.PDF~0~0~
        start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe pdf - security~Button~~0~0~
        Excel.Worksheet.Range("A1:F40")
    )");
}

TEST_F(CreatePDFfromExcel2, APrinterThatIsNamedIsPassedAsItIs) {
    call({named("strDistiller", " My printer ")});
    EXPECT_EQ(line_with("PrintOut"), "Excel.Range.PrintOut(ActivePrinter:=\" My printer \")");
    EXPECT_EQ(variable("strDistiller"), Value(" My printer "));
}

TEST_F(CreatePDFfromExcel2, ClosesAcrobatsWindowOnRequestBeforeExcelIsRestored) {
    call({named("blnCloseAcrobat", true)});
    tests::expect_text(journal_from("sleep 1000 ms"), R"(
        sleep 1000 ms
        length C:\out\Sales.PDF -> 1000
        pump messages
        find window "adobe acrobat - [sales.pdf]" -> none
        find window "adobe acrobat professional - [sales.pdf]" -> found
        send WM_CLOSE (0, "0") to "Adobe Acrobat Professional - [Sales.PDF]"
        Excel.Application.DisplayAlerts = True
        Excel.Workbook.Close(False)
        release Excel.Workbook
        Excel.Application.Quit()
        release Excel.Application
    )");
}

TEST_F(CreatePDFfromExcel2, PrintsAlsoWhenTheSenderIsMissing) {
    stage.files.erase("C:\\WINDOWS\\system32\\quorixsend.exe");
    have_the_printer_write(stage, "C:\\out\\Sales.PDF");  // somebody types the name into the dialog
    call();
    tests::expect_text(journal_between("length C:\\WINDOWS", "PrintOut"),
                       "length C:\\WINDOWS\\system32\\quorixsend.exe -> not found\n"
                       "length C:\\Temp\\quorixsend.exe -> not found\n"
                       "message box \"Error! Can't find file QUORIXSEND.EXE. Please copy this file into the "
                       "same path as QUORIX.OCX or into your Window's System Directory.\", title \"File "
                       "QUORIXSEND.EXE not found\", style 4144\n"
                       "Excel.Worksheet.Range(\"A1:F40\")\n"
                       "Excel.Range.PrintOut(ActivePrinter:=\"Adobe PDF\")\n");
    EXPECT_EQ(last_line(), "release Excel.Application");
}

TEST_F(CreatePDFfromExcel2, NeedsNoDistiller) {
    stage.missing_classes = {std::string(registered::event_bound_distiller)};
    call();
    EXPECT_EQ(last_line(), "release Excel.Application");
}

void have_the_printer_write_the_pdf(Stage& stage) {
    put_workbook_and_old_output(stage);
    stage.when("Excel.Range.PrintOut", [](StageObject& range, const automation::Arguments&) {
        range.stage().put_file("C:\\out\\sales.pdf");
        range.stage().windows["Adobe Acrobat Professional - [sales.pdf]"] = 0;
        return Value();
    });
}

// Passed over by rule: what CreatePDFfromExcel passes over. A sender that does not seem to exist is told in a
// message box.

const tests::MemberFaults faults({.member = "CreatePDFfromExcel2",
                                  .arrange = have_the_printer_write_the_pdf,
                                  .arguments = {"C:\\out\\sales.pdf", "C:\\in\\sales.xls", "Sheet1", "A1:F40",
                                                named("blnCloseAcrobat", true)}},
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
    fails: length C:\out\sales.pdf
        go on, but
        - delete C:\out\sales.pdf
    fails: delete C:\out\sales.pdf
        release Excel.Worksheet
        let Excel go
        raise the failure
    fails: special folder 37 (owner 100)
        go on, but
        - length C:\WINDOWS\system32\quorixsend.exe -> 1000
        - start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\sales.pdf~0~0~
        - start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe pdf - security~Button~~0~0~
        + length \quorixsend.exe -> not found
        + length C:\Temp\quorixsend.exe -> not found
        + message box "Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as QUORIX.OCX or into your Window's System Directory.", title "File QUORIXSEND.EXE not found", style 4144
    fails: length C:\WINDOWS\system32\quorixsend.exe
        go on, but
        - start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\sales.pdf~0~0~
        - start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe pdf - security~Button~~0~0~
        + length C:\Temp\quorixsend.exe -> not found
        + message box "Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as QUORIX.OCX or into your Window's System Directory.", title "File QUORIXSEND.EXE not found", style 4144
    fails: start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\sales.pdf~0~0~
    fails: start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe pdf - security~Button~~0~0~
    fails: Excel.Worksheet.Range("A1:F40")
    fails: Excel.Range.PrintOut(ActivePrinter:="Adobe PDF")
        release Excel.Worksheet
        let Excel go
        raise the failure
    fails: sleep 2000 ms
    fails: pump messages
        let Excel go
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
