// Windows that bear the caption of a command and are not, or no longer, meant by it.

#include <atomic>
#include <gtest/gtest.h>
#include <thread>
#include <windows.h>

#include "windows/sender/sender_process.h"

namespace foliant::sender::win32::test {
namespace {

constexpr const wchar_t* window_class = L"Foliant test frame";
constexpr DWORD a_while = 1500;  // several looks of a sender

std::atomic<int> pressed = 0;

LRESULT CALLBACK frame_procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
    if (message == WM_COMMAND) ++pressed;
    return DefWindowProcW(window, message, w, l);
}

HWND make_window(HWND owner) {
    const HINSTANCE instance = GetModuleHandleW(nullptr);
    const HWND window = CreateWindowExW(0, window_class, L"Adobe Acrobat", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                        0, 0, 300, 200, owner, nullptr, instance, nullptr);
    CreateWindowExW(0, L"Button", L"Print", WS_CHILD | WS_VISIBLE | BS_DEFPUSHBUTTON, 10, 10, 80, 30, window,
                    nullptr, instance, nullptr);
    return window;
}

/// A program with a frame that owns a default button, and perhaps a window that the frame owns; on a thread
/// of its own.
class Program {
  public:
    explicit Program(bool with_owned_window)
        : thread_([this, with_owned_window] {
              WNDCLASSW description{};
              description.lpfnWndProc = frame_procedure;
              description.hInstance = GetModuleHandleW(nullptr);
              description.lpszClassName = window_class;
              RegisterClassW(&description);
              const HWND frame = make_window(nullptr);
              if (with_owned_window) make_window(frame);
              id_ = GetCurrentThreadId();
              MSG message{};
              while (GetMessageW(&message, nullptr, 0, 0) > 0)
                  DispatchMessageW(&message);
              DestroyWindow(frame);
          }) {
        while (id_ == 0)
            Sleep(1);
    }
    ~Program() {
        PostThreadMessageW(id_, WM_QUIT, 0, 0);
        thread_.join();
    }

  private:
    std::atomic<DWORD> id_ = 0;
    std::thread thread_;
};

class Frames : public testing::Test {
  protected:
    Frames() { pressed = 0; }
};

TEST_F(Frames, AreLeftAloneAndTheNoticeIsAnswered) {
    for (const char* command : {"adobe acrobat~Button~~0~0~", "adobe acrobat~Button~{LME}~0~1~"}) {
        const Program program(false);
        SenderProcess sender(command);
        EXPECT_EQ(sender.wait(a_while), -1) << command;
        EXPECT_EQ(MessageBoxW(nullptr, L"Links were made.", L"Adobe Acrobat", MB_OK), IDOK);
        EXPECT_EQ(sender.wait(), 0) << command;
        EXPECT_EQ(pressed, 0) << command;
    }
}

TEST_F(Frames, OwnWindowsThatAreAnsweredWhateverTheirClass) {
    const Program program(true);
    SenderProcess sender("adobe acrobat~Button~~0~0~");
    EXPECT_EQ(sender.wait(), 0);
    // The sender does not wait for what a program does next.
    for (int i = 0; i < 200 && pressed == 0; ++i)
        Sleep(50);
    EXPECT_EQ(pressed, 1);
}

TEST(Starter, TakesItsSenderWithIt) {
    SenderProcess starter("a dialog that never comes~Edit~x~0~0~");
    SenderProcess sender("late dialog~Edit~x~0~0~", &starter);
    EXPECT_EQ(sender.wait(a_while), -1);
    starter.end();
    EXPECT_EQ(sender.wait(), 3);
}

}  // namespace
}  // namespace foliant::sender::win32::test
