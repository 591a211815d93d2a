#pragma once

#include <string>
#include <windows.h>

namespace foliant::sender::win32::test {

/// A process; ended when this goes away.
class Process {
  public:
    /// Fails the running test when the program cannot be started. The command line is UTF-8.
    explicit Process(const std::string& command_line);
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;
    ~Process();

    /// Its exit code; waits that long for it, and gives -1 then.
    int wait(DWORD milliseconds = 15000);

    DWORD id() const { return information_.dwProcessId; }

  private:
    PROCESS_INFORMATION information_{};
};

/// The real quorixsend.exe with a command, given to it as the library gives it.
class SenderProcess : public Process {
  public:
    explicit SenderProcess(const std::string& command);
};

}  // namespace foliant::sender::win32::test
