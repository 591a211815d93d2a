#include "windows/sender/sender_process.h"

#include <algorithm>
#include <gtest/gtest.h>

#include "sender/win32/message.h"

namespace foliant::sender::win32::test {
namespace {

/// Where the build has put the program; Wine shows the machine's files on its drive Z.
std::string sender_path() {
    std::string path = QUORIXSEND_PATH;
    std::replace(path.begin(), path.end(), '/', '\\');
    return "Z:" + path;
}

}  // namespace

Process::Process(const std::string& command_line) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    std::wstring line = to_utf16(command_line);
    const BOOL started = CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                                        &startup, &information_);
    EXPECT_NE(started, 0) << command_line << ": error " << GetLastError();
}

Process::~Process() {
    if (information_.hProcess == nullptr) return;
    if (wait(0) == -1) TerminateProcess(information_.hProcess, 99);
    CloseHandle(information_.hThread);
    CloseHandle(information_.hProcess);
}

int Process::wait(DWORD milliseconds) {
    DWORD code = 0;
    if (WaitForSingleObject(information_.hProcess, milliseconds) != WAIT_OBJECT_0) return -1;
    GetExitCodeProcess(information_.hProcess, &code);
    return static_cast<int>(code);
}

SenderProcess::SenderProcess(const std::string& command) : Process(sender_path() + " " + command) {}

}  // namespace foliant::sender::win32::test
