#pragma once

#include <atomic>
#include <string>
#include <thread>
#include <windows.h>

namespace foliant::platform::win32::test {

/// A window on a thread of its own, as another program's, that notes the profile sections it is told of.
class ProfileListener {
  public:
    ProfileListener();
    ProfileListener(const ProfileListener&) = delete;
    ProfileListener& operator=(const ProfileListener&) = delete;
    ~ProfileListener();

    /// The sections up to now, a semicolon after each.
    const std::string& heard() const { return heard_; }

  private:
    static LRESULT CALLBACK note_section(HWND window, UINT message, WPARAM first, LPARAM second);

    std::thread thread_;
    std::atomic<DWORD> thread_id_ = 0;
    std::string heard_;
};

}  // namespace foliant::platform::win32::test
