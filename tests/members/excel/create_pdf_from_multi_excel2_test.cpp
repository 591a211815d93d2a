#include <gtest/gtest.h>

#include "members/excel/excel_member.h"
#include "members/pdf/acrobat_endings.h"
#include "registered/classes.h"

namespace foliant::members {
namespace {

using automation::Missing;
using automation::named;
using automation::Value;
using platform::stage::Stage;
using platform::stage::StageObject;

const tests::MemberCall usual{
    .member = "CreatePDFfromMultiExcel2",
    .arrange = put_workbook_and_old_output,
    .arguments = {named("strPDFFile", "C:\\out\\sales.pdf"), named("strExcelWorkbook", "C:\\in\\sales.xls"),
                  named("varExcelWorksheets", list_of({"North", std::int16_t{2}})),
                  named("varRanges", list_of({"A1:F40", "B2:C9"})),
                  named("varLandscape", list_of({false, true}))}};

const tests::WholeJournal journal(usual, R"(
    length C:\in\sales.xls -> 1000
    create Excel.Application
    Excel.Application.Workbooks
    Excel.Workbooks.Open("C:\in\sales.xls", Password:="", WriteResPassword:="")
    Excel.Application.DisplayAlerts = False
    pump messages
    Excel.Workbook.Worksheets("North")
    Excel.Worksheet.PageSetup
    Excel.PageSetup.PrintGridlines = False
    Excel.PageSetup.Orientation = Integer(1)
    Excel.PageSetup.FirstPageNumber = Long(1)
    look for 13387663 in the current folder
    length C:\Temp\13387663.pdf -> not found
    special folder 37 (owner 100)
    length C:\WINDOWS\system32\quorixsend.exe -> 1000
    start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\Temp\13387663.pdf~0~0~
    start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe pdf - security~Button~~0~0~
    Excel.Worksheet.Range("A1:F40")
    Excel.Range.PrintOut(ActivePrinter:="Adobe PDF")
    release Excel.Worksheet
    sleep 2000 ms
    pump messages
    length C:\Temp\13387663.pdf -> 1000
    length C:\Temp\13387663.pdf -> 1000
    sleep 1000 ms
    length C:\Temp\13387663.pdf -> 1000
    pump messages
    Excel.Workbook.Worksheets(Integer(2))
    Excel.Worksheet.PageSetup
    Excel.PageSetup.PrintGridlines = False
    Excel.PageSetup.Orientation = Integer(2)
    Excel.PageSetup.FirstPageNumber = Long(1)
    look for 90360397 in the current folder
    length C:\Temp\90360397.pdf -> not found
    special folder 37 (owner 100)
    length C:\WINDOWS\system32\quorixsend.exe -> 1000
    start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\Temp\90360397.pdf~0~0~
    start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe pdf - security~Button~~0~0~
    Excel.Worksheet.Range("B2:C9")
    Excel.Range.PrintOut(ActivePrinter:="Adobe PDF")
    release Excel.Worksheet
    sleep 2000 ms
    pump messages
    length C:\Temp\90360397.pdf -> 1000
    length C:\Temp\90360397.pdf -> 1000
    sleep 1000 ms
    length C:\Temp\90360397.pdf -> 1000
    Excel.Application.DisplayAlerts = True
    Excel.Workbook.Close(False)
    release Excel.Workbook
    Excel.Application.Quit()
    release Excel.Application
    length C:\out\sales.pdf -> 1000
    delete C:\out\sales.pdf
    create AcroExch.PDDoc
    create AcroExch.PDDoc
    AcroExch.PDDoc.Create()
    length C:\out\sales.pdf -> not found
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
    AcroExch.PDDoc.Save(Integer(5), "C:\out\sales.pdf")
    AcroExch.PDDoc.Close()
    release AcroExch.PDDoc
    release AcroExch.PDDoc
    delete C:\Temp\13387663.pdf
    delete C:\Temp\90360397.pdf
)");

/// The search for a window that never comes takes as long as it may.
void put_workbook_and_let_time_pass(Stage& stage) {
    put_workbook(stage);
    stage.pump_takes = 8000;
}

const tests::ParameterProbe parameters({.member = "CreatePDFfromMultiExcel2",
                                        .arrange = put_workbook_and_let_time_pass,
                                        .arguments = {named("strPDFFile", "C:\\out\\sales.pdf"),
                                                      named("strExcelWorkbook", "C:\\in\\sales.xls"),
                                                      named("varExcelWorksheets", list_of({"North"})),
                                                      named("varRanges", list_of({"B2:C9"})),
                                                      named("strPassword", "open"),
                                                      named("strWriteResPassword", "write"),
                                                      named("blnUseGrid", true),
                                                      named("varLandscape", list_of({true})),
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
                                                      named("varFirstPageNumber", list_of({std::int32_t{7}})),
                                                      named("strDistiller", " "),
                                                      named("blnCloseAcrobat", true)}},
                                       {.lines_with = {"Excel.Workbooks.Open", "Worksheets(", "PageSetup.",
                                                       "Range(", "PrintOut", "find window", "Save("},
                                        .expected = R"(
        Excel.Workbooks.Open("C:\in\sales.xls", Password:="open", WriteResPassword:="write")
        Excel.Workbook.Worksheets("North")
        Excel.PageSetup.PrintGridlines = True
        Excel.PageSetup.Orientation = Integer(2)
        Excel.PageSetup.RightHeader = "Sales"
        Excel.PageSetup.CenterFooter = "Page &P"
        Excel.PageSetup.TopMargin = Double(72)
        Excel.PageSetup.LeftMargin = Double(144)
        Excel.PageSetup.RightMargin = Double(216)
        Excel.PageSetup.BottomMargin = Double(288)
        Excel.PageSetup.HeaderMargin = Double(36)
        Excel.PageSetup.FooterMargin = Double(18)
        Excel.PageSetup.FirstPageNumber = Long(7)
        Excel.Worksheet.Range("B2:C9")
        Excel.Range.PrintOut(ActivePrinter:="Adobe PDF")
        find window "adobe acrobat - [sales.pdf]" -> none
        find window "adobe acrobat professional - [sales.pdf]" -> none
        find window "adobe acrobat - [sales.pdf]" -> none
        find window "adobe acrobat professional - [sales.pdf]" -> none
        AcroExch.PDDoc.Save(Integer(5), "C:\out\sales.pdf")
    )",
                                        .flags = R"(
        blnUseGrid:
            - Excel.PageSetup.PrintGridlines = True
            + Excel.PageSetup.PrintGridlines = False
        blnCloseAcrobat:
            - find window "adobe acrobat - [sales.pdf]" -> none
            - find window "adobe acrobat professional - [sales.pdf]" -> none
            - find window "adobe acrobat - [sales.pdf]" -> none
            - find window "adobe acrobat professional - [sales.pdf]" -> none
    )",
                                        .written = {{"strDistiller", "Adobe PDF"}}});

