#include "cli/option_names.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

#include "core/dispatch.h"
#include "core/members.h"

namespace foliant::cli {
namespace {

TEST(OptionNames, AreTheWordsOfTheParameterWithoutItsTypePrefix) {
    EXPECT_EQ(option_name("blnLandscape"), "landscape");
    EXPECT_EQ(option_name("lngFirstPageNumber"), "first-page-number");
    EXPECT_EQ(option_name("strPDFFile"), "pdf-file");
    EXPECT_EQ(option_name("strDWGFile"), "dwg-file");
    EXPECT_EQ(option_name("intSecsToWaitForPDF"), "secs-to-wait-for-pdf");
    EXPECT_EQ(option_name("strURL"), "url");
    EXPECT_EQ(option_name("inet"), "inet");
    EXPECT_EQ(placeholder("strWordDocument"), "WORD_DOCUMENT");
}

TEST(OptionNames, OfTheUsageStandWhereAPlaceAloneDoesNotDo) {
    const auto usage_of = [](std::string_view name) {
        return usage_line(*std::ranges::find(core::members, name, &core::Member::name));
    };
    EXPECT_EQ(usage_of("CreatePDFfromMultiPS"), "foliant CreatePDFfromMultiPS PDF_FILE PS_FILES ...");
    EXPECT_EQ(usage_of("SetOpenPassword"), "foliant SetOpenPassword PDF_FILE --open-password OPEN_PASSWORD");
    EXPECT_EQ(
        usage_of("CreatePDFfromMultiExcel"),
        "foliant CreatePDFfromMultiExcel PDF_FILE EXCEL_WORKBOOK --excel-worksheets EXCEL_WORKSHEETS ... "
        "--ranges RANGES ...");
}

TEST(OptionNames, OfWhatAMemberCannotDoWithoutAreInItsOrder) {
    const auto order = [](std::string_view name) {
        return usage_line(*core::find_member(*core::find_dispid(name), automation::Access::call));
    };
    EXPECT_EQ(order("CreatePDFfromAutoCAD"),
              "foliant CreatePDFfromAutoCAD PDF_FILE DWG_FILE --layout LAYOUT");
    EXPECT_EQ(order("CreatePDFfromMultiAutoCAD"),
              "foliant CreatePDFfromMultiAutoCAD PDF_FILE DWG_FILE LAYOUTS ...");
}

TEST(OptionNames, DifferWithinEachMemberAndFromTheCommonOptions) {
    for (const core::Member& member : core::members) {
        std::set<std::string> names{"json", "quiet", "timeout", "temp-path", "help", "version"};
        for (const core::Parameter& parameter : member.parameters()) {
            EXPECT_TRUE(names.insert(option_name(parameter.name)).second)
                << member.name << " " << parameter.name;
        }
    }
}

}  // namespace
}  // namespace foliant::cli
