#include "platform/local/registry_store.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/error_of.h"
#include "support/scratch_folder.h"

namespace foliant::platform::local::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* printer_key =
    "HKEY_LOCAL_MACHINE\\SOFTWARE\\Adobe\\Acrobat Distiller\\6.0\\PrinterName";
constexpr const char* version_key = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Classes\\AcroExch.App\\AcrobatVersion";

using tests::failure;

class RegistryStoreTest : public testing::Test {
  protected:
    tests::ScratchFolder home;
    fs::path folder = home.path() / "config" / "foliant";
    fs::path file = folder / "registry.json";
    RegistryStore store{folder};
};

TEST_F(RegistryStoreTest, LooksLikeAcrobat6WithNoFileAtAll) {
    EXPECT_EQ(store.text(version_key, ""), "6.0");
    EXPECT_EQ(store.text(printer_key, ""), "Adobe PDF");
    EXPECT_EQ(store.list().size(), 2U);
    EXPECT_TRUE(store.list().front().is_default);
}

TEST_F(RegistryStoreTest, MakesNoFileByReading) {
    store.list();
    store.has_key(version_key);
    store.get(version_key, "missing");
    EXPECT_FALSE(store.remove("HKCU\\Software\\Nothing", "x"));
    EXPECT_FALSE(store.remove_key("HKCU\\Software\\Nothing"));
    store.create_key(version_key);  // it is there
    EXPECT_FALSE(fs::exists(home.path() / "config"));
}

TEST_F(RegistryStoreTest, KeepsWhatWasWrittenForTheNextProcess) {
    store.set("HKCU\\Software\\Adobe\\Acrobat PDFWriter", "PDFFilename", StoredValue::of_text("/out/a.pdf"));
    RegistryStore next(folder);
    EXPECT_EQ(next.text("hkey_current_user\\software\\ADOBE\\acrobat pdfwriter", "pdffilename"),
              "/out/a.pdf");
    EXPECT_EQ(next.text(version_key, ""), "6.0");
}

TEST_F(RegistryStoreTest, KeepsTheSpellingOfWhoeverWroteFirst) {
    store.set("HKCU\\Software\\Spelt So", "Value Name", StoredValue::of_text("1"));
    store.set("HKCU\\SOFTWARE\\SPELT SO", "VALUE NAME", StoredValue::of_text("2"));
    const auto entries = store.list("HKCU\\Software");
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].key, "HKEY_CURRENT_USER\\Software\\Spelt So");
    EXPECT_EQ(entries[0].name, "Value Name");
    EXPECT_EQ(entries[0].value.text(), "2");
    EXPECT_FALSE(entries[0].is_default);
}

TEST_F(RegistryStoreTest, WritesOnlyWhatDiffersFromTheDefaults) {
    store.set(version_key, "", StoredValue::of_text("5.0"));
    EXPECT_EQ(tests::read_file(file), R"({
  "HKEY_LOCAL_MACHINE\\SOFTWARE\\Classes\\AcroExch.App\\AcrobatVersion": {
    "": "5.0"
  }
}
)");
    EXPECT_EQ(RegistryStore(folder).text(version_key, ""), "5.0");
}

TEST_F(RegistryStoreTest, ARemovedDefaultStaysRemovedAndCanComeBack) {
    EXPECT_TRUE(store.remove(version_key, ""));
    EXPECT_FALSE(store.remove(version_key, ""));
    EXPECT_EQ(RegistryStore(folder).get(version_key, ""), std::nullopt);
    store.set(version_key, "", StoredValue::of_text("6.0"));
    EXPECT_EQ(RegistryStore(folder).text(version_key, ""), "6.0");
}

