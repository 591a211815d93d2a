#include "platform/win32/noting_program.h"

#include <string>
#include <windows.h>

#include "platform/win32/text.h"

namespace foliant::platform::win32::test {

bool is_noting_program() {
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    const std::string own = to_utf8(std::wstring_view(path));
    const std::string folder = own.substr(0, own.rfind('\\') + 1);
    if (own != folder + noting_program) return false;
    const std::string line = to_utf8(std::wstring_view(GetCommandLineW()));
    const std::string tail = line.substr(line.find(noting_program) + std::string(noting_program).size() + 1);
    // It appears when it is complete.
    const std::wstring draft = to_utf16(folder + "draft");
    const HANDLE file = CreateFileW(draft.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD written = 0;
    WriteFile(file, tail.data(), static_cast<DWORD>(tail.size()), &written, nullptr);
    CloseHandle(file);
    MoveFileW(draft.c_str(), to_utf16(folder + noted_arguments).c_str());
    return true;
}

}  // namespace foliant::platform::win32::test
