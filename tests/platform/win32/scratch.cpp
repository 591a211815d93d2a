#include "platform/win32/scratch.h"

#include <windows.h>

#include "platform/win32/text.h"

namespace foliant::platform::win32::test {

Scratch::Scratch() {
    wchar_t folder[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    folder_ = to_utf8(std::wstring_view(folder)) + "foliant ports " + std::to_string(GetCurrentProcessId());
    CreateDirectoryW(to_utf16(folder_).c_str(), nullptr);
}

Scratch::~Scratch() {
    WIN32_FIND_DATAW entry;
    const HANDLE search = FindFirstFileW(to_utf16(path("*")).c_str(), &entry);
    do {
        const std::wstring found = to_utf16(path(to_utf8(std::wstring_view(entry.cFileName))));
        SetFileAttributesW(found.c_str(), FILE_ATTRIBUTE_NORMAL);
        DeleteFileW(found.c_str());
        RemoveDirectoryW(found.c_str());
    } while (FindNextFileW(search, &entry) != 0);
    FindClose(search);
    RemoveDirectoryW(to_utf16(folder_).c_str());
}

std::string Scratch::content(const std::string& name) const {
    const HANDLE file =
        CreateFileW(to_utf16(path(name)).c_str(), GENERIC_READ, 7, nullptr, OPEN_EXISTING, 0, nullptr);
    char buffer[4096];
    DWORD size = 0;
    ReadFile(file, buffer, sizeof buffer, &size, nullptr);
    CloseHandle(file);
    return {buffer, size};
}

}  // namespace foliant::platform::win32::test
