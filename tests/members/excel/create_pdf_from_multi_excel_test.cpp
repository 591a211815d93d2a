#include <gtest/gtest.h>

#include "members/excel/excel_member.h"

namespace foliant::members {
namespace {

using automation::Missing;
using automation::named;
using automation::Null;
using automation::Value;

const tests::MemberCall usual{
    .member = "CreatePDFfromMultiExcel",
    .arrange = put_workbook,
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
    pump messages
    Excel.Workbook.Worksheets(Integer(2))
    Excel.Worksheet.PageSetup
    Excel.PageSetup.PrintGridlines = False
    Excel.PageSetup.Orientation = Integer(2)
    Excel.PageSetup.FirstPageNumber = Long(1)
    look for 90360397 in the current folder
    length C:\Temp\90360397.ps -> not found
    Excel.Worksheet.Range("B2:C9")
    Excel.Range.PrintOut(Copies:=Integer(1), preview:=False, PrintToFile:=True, Collate:=True, PrToFilename:="C:\Temp\90360397.ps", ActivePrinter:="Adobe PDF")
    release Excel.Worksheet
    sleep 2000 ms
    pump messages
    length C:\Temp\90360397.ps -> 1000
    length C:\Temp\90360397.ps -> 1000
    sleep 1000 ms
    length C:\Temp\90360397.ps -> 1000
    Excel.Application.DisplayAlerts = True
    Excel.Workbook.Close(False)
    release Excel.Workbook
    Excel.Application.Quit()
    release Excel.Application
    create text file C:\out\sales.ps
    write C:\out\sales.ps: /prun { /mysave save def
    write C:\out\sales.ps: dup = flush
    write C:\out\sales.ps: RunFile
    write C:\out\sales.ps: clear cleardictstack
    write C:\out\sales.ps: mysave restore
    write C:\out\sales.ps: } def
    write C:\out\sales.ps:
    pump messages
    length C:\Temp\13387663.ps -> 1000
    write C:\out\sales.ps: (C:/Temp/13387663.ps) prun
    pump messages
    length C:\Temp\90360397.ps -> 1000
    write C:\out\sales.ps: (C:/Temp/90360397.ps) prun
    close C:\out\sales.ps
    length C:\out\sales.pdf -> not found
    create Distiller
    listen to Distiller
    Distiller.bShowWindow = False
    Distiller.bSpoolJobs = False
    Distiller.FileToPDF("C:\out\sales.ps", "C:\out\sales.pdf", "")
    event JobStart("C:\out\sales.ps", "C:\out\sales.pdf")
    event PercentDone(Long(100))
    event PageNumber(Long(1))
    event JobDone("C:\out\sales.ps", "C:\out\sales.pdf")
    stop listening to Distiller
    release Distiller
    delete C:\out\sales.ps
    delete C:\Temp\13387663.ps
    delete C:\Temp\90360397.ps
)");

const tests::ParameterProbe parameters({.member = "CreatePDFfromMultiExcel",
                                        .arrange = put_workbook,
                                        .arguments = {named("strPDFFile", "C:\\out\\sales.pdf"),
                                                      named("strExcelWorkbook", "C:\\in\\sales.xls"),
                                                      named("varExcelWorksheets", list_of({"North"})),
                                                      named("varRanges", list_of({"B2:C9"})),
                                                      named("strPassword", "open"),
                                                      named("strWriteResPassword", "write"),
                                                      named("blnUseGrid", true),
                                                      named("varLandscape", list_of({true})),
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
                                                      named("varFirstPageNumber", list_of({"7"})),
                                                      named("strDistiller", " "),
                                                      named("blnShowWindow", true),
                                                      named("blnSpoolJobs", false),
                                                      named("blnApplySecurity", true)}},
                                       {.lines_with = {"Open", "Worksheets(", "PageSetup.", "Range(",
                                                       "PrintOut", "Distiller."},
                                        .expected = R"(
        Excel.Workbooks.Open("C:\in\sales.xls", Password:="open", WriteResPassword:="write")
        Excel.Workbook.Worksheets("North")
        Excel.PageSetup.PrintGridlines = True
        Excel.PageSetup.Orientation = Integer(2)
        Excel.PageSetup.LeftHeader = "Sales"
        Excel.PageSetup.RightFooter = "Page &P"
        Excel.PageSetup.TopMargin = Double(72)
        Excel.PageSetup.LeftMargin = Double(144)
        Excel.PageSetup.RightMargin = Double(216)
        Excel.PageSetup.BottomMargin = Double(288)
        Excel.PageSetup.HeaderMargin = Double(36)
        Excel.PageSetup.FooterMargin = Double(18)
        Excel.PageSetup.FirstPageNumber = Long(7)
        Excel.Worksheet.Range("B2:C9")
        Excel.Range.PrintOut(Copies:=Integer(1), preview:=False, PrintToFile:=True, Collate:=True, PrToFilename:="C:\Temp\13387663.ps", ActivePrinter:="Adobe PDF")
        SecureDistiller.bShowWindow = True
        SecureDistiller.bSpoolJobs = False
        SecureDistiller.FileToPDF2("C:\out\sales.ps", "C:\out\sales.pdf", "", True)
    )",
                                        .flags = R"(
        blnUseGrid:
            - Excel.PageSetup.PrintGridlines = True
            + Excel.PageSetup.PrintGridlines = False
        blnShowWindow:
            - SecureDistiller.bShowWindow = True
            + SecureDistiller.bShowWindow = False
        blnSpoolJobs:
            - SecureDistiller.bSpoolJobs = False
            + SecureDistiller.bSpoolJobs = True
        blnApplySecurity:
            - SecureDistiller.bShowWindow = True
            - SecureDistiller.bSpoolJobs = False
            - SecureDistiller.FileToPDF2("C:\out\sales.ps", "C:\out\sales.pdf", "", True)
            + Distiller.bShowWindow = True
            + Distiller.bSpoolJobs = False
            + Distiller.FileToPDF("C:\out\sales.ps", "C:\out\sales.pdf", "")
    )",
                                        .written = {{"strDistiller", "Adobe PDF"}}});

