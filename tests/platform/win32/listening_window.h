#pragma once

#include <atomic>
#include <string>
#include <thread>
#include <windows.h>

namespace foliant::platform::win32::test {

/// A window on a thread of its own, as another program's, that notes what it is told. It goes when it is told
/// to close, and at the latest with this.
class ListeningWindow {
  public:
    explicit ListeningWindow(std::wstring caption = L"listener");
    ListeningWindow(const ListeningWindow&) = delete;
    ListeningWindow& operator=(const ListeningWindow&) = delete;
    ~ListeningWindow();

    /// "close;" for each wish that it close, and a changed section of the profile by its name and ";".
    const std::string& heard() const { return heard_; }

  private:
    static LRESULT CALLBACK note(HWND window, UINT message, WPARAM first, LPARAM second);

    std::thread thread_;
    std::atomic<DWORD> thread_id_ = 0;
    std::string heard_;
};

}  // namespace foliant::platform::win32::test
