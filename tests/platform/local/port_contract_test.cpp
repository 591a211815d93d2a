// What the ports promise, on every world that keeps the promise: the stage that the members are tested on,
// and the real machine. A difference between the two would make every test on the stage worth less.

#include <gtest/gtest.h>
#include <map>

#include "automation/error.h"
#include "platform/local/local_machine.h"
#include "platform/local/temporary_folder.h"
#include "platform/stage/cast/cast.h"

namespace foliant::platform::local::test {
namespace {

constexpr std::uint32_t all_access = 0xF003F;
constexpr const char* version_key = "SOFTWARE\\Classes\\AcroExch.App\\AcrobatVersion";

class StageWorld {
  public:
    StageWorld() {
        cast_usual_machine(stage_);
        stage_.folders.insert("C:\\Work");
        stage_.missing_classes.insert("No.SuchClass");
    }

    Platform ports() { return stage_.platform(); }
    std::string path(const std::string& name) const { return "C:\\Work\\" + name; }
    void put_file(const std::string& name) { stage_.put_file(path(name)); }
    void put_folder(const std::string& name) { stage_.folders.insert(path(name)); }
    bool has_file(const std::string& name) { return stage_.files.contains(path(name)); }
    std::string content(const std::string& name) { return stage_.files.at(path(name)).content; }
    void put_window(const std::string& caption) { stage_.windows[caption] = 0; }

  private:
    stage::Stage stage_;
};

class LocalWorld {
  public:
    Platform ports() { return machine_.platform(); }
    std::string path(const std::string& name) const { return work_ / name; }
    void put_file(const std::string& name) { write_file(path(name), "content"); }
    void put_folder(const std::string& name) { std::filesystem::create_directory(path(name)); }
    bool has_file(const std::string& name) { return std::filesystem::exists(path(name)); }
    std::string content(const std::string& name) { return content_of(path(name)); }
    void put_window(const std::string& caption) { machine_.desktop().put_window(caption); }

