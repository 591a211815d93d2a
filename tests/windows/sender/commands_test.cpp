// Every command that the library sends, each to a dialog with the caption and the control that it is meant
// for, in another process than the sender's.

#include <gtest/gtest.h>

#include "sender/win32/message.h"
#include "windows/sender/sender_process.h"
#include "windows/sender/test_dialog.h"

namespace foliant::sender::win32::test {
namespace {

constexpr WORD edit_id = 101;
constexpr WORD other_edit_id = 102;
constexpr WORD option_id = 103;

const Item ok{L"Button", L"OK", IDOK, BS_DEFPUSHBUTTON | WS_TABSTOP};
const Item cancel{L"Button", L"Cancel", IDCANCEL, BS_PUSHBUTTON | WS_TABSTOP};
const Item edit{L"Edit", L"old text", edit_id, WS_BORDER | WS_TABSTOP};

struct Case {
    const char* caption;  ///< as the other program shows it
    const char* command;
    const wchar_t* window_class;
    const wchar_t* entered;
};

class TableOfCommands : public testing::TestWithParam<Case> {};

TEST_P(TableOfCommands, EndsItsDialogWithOkAndTheText) {
    const Case& row = GetParam();
    LoadLibraryW(L"riched20.dll");
    const Item input{row.window_class, L"old text", edit_id, WS_BORDER | WS_TABSTOP};
    SenderProcess sender(row.command);
    ShownDialog dialog(to_utf16(row.caption), {cancel, input, ok});
    EXPECT_EQ(sender.wait(), 0);
    const Outcome& outcome = dialog.wait();
    EXPECT_EQ(outcome.ended_with, IDOK);
    EXPECT_EQ(outcome.texts.at(edit_id), row.entered);
}

INSTANTIATE_TEST_SUITE_P(
    WithText, TableOfCommands,
    testing::Values(Case{"Open", "open~Edit~C:\\My Docs\\a b.pdf~0~0~", L"Edit", L"C:\\My Docs\\a b.pdf"},
                    Case{"Password", "password~Edit~s~cret~0~0~", L"Edit", L"s~cret"},
                    Case{"Go To Page", "go to page~Edit~12~0~0~", L"Edit", L"12"},
                    Case{"Go To Page", "go to page~RichEdit20W~12~0~0~", L"RichEdit20W", L"12"},
                    Case{"Save PDF File As", "save pdf file as~Edit~C:\\\xC3\x9C\xE2\x82\xAC.pdf~0~0~",
                         L"Edit", L"C:\\\u00DC\u20AC.pdf"},
                    Case{"Create PDF from Web Page", "create pdf from web page~Edit~http://a.b/c?d~0~1~",
                         L"Edit", L"http://a.b/c?d"},
                    Case{"Adobe Acrobat - Confirm Open Document Password",
                         "adobe acrobat - confirm open document password~Edit~abc^1~0~1~", L"Edit",
                         L"abc^1"}));

INSTANTIATE_TEST_SUITE_P(
    WithoutText, TableOfCommands,
    testing::Values(Case{"Adobe PDF - Security", "adobe pdf - security~Button~~0~0~", L"Edit", L"old text"},
                    Case{"Error: Nothing Done", "error: nothing done~Button~~0~1~", L"Edit", L"old text"},
                    Case{"There were errors", "there were errors~Button~~0~1~", L"Edit", L"old text"},
                    Case{"Create Web Links", "create web links~Button~~0~0~", L"Edit", L"old text"},
                    Case{"Adobe Acrobat", "adobe acrobat~Button~~0~0~", L"Edit", L"old text"},
                    Case{"Adobe Acrobat", "adobe acrobat~Button~{LME}~0~1~", L"Edit", L"old text"}));

/// Acrobat's dialog: the password for opening takes input once its option is ticked, the other one all along.
class SecuritySettings : public testing::Test {
  protected:
    explicit SecuritySettings(DWORD box_style = BS_AUTOCHECKBOX) : box_style_(box_style) {}

