// What the real program does when things are not as usual: no dialog, two of them, one that hangs, a command
// that cannot be read.

#include <chrono>
#include <gtest/gtest.h>
#include <utility>

#include "sender/win32/message.h"
#include "windows/sender/sender_process.h"
#include "windows/sender/test_dialog.h"

namespace foliant::sender::win32::test {
namespace {

constexpr WORD edit_id = 101;
const Item ok{L"Button", L"OK", IDOK, BS_DEFPUSHBUTTON | WS_TABSTOP};
const Item edit{L"Edit", L"old text", edit_id, WS_BORDER | WS_TABSTOP};

/// Sets the time limit of the senders that are started in a scope, in seconds.
class Limit {
  public:
    explicit Limit(const wchar_t* seconds) {
        wchar_t former[16] = L"";
        GetEnvironmentVariableW(name, former, 16);
        former_ = former;
        SetEnvironmentVariableW(name, seconds);
    }
    Limit(const Limit&) = delete;
    Limit& operator=(const Limit&) = delete;
    ~Limit() { SetEnvironmentVariableW(name, former_.empty() ? nullptr : former_.c_str()); }

  private:
    static constexpr const wchar_t* name = L"QUORIXSEND_LIMIT";
    std::wstring former_;
};

int answer_box(const char* command, const wchar_t* caption, UINT style) {
    SenderProcess sender(command);
    const int answer = MessageBoxW(nullptr, L"Is this a message box?", caption, style);
    EXPECT_EQ(sender.wait(), 0);
    return answer;
}

TEST(MessageBoxes, EndWithTheirDefaultButton) {
    EXPECT_EQ(answer_box("adobe pdf - security~Button~~0~0~", L"Adobe PDF - Security", MB_OK), IDOK);
    EXPECT_EQ(answer_box("there were errors~Button~~0~1~", L"There were errors", MB_YESNO), IDYES);
    EXPECT_EQ(answer_box("there were errors~Button~~0~1~", L"THERE WERE ERRORS", MB_YESNO | MB_DEFBUTTON2),
              IDNO);
    EXPECT_EQ(answer_box("adobe acrobat~Button~{LME}~0~1~", L"Adobe Acrobat", MB_OKCANCEL | MB_ICONWARNING),
              IDOK);
}

TEST(RealSender, EndsAtOnceWithCode2WhenItsCommandCannotBeRead) {
    for (const char* command : {"", "open", "open~Edit~x~0~", "open~Slider~x~0~0~", "open~Edit~x~1~0~"})
        EXPECT_EQ(SenderProcess(command).wait(5000), 2) << command;
}

TEST(RealSender, GivesUpWithCode3WhenItsDialogNeverComes) {
    const Limit one_second(L"1");
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(SenderProcess("no such dialog~Button~~0~0~").wait(), 3);
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(900));
}

TEST(RealSender, EndsWithCode4WhenItsDialogDoesNotClose) {
    const Limit two_seconds(L"2");
    constexpr WORD apply_id = 500;
    SenderProcess sender("stubborn~Edit~x~0~1~");
    ShownDialog dialog(L"Stubborn", {edit, {L"Button", L"Apply", apply_id, BS_DEFPUSHBUTTON}});
    EXPECT_EQ(sender.wait(), 4);
}

TEST(RealSender, EndsAsSoonAsItHasActedWhenFlagBIsNotSet) {
    constexpr WORD apply_id = 500;
    SenderProcess sender("stubborn~Edit~x~0~0~");
    ShownDialog dialog(L"Stubborn", {edit, {L"Button", L"Apply", apply_id, BS_DEFPUSHBUTTON}});
    EXPECT_EQ(sender.wait(), 0);
}

TEST(RealSender, AnswersOneOfTwoDialogsAndLeavesTheOtherToTheNext) {
    SenderProcess first("open~Edit~one~0~0~");
    SenderProcess second("open~Edit~two~0~0~");
    // Both on one thread: Wine's edit controls of two threads may lock each other up when they paint.
    constexpr WORD next_id = 400;
    Outcome inner;
    bool asked = false;
    const Outcome outer = show(L"Open", {edit, ok}, [&](HWND dialog, WORD control, WORD) {
        if (!std::exchange(asked, true)) PostMessageW(dialog, WM_COMMAND, next_id, 0);
        if (control == next_id) inner = show(L"Open", {edit, ok});
    });
    std::vector<std::wstring> entered{outer.texts.at(edit_id), inner.texts.at(edit_id)};
    std::sort(entered.begin(), entered.end());
    EXPECT_EQ(entered, (std::vector<std::wstring>{L"one", L"two"}));
    EXPECT_EQ(first.wait(), 0);
    EXPECT_EQ(second.wait(), 0);
}

TEST(RealSender, IsNotHeldUpByAnotherWindowOfThatCaptionThatHangs) {
    std::atomic<bool> hang = true;
    std::atomic<bool> shown = false;
    std::thread hung([&] {
        const HWND window =
            CreateWindowExW(WS_EX_TOPMOST | WS_EX_NOACTIVATE, L"Static", L"Open", WS_POPUP | WS_VISIBLE, 0, 0,
                            50, 50, nullptr, nullptr, nullptr, nullptr);
        shown = true;
        while (hang)
            Sleep(20);
        DestroyWindow(window);
    });
    while (!shown)
        Sleep(20);
    SenderProcess sender("open~Edit~x~0~0~");
    ShownDialog dialog(L"Open", {edit, ok});
    EXPECT_EQ(dialog.wait().texts.at(edit_id), L"x");
    EXPECT_EQ(sender.wait(), 0);
    hang = false;
    hung.join();
}

TEST(RealSender, WaitsForADialogThatComesLater) {
    SenderProcess sender("open~Edit~late~0~0~");
    Sleep(1500);
    ShownDialog dialog(L"Open", {edit, ok});
    EXPECT_EQ(dialog.wait().texts.at(edit_id), L"late");
    EXPECT_EQ(sender.wait(), 0);
}

TEST(RealSender, FindsAControlInsideAnother) {
    SenderProcess sender("open~Edit~inner~0~0~");
    constexpr WORD combo_id = 300;
    // A combo box of this kind holds an edit control of its own.
    ShownDialog dialog(L"Open", {{L"ComboBox", L"", combo_id, CBS_DROPDOWN | WS_TABSTOP}, ok});
    EXPECT_EQ(dialog.wait().texts.at(combo_id), L"inner");
    EXPECT_EQ(sender.wait(), 0);
}

TEST(RealSender, LeavesAButtonAloneThatIsDisabled) {
    const Limit one_second(L"1");
    SenderProcess sender("notice~Button~~0~0~");
    ShownDialog dialog(L"Notice", {{L"Button", L"OK", IDOK, BS_DEFPUSHBUTTON | WS_DISABLED}});
    EXPECT_EQ(sender.wait(), 3);
}

}  // namespace
}  // namespace foliant::sender::win32::test
