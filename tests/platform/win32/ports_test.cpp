// What the ports promise, kept by Windows itself.

#include <gtest/gtest.h>
#include <ole2.h>
#include <string>

#include "automation/error.h"
#include "platform/win32/listening_window.h"
#include "platform/win32/noting_program.h"
#include "platform/win32/scratch.h"
#include "platform/win32/text.h"
#include "platform/win32/windows_platform.h"
#include "support/error_of.h"

// clang-format off: it needs what the others bring
#include <winspool.h>
// clang-format on

namespace foliant::platform::win32::test {
namespace {

constexpr std::uint32_t read_and_write = 0x2000F;
constexpr std::uint32_t all_access = 0xF003F;

using tests::error_number;

int messages_handled = 0;

LRESULT CALLBACK count_message(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_APP) ++messages_handled;
    return DefWindowProcW(window, message, first, second);
}

class WindowsPorts : public testing::Test {
  protected:
    std::string path(const std::string& name) const { return scratch_.path(name); }
    void write(const std::string& name) {
        ports.files.create_text(path(name), TextPurpose::result)->write_line("text");
    }

    WindowsPlatform platform_;
    Platform ports = platform_.platform();
    Scratch scratch_;
};

TEST_F(WindowsPorts, AFileHasALengthAndWhatIsNoFileRaises53) {
    write("there \xE2\x82\xAC.doc");
    ports.files.make_folder(path("folder"));
    EXPECT_EQ(ports.files.length(path("there \xE2\x82\xAC.doc")), 6);
    for (const char* name : {"missing.doc", "folder", "there.doc\\below", "*.doc", "ther?.doc"})
        EXPECT_EQ(error_number([&] { ports.files.length(path(name)); }), 53) << name;
    EXPECT_EQ(error_number([&] { ports.files.length(""); }), 53);
    EXPECT_EQ(error_number([&] { ports.files.length("Q:\\nowhere"); }), 53);
}

TEST_F(WindowsPorts, AFileThatAnotherHoldsHasALengthAndCannotBeDeleted) {
    write("held.pdf");
    const HANDLE held =
        CreateFileA(path("held.pdf").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_EQ(ports.files.length(path("held.pdf")), 6);
    EXPECT_EQ(error_number([&] { ports.files.remove(path("held.pdf")); }), 70);
    EXPECT_EQ(error_number([&] { ports.files.create_text(path("held.pdf"), TextPurpose::result); }), 70);
    CloseHandle(held);
    ports.files.remove(path("held.pdf"));
    EXPECT_EQ(error_number([&] { ports.files.remove(path("held.pdf")); }), 53);
    EXPECT_EQ(error_number([&] { ports.files.remove(""); }), 53);
}

TEST_F(WindowsPorts, AFolderIsMadeOnceAndOnlyBelowOneThatExists) {
    EXPECT_EQ(error_number([&] { ports.files.make_folder(path("new")); }), 0);
    EXPECT_EQ(error_number([&] { ports.files.make_folder(path("new")); }), 75);
    EXPECT_EQ(error_number([&] { ports.files.make_folder(path("new\\")); }), 75);
    EXPECT_EQ(error_number([&] { ports.files.make_folder("C:\\"); }), 75);
    EXPECT_EQ(error_number([&] { ports.files.make_folder(path("nowhere\\deeper")); }), 76);
    EXPECT_EQ(error_number([&] { ports.files.make_folder(""); }), 76);
}

TEST_F(WindowsPorts, ATextFileIsEmptiedAndHoldsItsLinesInTheCodePage) {
    write("driver.ps");
    const auto file = ports.files.create_text(path("driver.ps"), TextPurpose::result);
    file->write_line("%!PS");
    file->write_line("");
    file->write_line("(caf\xC3\xA9 \xD0\x94) show");
    file->close();
    EXPECT_EQ(scratch_.content("driver.ps"), "%!PS\r\n\r\n(caf\xE9 ?) show\r\n");
    EXPECT_EQ(error_number([&] { ports.files.create_text(path("nowhere\\a.txt"), TextPurpose::result); }),
              76);
    EXPECT_EQ(error_number([&] { ports.files.create_text("", TextPurpose::result); }), 75);
}

TEST_F(WindowsPorts, AListingTakesAnyNameAndLeavesOutWhatBelongsToTheSystem) {
    write("\xE2\x82\xAC \xD0\x96.pdf");
    write("a.pdf");
    write("own.pdf");
    SetFileAttributesA(path("own.pdf").c_str(), FILE_ATTRIBUTE_SYSTEM);
    SetFileAttributesA(path("a.pdf").c_str(), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_ARCHIVE);
    const auto listing = ports.files.list(path("*.pdf"));
    EXPECT_EQ(listing->next(), "a.pdf");
    EXPECT_EQ(listing->next(), "\xE2\x82\xAC \xD0\x96.pdf");
    EXPECT_EQ(listing->next(), std::nullopt);
}

TEST_F(WindowsPorts, AListingOfAnUnknownDriveIsEmptyAndOneOfABadNameRaises52) {
    EXPECT_EQ(ports.files.list("Q:\\in\\*.pdf")->next(), std::nullopt);
    EXPECT_EQ(error_number([&] { ports.files.list(path("<|>\\*.pdf")); }), 52);
    EXPECT_EQ(error_number([&] { ports.files.list(std::string("C:\\*\0.pdf", 9)); }), 52);
}

TEST_F(WindowsPorts, RegistryRootsOpenWithTheAccessThatMembersAskFor) {
    RegistryKey key = 0;
    EXPECT_EQ(ports.registry.open_key(hkey_local_machine, "software\\CLASSES", read_and_write, key), 0);
    EXPECT_EQ(ports.registry.open_key(hkey_local_machine, "", read_and_write, key), 0);
    EXPECT_EQ(ports.registry.open_key(hkey_local_machine, "SOFTWARE\\No such key", read_and_write, key),
              registry_not_found);
}

TEST_F(WindowsPorts, TheClockSleepsAndStartsAtMidnight) {
    const float before = ports.clock.seconds_since_midnight();
    ports.clock.sleep(30);
    ports.clock.settle(30);
    const float passed = ports.clock.seconds_since_midnight() - before;
    EXPECT_TRUE(passed >= 0.03F || passed < -80000.0F) << passed;
    EXPECT_GE(before, 0.0F);
    EXPECT_LT(before, 86400.0F);
    EXPECT_NE(ports.clock.random_seed(), ports.clock.random_seed());
}

TEST_F(WindowsPorts, PumpingHandlesWhatWaitsAndLeavesTheEndToTheCallersLoop) {
    WNDCLASSW shape{};
    shape.lpszClassName = L"Foliant pump test";
    shape.lpfnWndProc = count_message;
    RegisterClassW(&shape);
    const HWND window =
        CreateWindowW(shape.lpszClassName, L"", 0, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
    PostMessageW(window, WM_APP, 0, 0);
    PostMessageW(window, WM_APP, 0, 0);
    ports.clock.pump_messages();
    EXPECT_EQ(messages_handled, 2);
    PostQuitMessage(5);
    ports.clock.pump_messages();
    MSG message{};
    EXPECT_NE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE), 0);
    EXPECT_EQ(message.wParam, 5U);
    DestroyWindow(window);
}

TEST_F(WindowsPorts, KnowTheSystemFolderAndTheirOwn) {
    const auto buffer = ports.shell.special_folder(100, 37);
    ASSERT_TRUE(buffer.has_value());
    EXPECT_EQ(buffer->substr(0, buffer->find('\0')), "C:\\windows\\system32");
    EXPECT_FALSE(ports.shell.special_folder(100, 9999).has_value());
    wchar_t program[MAX_PATH];
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    const std::string own = ports.shell.library_folder();
    EXPECT_TRUE(to_utf8(std::wstring_view(program)).starts_with(own + "\\")) << own;
}

TEST_F(WindowsPorts, AProgramStartsFromAnUnquotedPathAndIsNotAwaited) {
    const std::string made = path("made by program");
    ports.programs.start("C:\\windows\\system32\\cmd.exe /c mkdir \"" + made + "\"", WindowStyle::hidden);
    for (int i = 0; i < 100 && GetFileAttributesA(made.c_str()) == INVALID_FILE_ATTRIBUTES; ++i)
        Sleep(100);
    EXPECT_NE(GetFileAttributesA(made.c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(error_number([&] { ports.programs.start("C:\\nosuch.exe a~b~", WindowStyle::hidden); }), 53);
}

TEST_F(WindowsPorts, AClassThatNobodyHasRaises429) {
    for (const char* name : {"No.SuchClass", "{00000000-1111-2222-3333-444444444444}", "{no class}", ""})
        EXPECT_EQ(error_number([&] { ports.servers.create(name); }), 429) << name;
}

TEST_F(WindowsPorts, APrinterOfTheProfileBecomesTheDefaultAndEveryWindowIsTold) {
    WriteProfileStringA("PrinterPorts", "Adobe PDF", "winspool,Ne00:,15,45");
    EXPECT_EQ(ports.printers.platform_identifier(), 2U);
    EXPECT_EQ(ports.printers.profile_entry("PrinterPorts", "Adobe PDF"), "winspool,Ne00:,15,45");
    EXPECT_EQ(ports.printers.profile_entry("PrinterPorts", "Nowhere"), "");
    EXPECT_EQ(ports.printers.profile_entry("PrinterPorts", ""), "");
    const ListeningWindow other_program;
    ports.printers.write_profile_entry("windows", "Device", "Adobe PDF,winspool,Ne00:");
    ports.printers.announce_profile_change("windows");
    EXPECT_EQ(other_program.heard(), "windows;");
    char device[100];
    GetProfileStringA("windows", "Device", "", device, sizeof device);
    EXPECT_STREQ(device, "Adobe PDF,winspool,Ne00:");
}

/// A printer of the system, gone with this.
class Printer {
  public:
    Printer(std::string name, std::string port, DWORD attributes) {
        char none[] = "";
        char processor[] = "WinPrint";
        char driver[] = "PS Driver";
        DRIVER_INFO_3A driver_info{};
        driver_info.cVersion = 3;
        driver_info.pName = driver_info.pDriverPath = driver_info.pDataFile = driver_info.pConfigFile =
            driver;
        AddPrinterDriverExA(nullptr, 3, reinterpret_cast<BYTE*>(&driver_info), APD_COPY_NEW_FILES);
        PRINTER_INFO_2A info{};
        info.pPrinterName = name.data();
        info.pPortName = port.data();
        info.pDriverName = driver;
        info.pPrintProcessor = processor;
        info.pShareName = info.pComment = info.pLocation = info.pParameters = info.pDatatype = none;
        info.Attributes = attributes;
        printer_ = AddPrinterA(nullptr, 2, reinterpret_cast<BYTE*>(&info));
    }
    Printer(const Printer&) = delete;
    Printer& operator=(const Printer&) = delete;
    ~Printer() {
        DeletePrinter(printer_);
        ClosePrinter(printer_);
    }

  private:
    HANDLE printer_;
};

TEST_F(WindowsPorts, APrinterThatIsThereIsOpenedAndRead) {
    const Printer added("Test printer", "LPT1:", 0x241);
    const PrinterHandle printer = ports.printers.open_printer("Test printer");
    ASSERT_NE(printer, 0);
    const auto info = ports.printers.printer_info(printer);
    ASSERT_TRUE(info.has_value());
    EXPECT_EQ(info->name, "Test printer");
    EXPECT_EQ(info->port, "LPT1:");
    EXPECT_EQ(info->attributes, 0x241U);
    ports.printers.close_printer(printer);
    EXPECT_FALSE(ports.printers.printer_info(printer).has_value());
}

TEST_F(WindowsPorts, APrinterThatIsNotThereCannotBeOpened) {
    EXPECT_EQ(ports.printers.open_printer("Nowhere"), 0);
    EXPECT_FALSE(ports.printers.printer_info(0).has_value());
    EXPECT_FALSE(ports.printers.set_printer_info(0, {"Nowhere", "LPT1:", 4, 15000, 45000}));
}

}  // namespace
}  // namespace foliant::platform::win32::test

int main(int argc, char** argv) {
    if (foliant::platform::win32::test::is_noting_program()) return 0;
    CoInitialize(nullptr);
    testing::InitGoogleTest(&argc, argv);
    const int failed = RUN_ALL_TESTS();
    CoUninitialize();
    return failed;
}
