// Dialogs that nobody here has written: those of the programs that come with the system.

#include <array>
#include <fstream>
#include <gtest/gtest.h>
#include <optional>

#include "sender/win32/message.h"
#include "windows/sender/sender_process.h"

// clang-format off: it needs what the others bring
#include <commctrl.h>
// clang-format on

namespace foliant::sender::win32::test {
namespace {

std::wstring temporary_folder() {
    std::array<wchar_t, MAX_PATH> folder{};
    GetTempPathW(MAX_PATH, folder.data());
    return folder.data();
}

void write(const std::wstring& path, const std::string& content) {
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD written = 0;
    WriteFile(file, content.data(), static_cast<DWORD>(content.size()), &written, nullptr);
    CloseHandle(file);
}

/// Waits for something to be so, ten seconds at most.
template <class Question>
bool comes_true(Question&& question) {
    for (int i = 0; i < 200; ++i) {
        if (question()) return true;
        Sleep(50);
    }
    return false;
}

std::wstring without_mnemonic(std::wstring label) {
    std::erase(label, L'&');
    return label;
}

/// The number of the menu item whose label begins so.
std::optional<UINT> find_item(HMENU menu, const std::wstring& label) {
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        std::array<wchar_t, 200> text{};
        GetMenuStringW(menu, static_cast<UINT>(i), text.data(), 200, MF_BYPOSITION);
        if (const HMENU below = GetSubMenu(menu, i)) {
            if (const auto found = find_item(below, label)) return found;
        } else if (without_mnemonic(text.data()).starts_with(label)) {
            return GetMenuItemID(menu, i);
        }
    }
    return std::nullopt;
}

struct MenuSearch {
    const std::wstring& label;
    std::optional<UINT> found;
};

BOOL CALLBACK look_in_menu(HMODULE module, LPCWSTR, LPWSTR name, LONG_PTR search) {
    auto& sought = *reinterpret_cast<MenuSearch*>(search);
    const HMENU menu = LoadMenuW(module, name);
    sought.found = find_item(menu, sought.label);
    DestroyMenu(menu);
    return sought.found ? FALSE : TRUE;
}

/// The same in all the menus of a program's file; a menu that is in use belongs to its own process.
std::optional<UINT> find_item(const std::wstring& program, const std::wstring& label) {
    MenuSearch search{label, std::nullopt};
    const HMODULE module = LoadLibraryExW(program.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    EnumResourceNamesW(module, reinterpret_cast<LPCWSTR>(RT_MENU), look_in_menu,
                       reinterpret_cast<LONG_PTR>(&search));
    FreeLibrary(module);
    return search.found;
}

/// The main window of a process; null as long as it shows none.
HWND main_window(DWORD process) {
    for (HWND window = GetTopWindow(nullptr); window != nullptr; window = GetWindow(window, GW_HWNDNEXT)) {
        DWORD owner = 0;
        GetWindowThreadProcessId(window, &owner);
        if (owner == process && IsWindowVisible(window) != 0 && GetWindow(window, GW_OWNER) == nullptr)
            return window;
    }
    return nullptr;
}

/// A program of the system with its main window.
class Application {
  public:
    explicit Application(std::wstring program) : program_(std::move(program)), process_(to_utf8(program_)) {
        EXPECT_TRUE(comes_true([&] { return (window_ = main_window(process_.id())) != nullptr; }))
            << to_utf8(program_) << " shows no window";
    }

    /// Chooses a menu item as its user would, and does not wait for what comes of it.
    void choose(const wchar_t* label) {
        const auto item = find_item(program_, label);
        ASSERT_TRUE(item.has_value()) << to_utf8(label);
        PostMessageW(window_, WM_COMMAND, *item, 0);
    }
    std::string caption() const { return caption_of(window_); }

  private:
    std::wstring program_;
    Process process_;
    HWND window_ = nullptr;
};

std::wstring expanded(const wchar_t* path) {
    std::array<wchar_t, MAX_PATH> text{};
    ExpandEnvironmentStringsW(path, text.data(), MAX_PATH);
    return text.data();
}

TEST(Notepad, OpensTheFileThatTheSenderNames) {
    const std::wstring file = temporary_folder() + L"my \u00DCber letter.txt";
    write(file, "content");
    Application notepad(expanded(L"%windir%\\notepad.exe"));
    SenderProcess sender("open~Edit~" + to_utf8(file) + "~0~0~");
    notepad.choose(L"Open");
    EXPECT_EQ(sender.wait(), 0);
    EXPECT_TRUE(comes_true([&] { return notepad.caption().find(to_utf8(L"my \u00DCber letter")) == 0; }))
        << notepad.caption();
    DeleteFileW(file.c_str());
}

TEST(Notepad, SavesUnderTheNameThatTheSenderGives) {
    const std::wstring file = temporary_folder() + L"saved by sender.txt";
    DeleteFileW(file.c_str());
    Application notepad(expanded(L"%windir%\\notepad.exe"));
    SenderProcess sender("save as~Edit~" + to_utf8(file) + "~0~0~");
    notepad.choose(L"Save as");
    EXPECT_EQ(sender.wait(), 0);
    EXPECT_TRUE(comes_true([&] { return GetFileAttributesW(file.c_str()) != INVALID_FILE_ATTRIBUTES; }));
    DeleteFileW(file.c_str());
}

TEST(WordPad, OpensTheFileThatTheSenderNames) {
    const std::wstring file = temporary_folder() + L"sample for sender.rtf";
    write(file, "{\\rtf1 content}");
    Application wordpad(expanded(L"%ProgramFiles%\\Windows NT\\Accessories\\wordpad.exe"));
    SenderProcess sender("open~Edit~" + to_utf8(file) + "~0~0~");
    wordpad.choose(L"Open");
    EXPECT_EQ(sender.wait(), 0);
    EXPECT_TRUE(comes_true([&] { return wordpad.caption().starts_with("sample for sender.rtf"); }))
        << wordpad.caption();
    DeleteFileW(file.c_str());
}

TEST(RegistryEditor, ImportsTheFileThatTheSenderNames) {
    const std::wstring file = temporary_folder() + L"sender.reg";
    constexpr const wchar_t* key = L"Software\\Foliant tests of the sender";
    write(file,
          "REGEDIT4\r\n\r\n[HKEY_CURRENT_USER\\Software\\Foliant tests of the sender]\r\n\"a\"=\"b\"\r\n");
    RegDeleteKeyW(HKEY_CURRENT_USER, key);
    Application regedit(expanded(L"%windir%\\regedit.exe"));
    SenderProcess sender("import registry file~Edit~" + to_utf8(file) + "~0~0~");
    regedit.choose(L"Import Registry File");
    EXPECT_EQ(sender.wait(), 0);
    EXPECT_TRUE(comes_true([&] { return RegDeleteKeyW(HKEY_CURRENT_USER, key) == ERROR_SUCCESS; }));
    DeleteFileW(file.c_str());
}

std::wstring text_of(HWND control) {
    std::wstring text(static_cast<std::size_t>(SendMessageW(control, WM_GETTEXTLENGTH, 0, 0)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(
        SendMessageW(control, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
    return text;
}

/// The window of that class somewhere inside another.
HWND inner_window(HWND outer, const wchar_t* window_class) {
    if (const HWND child = FindWindowExW(outer, nullptr, window_class, nullptr)) return child;
    for (HWND child = GetWindow(outer, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
        if (const HWND found = inner_window(child, window_class)) return found;
    return nullptr;
}

/// What the viewer says of each entry of its tree, all of it together.
std::string shown_in(HWND viewer) {
    const HWND tree = inner_window(viewer, L"SysTreeView32");
    const HWND pane = inner_window(viewer, L"Edit");
    const auto next = [&](WPARAM which, LRESULT item) {
        return SendMessageW(tree, TVM_GETNEXTITEM, which, item);
    };
    std::string text;
    for (LRESULT entry = next(TVGN_ROOT, 0); entry != 0; entry = next(TVGN_NEXTVISIBLE, entry)) {
        SendMessageW(tree, TVM_EXPAND, TVE_EXPAND, entry);
        SendMessageW(tree, TVM_SELECTITEM, TVGN_CARET, entry);
        text += to_utf8(text_of(pane));
    }
    return text;
}

TEST(TypeLibraryViewer, ShowsWhatIsInTheLibrary) {
    Application viewer(expanded(L"%windir%\\system32\\oleview.exe"));
    std::array<wchar_t, MAX_PATH> library{};
    GetFullPathNameW(FOLIANT_DLL, MAX_PATH, library.data(), nullptr);
    SenderProcess sender("open~Edit~" + to_utf8(library.data()) + "~0~0~");
    viewer.choose(L"View TypeLib");
    EXPECT_EQ(sender.wait(), 0);
    HWND window = nullptr;
    ASSERT_TRUE(comes_true([&] { return (window = FindWindowW(nullptr, L"ITypeLib viewer")) != nullptr; }));
    std::string shown;
    EXPECT_TRUE(comes_true([&] { return !(shown = shown_in(window)).empty(); }));
    for (const char* part : {"library Foliant", "coclass BuildPDF", "interface _BuildPDF",
                             "CreatePDFfromWord", "qrxAlignCenter", "JobStart"})
        EXPECT_NE(shown.find(part), std::string::npos) << part << " is not in: " << shown;
}

}  // namespace
}  // namespace foliant::sender::win32::test
