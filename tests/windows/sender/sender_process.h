#pragma once

#include <string>
#include <windows.h>

namespace foliant::sender::win32::test {

/// A process; ended when this goes away.
class Process {
  public:
    /// Fails the running test when the program cannot be started. The command line is UTF-8. For the system
    /// it is `starter` that has started it, this process unless told.
    explicit Process(const std::string& command_line, const Process* starter = nullptr);
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;
    ~Process();

    /// Its exit code; waits that long for it, and gives -1 then.
    int wait(DWORD milliseconds = 15000);

    /// Ends it at once.
    void end();

    DWORD id() const { return information_.dwProcessId; }

  private:
    PROCESS_INFORMATION information_{};
};

/// The real quorixsend.exe with a command, given to it as the library gives it.
class SenderProcess : public Process {
  public:
    explicit SenderProcess(const std::string& command, const Process* starter = nullptr);
};

}  // namespace foliant::sender::win32::test