class CreatePDFfromMultiExcel : public ExcelMember {
  protected:
    CreatePDFfromMultiExcel() : ExcelMember(usual) {}

    /// What comes once the workbook is open.
    tests::Lines after_opening() const { return journal_from("DisplayAlerts = False"); }

    /// That nothing is done with the open workbook but to raise that error.
    void expect_only(std::string_view error) {
        tests::expect_text(after_opening(),
                           "Excel.Application.DisplayAlerts = False\n"
                           "Excel.Workbook.Close(False)\n"
                           "release Excel.Workbook\n"
                           "Excel.Application.Quit()\n"
                           "release Excel.Application\n"
                           "raise " +
                               std::string(error));
    }
};

TEST_F(CreatePDFfromMultiExcel, AMissingWorkbookIsSaidBeforeExcelIsStarted) {
    stage.files.clear();
    call();
    expect_journal(R"(
        length C:\in\sales.xls -> not found
        raise -2147467008 from Foliant: File C:\in\sales.xls does not exist.
    )");
}

TEST_F(CreatePDFfromMultiExcel, EachSheetHasItsOwnFirstPageNumber) {
    call({named("varFirstPageNumber", list_of({"3", 7.0}))});
    tests::expect_text(lines_with({"FirstPageNumber"}), R"(
        Excel.PageSetup.FirstPageNumber = Long(3)
        Excel.PageSetup.FirstPageNumber = Long(7)
    )");
}

