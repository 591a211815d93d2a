#pragma once

#include <atomic>
#include <functional>
#include <map>
#include <string>
#include <thread>
#include <vector>
#include <windows.h>

#include "windows/sender/dialog_template.h"

namespace foliant::sender::win32::test {

/// What became of a dialog.
struct Outcome {
    INT_PTR ended_with = 0;              ///< the button it ended with
    std::map<WORD, std::wstring> texts;  ///< of its controls, when it ended
    std::map<WORD, bool> ticked;         ///< its check boxes
    std::vector<WORD> changed;           ///< controls that said their text had changed, in that order
    bool focus_moved = false;            ///< whether the focus left the control it was first on
};

/// How a dialog behaves beyond ending with OK and Cancel. Called for the notices of its controls.
using OnCommand = std::function<void(HWND dialog, WORD control, WORD code)>;

/// Shows a modal dialog on the calling thread and returns when it has ended.
Outcome show(const std::wstring& caption, const std::vector<Item>& items, const OnCommand& on_command = {});

/// The same on a thread of its own, as in another program. It is ended with 0 when this goes away.
class ShownDialog {
  public:
    ShownDialog(std::wstring caption, std::vector<Item> items, OnCommand on_command = {})
        : thread_([this, caption = std::move(caption), items = std::move(items),
                   on_command = std::move(on_command)] {
              thread_id_ = GetCurrentThreadId();
              outcome_ = show(caption, items, on_command);
              done_ = true;
          }) {}
    ~ShownDialog();

    /// Waits until it has ended, ten seconds at most; then ends it with 0.
    const Outcome& wait();

  private:
    void end();

    Outcome outcome_;
    std::atomic<DWORD> thread_id_ = 0;
    std::atomic<bool> done_ = false;
    std::thread thread_;
};

}  // namespace foliant::sender::win32::test
