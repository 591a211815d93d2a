#include "engines/acrobat_windows.h"

#include <gtest/gtest.h>

#include "automation/error.h"
#include "support/staged_session.h"

namespace foliant::engines {
namespace {

using automation::Error;
using automation::RuntimeError;

const std::string target = "C:\\out\\Report.PDF";

class AcrobatWindows : public tests::StagedSession {};

// Caption keys.

TEST(CaptionKey, OfAFileIsItsLowerCaseNameUpToTheFirstDot) {
    EXPECT_EQ(caption_key_of_file("C:\\Out\\Report.PDF", '\\'), "[report.pdf]");
    EXPECT_EQ(caption_key_of_file("Report.PDF", '\\'), "[report.pdf]");
    EXPECT_EQ(caption_key_of_file("C:\\In\\Letter.DOC", '\\'), "[letter.pdf]");
    EXPECT_EQ(caption_key_of_file("C:\\Out\\q1.sales.pdf", '\\'), "[q1.pdf]");
    EXPECT_EQ(caption_key_of_file("C:\\Out.dir\\report", '\\'), "[pdf]");
    EXPECT_EQ(caption_key_of_file("C:\\Out\\.pdf", '\\'), "[.pdf]");
    EXPECT_EQ(caption_key_of_file("/out/Report.PDF", '/'), "[report.pdf]");
}

TEST(CaptionKey, OfAPageIsItsAddressWithASlashBehindItWhateverItEndsIn) {
    EXPECT_EQ(caption_key_of_page("http://www.Example.com"), "[http://www.Example.com/]");
    EXPECT_EQ(caption_key_of_page("http://www.example.com/"), "[http://www.example.com//]");
}

// Closing the window of a document.

TEST_F(AcrobatWindows, TheViewersWindowIsClosedWhenItIsFound) {
    stage.windows["Adobe Acrobat - [Report.pdf]"] = 0;
    close_acrobat_window(session(), target);
    expect_journal(R"(
        pump messages
        find window "adobe acrobat - [report.pdf]" -> found
        send WM_CLOSE (0, "0") to "Adobe Acrobat - [Report.pdf]"
    )");
}

TEST_F(AcrobatWindows, TheProfessionalEditionIsLookedForSecond) {
    stage.windows["Adobe Acrobat Professional - [Report.pdf]"] = 0;
    close_acrobat_window(session(), target);
    expect_journal(R"(
        pump messages
        find window "adobe acrobat - [report.pdf]" -> none
        find window "adobe acrobat professional - [report.pdf]" -> found
        send WM_CLOSE (0, "0") to "Adobe Acrobat Professional - [Report.pdf]"
    )");
}

TEST_F(AcrobatWindows, OneWindowIsClosedWhenBothAreThere) {
    stage.windows["Adobe Acrobat - [Report.pdf]"] = 0;
    stage.windows["Adobe Acrobat Professional - [Report.pdf]"] = 0;
    close_acrobat_window(session(), target);
    EXPECT_TRUE(stage.windows.contains("Adobe Acrobat Professional - [Report.pdf]"));
    EXPECT_FALSE(stage.windows.contains("Adobe Acrobat - [Report.pdf]"));
}

TEST_F(AcrobatWindows, TheSearchEndsSilentlyAfterFifteenSeconds) {
    stage.pump_takes = 5000;
    run([&] { close_acrobat_window(session(), target); });
    // The last round begins when exactly fifteen seconds have passed, which is not past the deadline.
    expect_journal(R"(
        pump messages
        find window "adobe acrobat - [report.pdf]" -> none
        find window "adobe acrobat professional - [report.pdf]" -> none
        pump messages
        find window "adobe acrobat - [report.pdf]" -> none
        find window "adobe acrobat professional - [report.pdf]" -> none
        pump messages
        find window "adobe acrobat - [report.pdf]" -> none
        find window "adobe acrobat professional - [report.pdf]" -> none
        pump messages
        find window "adobe acrobat - [report.pdf]" -> none
        find window "adobe acrobat professional - [report.pdf]" -> none
    )");
}

TEST_F(AcrobatWindows, AWindowThatComesLateIsClosed) {
    stage.pump_takes = 1000;
    stage.windows["Adobe Acrobat - [Report.pdf]"] = 14000;
    close_acrobat_window(session(), target);
    EXPECT_EQ(stage.now, 14000U);
    EXPECT_TRUE(stage.windows.empty());
}

TEST_F(AcrobatWindows, ATargetWithTwoDotsIsNeverFound) {
    stage.pump_takes = 1000;
    stage.windows["Adobe Acrobat - [q1.sales.pdf]"] = 0;
    close_acrobat_window(session(), "C:\\out\\q1.sales.pdf");
    EXPECT_EQ(stage.now, 16000U);
    EXPECT_FALSE(stage.windows.empty());
}

TEST_F(AcrobatWindows, ASearchOverMidnightRunsOnUntilTheWindowComes) {
    stage.midnight_offset_seconds = 86395;
    stage.pump_takes = 1000;
    stage.windows["Adobe Acrobat - [Report.pdf]"] = 3'600'000;
    close_acrobat_window(session(), target);
    EXPECT_EQ(stage.now, 3'600'000U);
    EXPECT_TRUE(stage.windows.empty());
}

// Waiting for a window.

TEST_F(AcrobatWindows, AWindowThatIsThereEndsTheWaitAtOnce) {
    stage.windows["Adobe Acrobat - [letter.pdf]"] = 0;
    EXPECT_TRUE(wait_for_acrobat_window(session(), "[letter.pdf]"));
    expect_journal(R"(
        pump messages
        find window "adobe acrobat - [letter.pdf]" -> found
    )");
}

TEST_F(AcrobatWindows, TheWaitLooksForTheProfessionalEditionSecond) {
    stage.windows["Adobe Acrobat Professional - [letter.pdf]"] = 0;
    EXPECT_TRUE(wait_for_acrobat_window(session(), "[letter.pdf]"));
    expect_journal(R"(
        pump messages
        find window "adobe acrobat - [letter.pdf]" -> none
        find window "Adobe Acrobat Professional - [letter.pdf]" -> found
    )");
}

TEST_F(AcrobatWindows, AWaitWithALimitEndsWhenTheTimerIsPastIt) {
    stage.pump_takes = 60'000;
    EXPECT_FALSE(wait_for_acrobat_window(session(), "[http://x/]", 120.0F));
    // When exactly 120 seconds have passed, the timer is not past the limit.
    expect_journal(R"(
        pump messages
        find window "adobe acrobat - [http://x/]" -> none
        find window "Adobe Acrobat Professional - [http://x/]" -> none
        pump messages
        find window "adobe acrobat - [http://x/]" -> none
        find window "Adobe Acrobat Professional - [http://x/]" -> none
        pump messages
        find window "adobe acrobat - [http://x/]" -> none
        find window "Adobe Acrobat Professional - [http://x/]" -> none
    )");
}

TEST_F(AcrobatWindows, AWindowThatComesWithTheLastLookIsFound) {
    stage.pump_takes = 60'000;
    stage.windows["Adobe Acrobat - [http://x/]"] = 180'000;
    EXPECT_TRUE(wait_for_acrobat_window(session(), "[http://x/]", 120.0F));
}

TEST_F(AcrobatWindows, AWaitWithoutALimitHasNone) {
    session();
    stage.pump_takes = 60'000;
    int rounds = 0;
    stage.on_pump = [&] {
        if (++rounds == 5000) throw Error(RuntimeError::internal_error, "the test has seen enough");
    };
    run([&] { wait_for_acrobat_window(session(), "[letter.pdf]"); });
    EXPECT_EQ(rounds, 5000);
    EXPECT_EQ(last_line(), "raise 51 from : the test has seen enough");
}

// Closing the main windows.

TEST_F(AcrobatWindows, BothEditionsAreClosed) {
    stage.windows["Adobe Acrobat"] = 0;
    stage.windows["Adobe Acrobat Professional"] = 0;
    close_acrobat_main_windows(session());
    expect_journal(R"(
        find window "adobe acrobat" -> found
        send WM_CLOSE (0, "0") to "Adobe Acrobat"
        find window "adobe acrobat professional" -> found
        send WM_CLOSE (0, "0") to "Adobe Acrobat Professional"
    )");
}

TEST_F(AcrobatWindows, AMainWindowThatIsNotThereIsNotWaitedFor) {
    close_acrobat_main_windows(session());
    expect_journal(R"(
        find window "adobe acrobat" -> none
        find window "adobe acrobat professional" -> none
    )");
}

}  // namespace
}  // namespace foliant::engines