TEST_F(CreatePDFfromMultiExcel, EverySheetHasTheSameHeaderFooterAndMargins) {
    call({named("strHeader", "Sales"), named("strFooter", "&P"), named("dblTopMargin", 1.0)});
    tests::expect_text(lines_with({"CenterHeader", "LeftFooter", ".TopMargin"}), R"(
        Excel.PageSetup.CenterHeader = "Sales"
        Excel.PageSetup.LeftFooter = "&P"
        Excel.PageSetup.TopMargin = Double(72)
        Excel.PageSetup.CenterHeader = "Sales"
        Excel.PageSetup.LeftFooter = "&P"
        Excel.PageSetup.TopMargin = Double(72)
    )");
}

TEST_F(CreatePDFfromMultiExcel, ListsThatBeginAtOneHandOnAnEmptyElementZero) {
    call({named("varExcelWorksheets", list_of({"North", "South"}, 1)),
          named("varRanges", list_of({"A1", "A2"}, 1)), named("varLandscape", list_of({false, false}, 1))});
    tests::expect_text(journal_between("write C:\\out\\sales.ps: } def", "close"), R"(
        write C:\out\sales.ps: } def
        write C:\out\sales.ps:
        pump messages
        length  -> not found
        pump messages
        length C:\Temp\13387663.ps -> 1000
        write C:\out\sales.ps: (C:/Temp/13387663.ps) prun
        pump messages
        length C:\Temp\90360397.ps -> 1000
        write C:\out\sales.ps: (C:/Temp/90360397.ps) prun
        close C:\out\sales.ps
    )");
    tests::expect_text(lines_with({"delete"}), R"(
        delete C:\out\sales.ps
        delete C:\Temp\13387663.ps
        delete C:\Temp\90360397.ps
    )");
}

TEST_F(CreatePDFfromMultiExcel, WithoutLandscapeTheFirstSheetFailsWhereItIsTurned) {
    call({named("varLandscape", Missing{})});
    tests::expect_text(after_opening(), R"(
        Excel.Application.DisplayAlerts = False
        pump messages
        Excel.Workbook.Worksheets("North")
        Excel.Worksheet.PageSetup
        Excel.PageSetup.PrintGridlines = False
        release Excel.Worksheet
        Excel.Workbook.Close(False)
        release Excel.Workbook
        Excel.Application.Quit()
        release Excel.Application
        raise 13 from Foliant: Type mismatch
    )");
}

TEST_F(CreatePDFfromMultiExcel, ASheetLiesAcrossForAnythingThatIsTrueAndStandsUprightForNothing) {
    const auto orientation = [&](const Value& landscape) {
        stage.clear_journal();
        call({named("varExcelWorksheets", list_of({"North"})), named("varLandscape", list_of({landscape}))});
        return line_with("Orientation");
    };
    for (const Value& yes : {Value(true), Value(std::int16_t{1}), Value(-0.5), Value("True"), Value("7")})
        EXPECT_EQ(orientation(yes), "Excel.PageSetup.Orientation = Integer(2)");
    for (const Value& no : {Value(false), Value(std::int32_t{0}), Value("false"), Value(), Value(Null{})})
        EXPECT_EQ(orientation(no), "Excel.PageSetup.Orientation = Integer(1)");
}

TEST_F(CreatePDFfromMultiExcel, AnOrientationThatIsNeitherTrueNorFalseIsATypeMismatch) {
    for (const Value& neither : {Value("across"), Value(Missing{}), list_of({true})}) {
        stage.clear_journal();
        call({named("varLandscape", list_of({neither}))});
        EXPECT_EQ(last_line(), "raise 13 from Foliant: Type mismatch");
    }
}

TEST_F(CreatePDFfromMultiExcel, AListOfOrientationsThatIsTooShortFailsAtItsEnd) {
    call({named("varLandscape", list_of({true}))});
    EXPECT_EQ(last_line(), "raise 9 from Foliant: Subscript out of range");
    EXPECT_EQ(lines_with({"PrintOut"}).size(), 1);
}

