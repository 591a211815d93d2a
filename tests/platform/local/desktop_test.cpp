#include "platform/local/desktop.h"

#include <chrono>
#include <gtest/gtest.h>

#include "automation/error.h"
#include "sender/command.h"
#include "support/error_of.h"

namespace foliant::platform::local::test {
namespace {

hosts::Control edit(const std::string& text = "") {
    return {"Edit", "", text, true, false, false};
}

hosts::Control button(const std::string& caption, bool is_default = false) {
    return {"Button", caption, "", true, false, is_default};
}

hosts::Control check_box(const std::string& caption) {
    return {"Button", caption, "", true, false, false, true};
}

hosts::Dialog save_dialog() {
    return {"Save PDF File As", {edit("document1.pdf"), button("&Save", true), button("Cancel")}, {}, false};
}

hosts::Dialog notice() {
    return {"Adobe PDF - Security", {button("Help"), button("OK", true)}, {}, false};
}

using tests::failure;

class DesktopTest : public testing::Test {
  protected:
    void start(const std::string& tail) { desktop.start_sender(sender::parse(tail)); }

    Desktop desktop;
};

TEST_F(DesktopTest, ASenderTypesThePathIntoTheSaveDialogAndConfirms) {
    start("save pdf file as~Edit~/out/My Report.pdf~0~0~");
    hosts::Dialog dialog = save_dialog();
    std::vector<std::size_t> clicks;
    dialog.on_click = [&](hosts::Dialog& clicked, std::size_t control) {
        clicks.push_back(control);
        EXPECT_EQ(clicked.controls[0].text, "/out/My Report.pdf");
        EXPECT_TRUE(clicked.accepted);
    };
    desktop.show(dialog);
    EXPECT_TRUE(dialog.accepted);
    EXPECT_EQ(dialog.controls[0].text, "/out/My Report.pdf");
    EXPECT_EQ(clicks, std::vector<std::size_t>{1});
}

TEST_F(DesktopTest, EachSenderAnswersItsOwnDialogWhateverComesFirst) {
    start("save pdf file as~Edit~/out/a.pdf~0~0~");
    start("adobe pdf - security~Button~~0~0~");
    hosts::Dialog security = notice();
    desktop.show(security);
    EXPECT_TRUE(security.accepted);
    hosts::Dialog save = save_dialog();
    desktop.show(save);
    EXPECT_EQ(save.controls[0].text, "/out/a.pdf");
}

TEST_F(DesktopTest, ADialogThatAnAnswerPutsUpIsAnsweredToo) {
    start("save pdf file as~Edit~/out/a.pdf~0~0~");
    start("adobe pdf - security~Button~~0~0~");
    std::string order;
    hosts::Dialog security = notice();
    security.on_click = [&](hosts::Dialog&, std::size_t) { order += "security "; };
    hosts::Dialog save = save_dialog();
    save.on_click = [&](hosts::Dialog&, std::size_t) {
        order += "save ";
        desktop.show(security);
        order += "back ";
    };
    desktop.show(save);
    EXPECT_EQ(order, "save security back ");
    EXPECT_TRUE(save.accepted);
    EXPECT_TRUE(security.accepted);
}

TEST_F(DesktopTest, OneCommandAnswersOneDialog) {
    start("save pdf file as~Edit~/out/a.pdf~0~0~");
    hosts::Dialog first = save_dialog();
    desktop.show(first);
    hosts::Dialog second = save_dialog();
    EXPECT_TRUE(failure([&] { desktop.show(second); }).starts_with("445 "));
    EXPECT_FALSE(second.accepted);
    EXPECT_EQ(second.controls[0].text, "document1.pdf");
}

TEST_F(DesktopTest, TwoSendersWithOneCaptionAnswerOneDialogEach) {
    start("save pdf file as~Edit~/out/a.pdf~0~0~");
    start("save pdf file as~Edit~/out/b.pdf~0~0~");
    hosts::Dialog first = save_dialog();
    hosts::Dialog second = save_dialog();
    desktop.show(first);
    desktop.show(second);
    EXPECT_EQ(first.controls[0].text, "/out/a.pdf");
    EXPECT_EQ(second.controls[0].text, "/out/b.pdf");
}

TEST_F(DesktopTest, ASenderThatStaysUntilItsDialogIsClosedAnswersNoOther) {
    start("create pdf from web page~Edit~http://localhost/~0~1~");
    hosts::Dialog first{"Create PDF from Web Page", {edit(), button("Create", true)}, {}, false};
    desktop.show(first);
    EXPECT_EQ(first.controls[0].text, "http://localhost/");
    hosts::Dialog second = first;
    second.controls[0].text = "";
    EXPECT_TRUE(failure([&] { desktop.show(second); }).starts_with("445 "));
    EXPECT_EQ(second.controls[0].text, "");
}

TEST_F(DesktopTest, AButtonThatIsNotTheDefaultClosesWithoutAccepting) {
    start("adobe acrobat~Button~{LME}~0~1~");
    hosts::Dialog dialog{"Adobe Acrobat", {button("OK")}, {}, true};
    std::size_t clicked = 99;
    dialog.on_click = [&](hosts::Dialog&, std::size_t control) { clicked = control; };
    desktop.show(dialog);
    EXPECT_EQ(clicked, 0U);
    EXPECT_FALSE(dialog.accepted);
}

TEST_F(DesktopTest, EnterAcceptsADialogWithoutADefaultButton) {
    start("open~Edit~/a.pdf~0~0~");
    hosts::Dialog dialog{"Open", {edit(), button("Open")}, {}, false};
    desktop.show(dialog);
    EXPECT_TRUE(dialog.accepted);
}

TEST_F(DesktopTest, SaysAtOnceThatNobodyIsThereToAnswer) {
    const auto begin = std::chrono::steady_clock::now();
    hosts::Dialog dialog = save_dialog();
    EXPECT_EQ(failure([&] { desktop.show(dialog); }),
              "445 The dialog \"Save PDF File As\" cannot be answered: no window sender was started for it, "
              "and nobody "
              "sits at this machine's screen.");
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(1));
    EXPECT_EQ(desktop.find_window("Save PDF File As"), 0) << "it must be taken down again";
}

TEST_F(DesktopTest, SaysThatTheSenderFoundNothingToActOn) {
    start("save pdf file as~RichEdit20W~/out/a.pdf~0~0~");
    hosts::Dialog dialog = save_dialog();
    EXPECT_EQ(failure([&] { desktop.show(dialog); }),
              "445 The dialog \"Save PDF File As\" cannot be answered: the window sender that was started "
              "for it found "
              "nothing there to act on.");
}

TEST_F(DesktopTest, ADialogWhoseDefaultButtonIsDisabledIsNotWaitedForForEver) {
    start("save pdf file as~Edit~/out/a.pdf~0~0~");
    hosts::Dialog dialog = save_dialog();
    dialog.controls[1].enabled = false;
    EXPECT_TRUE(failure([&] { desktop.show(dialog); }).starts_with("445 "));
    EXPECT_FALSE(dialog.accepted);
}

TEST_F(DesktopTest, ADisabledEditTakesNoText) {
    start("save pdf file as~Edit~/out/a.pdf~0~0~");
    hosts::Dialog dialog = save_dialog();
    dialog.controls[0].enabled = false;
    EXPECT_TRUE(failure([&] { desktop.show(dialog); }).starts_with("445 "));
    EXPECT_EQ(dialog.controls[0].text, "document1.pdf");
}

TEST_F(DesktopTest, WhatAHostRaisesOnAClickComesOutAndTheDialogIsTakenDown) {
    start("save pdf file as~Edit~/out/a.pdf~0~0~");
    hosts::Dialog dialog = save_dialog();
    dialog.on_click = [](hosts::Dialog&, std::size_t) {
        throw automation::Error(automation::RuntimeError::disk_full);
    };
    EXPECT_EQ(failure([&] { desktop.show(dialog); }), "61 Disk full");
    EXPECT_EQ(desktop.find_window("Save PDF File As"), 0);
}

TEST_F(DesktopTest, ALowerDialogIsBlockedByTheOneAboveIt) {
    start("save pdf file as~Edit~/out/a.pdf~0~0~");
    start("adobe pdf - security~Button~~0~0~");
    hosts::Dialog save = save_dialog();
    hosts::Dialog security = notice();
    security.on_click = [&](hosts::Dialog&, std::size_t) {
        start("save pdf file as~Edit~/out/too early.pdf~0~0~");
        EXPECT_EQ(save.controls[0].text, "/out/a.pdf");
    };
    save.on_click = [&](hosts::Dialog&, std::size_t) { desktop.show(security); };
    desktop.show(save);
    EXPECT_TRUE(security.accepted);
}

TEST_F(DesktopTest, ClosingADialogFromOutsideCancelsIt) {
    start("adobe pdf - security~Button~~0~0~");
    hosts::Dialog save = save_dialog();
    hosts::Dialog security = notice();
    // While the inner dialog is answered, somebody closes the outer one by its caption.
    start("save pdf file as~Edit~/out/a.pdf~0~0~");
    save.on_click = [&](hosts::Dialog&, std::size_t) { desktop.show(security); };
    security.on_click = [&](hosts::Dialog&, std::size_t) {
        desktop.close_window(desktop.find_window("Adobe PDF - Security"), "0");
    };
    desktop.show(save);
    EXPECT_TRUE(save.accepted);
}

TEST_F(DesktopTest, AHostIsToldWhenItsWindowIsClosed) {
    std::string told;
    const hosts::HostWindow viewer = desktop.open_window("Adobe Acrobat", [&] {
        told += "closed ";
        // It is gone by now, and what it showed goes with it.
        EXPECT_EQ(desktop.find_window("Adobe Acrobat"), 0);
        desktop.close_window(1);
        desktop.open_window("Save changes?", {});
    });
    desktop.close_window(desktop.find_window("adobe acrobat"), "0");
    EXPECT_EQ(told, "closed ");
    EXPECT_NE(desktop.find_window("Save changes?"), 0);
    desktop.close_window(static_cast<WindowHandle>(viewer), "0");
    EXPECT_EQ(told, "closed ");
}

TEST_F(DesktopTest, AHostIsNotToldWhatItDoesItself) {
    const hosts::HostWindow viewer = desktop.open_window("Adobe Acrobat", [] { FAIL(); });
    desktop.close_window(viewer);
    desktop.close_window(viewer);
    EXPECT_EQ(desktop.find_window("Adobe Acrobat"), 0);
}

TEST_F(DesktopTest, OfTwoWindowsWithOneCaptionTheOlderIsFoundFirst) {
    const hosts::HostWindow older = desktop.open_window("Adobe Acrobat", {});
    const hosts::HostWindow newer = desktop.open_window("Adobe Acrobat", {});
    EXPECT_EQ(desktop.find_window("Adobe Acrobat"), static_cast<WindowHandle>(older));
    desktop.close_window(older);
    EXPECT_EQ(desktop.find_window("Adobe Acrobat"), static_cast<WindowHandle>(newer));
}

TEST_F(DesktopTest, ACheckBoxIsTickedAndItsDialogStaysOpen) {
    start("password security - settings~Button~{LM}~0~1~");
    start("password security - settings~Button~~0~0~");
    hosts::Dialog dialog{
        "Password Security - Settings", {check_box("Require a password"), button("OK", true)}, {}, false};
    std::string clicks;
    dialog.on_click = [&](hosts::Dialog& clicked, std::size_t control) {
        clicks += std::to_string(control) + (clicked.accepted ? " accepted " : " open ");
    };
    desktop.show(dialog);
    EXPECT_TRUE(dialog.controls[0].checked);
    EXPECT_EQ(clicks, "0 open 1 accepted ");
}

/// Acrobat's three dialogs about an open password, each put up by the one before it.
struct PasswordDialogs {
    explicit PasswordDialogs(Desktop& screen) : desktop(screen) {
        settings.on_click = [this](hosts::Dialog& dialog, std::size_t control) {
            clicks += "settings " + std::to_string(control) + ", ";
            dialog.controls[1].enabled = dialog.controls[0].checked;
            if (dialog.accepted) desktop.show(confirm);
        };
        confirm.on_click = [this](hosts::Dialog&, std::size_t control) {
            clicks += "confirm " + std::to_string(control) + ", ";
            desktop.show(closing_notice);
        };
        closing_notice.on_click = [this](hosts::Dialog&, std::size_t control) {
            clicks += "notice " + std::to_string(control);
        };
    }

