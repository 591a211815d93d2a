#include "cli/report.h"

#include <gtest/gtest.h>

#include "core/dispatch.h"

namespace foliant::cli {
namespace {

using automation::Access;
using automation::named;

const core::Member& word() {
    return *core::find_member(*core::find_dispid("CreatePDFfromWord"), Access::call);
}

Outcome an_outcome() {
    Outcome outcome;
    outcome.arguments = {named("strPDFFile", "a.pdf"), named("strPassword", "hidden"),
                         named("strDistiller", "Adobe PDF")};
    outcome.events = {{"JobStart", {"a.ps", "a.pdf"}}, {"PageNumber", {std::int32_t{1}}}};
    return outcome;
}

TEST(Report, JsonHoldsEverythingButPasswords) {
    EXPECT_EQ(json_report(word(), an_outcome()), R"({
  "member": "CreatePDFfromWord",
  "result": null,
  "arguments": {
    "strPDFFile": "a.pdf",
    "strPassword": "***",
    "strDistiller": "Adobe PDF"
  },
  "events": [
    {
      "name": "JobStart",
      "arguments": [
        "a.ps",
        "a.pdf"
      ]
    },
    {
      "name": "PageNumber",
      "arguments": [
        1
      ]
    }
  ],
  "output": null,
  "leftOut": [],
  "error": null,
  "exitCode": 0
}
)");
}

TEST(Report, JsonOfAFailureHasNumberSourceAndDescription) {
    const std::string report = json_error(&word(), {53, "Foliant", "File not found"}, 1);
    EXPECT_NE(report.find("\"number\": 53"), std::string::npos);
    EXPECT_NE(report.find("\"source\": \"Foliant\""), std::string::npos);
    EXPECT_NE(report.find("\"exitCode\": 1"), std::string::npos);
}

const automation::Error a_missing_engine(429, "", "Acrobat's engine is not installed: install libqpdf");
const automation::Error a_sentence_for_it(-2147467008, "Foliant", "Can't open file a.pdf.",
                                          std::make_shared<const automation::Error>(a_missing_engine));

TEST(Report, BehindASentenceThatStandsForAnyFailureItSaysWhatFailed) {
    EXPECT_EQ(error_text(a_missing_engine), "foliant: Acrobat's engine is not installed: install libqpdf\n");
    EXPECT_EQ(error_text(a_sentence_for_it),
              "foliant: Can't open file a.pdf.\n"
              "  Acrobat's engine is not installed: install libqpdf\n");
}

TEST(Report, JsonOfSuchAFailureHoldsItsCause) {
    EXPECT_NE(json_error(&word(), a_sentence_for_it, 4).find(R"(
    "description": "Can't open file a.pdf.",
    "cause": {
      "number": 429,
      "source": "",
      "description": "Acrobat's engine is not installed: install libqpdf"
    }
  },
  "exitCode": 4)"),
              std::string::npos);
    EXPECT_EQ(json_error(&word(), a_missing_engine, 4).find("cause"), std::string::npos);
}

TEST(Report, BytesThatAreNoTextDoNotStopTheReport) {
    Outcome outcome;
    outcome.result = automation::Value(std::string("a\xFF"));
    EXPECT_NE(json_report(word(), outcome).find("a\xEF\xBF\xBD"), std::string::npos);
}

TEST(Report, ResultsAreOneLineAndNothingForNone) {
    Outcome outcome;
    EXPECT_EQ(result_text(outcome, false), "");
    outcome.result = "Adobe PDF";
    EXPECT_EQ(result_text(outcome, false), "Adobe PDF\n");
    outcome.result = "a\x1B[2J";
    EXPECT_EQ(result_text(outcome, false), "a\x1B[2J\n");
    EXPECT_EQ(result_text(outcome, true), "a\\x1B[2J\n");
}

TEST(Report, TheClosingLineTellsPagesAndSize) {
    Outcome outcome = an_outcome();
    EXPECT_EQ(closing_line(outcome), "");
    outcome.made = {"a.pdf", 1000, 1};
    EXPECT_EQ(closing_line(outcome), "Wrote a.pdf (1 page, 1000 bytes)\n");
    outcome.made = {"a.pdf", 2500000, std::nullopt};
    EXPECT_EQ(closing_line(outcome), "Wrote a.pdf (2.4 MiB)\n");
    fail(outcome, not_made("a.pdf"));
    EXPECT_EQ(closing_line(outcome), "");
}

TEST(Report, JsonTellsWhatWasMadeAndWhatWasLeftOut) {
    Outcome outcome = an_outcome();
    outcome.made = {"a.pdf", 1000, 12};
    outcome.left_out = {"b.ps does not exist, and was left out."};
    const std::string report = json_report(word(), outcome);
    EXPECT_NE(report.find(R"(  "output": {
    "file": "a.pdf",
    "pages": 12,
    "bytes": 1000
  },
  "leftOut": [
    "b.ps does not exist, and was left out."
  ],)"),
              std::string::npos)
        << report;
}

}  // namespace
}  // namespace foliant::cli