TEST_F(CreatePDFfromMultiExcel, ARangeThatIsMissingFailsWhereItIsPrinted) {
    call({named("varRanges", list_of({"A1"}))});
    tests::expect_text(journal_from("length C:\\Temp\\90360397.ps"), R"(
        length C:\Temp\90360397.ps -> not found
        release Excel.Worksheet
        Excel.Workbook.Close(False)
        release Excel.Workbook
        Excel.Application.Quit()
        release Excel.Application
        raise 9 from Foliant: Subscript out of range
    )");
}

TEST_F(CreatePDFfromMultiExcel, FirstPageNumbersAreReadFromIndexZeroOn) {
    const Value from_one = list_of({"North", "South"}, 1);
    const automation::Arguments lists{named("varExcelWorksheets", from_one), named("varRanges", from_one),
                                      named("varLandscape", list_of({true, true}, 1))};
    automation::Arguments with_numbers = lists;
    with_numbers.push_back(
        named("varFirstPageNumber", list_of({std::int32_t{4}, std::int32_t{5}, std::int32_t{6}})));
    call(with_numbers);
    tests::expect_text(lines_with({"FirstPageNumber"}), R"(
        Excel.PageSetup.FirstPageNumber = Long(5)
        Excel.PageSetup.FirstPageNumber = Long(6)
    )");
    stage.clear_journal();
    with_numbers.back() = named("varFirstPageNumber", list_of({std::int32_t{5}, std::int32_t{6}}, 1));
    call(with_numbers);
    expect_only("9 from Foliant: Subscript out of range");
}

TEST_F(CreatePDFfromMultiExcel, TooFewFirstPageNumbersFailBeforeAnySheetIsPrinted) {
    call({named("varFirstPageNumber", list_of({std::int32_t{5}}))});
    expect_only("9 from Foliant: Subscript out of range");
}

TEST_F(CreatePDFfromMultiExcel, AFirstPageNumberThatIsNoNumberFailsBeforeAnySheetIsPrinted) {
    call({named("varFirstPageNumber", list_of({std::int32_t{5}, "six"}))});
    expect_only("13 from Foliant: Type mismatch");
}

TEST_F(CreatePDFfromMultiExcel, FirstPageNumbersThatAreNoArrayFailBeforeAnySheetIsPrinted) {
    for (const Value& no_array : {Value(std::int32_t{5}), Value(), Value(Null{}), Value("1")}) {
        stage.clear_journal();
        call({named("varFirstPageNumber", no_array)});
        expect_only("13 from Foliant: Type mismatch");
    }
}

TEST_F(CreatePDFfromMultiExcel, FirstPageNumbersAreHeldInThirtyTwoBits) {
    call({named("varFirstPageNumber", list_of({std::int32_t{70000}, 2147483647.0}))});
    tests::expect_text(lines_with({"FirstPageNumber"}), R"(
        Excel.PageSetup.FirstPageNumber = Long(70000)
        Excel.PageSetup.FirstPageNumber = Long(2147483647)
    )");
    stage.clear_journal();
    call({named("varFirstPageNumber", list_of({std::int32_t{1}, 2147483648.0}))});
    expect_only("6 from Foliant: Overflow");
    stage.clear_journal();
    call({named("varFirstPageNumber", list_of({std::int32_t{1}, Null{}}))});
    expect_only("94 from Foliant: Invalid use of Null");
}

TEST_F(CreatePDFfromMultiExcel, WorksheetsThatAreNoArrayFailOnceTheWorkbookIsOpen) {
    call({named("varExcelWorksheets", "North")});
    expect_only("13 from Foliant: Type mismatch");
}

TEST_F(CreatePDFfromMultiExcel, WithoutAnyWorksheetThereIsNoTableOfFirstPages) {
    call({named("varExcelWorksheets", list_of({}))});
    expect_only("9 from Foliant: Subscript out of range");
}

