// Windows keeps what the ports promise.

#include <gtest/gtest.h>
#include <memory>
#include <ole2.h>
#include <optional>
#include <string>

#include "platform/contract/world.h"
#include "platform/win32/noting_program.h"
#include "platform/win32/scratch.h"
#include "platform/win32/text.h"
#include "platform/win32/windows_platform.h"

namespace foliant::platform::win32::test {
namespace {

using contract::PortContract;

/// Puts a key of the tests' own in the place of a root of the registry for the length of a scope.
class OwnRoot {
  public:
    OwnRoot(HKEY root, const wchar_t* path) : root_(root) { RegCreateKeyW(HKEY_CURRENT_USER, path, &own_); }
    OwnRoot(const OwnRoot&) = delete;
    OwnRoot& operator=(const OwnRoot&) = delete;
    ~OwnRoot() {
        RegOverridePredefKey(root_, nullptr);
        RegCloseKey(own_);
    }

    void take_its_place() const { RegOverridePredefKey(root_, own_); }
    HKEY key() const { return own_; }

  private:
    HKEY root_;
    HKEY own_ = nullptr;
};

void set_text(HKEY key, const wchar_t* path, const wchar_t* text) {
    RegSetValueW(key, path, REG_SZ, text, 0);
}

/// A program that does nothing, under the sender's name.
class InstalledSender {
  public:
    InstalledSender() {
        wchar_t folder[MAX_PATH];
        GetSystemDirectoryW(folder, MAX_PATH);
        path_ = folder + std::wstring(L"\\quorixsend.exe");
        CopyFileW((folder + std::wstring(L"\\lodctr.exe")).c_str(), path_.c_str(), TRUE);
    }
    InstalledSender(const InstalledSender&) = delete;
    InstalledSender& operator=(const InstalledSender&) = delete;
    ~InstalledSender() {
        // It cannot be deleted while it runs, and it does not run for long.
        for (int i = 0; i < 100 && DeleteFileW(path_.c_str()) == 0; ++i)
            Sleep(50);
    }

  private:
    std::wstring path_;
};

/// A window in the foreground with an edit control that has the keyboard, its text selected as in a dialog.
class KeyDialog {
  public:
    KeyDialog() {
        edit_ = CreateWindowW(L"Edit", L"former", WS_POPUP | WS_VISIBLE | ES_AUTOHSCROLL, 0, 0, 99, 9,
                              nullptr, nullptr, nullptr, nullptr);
        SetWindowLongPtrW(edit_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        former_ = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(edit_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(note)));
        SetForegroundWindow(edit_);
        SetFocus(edit_);
        SendMessageW(edit_, EM_SETSEL, 0, -1);
    }
    KeyDialog(const KeyDialog&) = delete;
    KeyDialog& operator=(const KeyDialog&) = delete;
    ~KeyDialog() { DestroyWindow(edit_); }

    std::string typed() const {
        wchar_t text[200];
        GetWindowTextW(edit_, text, 200);
        const std::string shown = to_utf8(std::wstring_view(text));
        return (shown == "former" ? "" : shown) + (entered_ ? "\n" : "");
    }

  private:
    static LRESULT CALLBACK note(HWND window, UINT message, WPARAM first, LPARAM second) {
        auto& self = *reinterpret_cast<KeyDialog*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (message == WM_KEYDOWN && first == VK_RETURN) self.entered_ = true;
        return CallWindowProcW(self.former_, window, message, first, second);
    }

    HWND edit_ = nullptr;
    WNDPROC former_ = nullptr;
    bool entered_ = false;
};

class WindowsWorld : public contract::World {
  public:
    WindowsWorld() {
        GetCurrentDirectoryW(MAX_PATH, former_folder_);
        set_text(machine_.key(), L"SOFTWARE\\Classes\\AcroExch.App\\AcrobatVersion", L"6.0");
        set_text(machine_.key(), L"SOFTWARE\\Adobe\\Acrobat Distiller\\6.0\\PrinterName", L"Adobe PDF");
        machine_.take_its_place();
        user_.take_its_place();
        for (const char* printer : {"Adobe PDF", "Acrobat Distiller"})
            WriteProfileStringA("PrinterPorts", printer, "winspool,Ne00:,15,45");
    }
    ~WindowsWorld() override { SetCurrentDirectoryW(former_folder_); }

    Platform ports() override { return platform_.platform(); }
    std::string path(const std::string& name) const override { return scratch_.path(name); }
    void put_file(const std::string& name) override {
        ports().files.create_text(path(name), TextPurpose::result)->write_line("x");
    }
    void put_hidden_file(const std::string& name) override {
        put_file(name);
        SetFileAttributesW(to_utf16(path(name)).c_str(), FILE_ATTRIBUTE_HIDDEN);
    }
    void put_folder(const std::string& name) override {
        CreateDirectoryW(to_utf16(path(name)).c_str(), nullptr);
    }
    std::string content(const std::string& name) const override { return from_ansi(scratch_.content(name)); }
    void enter_folder() override { SetCurrentDirectoryW(to_utf16(scratch_.folder()).c_str()); }
    std::string install_program() override {
        wchar_t own[MAX_PATH];
        GetModuleFileNameW(nullptr, own, MAX_PATH);
        CopyFileW(own, to_utf16(path(noting_program)).c_str(), TRUE);
        enter_folder();
        return noting_program;
    }
    std::string started_with() override {
        for (int i = 0; i < 100 && scratch_.content(noted_arguments).empty(); ++i)
            Sleep(50);
        // Its file can be deleted when it has ended.
        for (int i = 0; i < 100 && DeleteFileW(to_utf16(path(noting_program)).c_str()) == 0; ++i)
            Sleep(50);
        return scratch_.content(noted_arguments);
    }
    automation::Value make_collection(const std::vector<std::string>& texts) override {
        const automation::Value dictionary = ports().servers.create("Scripting.Dictionary");
        for (const std::string& text : texts)
            dictionary.call("Add", {text, true});
        return dictionary;
    }
    void put_window(const std::string& caption) override {
        CreateWindowW(L"Static", to_utf16(caption).c_str(), WS_OVERLAPPEDWINDOW, 0, 0, 9, 9, nullptr, nullptr,
                      nullptr, nullptr);
    }
    void await_keys() override { dialog_.emplace(); }
    std::string typed() override {
        ports().clock.pump_messages();
        return dialog_->typed();
    }

  private:
    /// Deletes the keys that stand for the roots when they stand for them no more.
    struct Sweeper {
        ~Sweeper() { RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Foliant tests"); }
    } sweeper_;
    Scratch scratch_;
    InstalledSender sender_;
    OwnRoot machine_{HKEY_LOCAL_MACHINE, L"Software\\Foliant tests\\Machine"};
    OwnRoot user_{HKEY_CURRENT_USER, L"Software\\Foliant tests\\User"};
    WindowsPlatform platform_;
    std::optional<KeyDialog> dialog_;
    wchar_t former_folder_[MAX_PATH]{};
};

std::unique_ptr<contract::World> make_world() {
    return std::make_unique<WindowsWorld>();
}

INSTANTIATE_TEST_SUITE_P(Windows, PortContract, testing::Values(contract::WorldMaker{"Windows", make_world}));

}  // namespace
}  // namespace foliant::platform::win32::test
