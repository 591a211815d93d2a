#include "platform/win32/windows_programs.h"

#include <windows.h>

#include "automation/error.h"
#include "platform/win32/outside_error.h"
#include "platform/win32/text.h"

namespace foliant::platform::win32 {

using automation::Error;
using automation::RuntimeError;

void WindowsPrograms::start(const std::string& command_line, WindowStyle style) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = static_cast<WORD>(style);
    PROCESS_INFORMATION started{};
    std::wstring line = to_utf16(command_line);
    // The system finds out itself where an unquoted path with blanks ends.
    if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                       &started) == 0) {
        const DWORD code = GetLastError();
        const bool missing = code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND;
        // The arguments may hold a password, so only the reason is told.
        throw Error(missing ? RuntimeError::file_not_found : RuntimeError::invalid_procedure_call,
                    "Cannot start a program: " + system_text(static_cast<HRESULT>(code)));
    }
    CloseHandle(started.hThread);
    CloseHandle(started.hProcess);
}

}  // namespace foliant::platform::win32
