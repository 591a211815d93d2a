#include "windows/sender/sender_process.h"

#include <algorithm>
#include <array>
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

Process::Process(const std::string& command_line, const Process* starter) {
    STARTUPINFOEXW startup{};
    startup.StartupInfo.cb = sizeof startup;
    std::array<char, 256> attributes{};
    SIZE_T size = attributes.size();
    startup.lpAttributeList = reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(attributes.data());
    EXPECT_NE(InitializeProcThreadAttributeList(startup.lpAttributeList, 1, 0, &size), 0);
    HANDLE parent = starter == nullptr ? nullptr : starter->information_.hProcess;
    if (parent != nullptr) {
        EXPECT_NE(UpdateProcThreadAttribute(startup.lpAttributeList, 0, PROC_THREAD_ATTRIBUTE_PARENT_PROCESS,
                                            &parent, sizeof parent, nullptr, nullptr),
                  0);
    }
    std::wstring line = to_utf16(command_line);
    const BOOL started =
        CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, EXTENDED_STARTUPINFO_PRESENT, nullptr,
                       nullptr, &startup.StartupInfo, &information_);
    EXPECT_NE(started, 0) << command_line << ": error " << GetLastError();
    DeleteProcThreadAttributeList(startup.lpAttributeList);
}

void Process::end() {
    TerminateProcess(information_.hProcess, 99);
    wait();
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

SenderProcess::SenderProcess(const std::string& command, const Process* starter)
    : Process(sender_path() + " " + command, starter) {}

}  // namespace foliant::sender::win32::test