class CreatePDFfromMultiExcel2 : public ExcelMember {
  protected:
    CreatePDFfromMultiExcel2() : ExcelMember(usual) {}
};

TEST_F(CreatePDFfromMultiExcel2, LooksForAWindowOfTheWholeAndLeavesThoseOfTheSheetsOpen) {
    stage.pump_takes = 16000;
    call({named("blnCloseAcrobat", true)});
    tests::expect_text(lines_with({"find window", "WM_CLOSE"}), R"(
        find window "adobe acrobat - [sales.pdf]" -> none
        find window "adobe acrobat professional - [sales.pdf]" -> none
        find window "adobe acrobat - [sales.pdf]" -> none
        find window "adobe acrobat professional - [sales.pdf]" -> none
    )");
    EXPECT_TRUE(stage.windows.contains("Adobe Acrobat Professional - [13387663.pdf]"));
    EXPECT_TRUE(stage.windows.contains("Adobe Acrobat Professional - [90360397.pdf]"));
}

TEST_F(CreatePDFfromMultiExcel2, ListsThatBeginAtOneHandOnAnEmptyElementZero) {
    call({named("varExcelWorksheets", list_of({"North"}, 1)), named("varRanges", list_of({"A1"}, 1)),
          named("varLandscape", list_of({false}, 1))});
    tests::expect_text(journal_between("AcroExch.PDDoc.Create()", "AcroExch.PDDoc.Open"), R"(
        AcroExch.PDDoc.Create()
        length C:\out\sales.pdf -> not found
        pump messages
        length  -> not found
        pump messages
        length C:\Temp\13387663.pdf -> 1000
        AcroExch.PDDoc.Open("C:\Temp\13387663.pdf")
    )");
    EXPECT_EQ(last_line(), "delete C:\\Temp\\13387663.pdf");
}

