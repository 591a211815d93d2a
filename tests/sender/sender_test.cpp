#include "sender/sender.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "sender/desktop.h"

namespace foliant::sender::test {
namespace {

using testing::Each;
using testing::ElementsAre;
using namespace std::chrono_literals;

constexpr auto save_command = "save pdf file as~Edit~/out/a.pdf~0~0~";
constexpr auto notice_command = "adobe acrobat~Button~~0~0~";
constexpr auto option_command = "password security - settings~Edit~abc^1~0~1~";
constexpr auto tick = "password security - settings~Button~{LM}~0~1~";

Timing at_once() {
    Timing timing;
    timing.settle = 0ms;
    return timing;
}

TEST(Sender, ActsInOneStepWhereDialogsAreCompleteWhenShown) {
    Desktop desktop;
    Sender sender(parse(save_command), at_once());
    EXPECT_EQ(sender.step(desktop), Progress::waiting);
    desktop.show(save_dialog());
    EXPECT_EQ(sender.step(desktop), Progress::acted);
    EXPECT_EQ(desktop.transcript(),
              "0  Save PDF File As: Edit 1 now holds \"/out/a.pdf\"\n0  Save PDF File As: Enter\n");
}

TEST(Sender, ActsOnce) {
    Desktop desktop;
    Sender sender(parse(save_command), at_once());
    desktop.show(save_dialog());
    desktop.show(save_dialog());
    EXPECT_EQ(sender.step(desktop), Progress::acted);
    const std::string once = desktop.transcript();
    EXPECT_EQ(sender.step(desktop), Progress::acted);
    EXPECT_EQ(desktop.transcript(), once);
}

TEST(Sender, RunsUntilItHasActed) {
    Desktop desktop;
    desktop.show_at(30s, save_dialog());
    EXPECT_EQ(Sender(parse(save_command)).run(desktop), ExitCode::acted);
    EXPECT_EQ(desktop.now(), 30200ms);
}

TEST(Sender, GivesUpAfterTenMinutes) {
    Desktop desktop;
    desktop.show(open_dialog());
    EXPECT_EQ(Sender(parse(save_command)).run(desktop), ExitCode::given_up);
    EXPECT_EQ(desktop.now(), 10min);
    EXPECT_EQ(desktop.transcript(), "");
}

TEST(Sender, LooksOnceEvenWithoutTime) {
    Desktop desktop;
    Timing timing = at_once();
    timing.limit = 0ms;
    EXPECT_EQ(Sender(parse(save_command), timing).step(desktop), Progress::given_up);
    desktop.show(save_dialog());
    EXPECT_EQ(Sender(parse(save_command), timing).step(desktop), Progress::acted);
}

TEST(Sender, StaysGivenUp) {
    Desktop desktop;
    Timing timing = at_once();
    timing.limit = 1s;
    Sender sender(parse(save_command), timing);
    EXPECT_EQ(sender.run(desktop), ExitCode::given_up);
    desktop.show(save_dialog());
    EXPECT_EQ(sender.step(desktop), Progress::given_up);
    EXPECT_EQ(desktop.transcript(), "");
}

TEST(Sender, LeavesADialogTimeToFillItselfIn) {
    Desktop desktop;
    const WindowId dialog = desktop.show(save_dialog());
    desktop.set_visible(dialog, false);
    desktop.at(1s, [&] { desktop.set_visible(dialog, true); });
    EXPECT_EQ(Sender(parse(save_command)).run(desktop), ExitCode::acted);
    EXPECT_EQ(desktop.now(), 1200ms);
}

TEST(Sender, ComparesCaptionsWholeAndWithoutCase) {
    Desktop desktop;
    desktop.show(Dialog("Save PDF File As...").edit().default_button("Save"));
    desktop.show(Dialog("My Save PDF File As").edit().default_button("Save"));
    desktop.show(Dialog("").edit().default_button("Save"));
    desktop.show_at(1s, Dialog("SAVE pdf FILE as").edit().default_button("Save"));
    EXPECT_EQ(Sender(parse(save_command)).run(desktop), ExitCode::acted);
    EXPECT_EQ(desktop.transcript(),
              "1200  SAVE pdf FILE as: Edit 1 now holds \"/out/a.pdf\"\n1200  SAVE pdf FILE as: Enter\n");
}

TEST(Sender, WaitsForAControlThatComesLater) {
    Desktop desktop;
    const WindowId dialog = desktop.show(Dialog("Save PDF File As").disabled_edit().default_button("Save"));
    desktop.at(2s, [&] { desktop.set_control_enabled(dialog, "Edit 1", true); });
    EXPECT_EQ(Sender(parse(save_command)).run(desktop), ExitCode::acted);
    EXPECT_EQ(desktop.transcript(),
              "2000  Save PDF File As: Edit 1 now holds \"/out/a.pdf\"\n2000  Save PDF File As: Enter\n");
}

TEST(Sender, EntersAgainWhenTheButtonWasNotReady) {
    Desktop desktop;
    const WindowId dialog = desktop.show(save_dialog());
    desktop.set_control_enabled(dialog, "Save", false);
    desktop.at(300ms, [&] { desktop.set_control_enabled(dialog, "Save", true); });
    EXPECT_EQ(Sender(parse(save_command)).run(desktop), ExitCode::acted);
    EXPECT_EQ(desktop.transcript(), R"(200  Save PDF File As: Edit 1 now holds "/out/a.pdf"
300  Save PDF File As: Edit 1 now holds "/out/a.pdf"
300  Save PDF File As: Enter
)");
}

TEST(Sender, LooksPastAMainWindowThatBearsTheCaption) {
    Desktop desktop;
    desktop.show(notice());
    desktop.show(Dialog("Adobe Acrobat").edit().button("Previous page").button("Next page"));
    EXPECT_EQ(Sender(parse(notice_command)).run(desktop), ExitCode::acted);
    EXPECT_EQ(desktop.transcript(), "200  Adobe Acrobat: button \"OK\" is pressed\n");
}

TEST(Sender, PressesNoButtonInAProgramsFrame) {
    Desktop desktop;
    desktop.show(Dialog("Adobe Acrobat").default_button("Print").box("Open").frame());
    std::vector<Sender> senders = senders_for(
        {"adobe acrobat~Button~~0~0~", "adobe acrobat~Button~{LME}~0~1~", "adobe acrobat~Button~{LM}~0~1~"});
    play(desktop, senders);
    EXPECT_EQ(desktop.transcript(), "");
}

TEST(Sender, AnswersTheNoticeAboveAFrameOfTheSameCaption) {
    Desktop desktop;
    desktop.show_at(1s, notice());
    desktop.show(Dialog("Adobe Acrobat").default_button("Print").frame());
    EXPECT_EQ(Sender(parse(notice_command)).run(desktop), ExitCode::acted);
    EXPECT_EQ(desktop.deeds(), "Adobe Acrobat: button \"OK\" is pressed\n");
}

TEST(Sender, GivesUpWhenWhoeverStartedItHasEnded) {
    Desktop desktop;
    desktop.at(5s, [&] { desktop.end_starter(); });
    desktop.show_at(5s, save_dialog());
    EXPECT_EQ(Sender(parse(save_command)).run(desktop), ExitCode::given_up);
    EXPECT_EQ(desktop.now(), 5s);
    EXPECT_EQ(desktop.transcript(), "");
}

TEST(Sender, LeavesAWindowAloneThatADialogBlocks) {
    Desktop desktop;
    const WindowId blocked = desktop.show(save_dialog());
    desktop.set_enabled(blocked, false);
    desktop.at(1s, [&] { desktop.set_enabled(blocked, true); });
    EXPECT_EQ(Sender(parse(save_command)).run(desktop), ExitCode::acted);
    EXPECT_EQ(desktop.now(), 1200ms);
}

TEST(Sender, TakesTheTopmostDialogFirst) {
    Desktop desktop;
    desktop.show(Dialog("Adobe Acrobat").default_button("below"));
    desktop.show(Dialog("Adobe Acrobat").default_button("above"));
    EXPECT_EQ(Sender(parse(notice_command)).run(desktop), ExitCode::acted);
    EXPECT_EQ(desktop.transcript(), "200  Adobe Acrobat: button \"above\" is pressed\n");
}

TEST(Sender, EndsAtOnceWithFlagBZero) {
    Desktop desktop;
    desktop.show(notice().closing_takes(3s));
    EXPECT_EQ(Sender(parse(notice_command)).run(desktop), ExitCode::acted);
    EXPECT_EQ(desktop.transcript(), "200  Adobe Acrobat: button \"OK\" is pressed\n");
}

TEST(Sender, StaysUntilTheDialogHasClosedWithFlagBOne) {
    Desktop desktop;
    desktop.show(Dialog("Create PDF from Web Page").edit().default_button("Create").closing_takes(3s));
    EXPECT_EQ(Sender(parse("create pdf from web page~Edit~http://localhost/~0~1~")).run(desktop),
              ExitCode::acted);
    EXPECT_EQ(desktop.transcript(), R"(200  Create PDF from Web Page: Edit 1 now holds "http://localhost/"
200  Create PDF from Web Page: Enter
3200  Create PDF from Web Page: has closed
)");
}

TEST(Sender, TellsOfADialogThatItsAnswerDidNotClose) {
    Desktop desktop;
    desktop.show(Dialog("There were errors").default_button("OK").closing_takes(1h));
    EXPECT_EQ(Sender(parse("there were errors~Button~~0~1~")).run(desktop), ExitCode::left_open);
    EXPECT_EQ(desktop.transcript(), "200  There were errors: button \"OK\" is pressed\n");
}

TEST(Sender, TakesAHiddenDialogForAClosedOne) {
    Desktop desktop;
    const WindowId dialog = desktop.show(Dialog("There were errors").default_button("OK").closing_takes(1h));
    desktop.at(1s, [&] { desktop.set_visible(dialog, false); });
    EXPECT_EQ(Sender(parse("there were errors~Button~~0~1~")).run(desktop), ExitCode::acted);
    EXPECT_EQ(desktop.now(), 1s);
}

TEST(Sender, EndsWithTheTickThoughTheDialogStaysOpen) {
    Desktop desktop;
    desktop.show(password_settings());
    EXPECT_EQ(Sender(parse(tick)).run(desktop), ExitCode::acted);
    EXPECT_EQ(desktop.now(), 200ms);
    EXPECT_FALSE(desktop.is_empty());
}

TEST(Sender, TicksAgainWhenTheTickWasOverlooked) {
    Desktop desktop;
    desktop.show(password_settings().overlooks_a_tick());
    EXPECT_EQ(Sender(parse(tick)).run(desktop), ExitCode::acted);
    EXPECT_EQ(
        desktop.transcript(),
        "300  Password Security - Settings: box \"Re&quire a password to open the document\" is ticked\n");
}

TEST(Sender, WaitsForTheOptionToBeTicked) {
    Desktop desktop;
    desktop.show_at(0s, password_settings());
    std::vector<Sender> edit = senders_for({option_command});
    desktop.at(60s, [&] { Sender(parse(tick), at_once()).step(desktop); });
    EXPECT_THAT(play(desktop, edit), ElementsAre(Progress::acted));
    EXPECT_EQ(desktop.transcript(),
              R"(60000  Password Security - Settings: box "Re&quire a password to open the document" is ticked
60000  Password Security - Settings: Edit 1 now holds "abc"
60000  Password Security - Settings: Enter
)");
}

TEST(Sender, LeavesATickedOptionToItsOwnSenderForTwoSeconds) {
    Desktop desktop;
    desktop.show(password_settings(true));
    EXPECT_EQ(Sender(parse(option_command)).run(desktop), ExitCode::acted);
    EXPECT_EQ(desktop.transcript(), R"(2000  Password Security - Settings: Edit 1 now holds "abc"
2000  Password Security - Settings: Enter
)");
}

TEST(Sender, SharesTwoDialogsWithAnotherOfTheSameCaption) {
    Desktop desktop;
    desktop.show(notice().closing_takes(1s).then([](Desktop& next) { next.show(notice()); }));
    std::vector<Sender> senders = senders_for({notice_command, "adobe acrobat~Button~{LME}~0~1~"});
    EXPECT_THAT(play(desktop, senders), Each(Progress::acted));
    EXPECT_EQ(desktop.transcript(), R"(200  Adobe Acrobat: button "OK" is pressed
1200  Adobe Acrobat: has closed
1400  Adobe Acrobat: button "OK" is pressed
)");
}

TEST(Sender, WaitsForItsOwnDialogWhenAnotherHasAnsweredThisOne) {
    Desktop desktop;
    desktop.show(save_dialog().closing_takes(5s));
    std::vector<Sender> senders = senders_for({save_command, save_command});
    EXPECT_THAT(play(desktop, senders), ElementsAre(Progress::acted, Progress::given_up));
    EXPECT_EQ(desktop.deeds(), R"(Save PDF File As: Edit 1 now holds "/out/a.pdf"
Save PDF File As: Enter
Save PDF File As: has closed
)");
}

TEST(Sender, DoesNothingWhenSteppedFromWithinItsOwnCall) {
    Desktop desktop;
    Sender sender(parse(save_command), at_once());
    desktop.show(save_dialog());
    int inner_steps = 0;
    desktop.before_call = [&](int) {
        EXPECT_EQ(sender.step(desktop), Progress::waiting);
        ++inner_steps;
        return false;
    };
    EXPECT_EQ(sender.step(desktop), Progress::acted);
    EXPECT_GT(inner_steps, 3);
    EXPECT_EQ(desktop.deeds(),
              "Save PDF File As: Edit 1 now holds \"/out/a.pdf\"\nSave PDF File As: Enter\n");
}

}  // namespace
}  // namespace foliant::sender::test