TEST_F(CreatePDFfromMultiExcel, ASheetBelowIndexZeroHasNoFirstPageNumber) {
    call({named("varExcelWorksheets", list_of({"North", "South"}, -1)),
          named("varRanges", list_of({"A1", "A2"}, -1)), named("varLandscape", list_of({true, true}, -1))});
    tests::expect_text(journal_from("Orientation"), R"(
        Excel.PageSetup.Orientation = Integer(2)
        release Excel.Worksheet
        Excel.Workbook.Close(False)
        release Excel.Workbook
        Excel.Application.Quit()
        release Excel.Application
        raise 9 from Foliant: Subscript out of range
    )");
}

TEST_F(CreatePDFfromMultiExcel, MoreSheetsThanASixteenBitCounterCountsAreAnOverflow) {
    call({named("varExcelWorksheets", list_of(std::vector<Value>(32769, Value("North"))))});
    expect_only("6 from Foliant: Overflow");
}

TEST_F(CreatePDFfromMultiExcel, TemporaryFilesOfAFailedCallStay) {
    make_excel_fail_in("Excel.Workbook.Close");
    call();
    EXPECT_EQ(stage.journal().find("delete"), std::string::npos);
    EXPECT_TRUE(stage.files.contains("C:\\Temp\\13387663.ps"));
}

TEST_F(CreatePDFfromMultiExcel, ATemporaryFileThatIsGoneAtTheEndIsAFailure) {
    stage.when("Distiller.FileToPDF", [](platform::stage::StageObject& self, const automation::Arguments&) {
        self.stage().files.erase("C:\\Temp\\13387663.ps");
        return Value(std::int16_t{1});
    });
    call();
    tests::expect_text(journal_from("delete"), R"(
        delete C:\out\sales.ps
        delete C:\Temp\13387663.ps
        raise 53 from Foliant: File not found
    )");
}

// Passed over by rule: what CreatePDFfromExcel passes over. An input that does not seem to exist is left out
// of the driver file, which whoever opened it closes.

const tests::MemberFaults faults({.member = "CreatePDFfromMultiExcel",
                                  .arrange = put_workbook_and_old_output,
                                  .arguments = {"C:\\out\\sales.pdf", "C:\\in\\sales.xls", list_of({"North"}),
                                                list_of({"A1"}), named("varLandscape", list_of({false}))}},
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
    fails: pump messages
    fails: Excel.Workbook.Worksheets("North")
        let Excel go
        raise the failure
    fails: Excel.Worksheet.PageSetup
    fails: Excel.PageSetup.PrintGridlines = False
    fails: Excel.PageSetup.Orientation = Integer(1)
    fails: Excel.PageSetup.FirstPageNumber = Long(1)
        release Excel.Worksheet
        let Excel go
        raise the failure
    fails: look for 13387663 in the current folder
    fails: length C:\Temp\13387663.ps
        go on
    fails: Excel.Worksheet.Range("A1")
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
    fails: create text file C:\out\sales.ps
        raise the failure
    fails: write C:\out\sales.ps: /prun { /mysave save def
    fails: write C:\out\sales.ps: dup = flush
    fails: write C:\out\sales.ps: RunFile
    fails: write C:\out\sales.ps: clear cleardictstack
    fails: write C:\out\sales.ps: mysave restore
    fails: write C:\out\sales.ps: } def
    fails: write C:\out\sales.ps:
    fails: pump messages
        close C:\out\sales.ps
        raise the failure
    fails: length C:\Temp\13387663.ps
        go on, but
        - write C:\out\sales.ps: (C:/Temp/13387663.ps) prun
    fails: write C:\out\sales.ps: (C:/Temp/13387663.ps) prun
    fails: close C:\out\sales.ps
        close C:\out\sales.ps
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
    fails: Distiller.FileToPDF("C:\out\sales.ps", "C:\out\sales.pdf", "")
        let Distiller go
        raise the failure
    fails: delete C:\out\sales.ps
    fails: delete C:\Temp\13387663.ps
        raise the failure
)"});

}  // namespace
}  // namespace foliant::members
