// SetDefPrinter by the real component, in a process of its own on both families of Windows. The system's
// printers are a library that records: Wine's own cannot be changed the way that Windows 95 has it.

#include <gtest/gtest.h>

#include "platform/win32/listening_window.h"
#include "platform/win32/text.h"
#include "windows/servers/record.h"

namespace foliant::tests::printers {
namespace {

using platform::win32::to_utf16;
using platform::win32::test::ListeningWindow;

constexpr const wchar_t* settings_of_the_client = L"Software\\Wine\\AppDefaults\\printer_client.exe";

void set_for_the_client(const std::wstring& key, const wchar_t* name, const std::wstring& text) {
    RegSetKeyValueW(HKEY_CURRENT_USER, (settings_of_the_client + key).c_str(), name, REG_SZ, text.c_str(),
                    static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

class DefaultPrinter : public testing::Test {
  protected:
    /// The next client finds this version of Windows, and the recording printers.
    explicit DefaultPrinter(const wchar_t* windows) {
        set_for_the_client(L"", L"Version", windows);
        set_for_the_client(L"\\DllOverrides", L"winspool.drv", L"native");
        DeleteFileW(servers::record_path().c_str());
        WriteProfileStringA("windows", "Device", "Office printer,winspool,Ne00:");
        WriteProfileStringA("PrinterPorts", "Adobe PDF", "winspool,Ne01:,15,45");
        WriteProfileStringA("PrinterPorts", "No timeouts", "winspool,Ne02:");
    }
    ~DefaultPrinter() override { RegDeleteTreeW(HKEY_CURRENT_USER, settings_of_the_client); }

    /// One call: what was asked of the printers, the sections that windows were told of, and the default
    /// printer afterwards.
    static std::string set_default_printer(const std::string& name) {
        const ListeningWindow other_program;
        std::wstring command = L"\"" PRINTER_CLIENT L"\" \"" + to_utf16(name) + L"\"";
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        PROCESS_INFORMATION started{};
        CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                       &started);
        WaitForSingleObject(started.hProcess, INFINITE);
        DWORD code = 99;
        GetExitCodeProcess(started.hProcess, &code);
        CloseHandle(started.hThread);
        CloseHandle(started.hProcess);
        char device[100];
        GetProfileStringA("windows", "Device", "", device, sizeof device);
        return (code == 0 ? "" : "ends with " + std::to_string(code) + "\n") +
               servers::read_file(servers::record_path()) + "told: " + other_program.heard() +
               "\ndefault: " + device + "\n";
    }
};

constexpr char nobody_told[] =
    "told: \n"
    "default: Office printer,winspool,Ne00:\n";

class DefaultPrinterOfWindows95 : public DefaultPrinter {
  protected:
    DefaultPrinterOfWindows95() : DefaultPrinter(L"win98") {}
};

TEST_F(DefaultPrinterOfWindows95, IsSetByItsAttributesWhichAreThenFour) {
    EXPECT_EQ(set_default_printer("Adobe PDF"),
              std::string("OpenPrinterA \"Adobe PDF\", data type none, no device mode, access F000C\n"
                          "GetPrinterA \"Adobe PDF\", level 5, no buffer\n"
                          "GetPrinterA \"Adobe PDF\", level 5, a buffer of what is needed\n"
                          "SetPrinterA \"Adobe PDF\", level 5: \"Adobe PDF\", \"FILE:\", attributes 4, "
                          "15000, 45000; command 0\n"
                          "ClosePrinter \"Adobe PDF\"\n") +
                  nobody_told);
}

TEST_F(DefaultPrinterOfWindows95, StaysWhenThePrinterIsNotThere) {
    EXPECT_EQ(set_default_printer("Nowhere"),
              std::string("OpenPrinterA \"Nowhere\", data type none, no device mode, access F000C\n") +
                  nobody_told);
}

TEST_F(DefaultPrinterOfWindows95, StaysWhenNoPrinterIsNamed) {
    EXPECT_EQ(set_default_printer(""), nobody_told);
}

TEST_F(DefaultPrinterOfWindows95, StaysAndThePrinterOpenWhenItCannotBeRead) {
    EXPECT_EQ(set_default_printer("Secret"),
              std::string("OpenPrinterA \"Secret\", data type none, no device mode, access F000C\n"
                          "GetPrinterA \"Secret\", level 5, no buffer\n"
                          "GetPrinterA \"Secret\", level 5, a buffer of what is needed\n") +
                  nobody_told);
}

TEST_F(DefaultPrinterOfWindows95, StaysAndThePrinterOpenWhenItCannotBeChanged) {
    EXPECT_EQ(set_default_printer("Locked"),
              std::string("OpenPrinterA \"Locked\", data type none, no device mode, access F000C\n"
                          "GetPrinterA \"Locked\", level 5, no buffer\n"
                          "GetPrinterA \"Locked\", level 5, a buffer of what is needed\n"
                          "SetPrinterA \"Locked\", level 5: \"Locked\", \"LPT2:\", attributes 4, 15000, "
                          "45000; command 0\n") +
                  nobody_told);
}

class DefaultPrinterOfWindowsNT : public DefaultPrinter {
  protected:
    DefaultPrinterOfWindowsNT() : DefaultPrinter(L"winxp") {}
};

TEST_F(DefaultPrinterOfWindowsNT, IsSetInTheProfileAndEveryWindowIsToldOnce) {
    EXPECT_EQ(set_default_printer("Adobe PDF"),
              "told: windows;\n"
              "default: Adobe PDF,winspool,Ne01:\n");
}

TEST_F(DefaultPrinterOfWindowsNT, StaysWhenTheProfileDoesNotKnowThePrinterWhole) {
    for (const char* name : {"Nowhere", "No timeouts", ""})
        EXPECT_EQ(set_default_printer(name), nobody_told) << name;
}

}  // namespace
}  // namespace foliant::tests::printers
