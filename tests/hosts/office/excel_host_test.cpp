#include <gtest/gtest.h>

#include "automation/object.h"
#include "automation/value.h"
#include "hosts/module.h"
#include "hosts/office/noting_machine.h"
#include "hosts/office/office_module.h"
#include "hosts/office/pdf_reader.h"
#include "hosts/office/scratch.h"
#include "hosts/process/host_process.h"
#include "support/error_of.h"
#include "support/scratch_folder.h"

namespace foliant::hosts::office {
namespace {

using automation::named;
using automation::Value;
using test::NotingMachine;
using test::office_module;
using test::PdfReader;

class ExcelHost : public testing::Test {
  protected:
    Value open(const std::string& name) { return open_path(test::document(name)); }
    Value open_path(const std::filesystem::path& path, const std::string& password = "") {
        return excel.get("Workbooks")
            .call("Open", {path.string(), named("Password", password), named("WriteResPassword", "")});
    }

    /// What the PDF printer makes of a range.
    PdfReader print(const Value& sheet, const std::string& range) {
        machine.answer = (folder / "out.pdf").string();
        std::filesystem::remove(machine.answer);
        sheet.get("Range", {range}).call("PrintOut", {named("ActivePrinter", "Adobe PDF")});
        return PdfReader(machine.answer);
    }

    automation::Error error_of_opening(const std::string& name) {
        return tests::error_of([&] { open(name); });
    }

