// The printers, on a spooler of the tests' own that is loaded in place of the machine's (fake_cups.cpp).

#include "platform/local/printers.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <optional>

#include "platform/local/local_printer_control.h"
#include "support/error_of.h"
#include "support/scratch_folder.h"

namespace foliant::platform::local::test {
namespace {

using tests::failure;

class PrintersTest : public testing::Test {
  protected:
    PrintersTest() {
        ::setenv("FAKE_CUPS_JOURNAL", journal.c_str(), 1);
        ::setenv("HOME", folder.path().c_str(), 1);
        for (const char* variable : {"FAKE_CUPS_DEFAULT", "LPDEST", "PRINTER", "CUPS_SERVER"})
            ::unsetenv(variable);
    }

    tests::ScratchFolder folder;
    std::string journal = folder / "journal";
    RegistryStore store{folder.path()};
    Printers printers{store};
};

TEST_F(PrintersTest, ThePdfPrinterHasThreeNamesAndNeedsNoSpooler) {
    store.set("HKLM\\SOFTWARE\\Adobe\\Acrobat Distiller\\6.0\\PrinterName", "",
              StoredValue::of_text("My PDF"));
    for (const char* name : {"Adobe PDF", "Acrobat Distiller", "My PDF"}) {
        EXPECT_TRUE(printers.is_pdf_printer(name)) << name;
        EXPECT_TRUE(printers.has(name)) << name;
    }
    EXPECT_FALSE(printers.is_pdf_printer("adobe pdf"));
    EXPECT_FALSE(printers.is_pdf_printer(""));
    EXPECT_EQ(tests::read_file(journal), "") << "the spooler must not be asked";
}

TEST_F(PrintersTest, TheChosenOneIsTheDefaultAsLongAsItIsThere) {
    ::setenv("PRINTER", "Office", 1);
    ::setenv("FAKE_CUPS_DEFAULT", "Office", 1);
    LocalPrinterControl control(printers, store);
    ASSERT_EQ(control.default_printer(), "Office");
    EXPECT_EQ(control.profile_entry("PrinterPorts", "Adobe PDF"), "winspool,Ne00:,15,45");
    EXPECT_EQ(control.profile_entry("PrinterPorts", "Nowhere"), "");
    EXPECT_EQ(control.profile_entry("PrinterPorts", ""), "");
    control.write_profile_entry("windows", "Device", "Adobe PDF,winspool,Ne00:");
    EXPECT_EQ(control.default_printer(), "Adobe PDF");
    RegistryStore later(folder.path());
    EXPECT_EQ(Printers(later).default_name(), "Adobe PDF") << "it outlives the command";
    control.write_profile_entry("windows", "Device", "Gone,winspool,Ne00:");
    EXPECT_EQ(printers.default_name(), "Office");
}

TEST_F(PrintersTest, AChoiceThatCannotBeWrittenIsNotMade) {
    tests::write_file(store.file(), "no settings");
    std::string trouble;
    const auto told = [&](const std::string& sentence) { trouble = sentence; };
    EXPECT_NO_THROW(LocalPrinterControl(printers, store, told)
                        .write_profile_entry("windows", "Device", "Adobe PDF,winspool,Ne00:"));
    EXPECT_EQ(tests::read_file(store.file()), "no settings");
    EXPECT_NE(trouble.find("registry.json"), std::string::npos) << trouble;
}

TEST_F(PrintersTest, AreListedWithThePdfPrinterFirst) {
    EXPECT_EQ(printers.names(), std::vector<std::string>{"Adobe PDF"});
    ::setenv("PRINTER", "Office", 1);
    EXPECT_EQ(printers.names(), (std::vector<std::string>{"Adobe PDF", "Jammed", "Office"}));
}

TEST_F(PrintersTest, OtherNamesAreTheSpoolers) {
    EXPECT_TRUE(printers.has("Office"));
    EXPECT_FALSE(printers.has("office"));
    EXPECT_FALSE(printers.has("Nowhere"));
    EXPECT_FALSE(printers.has(""));
    EXPECT_FALSE(printers.is_pdf_printer("Office"));
    EXPECT_EQ(tests::read_file(journal), "find Office\nfind office\nfind Nowhere\n");
}

TEST_F(PrintersTest, TheDefaultIsTheSpoolersWhenItHasOne) {
    ::setenv("PRINTER", "Office", 1);
    EXPECT_EQ(printers.default_name(), "Adobe PDF");
    ::setenv("FAKE_CUPS_DEFAULT", "Office", 1);
    EXPECT_EQ(printers.default_name(), "Office");
}

TEST_F(PrintersTest, PrintsAFileOnAQueue) {
    tests::write_file(folder / "a b.pdf", "%PDF");
    printers.print("Office", folder / "a b.pdf", "My title");
    EXPECT_EQ(tests::read_file(journal),
              "find Office\nprint Office " + (folder / "a b.pdf").string() + " My title\n");
}

TEST_F(PrintersTest, SaysWhyAJobIsNotTaken) {
    tests::write_file(folder / "a.pdf", "%PDF");
    EXPECT_EQ(failure([&] { printers.print("Jammed", folder / "a.pdf", "t"); }),
              "57 Device I/O error: cannot print " + (folder / "a.pdf").string() +
                  " on \"Jammed\" (Out of paper).");
    EXPECT_EQ(failure([&] { printers.print("Office", "/nowhere/a.pdf", "t"); }),
              "53 File not found: /nowhere/a.pdf cannot be printed on \"Office\".");
    EXPECT_EQ(failure([&] { printers.print("Nowhere", "/out/a.pdf", "t"); }),
              "5 There is no printer \"Nowhere\". The printers are \"Adobe PDF\" and those that \"lpstat "
              "-e\" shows.");
    EXPECT_EQ(failure([&] { printers.print("Adobe PDF", "/out/a.pdf", "t"); }),
              "5 \"Adobe PDF\" is the PDF printer: it asks for its output file in a dialog and gets no job.");
}

}  // namespace
}  // namespace foliant::platform::local::test
