// Reports of databases, which a script writes.

#include <gtest/gtest.h>

#include "end_to_end/command_test.h"

namespace foliant::end_to_end {
namespace {

class AccessToPdf : public CommandTest {
  protected:
    void SetUp() override {
        for (const char* host : {"Access", "Acrobat"})
            REQUIRE_HOST(host);
        ASSERT_EQ(shop.run({"python3", MAKE_DATABASES, shop.folder().string()}).exit_code, 0);
    }
};

TEST_F(AccessToPdf, OneReportWithFilterAndCondition) {
    const Finished call = shop.foliant({"CreatePDFfromAccessReport", "a.pdf", "shop.mdb", "Customers",
                                        "--filter", "Berliners", "--where-condition", "Credit Is Not Null"});
    EXPECT_EQ(call.exit_code, 0) << call.errors;
    EXPECT_EQ(shop.pages("a.pdf"), 1);
    const std::string text = shop.text("a.pdf");
    EXPECT_NE(text.find("Alfreds"), std::string::npos) << text;
    EXPECT_EQ(text.find("Essen"), std::string::npos) << text;
}

TEST_F(AccessToPdf, SeveralReportsOfADatabaseWithAPassword) {
    const Finished call =
        shop.foliant({"CreatePDFfromMultiAccessReport", "a.pdf", "locked.mdb", "--report-names", "Totals",
                      "Active customers", "--password", "open sesame"});
    EXPECT_EQ(call.exit_code, 0) << call.errors;
    EXPECT_EQ(shop.pages("a.pdf"), 2);
    const std::string text = shop.text("a.pdf");
    EXPECT_LT(text.find("Totals"), text.find("Active customers")) << text;
}

TEST_F(AccessToPdf, WhatCannotBePrintedIsToldAndLeavesNothing) {
    expect_failure({"CreatePDFfromAccessReport", "a.pdf", "shop.mdb", "Turnover"},
                   {"no report, table or query \"Turnover\"", "\"Customers\"", "\"Berliners\""});
    expect_failure(
        {"CreatePDFfromAccessReport", "a.pdf", "shop.mdb", "Orders", "--where-condition", "Town = 'x'"},
        {"no column [Town]", "[Article]"});
    expect_failure({"CreatePDFfromAccessReport", "a.pdf", "locked.mdb", "Orders", "--password", "guess"},
                   {"the password is wrong"});
    expect_failure({"CreatePDFfromAccessReport", "a.pdf", "renamed.mdb", "Orders"},
                   {"renamed.mdb", "no Access database"});
    expect_failure({"CreatePDFfromAccessReport", "a.pdf", "damaged.mdb", "Customers"},
                   {"is damaged", "Compact and Repair"});
}

}  // namespace
}  // namespace foliant::end_to_end