TEST_F(RegistryStoreTest, ResettingBringsBackWhatIsCompiledIn) {
    EXPECT_FALSE(store.reset(version_key, "")) << "there is nothing to take back";
    store.remove(version_key, "");
    EXPECT_TRUE(store.reset(version_key, ""));
    EXPECT_EQ(RegistryStore(folder).text(version_key, ""), "6.0");
    store.set(version_key, "", StoredValue::of_text("7.0"));
    store.set("HKCU\\A", "v", StoredValue::of_text("x"));
    EXPECT_TRUE(store.reset(version_key, ""));
    EXPECT_EQ(store.text(version_key, ""), "6.0");
    EXPECT_TRUE(store.reset("HKCU\\A", "v"));
    EXPECT_FALSE(RegistryStore(folder).has_key("HKCU\\A"));
    store.remove_key(version_key);
    EXPECT_TRUE(store.reset(version_key, ""));
    EXPECT_EQ(RegistryStore(folder).text(version_key, ""), "6.0");
    EXPECT_EQ(RegistryStore::built_in(version_key, "")->text(), "6.0");
}

TEST_F(RegistryStoreTest, ARemovedKeyTakesAllBelowItAlong) {
    store.set("HKLM\\SOFTWARE\\Adobe\\Mine", "v", StoredValue::of_text("x"));
    store.set("HKLM\\SOFTWARE\\AdobeToo", "v", StoredValue::of_text("x"));
    EXPECT_TRUE(store.remove_key("HKLM\\Software\\Adobe"));
    RegistryStore next(folder);
    EXPECT_FALSE(next.has_key("HKLM\\SOFTWARE\\Adobe"));
    EXPECT_FALSE(next.has_key(printer_key));
    EXPECT_TRUE(next.has_key("HKLM\\SOFTWARE\\AdobeToo"));
    EXPECT_FALSE(next.remove_key("HKLM\\Software\\Adobe"));
    next.set(printer_key, "other", StoredValue::of_text("y"));
    EXPECT_EQ(next.get(printer_key, ""), std::nullopt) << "the default must not come back with the key";
}

TEST_F(RegistryStoreTest, AnEmptyKeyExists) {
    store.create_key("HKCU\\Software\\Empty\\");
    EXPECT_TRUE(RegistryStore(folder).has_key("HKCU\\Software\\Empty"));
    EXPECT_TRUE(RegistryStore(folder).has_key("HKCU\\Software"));
    EXPECT_TRUE(store.has_key("HKCU"));
    EXPECT_TRUE(store.remove_key("HKCU\\Software\\Empty"));
    EXPECT_FALSE(RegistryStore(folder).has_key("HKCU\\Software"));
}

TEST_F(RegistryStoreTest, RemovesAValueOfTheUsersOwn) {
    store.set("HKCU\\A", "v", StoredValue::of_text("x"));
    EXPECT_TRUE(store.remove("HKCU\\a", "V"));
    EXPECT_EQ(store.get("HKCU\\A", "v"), std::nullopt);
    EXPECT_EQ(tests::read_file(file).find("null"), std::string::npos);
}

TEST_F(RegistryStoreTest, SeesWhatAnotherProcessOrAnEditorChanges) {
    EXPECT_EQ(store.text(version_key, ""), "6.0");
    RegistryStore(folder).set(version_key, "", StoredValue::of_text("5.0"));
    EXPECT_EQ(store.text(version_key, ""), "5.0");
    tests::write_file(file, R"({"HKLM\\software\\classes\\acroexch.app\\acrobatversion": {"": "7.0"}})");
    EXPECT_EQ(store.text(version_key, ""), "7.0");
    fs::remove(file);
    EXPECT_EQ(store.text(version_key, ""), "6.0");
}

TEST_F(RegistryStoreTest, TwoProcessesLoseNoneOfEachOthersValues) {
    constexpr int each = 25;
    std::vector<pid_t> children;
    for (const std::string name : {"a", "b", "c"}) {
        const pid_t child = ::fork();
        if (child == 0) {
            RegistryStore own(folder);
            for (int i = 0; i < each; ++i)
                own.set("HKCU\\Race", name + std::to_string(i), StoredValue::of_text(name));
            ::_exit(0);
        }
        children.push_back(child);
    }
    for (const pid_t child : children)
        ::waitpid(child, nullptr, 0);
    EXPECT_EQ(store.list("HKCU\\Race").size(), 3U * each);
    const auto left = std::distance(fs::directory_iterator(folder), fs::directory_iterator());
    EXPECT_EQ(left, 2) << "only the file and its lock may be there";
}

