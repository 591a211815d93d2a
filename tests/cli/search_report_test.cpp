#include "cli/search_report.h"

#include <algorithm>
#include <gtest/gtest.h>

#include "cli/exit_codes.h"
#include "cli/report.h"
#include "core/dispatch.h"

namespace foliant::cli {
namespace {

const core::Member& member(std::string_view name) {
    return *core::find_member(*core::find_dispid(name), automation::Access::call);
}

const core::Member& search() {
    return member("FindTextInPDF");
}

hosts::FoundText place() {
    return {.page = 3, .left = 72.016, .bottom = 697.25, .right = 99, .top = 709.999, .context = "a line"};
}

TEST(SearchReport, HasALineForEachPlace) {
    Outcome outcome;
    EXPECT_EQ(found_text(outcome), "");
    outcome.found = {place(), place()};
    outcome.found[1].context = "what\nis\x1B[2J odd";
    const std::string text = found_text(outcome);
    EXPECT_TRUE(text.starts_with("page 3 (72.0, 697.2): a line\npage 3 (72.0, 697.2): what")) << text;
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 2) << text;
    EXPECT_EQ(text.find('\x1B'), std::string::npos) << text;
}

TEST(SearchReport, IsPartOfTheReportInJson) {
    Outcome outcome;
    outcome.found = {place()};
    const std::string report = json_report(search(), outcome);
    EXPECT_NE(report.find(R"("found": [
    {
      "page": 3,
      "rectangle": {
        "left": 72.02,
        "bottom": 697.25,
        "right": 99.0,
        "top": 710.0
      },
      "context": "a line"
    }
  ])"),
              std::string::npos)
        << report;
    EXPECT_EQ(json_report(member("CreatePDFfromWord"), outcome).find("found"), std::string::npos);
}

TEST(SearchReport, AFailureNeverEndsAsIfNothingWereFound) {
    Outcome failed;
    fail(failed, {61, "Foliant", "Disk full"});
    ASSERT_EQ(failed.exit_code, 1);
    conclude_search(search(), failed);
    EXPECT_EQ(failed.exit_code, exit_host_failure);
    EXPECT_EQ(failure_code(search()), exit_host_failure);
    EXPECT_EQ(failure_code(member("CreatePDFfromWord")), exit_failure);
}

TEST(SearchReport, WhatIsFoundTellsTheExitCode) {
    Outcome outcome;
    conclude_search(member("CreatePDFfromWord"), outcome);
    EXPECT_EQ(outcome.exit_code, 0);
    conclude_search(search(), outcome);
    EXPECT_EQ(outcome.exit_code, 1);
    outcome = {};
    outcome.found = {place()};
    conclude_search(search(), outcome);
    EXPECT_EQ(outcome.exit_code, 0);
}

}  // namespace
}  // namespace foliant::cli
