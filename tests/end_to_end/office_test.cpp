// Workbooks, presentations and drawings, made here as text.

#include <gtest/gtest.h>

#include "end_to_end/command_test.h"

namespace foliant::end_to_end {
namespace {

const std::string flat_head =
    R"(<?xml version="1.0" encoding="UTF-8"?><office:document )"
    R"(xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0" )"
    R"(xmlns:table="urn:oasis:names:tc:opendocument:xmlns:table:1.0" )"
    R"(xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0" )"
    R"(xmlns:draw="urn:oasis:names:tc:opendocument:xmlns:drawing:1.0" )"
    R"(xmlns:svg="urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0" office:version="1.2" )";

std::string flat_document(const std::string& kind, const std::string& body) {
    return flat_head + R"(office:mimetype="application/vnd.oasis.opendocument.)" + kind +
           R"("><office:body>)" + body + "</office:body></office:document>";
}

std::string table(const std::string& name) {
    return R"(<table:table table:name=")" + name + R"("><table:table-row><table:table-cell )" +
           R"(office:value-type="string"><text:p>in )" + name +
           "</text:p></table:table-cell></table:table-row></table:table>";
}

std::string page(const std::string& words) {
    return R"(<draw:page draw:name=")" + words + R"("><draw:frame svg:x="2cm" svg:y="2cm" )" +
           R"(svg:width="10cm" svg:height="2cm"><draw:text-box><text:p>)" + words +
           "</text:p></draw:text-box></draw:frame></draw:page>";
}

class OfficeToPdf : public CommandTest {
  protected:
    void SetUp() override {
        for (const char* host : {"Excel", "PowerPoint", "Visio", "Acrobat Distiller"})
            REQUIRE_HOST(host);
        shop.write("prices.csv", "name,price\nApple,1.50\nPear,2.25\n");
        shop.write("book.fods", flat_document("spreadsheet", "<office:spreadsheet>" + table("North") +
                                                                 table("South") + "</office:spreadsheet>"));
        shop.write("talk.fodp", flat_document("presentation", "<office:presentation>" + page("first") +
                                                                  page("second") + "</office:presentation>"));
        shop.write("plan.fodg",
                   flat_document("graphics", "<office:drawing>" + page("ground") + "</office:drawing>"));
    }
};

TEST_F(OfficeToPdf, ARangeOfAWorksheetBothWays) {
    expect_success({"CreatePDFfromExcel", "a.pdf", "prices.csv", "1", "A1:A2", "--header", "on top"});
    expect_success({"CreatePDFfromExcel2", "b.pdf", "prices.csv", "prices", "A1:A2", "--header", "on top"});
    for (const char* pdf : {"a.pdf", "b.pdf"}) {
        EXPECT_EQ(shop.pages(pdf), 1);
        const std::string text = shop.text(pdf);
        for (const char* word : {"on top", "name", "Apple"})
            EXPECT_NE(text.find(word), std::string::npos) << pdf << ": " << text;
        EXPECT_EQ(text.find("Pear"), std::string::npos) << pdf << ": " << text;
    }
}

TEST_F(OfficeToPdf, SeveralWorksheetsBothWays) {
    for (const char* member : {"CreatePDFfromMultiExcel", "CreatePDFfromMultiExcel2"}) {
        expect_success({member, "a.pdf", "book.fods", "--excel-worksheets", "South", "North", "--ranges",
                        "A1", "A1", "--landscape", "False", "True"});
        EXPECT_EQ(shop.pages("a.pdf"), 2) << member;
        const std::string text = shop.text("a.pdf");
        EXPECT_LT(text.find("in South"), text.find("in North")) << member << ": " << text;
        std::filesystem::remove(shop.path("a.pdf"));
    }
}

TEST_F(OfficeToPdf, PostScriptIsTheResultOfItsMembers) {
    expect_success({"CreatePSfromExcel", "a.ps", "prices.csv", "1", "A1:B3"});
    expect_success({"CreatePSfromPowerPoint", "b.ps", "talk.fodp"});
    EXPECT_EQ(shop.read("a.ps").substr(0, 4), "%!PS");
    EXPECT_EQ(shop.read("b.ps").substr(0, 4), "%!PS");
}

TEST_F(OfficeToPdf, UnknownWorksheetsAndRangesAreTold) {
    expect_failure({"CreatePDFfromExcel2", "a.pdf", "book.fods", "West", "A1"},
                   {"no worksheet West", "\"North\", \"South\""});
    expect_failure({"CreatePDFfromExcel", "a.pdf", "book.fods", "North", "everything"},
                   {"\"everything\" is no range of cells"});
}

TEST_F(OfficeToPdf, SlidesBothWays) {
    expect_success({"CreatePDFfromPowerPoint", "a.pdf", "talk.fodp", "--start-slide", "2"});
    EXPECT_EQ(shop.pages("a.pdf"), 1);
    EXPECT_NE(shop.text("a.pdf").find("second"), std::string::npos);
    EXPECT_EQ(shop.page_size("a.pdf"), "447 x 794") << "upright";
    expect_success({"CreatePDFfromPowerPoint2", "b.pdf", "talk.fodp", "--horizontal-orientation"});
    EXPECT_EQ(shop.pages("b.pdf"), 2);
    EXPECT_EQ(shop.page_size("b.pdf"), "793.701 x 446.457") << "lying";
    expect_failure({"CreatePDFfromPowerPoint2", "c.pdf", "talk.fodp", "--start-slide", "3"},
                   {"slides 1 to 2, and no slide 3"});
}

TEST_F(OfficeToPdf, DrawingsThroughThePrinter) {
    expect_success({"CreatePDFfromVisio", "a.pdf", "plan.fodg"});
    EXPECT_NE(shop.text("a.pdf").find("ground"), std::string::npos);
}

TEST_F(OfficeToPdf, EachHostRefusesTheDocumentsOfTheOthers) {
    expect_failure({"CreatePDFfromExcel2", "a.pdf", "talk.fodp", "1", "A1"}, {"talk.fodp", "Excel"});
    expect_failure({"CreatePDFfromPowerPoint2", "a.pdf", "book.fods"}, {"book.fods", "PowerPoint"});
    expect_failure({"CreatePDFfromVisio", "a.pdf", "prices.csv"}, {"prices.csv", "Visio"});
}

}  // namespace
}  // namespace foliant::end_to_end