TEST_F(CreatePDFfromMultiExcel2, ARangeThatIsMissingFailsOnceTheSendersHaveStarted) {
    call({named("varRanges", list_of({"A1"}))});
    tests::expect_text(journal_from("start (hidden) C:\\WINDOWS\\system32\\quorixsend.exe save pdf file "
                                    "as~Edit~C:\\Temp\\90360397.pdf"),
                       R"(
        start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\Temp\90360397.pdf~0~0~
        start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe pdf - security~Button~~0~0~
        release Excel.Worksheet
        Excel.Workbook.Close(False)
        release Excel.Workbook
        Excel.Application.Quit()
        release Excel.Application
        raise 9 from Foliant: Subscript out of range
    )");
}

TEST_F(CreatePDFfromMultiExcel2, WithoutLandscapeItFails) {
    call({named("varLandscape", Missing{})});
    EXPECT_EQ(last_line(), "raise 13 from Foliant: Type mismatch");
}

TEST_F(CreatePDFfromMultiExcel2, TheOldPdfStaysUntilExcelHasQuit) {
    make_excel_fail_in("Excel.Range.PrintOut");
    call();
    EXPECT_TRUE(stage.files.contains("C:\\out\\sales.pdf"));
}

TEST_F(CreatePDFfromMultiExcel2, TemporaryFilesStayWhenTheMergeFails) {
    stage.answer("AcroExch.PDDoc.Create", false);
    call();
    EXPECT_EQ(last_line(), "raise -2147467008 from Foliant: Unable to create document object.");
    EXPECT_TRUE(stage.files.contains("C:\\Temp\\13387663.pdf"));
    EXPECT_TRUE(stage.files.contains("C:\\Temp\\90360397.pdf"));
}

TEST_F(CreatePDFfromMultiExcel2, NeedsNoDistiller) {
    stage.missing_classes = {std::string(registered::event_bound_distiller)};
    call();
    EXPECT_EQ(last_line(), "delete C:\\Temp\\90360397.pdf");
}

/// Whoever answers the printer's dialog, the sender or a person.
void have_the_printer_write_the_sheet(Stage& stage) {
    put_workbook_and_old_output(stage);
    stage.when("Excel.Range.PrintOut", [](StageObject& range, const automation::Arguments&) {
        range.stage().put_file("C:\\Temp\\13387663.pdf");
        return Value();
    });
}

// Passed over by rule: what CreatePDFfromExcel2 passes over. A temporary PDF that does not seem to exist is not
// merged.

const tests::MemberFaults faults({.member = "CreatePDFfromMultiExcel2",
                                  .arrange = have_the_printer_write_the_sheet,
                                  .arguments = {"C:\\out\\sales.pdf", "C:\\in\\sales.xls", list_of({"North"}),
                                                list_of({"A1"}), named("varLandscape", list_of({false}))}},
                                 {.endings = {let_excel_go, quit_excel, release_both_documents},
                                  .from = "look for 13387663",
                                  .report = R"(
    fails: look for 13387663 in the current folder
    fails: length C:\Temp\13387663.pdf
        go on
    fails: special folder 37 (owner 100)
        go on, but
        - length C:\WINDOWS\system32\quorixsend.exe -> 1000
        - start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\Temp\13387663.pdf~0~0~
        - start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe pdf - security~Button~~0~0~
        + length \quorixsend.exe -> not found
        + length C:\Temp\quorixsend.exe -> not found
        + message box "Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as QUORIX.OCX or into your Window's System Directory.", title "File QUORIXSEND.EXE not found", style 4144
    fails: length C:\WINDOWS\system32\quorixsend.exe
        go on, but
        - start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\Temp\13387663.pdf~0~0~
        - start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe pdf - security~Button~~0~0~
        + length C:\Temp\quorixsend.exe -> not found
        + message box "Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as QUORIX.OCX or into your Window's System Directory.", title "File QUORIXSEND.EXE not found", style 4144
    fails: start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\Temp\13387663.pdf~0~0~
    fails: start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe pdf - security~Button~~0~0~
    fails: Excel.Worksheet.Range("A1")
    fails: Excel.Range.PrintOut(ActivePrinter:="Adobe PDF")
        release Excel.Worksheet
        let Excel go
        raise the failure
    fails: sleep 2000 ms
    fails: pump messages
        let Excel go
        raise the failure
    fails: length C:\Temp\13387663.pdf
        go on, but
        + pump messages
        + length C:\Temp\13387663.pdf -> 1000
    fails: length C:\Temp\13387663.pdf
    fails: sleep 1000 ms
    fails: length C:\Temp\13387663.pdf
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
        release both documents
        raise the failure
    fails: length C:\out\sales.pdf
        go on
    fails: pump messages
        release both documents
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
        release both documents
        raise the failure
    fails: delete C:\Temp\13387663.pdf
        raise the failure
)"});

}  // namespace
}  // namespace foliant::members