TEST_F(RegistryStoreTest, NamesABrokenFileAndNeverOverwritesIt) {
    fs::create_directories(folder);
    const std::string broken = "{\n  \"HKEY_CURRENT_USER\\\\A\": {\"v\": \"half a va";
    tests::write_file(file, broken);
    const std::string reading = failure([&] { store.text(version_key, ""); });
    EXPECT_TRUE(reading.starts_with("75 The settings file " + file.string() + " cannot be understood: "))
        << reading;
    EXPECT_NE(reading.find("line 2, column"), std::string::npos) << reading;
    EXPECT_TRUE(reading.ends_with("Mend it, or move it away to start again from the usual settings."))
        << reading;
    EXPECT_TRUE(failure([&] { store.set("HKCU\\A", "v", {}); }).starts_with("75 "));
    EXPECT_TRUE(failure([&] { store.create_key("HKCU\\A"); }).starts_with("75 "));
    EXPECT_TRUE(failure([&] { store.remove_key("HKLM\\SOFTWARE"); }).starts_with("75 "));
    EXPECT_EQ(tests::read_file(file), broken);
    tests::write_file(file, "{}");
    EXPECT_EQ(store.text(version_key, ""), "6.0");
}

TEST_F(RegistryStoreTest, AKeyThatBeginsWithNoRootIsRefused) {
    EXPECT_EQ(
        failure([&] { store.get("SOFTWARE\\Adobe", ""); }),
        "5 The key \"SOFTWARE\\Adobe\" begins with no root. Keys begin with HKEY_CURRENT_USER (HKCU) or "
        "HKEY_LOCAL_MACHINE (HKLM).");
    EXPECT_TRUE(failure([&] { store.set("", "", {}); }).starts_with("5 "));
    fs::create_directories(folder);
    tests::write_file(file, R"({"Software\\A": {}})");
    EXPECT_TRUE(failure([&] { store.list(); }).starts_with("75 "));
}

TEST_F(RegistryStoreTest, ANameThatIsNoTextLeavesTheFileAsItWas) {
    store.set("HKCU\\A", "v", StoredValue::of_text("x"));
    const std::string before = tests::read_file(file);
    EXPECT_TRUE(failure([&] { store.set("HKCU\\A", "\xFF", StoredValue::of_text("x")); }).starts_with("5 "));
    EXPECT_EQ(tests::read_file(file), before);
    EXPECT_EQ(store.list("HKCU\\A").size(), 1U);
}

TEST_F(RegistryStoreTest, TheFileIsForTheUserAloneAndKeepsTheModeItHas) {
    const auto mode = [&] {
        struct stat status {};
        ::stat(file.c_str(), &status);
        return status.st_mode & 07777U;
    };
    store.set("HKCU\\A", "v", StoredValue::of_text("x"));
    EXPECT_EQ(mode(), 0600U);
    ::chmod(file.c_str(), 0644);
    store.set("HKCU\\A", "v", StoredValue::of_text("y"));
    EXPECT_EQ(mode(), 0644U);
}

TEST_F(RegistryStoreTest, AFileBehindALinkIsChangedThereAndTheLinkStays) {
    fs::create_directories(folder);
    tests::write_file(home / "dotfiles.json", "{}");
    fs::create_symlink(home / "dotfiles.json", file);
    store.set("HKCU\\A", "v", StoredValue::of_text("x"));
    EXPECT_TRUE(fs::is_symlink(file));
    EXPECT_NE(tests::read_file(home / "dotfiles.json").find("\"x\""), std::string::npos);
}

TEST_F(RegistryStoreTest, SaysWhenItCannotBeReadOrWritten) {
    fs::create_directories(file);  // a folder where the file belongs
    EXPECT_EQ(failure([&] { store.list(); }),
              "57 Device I/O error: cannot read the settings file " + file.string() + " (Is a directory).");
    RegistryStore nowhere("/proc/foliant");
    EXPECT_EQ(nowhere.text(version_key, ""), "6.0");
    const std::string writing = failure([&] { nowhere.set("HKCU\\A", "v", StoredValue::of_text("x")); });
    EXPECT_EQ(writing,
              "57 Device I/O error: cannot make the folder /proc/foliant (No such file or directory).");
}

}  // namespace
}  // namespace foliant::platform::local::test