    Desktop& desktop;
    hosts::Dialog settings{"Password Security - Settings",
                           {check_box("Require a password to &open the document"),
                            {"Edit", "Document Open Password:", "", false, false, false},
                            check_box("Use a password to restrict printing and editing"),
                            {"Edit", "Permissions Password:", "", false, false, false},
                            button("OK", true),
                            button("Cancel")},
                           {},
                           false};
    hosts::Dialog confirm{"Adobe Acrobat - Confirm Open Document Password",
                          {edit(), button("OK", true), button("Cancel")},
                          {},
                          false};
    hosts::Dialog closing_notice{"Adobe Acrobat", {button("OK", true)}, {}, false};
    std::string clicks;
};

TEST_F(DesktopTest, TheFourSecurityCommandsCarryThePasswordDialogsToTheirEnd) {
    start("password security - settings~Button~{LM}~0~1~");
    start("password security - settings~Edit~s3cret^1~0~1~");
    start("adobe acrobat - confirm open document password~Edit~s3cret~0~1~");
    start("adobe acrobat~Button~{LME}~0~1~");
    PasswordDialogs dialogs(desktop);
    desktop.show(dialogs.settings);
    EXPECT_EQ(dialogs.clicks, "settings 0, settings 4, confirm 1, notice 0");
    EXPECT_EQ(dialogs.settings.controls[1].text, "s3cret");
    EXPECT_FALSE(dialogs.settings.controls[2].checked);
    EXPECT_EQ(dialogs.settings.controls[3].text, "");
    EXPECT_EQ(dialogs.confirm.controls[0].text, "s3cret");
    EXPECT_TRUE(dialogs.settings.accepted);
    EXPECT_TRUE(dialogs.confirm.accepted);
    EXPECT_TRUE(dialogs.closing_notice.accepted);
}

TEST_F(DesktopTest, ThePasswordDialogsDoNotEndWhenTheirOptionIsNotTicked) {
    start("password security - settings~Edit~s3cret^1~0~1~");
    PasswordDialogs dialogs(desktop);
    EXPECT_TRUE(failure([&] { desktop.show(dialogs.settings); }).starts_with("445 "));
    EXPECT_EQ(dialogs.clicks, "");
}

TEST_F(DesktopTest, WhatWasTypedGoesToTheNextDialogsInTurn) {
    desktop.type_text("first ");
    desktop.type_text("text");
    desktop.press_enter();
    desktop.type_text("second");
    desktop.press_enter();
    hosts::Dialog first = save_dialog();
    hosts::Dialog second{"Password", {button("OK", true), {"RichEdit20W", "", ""}}, {}, false};
    std::string order;
    first.on_click = [&](hosts::Dialog& dialog, std::size_t control) {
        order += dialog.controls[0].text + " " + std::to_string(control);
        desktop.show(second);
    };
    desktop.show(first);
    EXPECT_EQ(order, "first text 1");
    EXPECT_TRUE(first.accepted);
    EXPECT_EQ(second.controls[1].text, "second");
    EXPECT_TRUE(second.accepted);
}

TEST_F(DesktopTest, KeysGoIntoTheFirstEditThatTakesThemAndAreLostWhereThereIsNone) {
    hosts::Dialog dialog{"Two", {edit("a"), edit("b"), button("OK", true)}, {}, false};
    dialog.controls[0].enabled = false;
    desktop.type_text("x");
    desktop.press_enter();
    desktop.show(dialog);
    EXPECT_EQ(dialog.controls[0].text, "a");
    EXPECT_EQ(dialog.controls[1].text, "x");
    hosts::Dialog message = notice();
    desktop.type_text("lost");
    desktop.press_enter();
    desktop.show(message);
    EXPECT_TRUE(message.accepted);
    hosts::Dialog later = save_dialog();
    EXPECT_TRUE(failure([&] { desktop.show(later); }).starts_with("445 "));
    EXPECT_EQ(later.controls[0].text, "document1.pdf");
}

TEST_F(DesktopTest, ASenderGoesOnWhereTheKeysEnd) {
    desktop.type_text("typed");
    start("save pdf file as~Edit~/out/a.pdf~0~0~");
    hosts::Dialog dialog = save_dialog();
    desktop.show(dialog);
    EXPECT_EQ(dialog.controls[0].text, "/out/a.pdf");
    EXPECT_TRUE(dialog.accepted);
}

TEST_F(DesktopTest, AMessageBoxGoesToWhoeverShowsIt) {
    std::string shown;
    Desktop with_listener([&](const std::string& prompt, const std::string& title, std::uint32_t style) {
        shown = title + "|" + prompt + "|" + std::to_string(style);
    });
    with_listener.message_box("prompt", "title", 4144);
    EXPECT_EQ(shown, "title|prompt|4144");
    EXPECT_NO_THROW(desktop.message_box("prompt", "title", 0));
}

}  // namespace
}  // namespace foliant::platform::local::test