    tests::ScratchFolder folder;
    NotingMachine machine;
    process::HostProcess host{{"Excel", "LibreOffice Calc", office_module}, machine};
    Value excel = host.create("Excel.Application");
};

TEST_F(ExcelHost, PrintsToPostScriptInTheOrderOfTheLibrary) {
    const Value workbook = open("sales.xlsx");
    excel.set("DisplayAlerts", false);
    const Value sheet = workbook.get("Worksheets", {"Sales"});
    const Value page = sheet.get("PageSetup");
    page.set("PrintGridlines", true);
    page.set("Orientation", std::int16_t{2});
    page.set("CenterHeader", "Sales &P");
    page.set("LeftFooter", "&F");
    page.set("TopMargin", excel.call("InchesToPoints", {1.5}));
    page.set("FirstPageNumber", std::int32_t{3});
    sheet.get("Range", {"A1:C4"})
        .call("PrintOut",
              {named("Copies", std::int16_t{1}), named("preview", false), named("PrintToFile", true),
               named("Collate", true), named("PrToFilename", (folder / "out.ps").string()),
               named("ActivePrinter", "Adobe PDF")});
    excel.set("DisplayAlerts", true);
    workbook.call("Close", {false});
    excel.call("Quit");
    const std::string postscript = tests::read_file(folder / "out.ps");
    EXPECT_TRUE(postscript.starts_with("%!PS-Adobe-3.0\n"));
    EXPECT_NE(postscript.find("%%Pages: 1\n"), std::string::npos);
}

TEST_F(ExcelHost, PrintsTheRangeAndNothingElse) {
    const Value workbook = open("sales.xlsx");
    const PdfReader pdf = print(workbook.get("Worksheets", {"Sales"}), "A1:B3");
    EXPECT_EQ(pdf.pages(), 1);
    EXPECT_EQ(pdf.text(1), "Region / row 2 / row 3 / North / 2 / 3");
    EXPECT_EQ(pdf.size(1), "612 x 792");
}

TEST_F(ExcelHost, CutsDrawingsOffWhereTheRangeEnds) {
    const Value workbook = open("beam.fods");
    const Value sheet = workbook.get("Worksheets", {"Beam"});
    const Value page = sheet.get("PageSetup");
    page.set("LeftMargin", 36.0);
    page.set("TopMargin", 144.0);
    constexpr double column = 64;  // in points, of LibreOffice's own width
    EXPECT_NEAR(print(sheet, "A1:A1").right_end(1, 140, 220), 36 + column, 2);
    EXPECT_NEAR(print(sheet, "A1:C1").right_end(1, 140, 220), 36 + 3 * column, 2);
}

TEST_F(ExcelHost, PrintsSeveralAreasOnPagesOfTheirOwn) {
    const PdfReader pdf = print(open("sales.xlsx").get("Worksheets", {"Sales"}), "A1:A2,C2:C3");
    ASSERT_EQ(pdf.pages(), 2);
    EXPECT_EQ(pdf.text(1), "Region / row 2");
    EXPECT_EQ(pdf.text(2), "200 / 300");
}

TEST_F(ExcelHost, PrintsWholeColumnsAndRowsAsFarAsThereIsSomething) {
    const Value sheet = open("sales.xlsx").get("Worksheets", {"Sales"});
    const PdfReader columns = print(sheet, "A:A");
    EXPECT_EQ(columns.pages(), 2);
    EXPECT_TRUE(columns.text(2).ends_with("row 100")) << columns.text(2);
    EXPECT_EQ(print(sheet, "1:2").text(1), "Region / row 2 / North / 2 / South / 200");
}

TEST_F(ExcelHost, KnowsNamesOfSeveralAreas) {
    const PdfReader pdf = print(open("stock.xlsx").get("Worksheets", {1}), "Ends");
    ASSERT_EQ(pdf.pages(), 2);
    EXPECT_EQ(pdf.text(1), "Article / nut");
    EXPECT_EQ(pdf.text(2), "5 / 2");
}

TEST_F(ExcelHost, KnowsTablesAndTheirParts) {
    const Value sheet = open("stock.xlsx").get("Worksheets", {1});
    EXPECT_EQ(print(sheet, "stock").text(1), "nut / bolt / A / B / 5 / 2");
    EXPECT_EQ(print(sheet, "Stock[#Headers]").text(1), "Article / Shelf / Pieces");
    EXPECT_EQ(print(sheet, "Stock[pieces]").text(1), "5 / 2");
    EXPECT_TRUE(print(sheet, "Stock[#All]").text(1).starts_with("Article / nut / bolt / Total / "));
    EXPECT_TRUE(print(sheet, "Whole").text(1).starts_with("Article / nut / bolt / Total / "));
    for (const auto& [range, reason] : {std::pair("Stock[Price]", "\"Stock[Price]\" is no part of a table"),
                                        std::pair("Tax", "The name \"Tax\" does not stand for cells"),
                                        std::pair("Stocks", "\"Stocks\" is no range of cells")}) {
        const auto error = tests::error_of([&, range = range] { sheet.get("Range", {range}); });
        EXPECT_NE(error.description().find(reason), std::string::npos) << error.description();
    }
}

TEST_F(ExcelHost, PrintAreaIsWhatTheWorkbookSaysAlsoOfALaterSheet) {
    const Value workbook = open("stock.xlsx");
    EXPECT_EQ(print(workbook.get("Worksheets", {1}), "Print_Area").text(1), "Article / nut");
    EXPECT_EQ(print(workbook.get("Worksheets", {1}), "A2").text(1), "nut");
    EXPECT_EQ(print(workbook.get("Worksheets", {1}), "print_area").text(1), "Article / nut");
    EXPECT_EQ(print(workbook.get("Worksheets", {2}), "Rest!Print_Area").text(1), "more");
    const Value sheet = open("sales.xlsx").get("Worksheets", {"Sales"});
    EXPECT_NE(tests::error_of([&] { sheet.get("Range", {"Print_Area"}); }).number(), 0);
}

TEST_F(ExcelHost, KnowsTheNamesThatTheWorkbookDefines) {
    const Value sheet = open("sales.xlsx").get("Worksheets", {"Sales"});
    EXPECT_EQ(print(sheet, "prices").text(1), "2 / 3 / 4 / 200 / 300 / 400");
    const auto error = tests::error_of([&] { sheet.get("Range", {"Elsewhere"}); });
    EXPECT_EQ(error.number(), 1004);
    EXPECT_NE(error.description().find("another worksheet"), std::string::npos) << error.description();
}

TEST_F(ExcelHost, FindsWorksheetsByNameInAnyCaseAndByNumber) {
    const Value workbook = open("sales.xlsx");
    EXPECT_EQ(workbook.get("Worksheets", {"my NOTES"}).get("Name"), Value("My notes"));
    EXPECT_EQ(workbook.get("Worksheets", {std::int16_t{2}}).get("Name"), Value("My notes"));
    EXPECT_EQ(workbook.get("Worksheets", {"2"}).get("Name"), Value("My notes"));
}

TEST_F(ExcelHost, SaysWhichWorksheetsThereAre) {
    const Value workbook = open("sales.xlsx");
    for (const Value& index : {Value("Costs"), Value(std::int16_t{0}), Value(std::int16_t{4}), Value("9")}) {
        const auto error = tests::error_of([&] { workbook.get("Worksheets", {index}); });
        EXPECT_EQ(error.number(), 9);
        EXPECT_NE(error.description().find("It has \"Sales\", \"My notes\", \"Blank\"."), std::string::npos)
            << error.description();
    }
}

TEST_F(ExcelHost, RefusesWhatIsNoRange) {
    const Value sheet = open("sales.xlsx").get("Worksheets", {"Sales"});
    for (const char* range : {"", "Nothing", "A1:B", "A1,,B2", "'My notes'!A1", "XFE1", "Z:Z"}) {
        const auto error = tests::error_of([&] { sheet.get("Range", {range}); });
        EXPECT_EQ(error.number(), 1004) << range;
        EXPECT_NE(error.description().find("worksheet \"Sales\" of " + test::document("sales.xlsx").string()),
                  std::string::npos)
            << error.description();
    }
    EXPECT_EQ(tests::error_of([&] {
                  open("sales.xlsx").get("Worksheets", {"Blank"}).get("Range", {"A:C"});
              }).number(),
              1004);
}

TEST_F(ExcelHost, LaysThePaper) {
    const Value sheet = open("sales.xlsx").get("Worksheets", {"Sales"});
    const Value page = sheet.get("PageSetup");
    page.set("Orientation", std::int16_t{2});
    EXPECT_EQ(print(sheet, "A1").size(1), "792 x 612");
    page.set("Orientation", std::int16_t{1});
    EXPECT_EQ(print(sheet, "A1").size(1), "612 x 792");
    EXPECT_EQ(tests::error_of([&] { page.set("Orientation", std::int16_t{3}); }).number(), 1004);
}

TEST_F(ExcelHost, PutsHeadersAndFootersWhereExcelDoes) {
    const Value sheet = open("sales.xlsx").get("Worksheets", {"Sales"});
    const Value page = sheet.get("PageSetup");
    page.set("LeftHeader", "&Bleft&B of &N");
    page.set("CenterHeader", "&A");
    page.set("RightHeader", "&F");
    page.set("RightFooter", "Page &P");
    page.set("TopMargin", 108.0);
    page.set("LeftMargin", 36.0);
    page.set("HeaderMargin", 18.0);
    page.set("FooterMargin", 18.0);
    page.set("BottomMargin", 100.0);
    page.set("FirstPageNumber", std::int32_t{41});
    const PdfReader pdf = print(sheet, "A1:A100");
    ASSERT_EQ(pdf.pages(), 3);
    EXPECT_NEAR(pdf.place(1, "Region").top, 108, 4);
    EXPECT_NEAR(pdf.place(1, "Region").left, 36, 3);
    EXPECT_NEAR(pdf.place(1, "left of 3").top, 18, 4);
    EXPECT_NEAR(pdf.place(1, "left of 3").left, 36, 1);
    EXPECT_NEAR(pdf.place(1, "Sales").left, 306, 40);
    EXPECT_GT(pdf.place(1, "sales.xlsx").left, 450);
    EXPECT_NEAR(pdf.place(1, "Page 41").top, 792 - 18 - 12, 5);
    EXPECT_GT(pdf.place(3, "Page 43").left, 450);
}

TEST_F(ExcelHost, PutsTheFolderOfTheWorkbookInAHeaderAsItsUserHasIt) {
    const std::filesystem::path here = folder / "höhe";
    std::filesystem::create_directory(here);
    std::filesystem::copy_file(test::document("sales.xlsx"), here / "s.xlsx");
    const Value sheet = open_path(here / "s.xlsx").get("Worksheets", {"Sales"});
    const Value page = sheet.get("PageSetup");
    page.set("CenterHeader", "&6[&Z]");
    page.set("CenterFooter", "&6[&Z&F]");
    const std::string text = print(sheet, "A1:A2").text(1);
    EXPECT_NE(text.find("[" + here.string() + "/]"), std::string::npos) << text;
    EXPECT_NE(text.find("[" + (here / "s.xlsx").string() + "]"), std::string::npos) << text;
}

TEST_F(ExcelHost, LeavesTheOtherPlacesOfAHeaderAsTheyAre) {
    const Value sheet = open("sales.xlsx").get("Worksheets", {"My notes"});
    sheet.get("PageSetup").set("CenterHeader", "new centre");
    EXPECT_EQ(print(sheet, "A1").text(1), "old left / a note / new centre");
    EXPECT_EQ(sheet.get("PageSetup").get("LeftHeader"), Value("old left"));
    EXPECT_NEAR(print(sheet, "A1").place(1, "a note").top, 72, 4) << "the cells stay where they were";
}

TEST_F(ExcelHost, PutsPartsOfAHeaderWhereTheirCodesSay) {
    const Value sheet = open("sales.xlsx").get("Worksheets", {"Blank"});
    const Value page = sheet.get("PageSetup");
    page.set("CenterHeader", "the middle&R&8at the right&Lat the left");
    EXPECT_EQ(page.get("LeftHeader"), Value("at the left"));
    EXPECT_EQ(page.get("CenterHeader"), Value("the middle"));
    EXPECT_EQ(page.get("RightHeader"), Value("at the right"));
}

TEST_F(ExcelHost, ReadsMarginsBackAsTheyWereSet) {
    const Value page = open("sales.xlsx").get("Worksheets", {"My notes"}).get("PageSetup");
    EXPECT_NEAR(std::get<double>(page.get("TopMargin").storage()), 72, 0.1);
    EXPECT_NEAR(std::get<double>(page.get("HeaderMargin").storage()), 36, 0.1);
    for (const char* margin : {"TopMargin", "LeftMargin", "RightMargin", "BottomMargin"}) {
        page.set(margin, 90.0);
        EXPECT_NEAR(std::get<double>(page.get(margin).storage()), 90, 0.1) << margin;
    }
    for (const double margin : {-1.0, 5000.0})
        EXPECT_EQ(tests::error_of([&] { page.set("TopMargin", margin); }).number(), 1004) << margin;
}

TEST_F(ExcelHost, SetsUpOneSheetAloneWhereSheetsShareAStyle) {
    const Value workbook = open("shared.ods");
    const Value one = workbook.get("Worksheets", {"One"});
    const Value two = workbook.get("Worksheets", {"Two"});
    one.get("PageSetup").set("Orientation", std::int16_t{2});
    one.get("PageSetup").set("CenterHeader", "on top of one");
    EXPECT_EQ(one.get("PageSetup").get("Orientation"), Value(std::int32_t{2}));
    EXPECT_EQ(two.get("PageSetup").get("Orientation"), Value(std::int32_t{1}));
    EXPECT_NE(print(one, "A1").text(1).find("on top of one"), std::string::npos);
    EXPECT_EQ(print(two, "A1").text(1).find("on top of one"), std::string::npos);
}

TEST_F(ExcelHost, RefusesAFirstPageNumberThatNoPageHas) {
    const Value page = open("sales.xlsx").get("Worksheets", {"Sales"}).get("PageSetup");
    for (const std::int32_t number : {0, -1, 32768, 70000})
        EXPECT_EQ(tests::error_of([&] { page.set("FirstPageNumber", number); }).number(), 1004) << number;
    page.set("FirstPageNumber", std::int32_t{32767});
    EXPECT_EQ(page.get("FirstPageNumber"), Value(std::int32_t{32767}));
    page.set("FirstPageNumber", std::int32_t{-4105});
    EXPECT_EQ(page.get("FirstPageNumber"), Value(std::int32_t{-4105}));
}

TEST_F(ExcelHost, ReadsValuesInTextAndAddsNothingToThem) {
    const Value sheet = open("values.csv").get("Worksheets", {std::int16_t{1}});
    EXPECT_EQ(print(sheet, "A1:B2").text(1), "name price / Größe 1,50");
    const Value times =
        open_path(folder.write("times.csv", "from,to\n01:00,TRUE\n")).get("Worksheets", {"1"});
    EXPECT_EQ(print(times, "A1:B2").text(1), "from to / 01:00 TRUE");
}

TEST_F(ExcelHost, ReadsValuesInTextWithAStrayControlCharacter) {
    const Value sheet = open_path(folder.write("stray.csv", "a,b\nc\x16,d\n")).get("Worksheets", {"1"});
    EXPECT_NE(print(sheet, "A1:B2").text(1).find("d"), std::string::npos);
    EXPECT_EQ(
        tests::error_of([&] { open_path(folder.write("noise.csv", "a,b\n\x01\x02\x03,d\n")); }).number(),
        1004);
}

TEST_F(ExcelHost, OpensWhatLibreOfficeHasEncrypted) {
    const auto locked = test::document("locked.ods");
    const Value sheet = open_path(locked, "open sesame").get("Worksheets", {"Secret"});
    EXPECT_NE(print(sheet, "A1").text(1).find("kept from others"), std::string::npos);
    const auto without = tests::error_of([&] { open_path(locked); });
    EXPECT_NE(without.description().find("is encrypted. Give its open password."), std::string::npos);
    const auto wrong = tests::error_of([&] { open_path(locked, "open barley"); });
    EXPECT_NE(wrong.description().find("the password is incorrect"), std::string::npos);
}

TEST(ExcelDates, HaveTheFormOfTheUsersLocale) {
    const tests::ScratchFolder folder;
    NotingMachine machine;
    ::setenv("LC_ALL", "C.UTF-8", 1);
    ::setenv("PAPERSIZE", "a4", 1);
    process::HostProcess host{{"Excel", "LibreOffice Calc", office_module}, machine};
    const Value excel = host.create("Excel.Application");
    ::unsetenv("LC_ALL");
    ::unsetenv("PAPERSIZE");
    machine.answer = (folder / "out.pdf").string();
    excel.get("Workbooks")
        .call("Open", {test::document("dated.xlsx").string()})
        .get("Worksheets", {std::int16_t{1}})
        .get("Range", {"A1"})
        .call("PrintOut", {named("ActivePrinter", "Adobe PDF")});
    const PdfReader pdf(machine.answer);
    EXPECT_EQ(pdf.text(1), "1/13/2012");
    EXPECT_EQ(pdf.size(1), "595 x 842");
}

TEST_F(ExcelHost, RefusesWhatIsNoWorkbook) {
    EXPECT_NE(error_of_opening("none.xlsx").description().find("does not exist"), std::string::npos);
    EXPECT_NE(error_of_opening("prose.xlsx").description().find("it holds plain text"), std::string::npos);
    EXPECT_NE(error_of_opening("noise.xlsx").description().find("of no known kind"), std::string::npos);
    EXPECT_NE(error_of_opening("cut.xlsx").description().find("breaks off"), std::string::npos);
    EXPECT_NE(error_of_opening("empty.xlsx").description().find("it is empty"), std::string::npos);
    EXPECT_NE(error_of_opening("one.docx").description().find("without an Excel or OpenDocument workbook"),
              std::string::npos);
    EXPECT_EQ(error_of_opening("noise.xlsx").number(), 1004);
}

TEST_F(ExcelHost, KnowsNoPrinterThatTheMachineHasNot) {
    const Value range = open("sales.xlsx").get("Worksheets", {"Sales"}).get("Range", {"A1"});
    const auto error =
        tests::error_of([&] { range.call("PrintOut", {named("ActivePrinter", "Lost printer")}); });
    EXPECT_EQ(error.number(), 1004);
    EXPECT_NE(error.description().find("Lost printer"), std::string::npos);
    EXPECT_TRUE(machine.notes.empty());
}

TEST_F(ExcelHost, PrintsOnOtherPrintersAsWell) {
    open("sales.xlsx")
        .get("Worksheets", {"Sales"})
        .get("Range", {"A1"})
        .call("PrintOut", {named("ActivePrinter", "Office")});
    EXPECT_EQ(machine.notes, (std::vector<std::string>{"print sales.xlsx on Office, pages 1"}));
}

TEST_F(ExcelHost, IsGoneOnceItHasQuit) {
    const Value workbook = open("sales.xlsx");
    excel.call("Quit");
    EXPECT_EQ(tests::error_of([&] { workbook.get("Worksheets", {std::int16_t{1}}); }).number(), 1004);
    EXPECT_EQ(tests::error_of([&] { excel.get("Workbooks"); }).number(), 462);
    EXPECT_NO_THROW(excel.call("Quit"));
}

TEST_F(ExcelHost, WritesNoWorkbook) {
    const Value workbook = open("sales.xlsx");
    EXPECT_EQ(tests::error_of([&] { workbook.call("Close", {true}); }).number(), 1004);
    workbook.call("Close", {false});
    EXPECT_EQ(excel.get("Workbooks").get("Count"), Value(std::int32_t{0}));
}

}  // namespace
}  // namespace foliant::hosts::office
