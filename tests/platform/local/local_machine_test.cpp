#include "platform/local/local_machine.h"

#include <chrono>
#include <functional>
#include <gtest/gtest.h>

#include "automation/error.h"
#include "engines/acrobat_windows.h"
#include "engines/dialog_sender.h"
#include "engines/printer_job.h"
#include "registered/classes.h"
#include "session/session.h"
#include "support/scratch_folder.h"

namespace foliant::platform::local::test {
namespace {

namespace fs = std::filesystem;

class Deaf : public automation::EventSink {
  public:
    void notify(std::string_view, std::span<const automation::Value>) override {}
};

class LocalMachineTest : public testing::Test {
  protected:
    tests::ScratchFolder folder;
    std::string boxes;
    std::string troubles;
    LocalMachine machine{{.temporary_folder = folder.path(),
                          .configuration_folder = folder.path() / "settings",
                          .hosts_folder = FOLIANT_TEST_HOSTS,
                          .on_message_box = [this](const std::string& prompt, const std::string&,
                                                   std::uint32_t) { boxes += prompt + "\n"; },
                          .on_trouble = [this](const std::string& trouble) { troubles += trouble + "\n"; }}};
    Platform ports = machine.platform();
    Deaf events;
};

TEST_F(LocalMachineTest, ASessionFindsAcrobat6AndKeepsItsTemporaryFilesInThePrivateFolder) {
    const session::Session session(ports, events);
    EXPECT_EQ(session.AcrobatVersion(), "6.0");
    EXPECT_EQ(session.PrinterName(), "Adobe PDF");
    EXPECT_EQ(session.TempFilePath(), machine.private_folder().string() + "/");
    EXPECT_FALSE(fs::exists(folder.path() / "settings"));
}

TEST_F(LocalMachineTest, ASessionTakesTheUsersSettings) {
    machine.registry().set("HKLM\\SOFTWARE\\Adobe\\Acrobat Distiller\\6.0\\PrinterName", "",
                           StoredValue::of_text("Office PDF"));
    const session::Session session(ports, events);
    EXPECT_EQ(session.PrinterName(), "Office PDF");
    EXPECT_TRUE(machine.is_pdf_printer("Office PDF"));
    EXPECT_EQ(machine.default_printer(), "Office PDF");
}

TEST_F(LocalMachineTest, TheSenderIsInTheSystemFolderAndNotInTheLibrarysOwn) {
    const session::Session session(ports, events);
    EXPECT_FALSE(fs::exists(machine.private_folder() / "system")) << "it is made when it is wanted";
    const auto found = engines::locate_sender(session);
    ASSERT_TRUE(found.has_value());
    EXPECT_EQ(*found, (machine.private_folder() / "system").string());
    EXPECT_EQ(fs::canonical(*found + "/quorixsend.exe"), fs::read_symlink("/proc/self/exe"));
    EXPECT_FALSE(fs::exists(fs::path(ports.shell.library_folder()) / "quorixsend.exe"));
}

TEST_F(LocalMachineTest, AHostFindsTheScratchTextOfACallAndNoOtherFile) {
    tests::write_file(folder / "users.ps", "%!");
    const auto text = ports.files.create_text(folder / "book.ps", TextPurpose::scratch);
    text->write_line("(a.ps) prun");
    text->close();
    EXPECT_EQ(machine.scratch_text(folder / "book.ps"), std::vector<std::string>{"(a.ps) prun"});
    EXPECT_EQ(machine.scratch_text(folder / "users.ps"), std::nullopt);
    ports.files.remove(folder / "book.ps");
    EXPECT_EQ(machine.scratch_text(folder / "book.ps"), std::nullopt);
}

TEST_F(LocalMachineTest, ASettingThatIsThereAndNoTextIsNotTakenForMissing) {
    const std::string key = "Software\\Adobe\\Acrobat Distiller\\6.0\\Security";
    machine.registry().set("HKCU\\" + key, "OpenPassword", {reg_number, std::string(4, '\0')});
    EXPECT_THROW(machine.setting(key, "OpenPassword"), automation::Error);
}

TEST_F(LocalMachineTest, SettingsThatCannotBeReadAreNotTakenForMissing) {
    fs::create_directory(folder.path() / "settings");
    tests::write_file(folder / "settings/registry.json", "{ broken");
    EXPECT_THROW(machine.setting("Software\\Adobe", "OpenPassword"), automation::Error);
}

// The whole printer-based job on a host that, like a real one, blocks in the printer's dialog.
TEST_F(LocalMachineTest, APrinterJobAnswersTheDialogOfAHostAndClosesTheViewer) {
    const session::Session session(ports, events);
    const std::string target = folder / "My Report.pdf";
    engines::answer_printer_dialogs(session, target);
    const automation::Value host = ports.servers.create(registered::event_bound_distiller);
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(host.call("Save"), automation::Value(target));
    tests::write_file(target, "%PDF-1.4");
    engines::wait_for_file(session, target);
    EXPECT_NE(ports.windows.find_window("Adobe Acrobat - [My Report.pdf]"), 0);
    engines::close_acrobat_window(session, target);
    EXPECT_EQ(ports.windows.find_window("Adobe Acrobat - [My Report.pdf]"), 0);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(1))
        << "no wait may take time here";
    EXPECT_EQ(boxes, "");
}

TEST_F(LocalMachineTest, AHostWhoseDialogNobodyAnswersRaisesAndLeavesNoViewer) {
    const automation::Value host = ports.servers.create(registered::event_bound_distiller);
    EXPECT_THROW(host.call("Save"), automation::Error);
    EXPECT_EQ(ports.windows.find_window("Adobe Acrobat - [untitled.pdf]"), 0);
}

TEST_F(LocalMachineTest, NoWindowOpensThatNoHostHasOpened) {
    const session::Session session(ports, events);
    engines::answer_printer_dialogs(session, folder / "a.pdf");
    hosts::Dialog dialog{"Save PDF File As", {{"Edit", "", ""}}, {}, false};
    machine.show(dialog);
    EXPECT_TRUE(dialog.accepted);
    EXPECT_EQ(ports.windows.find_window("Adobe Acrobat - [a.pdf]"), 0);
}

TEST_F(LocalMachineTest, AWindowIsThereUntilItsHostClosesIt) {
    const hosts::HostWindow window = machine.open_window("Adobe Acrobat", {});
    const hosts::HostWindow other = machine.open_window("Adobe Acrobat - [a.pdf]", {});
    EXPECT_NE(window, other);
    machine.close_window(window);
    EXPECT_EQ(ports.windows.find_window("adobe acrobat"), 0);
    EXPECT_NE(ports.windows.find_window("adobe acrobat - [a.pdf]"), 0);
}

TEST_F(LocalMachineTest, WhatAHostHandsToAcrobatHasAWindowUntilAcrobatTakesIt) {
    const std::string pdf = folder.write("made.pdf", "%PDF-1.4");
    machine.show_in_acrobat(pdf, "letter.pdf");
    fs::remove(pdf);
    EXPECT_NE(ports.windows.find_window("adobe acrobat - [LETTER.pdf]"), 0);
    const auto taken = machine.take_handed_over();
    ASSERT_TRUE(taken.has_value());
    EXPECT_EQ(taken->name, "letter.pdf");
    EXPECT_TRUE(taken->pdf);
    EXPECT_EQ(ports.windows.find_window("adobe acrobat - [letter.pdf]"), 0) << "Acrobat opens its own";
    EXPECT_FALSE(machine.take_handed_over().has_value());
}

TEST_F(LocalMachineTest, WhatIsClosedBeforeAcrobatTakesItIsGone) {
    machine.show_in_acrobat(folder.write("made.pdf", "%PDF-1.4"), "letter.pdf");
    ports.windows.close_window(ports.windows.find_window("adobe acrobat - [letter.pdf]"), "0");
    EXPECT_FALSE(machine.take_handed_over().has_value());
}

TEST_F(LocalMachineTest, ASenderCommandThatCannotBeReadIsToldAndAnswersNothing) {
    const session::Session session(ports, events);
    const std::string sender = engines::system_folder(session) + "/quorixsend.exe";
    EXPECT_NO_THROW(ports.programs.start(sender + " save pdf file as~Edit~/secret", WindowStyle::hidden));
    EXPECT_NE(troubles, "");
    EXPECT_EQ(troubles.find("secret"), std::string::npos) << troubles;
}

TEST_F(LocalMachineTest, AnUnknownProgramIsNamedWithoutItsArguments) {
    try {
        ports.programs.start("/nowhere/notepad.exe /p secret", WindowStyle::hidden);
        FAIL();
    } catch (const automation::Error& error) {
        EXPECT_EQ(error.number(), 53);
        EXPECT_EQ(error.description(), "File not found: this machine has no program /nowhere/notepad.exe.");
    }
}

TEST_F(LocalMachineTest, NotepadIsThereToPrintAndForNothingElse) {
    for (const char* line :
         {"notepad.exe", "notepad.exe /p", "notepad.exe /p \"\"", "notepad.exe notes.txt"}) {
        try {
            ports.programs.start(line, WindowStyle::hidden);
            FAIL() << line;
        } catch (const automation::Error& error) {
            EXPECT_EQ(error.description(), "Notepad only prints here: notepad.exe /p \"FILE\".");
        }
    }
}

TEST_F(LocalMachineTest, AProgramThatIsInstalledLaterStarts) {
    std::string ran;
    machine.programs().install("notepad.exe", [&](std::string_view tail) { ran = std::string(tail) + "|"; });
    ports.programs.start("notepad.exe /p My File.txt", WindowStyle::hidden);
    EXPECT_EQ(ran, "/p My File.txt|");
    ports.programs.start("notepad.exe", WindowStyle::hidden);
    EXPECT_EQ(ran, "|");
}

TEST_F(LocalMachineTest, TellsHostsTheUsersSettings) {
    machine.registry().set("HKCU\\Software\\Adobe\\Acrobat Distiller\\6.0\\Security", "Password",
                           StoredValue::of_text("x"));
    const hosts::Machine& seen = machine;
    EXPECT_EQ(seen.setting("Software\\Adobe\\Acrobat Distiller\\6.0\\Security", "password"), "x");
    EXPECT_EQ(seen.setting("Software\\Adobe\\Acrobat Distiller\\6.0\\Security", "Missing"), std::nullopt);
    EXPECT_EQ(seen.setting("Software\\Adobe\\Nothing", "x"), std::nullopt);
}

TEST_F(LocalMachineTest, ATemporaryFolderWithBlanksIsAsGoodAsAnyOther) {
    fs::create_directory(folder.path() / "My Temp");
    LocalMachine blank({.temporary_folder = folder.path() / "My Temp",
                        .configuration_folder = folder.path(),
                        .hosts_folder = FOLIANT_TEST_HOSTS});
    const session::Session session(blank.platform(), events);
    engines::answer_printer_dialogs(session, folder / "a b.pdf");
    hosts::Dialog dialog{"Save PDF File As", {{"Edit", "", ""}}, {}, false};
    blank.show(dialog);
    EXPECT_EQ(dialog.controls[0].text, folder / "a b.pdf");
}

TEST(LocalMachine, LeavesNothingBehind) {
    const tests::ScratchFolder folder;
    {
        LocalMachine machine(
            {.temporary_folder = folder.path(), .configuration_folder = folder.path() / "settings"});
        machine.platform().shell.special_folder(0, 37);
        tests::write_file(machine.private_folder() / "123.ps", "x");
    }
    EXPECT_TRUE(fs::is_empty(folder.path()));
}

}  // namespace
}  // namespace foliant::platform::local::test
