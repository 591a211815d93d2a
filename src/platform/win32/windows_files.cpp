#include "platform/win32/windows_files.h"

#include <utility>
#include <windows.h>

#include "automation/error.h"
#include "platform/win32/outside_error.h"
#include "platform/win32/text.h"

namespace foliant::platform::win32 {

using automation::Error;
using automation::RuntimeError;

namespace {

constexpr std::size_t piece = 65536;

/// A pattern names many files, and a NUL would cut the name: neither names one file.
bool names_one_entry(const std::string& path) {
    const std::size_t prefix = path.starts_with("\\\\?\\") ? 4 : 0;
    return path.size() > prefix &&
           path.find_first_of(std::string_view("*?\0", 3), prefix) == std::string::npos;
}

/// "File not found: cannot delete C:\x (system's own text)"
Error file_error(RuntimeError number, std::string_view action, const std::string& path, DWORD code) {
    std::string text(automation::usual_description(number));
    text += ": cannot ";
    text += action;
    text += ' ';
    text += path.empty() ? "a file without a name" : path;
    return {number, text + " (" + system_text(static_cast<HRESULT>(code)) + ")"};
}

bool is_nowhere(DWORD code) {
    return code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND || code == ERROR_INVALID_NAME ||
           code == ERROR_BAD_PATHNAME || code == ERROR_INVALID_DRIVE || code == ERROR_BAD_NETPATH ||
           code == ERROR_BAD_NET_NAME || code == ERROR_DIRECTORY || code == ERROR_FILENAME_EXCED_RANGE;
}

bool is_refusal(DWORD code) {
    return code == ERROR_ACCESS_DENIED || code == ERROR_SHARING_VIOLATION || code == ERROR_LOCK_VIOLATION ||
           code == ERROR_WRITE_PROTECT || code == ERROR_USER_MAPPED_FILE;
}

RuntimeError of_storage(DWORD code) {
    return code == ERROR_DISK_FULL || code == ERROR_HANDLE_DISK_FULL ? RuntimeError::disk_full
                                                                     : RuntimeError::device_io_error;
}

RuntimeError of_existing_file(DWORD code) {
    if (is_nowhere(code)) return RuntimeError::file_not_found;
    return is_refusal(code) ? RuntimeError::permission_denied : of_storage(code);
}

RuntimeError of_new_entry(DWORD code) {
    if (code == ERROR_ALREADY_EXISTS || code == ERROR_FILE_EXISTS) return RuntimeError::path_file_access;
    if (is_nowhere(code)) return RuntimeError::path_not_found;
    return is_refusal(code) ? RuntimeError::permission_denied : of_storage(code);
}

bool is_folder(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

class WindowsText : public TextFile {
  public:
    WindowsText(HANDLE file, std::string path) : file_(file), path_(std::move(path)) {}
    ~WindowsText() override {
        try {
            close();
        } catch (...) {  // NOLINT(bugprone-empty-catch): nobody is left to tell
        }
    }

    void write_line(std::string_view line) override {
        waiting_ += to_ansi(line);
        waiting_ += "\r\n";
        if (waiting_.size() >= piece) write_waiting();
    }

    void close() override {
        if (file_ == INVALID_HANDLE_VALUE) return;
        // The handle goes away whether the rest could be written or not.
        struct Closer {
            HANDLE& file;
            ~Closer() { CloseHandle(std::exchange(file, INVALID_HANDLE_VALUE)); }
        } const closer{file_};
        write_waiting();
    }

  private:
    void write_waiting() {
        // Lines that cannot be written are not tried again.
        const std::string text = std::exchange(waiting_, {});
        for (std::string_view rest = text; !rest.empty();) {
            DWORD written = 0;
            if (WriteFile(file_, rest.data(), static_cast<DWORD>(rest.size()), &written, nullptr) == 0) {
                const DWORD code = GetLastError();
                throw file_error(of_storage(code), "write", path_, code);
            }
            rest.remove_prefix(written);
        }
    }

    HANDLE file_;
    std::string path_;
    std::string waiting_;
};

class WindowsListing : public Listing {
  public:
    /// Takes over a search and the entry that it found first. Without a search there are no entries.
    WindowsListing(HANDLE search, const WIN32_FIND_DATAW& first, std::string pattern)
        : search_(search), entry_(first), pattern_(std::move(pattern)) {}
    WindowsListing(const WindowsListing&) = delete;
    WindowsListing& operator=(const WindowsListing&) = delete;
    ~WindowsListing() override { end(); }

    std::optional<std::string> next() override {
        constexpr DWORD unlisted = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
        while (advance()) {
            if ((entry_.dwFileAttributes & unlisted) == 0)
                return to_utf8(std::wstring_view(entry_.cFileName));
        }
        return std::nullopt;
    }

  private:
    /// Makes the next entry the current one; false when there is none left.
    bool advance() {
        if (search_ == INVALID_HANDLE_VALUE) return false;
        if (std::exchange(at_first_, false) || FindNextFileW(search_, &entry_) != 0) return true;
        const DWORD code = GetLastError();
        end();
        if (code != ERROR_NO_MORE_FILES) throw file_error(of_storage(code), "list", pattern_, code);
        return false;
    }

    void end() {
        if (search_ != INVALID_HANDLE_VALUE) FindClose(std::exchange(search_, INVALID_HANDLE_VALUE));
    }

    HANDLE search_;
    WIN32_FIND_DATAW entry_;
    bool at_first_ = true;
    std::string pattern_;
};

/// There is nothing to list: no match, or no such folder.
bool is_no_match(DWORD code) {
    return code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND || code == ERROR_DIRECTORY ||
           code == ERROR_NO_MORE_FILES;
}

RuntimeError of_listing(DWORD code) {
    if (is_nowhere(code)) return RuntimeError::bad_file_name;
    return is_refusal(code) ? RuntimeError::permission_denied : of_storage(code);
}

/// A folder stands for all that is in it.
std::string whole_pattern(const std::string& pattern) {
    const bool names_nothing =
        pattern.empty() || std::string_view("\\/:").find(pattern.back()) != std::string::npos;
    return names_nothing ? pattern + "*" : pattern;
}

}  // namespace

std::int64_t WindowsFiles::length(const std::string& path) {
    WIN32_FIND_DATAW entry{};
    const HANDLE search =
        names_one_entry(path) ? FindFirstFileW(to_utf16(path).c_str(), &entry) : INVALID_HANDLE_VALUE;
    if (search == INVALID_HANDLE_VALUE) {
        const DWORD code = names_one_entry(path) ? GetLastError() : ERROR_INVALID_NAME;
        throw file_error(of_existing_file(code), "find", path, code);
    }
    FindClose(search);
    if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        throw Error(RuntimeError::file_not_found, "File not found: " + path + " is a folder.");
    return static_cast<std::int64_t>((std::uint64_t{entry.nFileSizeHigh} << 32U) | entry.nFileSizeLow);
}

bool WindowsFiles::exists_in_current_folder(const std::string& name) {
    if (!names_one_entry(name) || name.find_first_of("\\/:") != std::string::npos) return false;
    return GetFileAttributesW(to_utf16(name).c_str()) != INVALID_FILE_ATTRIBUTES;
}

void WindowsFiles::remove(const std::string& path) {
    if (names_one_entry(path) && DeleteFileW(to_utf16(path).c_str()) != 0) return;
    DWORD code = names_one_entry(path) ? GetLastError() : ERROR_INVALID_NAME;
    // The system says of a folder that access is denied.
    if (code == ERROR_ACCESS_DENIED && is_folder(to_utf16(path))) code = ERROR_FILE_NOT_FOUND;
    throw file_error(of_existing_file(code), "delete", path, code);
}

void WindowsFiles::make_folder(const std::string& path) {
    if (names_one_entry(path) && CreateDirectoryW(to_utf16(path).c_str(), nullptr) != 0) return;
    DWORD code = names_one_entry(path) ? GetLastError() : ERROR_INVALID_NAME;
    // Of a drive's root the system says that access is denied, not that it is there.
    if (code == ERROR_ACCESS_DENIED && is_folder(to_utf16(path))) code = ERROR_ALREADY_EXISTS;
    throw file_error(of_new_entry(code), "make the folder", path, code);
}

std::unique_ptr<TextFile> WindowsFiles::create_text(const std::string& path, TextPurpose) {
    if (!names_one_entry(path))
        throw file_error(RuntimeError::path_file_access, "write", path, ERROR_INVALID_NAME);
    const std::wstring wide = to_utf16(path);
    const HANDLE file = CreateFileW(wide.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        DWORD code = GetLastError();
        if (code == ERROR_ACCESS_DENIED && is_folder(wide)) code = ERROR_FILE_EXISTS;
        throw file_error(of_new_entry(code), "write", path, code);
    }
    return std::make_unique<WindowsText>(file, path);
}

std::unique_ptr<Listing> WindowsFiles::list(const std::string& pattern) {
    // The system would stop at the NUL and list something else.
    const bool holds_nul = pattern.find('\0') != std::string::npos;
    WIN32_FIND_DATAW first{};
    const HANDLE search =
        holds_nul ? INVALID_HANDLE_VALUE : FindFirstFileW(to_utf16(whole_pattern(pattern)).c_str(), &first);
    const DWORD code = holds_nul ? ERROR_INVALID_NAME : GetLastError();
    if (search == INVALID_HANDLE_VALUE && !is_no_match(code))
        throw file_error(of_listing(code), "list", pattern, code);
    return std::make_unique<WindowsListing>(search, first, pattern);
}

}  // namespace foliant::platform::win32