    Outcome show_settings() {
        return show(
            L"Password Security - Settings",
            {{L"Edit", L"", other_edit_id, WS_BORDER | WS_TABSTOP},
             {L"Button", L"&Require a password to open the document", option_id, box_style_ | WS_TABSTOP},
             {L"Edit", L"", edit_id, WS_BORDER | WS_TABSTOP | WS_DISABLED | ES_PASSWORD},
             ok,
             cancel},
            [this](HWND dialog, WORD control, WORD code) { on_command(dialog, control, code); });
    }

    void on_command(HWND dialog, WORD control, WORD code) const {
        if (control != option_id || code != BN_CLICKED) return;
        if (box_style_ == BS_CHECKBOX) {
            const bool was_ticked = IsDlgButtonChecked(dialog, option_id) == BST_CHECKED;
            CheckDlgButton(dialog, option_id, was_ticked ? BST_UNCHECKED : BST_CHECKED);
        }
        EnableWindow(GetDlgItem(dialog, edit_id), IsDlgButtonChecked(dialog, option_id) == BST_CHECKED);
    }

  private:
    DWORD box_style_;
};

TEST_F(SecuritySettings, TheFourCommandsCarryTheDialogsToTheirEnd) {
    SenderProcess tick("password security - settings~Button~{LM}~0~1~");
    SenderProcess enter("password security - settings~Edit~abc^1~0~1~");
    SenderProcess confirm("adobe acrobat - confirm open document password~Edit~abc~0~1~");
    SenderProcess dismiss("adobe acrobat~Button~{LME}~0~1~");

    const Outcome settings = show_settings();
    EXPECT_EQ(settings.ended_with, IDOK);
    EXPECT_TRUE(settings.ticked.at(option_id));
    EXPECT_EQ(settings.texts.at(edit_id), L"abc");
    EXPECT_EQ(settings.texts.at(other_edit_id), L"");

    const Outcome confirmed = show(L"Adobe Acrobat - Confirm Open Document Password", {edit, ok, cancel});
    EXPECT_EQ(confirmed.ended_with, IDOK);
    EXPECT_EQ(confirmed.texts.at(edit_id), L"abc");

    EXPECT_EQ(MessageBoxW(nullptr, L"The settings take effect when you save.", L"Adobe Acrobat", MB_OK),
              IDOK);
    for (SenderProcess* sender : {&tick, &enter, &confirm, &dismiss})
        EXPECT_EQ(sender->wait(), 0);
}

class SecuritySettingsTickedByTheDialog : public SecuritySettings {
  protected:
    SecuritySettingsTickedByTheDialog() : SecuritySettings(BS_CHECKBOX) {}
};

TEST_F(SecuritySettingsTickedByTheDialog, IsTickedOnceAndGetsThePassword) {
    SenderProcess enter("password security - settings~Edit~abc^1~0~1~");
    SenderProcess tick("password security - settings~Button~{LM}~0~1~");
    const Outcome settings = show_settings();
    EXPECT_TRUE(settings.ticked.at(option_id));
    EXPECT_EQ(settings.texts.at(edit_id), L"abc");
    EXPECT_EQ(tick.wait(), 0);
    EXPECT_EQ(enter.wait(), 0);
}

TEST(RealSender, TellsTheDialogOfTheChangeAndLeavesTheFocusWhereItIs) {
    const Item several_lines{L"Edit", L"", edit_id, WS_BORDER | WS_TABSTOP | ES_MULTILINE};
    for (const Item& input : {edit, several_lines}) {
        SenderProcess sender("open~Edit~new~0~0~");
        ShownDialog dialog(L"Open", {cancel, input, ok});
        const Outcome& outcome = dialog.wait();
        EXPECT_EQ(outcome.texts.at(edit_id), L"new");
        EXPECT_NE(std::count(outcome.changed.begin(), outcome.changed.end(), edit_id), 0);
        EXPECT_FALSE(outcome.focus_moved);
    }
}

}  // namespace
}  // namespace foliant::sender::win32::test