  private:
    TemporaryFolder work_;
    TemporaryFolder settings_;
    LocalMachine machine_{{.temporary_folder = work_.path(),
                           .configuration_folder = settings_.path(),
                           .hosts_folder = work_.path()}};
};

template <class World>
class PortContract : public testing::Test {
  protected:
    World world;
    Platform ports = world.ports();
};

struct WorldNames {
    template <class World>
    static std::string GetName(int) {
        return std::is_same_v<World, StageWorld> ? "Stage" : "Local";
    }
};
using Worlds = testing::Types<StageWorld, LocalWorld>;
TYPED_TEST_SUITE(PortContract, Worlds, WorldNames);

template <class Call>
std::int32_t error_of(Call call) {
    try {
        call();
        return 0;
    } catch (const automation::Error& error) {
        return error.number();
    }
}

TYPED_TEST(PortContract, AFileHasALengthAndWhatIsNoFileRaises53) {
    this->world.put_file("there.doc");
    this->world.put_folder("folder");
    EXPECT_GT(this->ports.files.length(this->world.path("there.doc")), 0);
    for (const char* name : {"missing.doc", "folder", "there.doc/below"})
        EXPECT_EQ(error_of([&] { this->ports.files.length(this->world.path(name)); }), 53) << name;
    EXPECT_EQ(error_of([&] { this->ports.files.length(""); }), 53);
}

TYPED_TEST(PortContract, ADeletedFileIsGoneAndCannotBeDeletedAgain) {
    this->world.put_file("old.pdf");
    this->ports.files.remove(this->world.path("old.pdf"));
    EXPECT_EQ(error_of([&] { this->ports.files.length(this->world.path("old.pdf")); }), 53);
    EXPECT_EQ(error_of([&] { this->ports.files.remove(this->world.path("old.pdf")); }), 53);
    EXPECT_EQ(error_of([&] { this->ports.files.remove(""); }), 53);
}

TYPED_TEST(PortContract, AFolderIsMadeOnceAndOnlyBelowOneThatExists) {
    EXPECT_EQ(error_of([&] { this->ports.files.make_folder(this->world.path("new")); }), 0);
    EXPECT_EQ(error_of([&] { this->ports.files.make_folder(this->world.path("new")); }), 75);
    const std::string trailing = this->world.path("new") + this->ports.files.separator();
    EXPECT_EQ(error_of([&] { this->ports.files.make_folder(trailing); }), 75);
    EXPECT_EQ(error_of([&] { this->ports.files.make_folder(trailing + "deeper"); }), 0);
    const std::string orphan = this->world.path("nowhere") + this->ports.files.separator() + "deeper";
    EXPECT_EQ(error_of([&] { this->ports.files.make_folder(orphan); }), 76);
    EXPECT_EQ(error_of([&] { this->ports.files.make_folder(""); }), 76);
}

TYPED_TEST(PortContract, ATextFileHoldsItsLinesEachWithCarriageReturnAndLineFeed) {
    const auto file = this->ports.files.create_text(this->world.path("driver.ps"), TextPurpose::result);
    file->write_line("%!PS");
    file->write_line("");
    file->write_line("(caf\xC3\xA9) show");
    file->close();
    EXPECT_EQ(this->world.content("driver.ps"), "%!PS\r\n\r\n(caf\xC3\xA9) show\r\n");
}

TYPED_TEST(PortContract, ATextFileIsEmptiedWhenItIsMadeAgain) {
    this->ports.files.create_text(this->world.path("a.txt"), TextPurpose::result)
        ->write_line("long first content");
    this->ports.files.create_text(this->world.path("a.txt"), TextPurpose::result)->write_line("b");
    EXPECT_EQ(this->world.content("a.txt"), "b\r\n");
}

TYPED_TEST(PortContract, AScratchTextIsThereUnderItsPathUntilItIsRemoved) {
    const std::string path = this->world.path("book.ps");
    const auto text = this->ports.files.create_text(path, TextPurpose::scratch);
    text->write_line("%!PS");
    text->close();
    EXPECT_GT(this->ports.files.length(path), 0);
    this->ports.files.remove(path);
    EXPECT_EQ(error_of([&] { this->ports.files.length(path); }), 53);
    EXPECT_EQ(error_of([&] { this->ports.files.remove(path); }), 53);
}

TYPED_TEST(PortContract, AnInstalledAcrobatIsFoundInTheRegistryInAnyCase) {
    for (const std::string& path : {std::string(version_key), automation::to_lower(version_key)}) {
        RegistryKey key = 0;
        ASSERT_EQ(this->ports.registry.open_key(hkey_local_machine, path, all_access, key), registry_success)
            << path;
        std::uint32_t type = 0;
        std::uint32_t size = 0;
        ASSERT_EQ(this->ports.registry.query_size(key, "", type, size), registry_success);
        EXPECT_EQ(type, reg_string);
        ASSERT_EQ(size, 4U);
        std::string data(size, ' ');
        EXPECT_EQ(this->ports.registry.query_data(key, "", data), registry_success);
        EXPECT_EQ(data, std::string("6.0\0", 4));
        EXPECT_EQ(this->ports.registry.close_key(key), registry_success);
    }
}

TYPED_TEST(PortContract, EveryLevelAboveAKeyIsAKey) {
    RegistryKey key = 0;
    EXPECT_EQ(this->ports.registry.open_key(hkey_local_machine, "SOFTWARE\\Adobe", all_access, key),
              registry_success);
    EXPECT_EQ(this->ports.registry.open_key(hkey_local_machine, "SOFTWARE\\Ado", all_access, key),
              registry_not_found);
    EXPECT_EQ(this->ports.registry.open_key(hkey_current_user, "SOFTWARE\\Adobe", all_access, key),
              registry_not_found);
    EXPECT_EQ(this->ports.registry.open_key(hkey_local_machine, "", all_access, key), registry_success);
}

TYPED_TEST(PortContract, ACreatedKeyIsThereWithEveryLevelAndCreatedAgainIsOpened) {
    RegistryKey key = 0;
    Registry& registry = this->ports.registry;
    ASSERT_EQ(registry.create_key(hkey_current_user, "Software\\Adobe\\Acrobat PDFWriter", all_access, key),
              0);
    RegistryKey again = 0;
    EXPECT_EQ(registry.open_key(hkey_current_user, "software\\adobe\\acrobat pdfwriter", all_access, again),
              0);
    EXPECT_EQ(registry.open_key(hkey_current_user, "Software\\Adobe", all_access, again), 0);
    EXPECT_EQ(registry.create_key(again, "Acrobat PDFWriter", all_access, again), 0);
    EXPECT_EQ(registry.set_value(key, "PDFFilename", reg_string, std::string_view("a.pdf\0", 6)), 0);
    std::string data(6, ' ');
    EXPECT_EQ(registry.query_data(again, "pdffilename", data), 0);
    EXPECT_EQ(data, std::string("a.pdf\0", 6));
}

TYPED_TEST(PortContract, ValuesOfEveryTypeComeBackByteForByte) {
    using namespace std::string_literals;
    Registry& registry = this->ports.registry;
    RegistryKey key = 0;
    ASSERT_EQ(registry.create_key(hkey_current_user, "Software\\Bytes", all_access, key), 0);
    const std::map<std::uint32_t, std::string> written{{reg_none, ""},
                                                       {reg_string, "text without its end"},
                                                       {reg_expandable_string, "%HOME%\0"s},
                                                       {reg_binary, "\xFF\0"s},
                                                       {reg_number, "31\0\0"s},
                                                       {reg_big_endian_number, "\0\0\0\x07"s},
                                                       {reg_link, "x"},
                                                       {reg_multi_string, "a\0b\0\0"s},
                                                       {4711, "unheard of"}};
    for (const auto& [type, data] : written)
        ASSERT_EQ(registry.set_value(key, "v" + std::to_string(type), type, data), 0) << type;
    for (const auto& [type, data] : written) {
        const std::string name = "v" + std::to_string(type);
        std::uint32_t read_type = 99;
        std::uint32_t size = 99;
        ASSERT_EQ(registry.query_size(key, name, read_type, size), 0) << type;
        EXPECT_EQ(read_type, type);
        ASSERT_EQ(size, data.size()) << type;
        std::string read(size, ' ');
        ASSERT_EQ(registry.query_data(key, name, read), 0);
        EXPECT_EQ(read, data) << type;
    }
}

TYPED_TEST(PortContract, AMissingValueIsNotFoundAndChangesNothing) {
    RegistryKey key = 0;
    ASSERT_EQ(this->ports.registry.open_key(hkey_local_machine, version_key, all_access, key), 0);
    std::uint32_t type = 7;
    std::uint32_t size = 7;
    EXPECT_EQ(this->ports.registry.query_size(key, "missing", type, size), registry_not_found);
    std::string data = "as it was";
    EXPECT_EQ(this->ports.registry.query_data(key, "missing", data), registry_not_found);
    EXPECT_EQ(data, "as it was");
    EXPECT_EQ(type, 7U);
    EXPECT_EQ(size, 7U);
}

TYPED_TEST(PortContract, AKeyThatIsNotOpenCannotBeClosed) {
    RegistryKey key = 0;
    ASSERT_EQ(this->ports.registry.open_key(hkey_local_machine, "SOFTWARE", all_access, key), 0);
    EXPECT_EQ(this->ports.registry.close_key(key), registry_success);
    EXPECT_NE(this->ports.registry.close_key(key), registry_success);
}

TYPED_TEST(PortContract, SleepingTakesItsTime) {
    const float before = this->ports.clock.seconds_since_midnight();
    this->ports.clock.sleep(30);
    const float passed = this->ports.clock.seconds_since_midnight() - before;
    // Across midnight the timer has begun anew.
    EXPECT_TRUE(passed >= 0.02F || passed < -80000.0F) << passed;
    EXPECT_GE(before, 0.0F);
    EXPECT_LT(before, 86400.0F);
}

TYPED_TEST(PortContract, TwoSeedsDiffer) {
    EXPECT_NE(this->ports.clock.random_seed(), this->ports.clock.random_seed());
}

TYPED_TEST(PortContract, AWindowIsFoundByItsCaptionInAnyCaseAndClosed) {
    this->world.put_window("Adobe Acrobat - [Report.pdf]");
    EXPECT_EQ(this->ports.windows.find_window("adobe acrobat - [rep"), 0);
    const WindowHandle window = this->ports.windows.find_window("adobe acrobat - [report.pdf]");
    ASSERT_NE(window, 0);
    this->ports.windows.close_window(window, "0");
    EXPECT_EQ(this->ports.windows.find_window("adobe acrobat - [report.pdf]"), 0);
}

TYPED_TEST(PortContract, TheWindowSenderLiesInTheSystemFolderAndStartsThere) {
    const auto buffer = this->ports.shell.special_folder(100, 37);
    ASSERT_TRUE(buffer.has_value());
    ASSERT_NE(buffer->find('\0'), std::string::npos);
    const std::string folder = buffer->substr(0, buffer->find('\0'));
    const std::string sender = folder + this->ports.files.separator() + "quorixsend.exe";
    EXPECT_GT(this->ports.files.length(sender), 0);
    EXPECT_EQ(
        error_of([&] { this->ports.programs.start(sender + " open~Edit~x~0~0~", WindowStyle::hidden); }), 0);
    EXPECT_EQ(
        error_of([&] { this->ports.programs.start(sender + "2 open~Edit~x~0~0~", WindowStyle::hidden); }),
        53);
}

TYPED_TEST(PortContract, ThereAreNoOtherFoldersAndPrograms) {
    EXPECT_FALSE(this->ports.shell.special_folder(100, 9999).has_value());
    EXPECT_EQ(error_of([&] { this->ports.programs.start("nosuch.exe", WindowStyle::hidden); }), 53);
}

TYPED_TEST(PortContract, AClassThatNobodyHasRaises429) {
    EXPECT_EQ(error_of([&] { this->ports.servers.create("No.SuchClass"); }), 429);
}

}  // namespace
}  // namespace foliant::platform::local::test
