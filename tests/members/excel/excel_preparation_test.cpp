// What the Excel members do alike before and after they print, shown on the shortest of them.

#include <gtest/gtest.h>

#include "members/excel/excel_member.h"

namespace foliant::members {
namespace {

using automation::named;
using automation::Value;

class ExcelPreparation : public ExcelMember {
  protected:
    ExcelPreparation()
        : ExcelMember({.member = "CreatePSfromExcel",
                       .arrange = put_workbook,
                       .arguments = {named("strPSFile", "C:\\out\\sales.ps"),
                                     named("strExcelWorkbook", "C:\\in\\sales.xls"),
                                     named("varExcelWorksheet", "Sheet1"), named("strRange", "A1:F40")}}) {}

    /// What is set on the page when the call has those arguments besides.
    std::string settings_with(const automation::Arguments& arguments) {
        stage.clear_journal();
        call(arguments);
        std::string settings;
        for (const std::string& line : journal_between("Excel.PageSetup.Orientation", "FirstPageNumber"))
            if (!line.starts_with("Excel.PageSetup.Orientation") && line.find("First") == std::string::npos)
                settings += line + "\n";
        return settings;
    }
};

TEST_F(ExcelPreparation, AMissingWorkbookIsSaidBeforeExcelIsStarted) {
    stage.files.clear();
    call();
    expect_journal(R"(
        length C:\in\sales.xls -> not found
        raise -2147467008 from Foliant: File C:\in\sales.xls does not exist.
    )");
}

TEST_F(ExcelPreparation, EverythingIsSetOnThePageInOneOrder) {
    call({named("blnUseGrid", true), named("blnLandscape", true), named("strHeader", "Sales"),
          named("strFooter", "Page &P"), named("dblTopMargin", 1.0), named("dblLeftMargin", 2.0),
          named("dblRightMargin", 3.0), named("dblBottomMargin", 4.0), named("dblHeaderMargin", 5.0),
          named("dblFooterMargin", 6.0), named("lngFirstPageNumber", std::int32_t{9})});
    tests::expect_text(journal_between("Worksheets(", "length C:\\out"), R"(
        Excel.Workbook.Worksheets("Sheet1")
        Excel.Worksheet.PageSetup
        Excel.PageSetup.PrintGridlines = True
        Excel.PageSetup.Orientation = Integer(2)
        Excel.PageSetup.CenterHeader = "Sales"
        Excel.PageSetup.LeftFooter = "Page &P"
        Excel.Application.InchesToPoints(Double(1))
        Excel.PageSetup.TopMargin = Double(72)
        Excel.Application.InchesToPoints(Double(2))
        Excel.PageSetup.LeftMargin = Double(144)
        Excel.Application.InchesToPoints(Double(3))
        Excel.PageSetup.RightMargin = Double(216)
        Excel.Application.InchesToPoints(Double(4))
        Excel.PageSetup.BottomMargin = Double(288)
        Excel.Application.InchesToPoints(Double(5))
        Excel.PageSetup.HeaderMargin = Double(360)
        Excel.Application.InchesToPoints(Double(6))
        Excel.PageSetup.FooterMargin = Double(432)
        Excel.PageSetup.FirstPageNumber = Long(9)
        length C:\out\sales.ps -> not found
    )");
}

TEST_F(ExcelPreparation, AHeaderGoesToTheRightUnlessItIsToStandLeftOrInTheCentre) {
    const auto header = [&](std::int32_t alignment) {
        return settings_with({named("strHeader", "Sales"), named("lngHeaderAlignment", alignment)});
    };
    EXPECT_EQ(header(0), "Excel.PageSetup.LeftHeader = \"Sales\"\n");
    EXPECT_EQ(header(1), "Excel.PageSetup.CenterHeader = \"Sales\"\n");
    for (const std::int32_t alignment : {2, 5, -1, 3, 65536})
        EXPECT_EQ(header(alignment), "Excel.PageSetup.RightHeader = \"Sales\"\n") << alignment;
}

TEST_F(ExcelPreparation, AFooterGoesToTheCentreUnlessItIsToStandLeftOrRight) {
    const auto footer = [&](std::int32_t alignment) {
        return settings_with({named("strFooter", "Sales"), named("lngFooterAlignment", alignment)});
    };
    EXPECT_EQ(footer(0), "Excel.PageSetup.LeftFooter = \"Sales\"\n");
    EXPECT_EQ(footer(2), "Excel.PageSetup.RightFooter = \"Sales\"\n");
    for (const std::int32_t alignment : {1, 5, -1, 3, 65536})
        EXPECT_EQ(footer(alignment), "Excel.PageSetup.CenterFooter = \"Sales\"\n") << alignment;
}

TEST_F(ExcelPreparation, BlankTextsAreNotSetAndOthersKeepTheirBlanks) {
    EXPECT_EQ(settings_with({named("strHeader", "   "), named("strFooter", " ")}), "");
    EXPECT_EQ(settings_with({named("strHeader", "  Sales "), named("strFooter", " Page &P  ")}),
              "Excel.PageSetup.CenterHeader = \"  Sales \"\n"
              "Excel.PageSetup.LeftFooter = \" Page &P  \"\n");
}

TEST_F(ExcelPreparation, AMarginOfZeroOrLessStaysAsItIs) {
    EXPECT_EQ(settings_with({named("dblTopMargin", 0.0), named("dblLeftMargin", -1.0)}), "");
}

TEST_F(ExcelPreparation, AMarginThatIsHardlyThereIsSet) {
    EXPECT_EQ(settings_with({named("dblTopMargin", 0.0001)}),
              "Excel.Application.InchesToPoints(Double(0.0001))\n"
              "Excel.PageSetup.TopMargin = Double(0.0072)\n");
}

TEST_F(ExcelPreparation, TheMarginIsWhatExcelMakesOfTheInches) {
    stage.answer("Excel.Application.InchesToPoints", std::int32_t{17});
    EXPECT_EQ(settings_with({named("dblFooterMargin", 0.5)}),
              "Excel.Application.InchesToPoints(Double(0.5))\n"
              "Excel.PageSetup.FooterMargin = Long(17)\n");
}

TEST_F(ExcelPreparation, AWorksheetIsHandedOnAsItWasGiven) {
    for (const auto& [worksheet, line] :
         {std::pair<Value, const char*>{Value("7"), "Excel.Workbook.Worksheets(\"7\")"},
          {Value(std::int16_t{7}), "Excel.Workbook.Worksheets(Integer(7))"},
          {Value(7.0), "Excel.Workbook.Worksheets(Double(7))"}}) {
        stage.clear_journal();
        call({named("varExcelWorksheet", worksheet)});
        EXPECT_EQ(line_with("Worksheets("), line);
    }
}

TEST_F(ExcelPreparation, AnExcelThatIsNotInstalledIsError429) {
    stage.missing_classes = {"Excel.Application"};
    call();
    expect_journal(R"(
        length C:\in\sales.xls -> 1000
        create Excel.Application
        raise 429 from Foliant: ActiveX component can't create object
    )");
}

TEST_F(ExcelPreparation, AWrongPasswordQuitsExcelAndClosesNothing) {
    make_excel_fail_in("Excel.Workbooks.Open");
    call({named("strPassword", "wrong")});
    tests::expect_text(journal_from("Workbooks.Open"), R"(
        Excel.Workbooks.Open("C:\in\sales.xls", Password:="wrong", WriteResPassword:="")
        Excel.Application.Quit()
        release Excel.Application
        raise -2147352567 from Foliant: Excel cannot do that.
    )");
}

TEST_F(ExcelPreparation, AnUnknownSheetClosesTheWorkbookAndQuitsExcel) {
    make_excel_fail_in("Excel.Workbook.Worksheets");
    call();
    tests::expect_text(journal_from("Worksheets("), R"(
        Excel.Workbook.Worksheets("Sheet1")
        Excel.Workbook.Close(False)
        release Excel.Workbook
        Excel.Application.Quit()
        release Excel.Application
        raise -2147352567 from Foliant: Excel cannot do that.
    )");
}

TEST_F(ExcelPreparation, AlertsStayOffInAnExcelThatIsQuitForAFailure) {
    make_excel_fail_in("Excel.Worksheet.Range");
    call();
    tests::expect_text(journal_from("Range("), R"(
        Excel.Worksheet.Range("A1:F40")
        release Excel.Worksheet
        Excel.Workbook.Close(False)
        release Excel.Workbook
        Excel.Application.Quit()
        release Excel.Application
        raise -2147352567 from Foliant: Excel cannot do that.
    )");
}

TEST_F(ExcelPreparation, AFailingCloseAtTheEndIsTriedAgainBeforeExcelIsQuit) {
    make_excel_fail_in("Excel.Workbook.Close");
    call();
    tests::expect_text(journal_from("Excel.Workbook.Close"), R"(
        Excel.Workbook.Close(False)
        Excel.Workbook.Close(False)
        release Excel.Workbook
        Excel.Application.Quit()
        release Excel.Application
        raise -2147352567 from Foliant: Excel cannot do that.
    )");
}

}  // namespace
}  // namespace foliant::members
