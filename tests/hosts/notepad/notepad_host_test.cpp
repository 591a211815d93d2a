// Notepad's stand-in, as the command has it.

#include <gtest/gtest.h>

#include "automation/value.h"
#include "hosts/built_module.h"
#include "hosts/noting_machine.h"
#include "hosts/office/pdf_reader.h"
#include "hosts/process/host_process.h"
#include "support/error_of.h"
#include "support/scratch_folder.h"

namespace foliant::hosts::notepad {
namespace {

using automation::Value;
using office::test::PdfReader;

const Module& notepad_module() {
    static const Module& module = tests::built_module(NOTEPAD_MODULE);
    return module;
}

class NotepadHost : public testing::Test {
  protected:
    NotepadHost() { machine.printer = "Adobe PDF"; }

    std::string write(const std::string& name, std::string_view content) const {
        return folder.write(name, content).string();
    }
    void print(const std::string& file) const { notepad.call("PrintFile", {file}); }

    tests::ScratchFolder folder;
    tests::NotingMachine machine;
    process::HostProcess host{{"Notepad", "Pango and cairo", notepad_module}, machine};
    Value notepad = host.create("notepad.exe");
};

using Notes = std::vector<std::string>;

TEST_F(NotepadHost, PrintsOnThePdfPrinterToTheFileThatItsDialogIsAnsweredWith) {
    machine.answer = (folder / "out.pdf").string();
    print(write("My notes.txt", "Größe\n"));
    const PdfReader pdf(machine.answer);
    EXPECT_EQ(pdf.text(1), "My notes.txt / Größe / Page 1");
    EXPECT_EQ(pdf.title(), "My notes.txt");
    EXPECT_EQ(machine.notes,
              (Notes{"dialog Save PDF File As: My notes.pdf", "window Adobe Acrobat - [out.pdf]"}));
}

TEST_F(NotepadHost, PrintsOnTheDefaultPrinterWhicheverThatIs) {
    machine.printer = "Office";
    print(write("notes.txt", "a\fb"));
    EXPECT_EQ(machine.notes, Notes{"print notes.txt on Office, pages 2"});
    for (const auto& entry : std::filesystem::recursive_directory_iterator(machine.private_folder()))
        EXPECT_FALSE(entry.is_regular_file()) << entry.path();
}

TEST_F(NotepadHost, PrintsOneFileAfterTheOther) {
    for (const char* name : {"one.txt", "two.txt"}) {
        machine.answer = (folder / name).replace_extension(".pdf").string();
        print(write(name, name));
        EXPECT_EQ(PdfReader(machine.answer).title(), name);
    }
}

TEST_F(NotepadHost, SaysWhyAFileCannotBeRead) {
    EXPECT_EQ(tests::failure([&] { print(folder / "none.txt"); }),
              "53 " + (folder / "none.txt").string() + " cannot be opened: there is no such file.");
    EXPECT_EQ(tests::failure([&] { print(folder.path()); }),
              "75 " + folder.path().string() + " cannot be opened: it is a folder.");
    EXPECT_EQ(machine.notes, Notes{}) << "no dialog for what is not printed";
}

TEST_F(NotepadHost, PrintsNoProgram) {
    std::string noise;
    for (int i = 0; i < 4096; ++i)
        noise += static_cast<char>(i * 7);
    const auto error = tests::error_of([&] { print(write("tool.exe", noise)); });
    EXPECT_EQ(error.number(), static_cast<std::int32_t>(0x80004005U));
    EXPECT_EQ(error.source(), "Notepad");
    EXPECT_EQ(error.description(),
              (folder / "tool.exe").string() +
                  " holds no text, but what only programs read. Give a plain text file.");
    EXPECT_EQ(machine.notes, Notes{});
}

TEST_F(NotepadHost, LeavesNothingWhereItsDialogIsCancelled) {
    const auto error = tests::error_of([&] { print(write("notes.txt", "a\n")); });
    EXPECT_NE(error.description().find("notes.txt was not printed"), std::string::npos)
        << error.description();
    EXPECT_EQ(tests::names_in(folder.path()), tests::Names{"notes.txt"});
}

TEST_F(NotepadHost, SaysWhyTheOutputCannotBeWritten) {
    machine.answer = (folder / "missing/out.pdf").string();
    const auto error = tests::error_of([&] { print(write("notes.txt", "a\n")); });
    EXPECT_EQ(error.number(), 76);
    EXPECT_NE(error.description().find(machine.answer), std::string::npos) << error.description();
}

TEST_F(NotepadHost, RefusesATextThatNoNotepadWouldOpen) {
    write("huge.txt", "a");
    std::filesystem::resize_file(folder / "huge.txt", std::uintmax_t{257} << 20U);
    const auto error = tests::error_of([&] { print(folder / "huge.txt"); });
    EXPECT_NE(error.description().find("too large"), std::string::npos) << error.description();
}

}  // namespace
}  // namespace foliant::hosts::notepad
