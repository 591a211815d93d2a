#include "platform/local/local_registry.h"

#include <gtest/gtest.h>
#include <vector>

#include "platform/local/local_machine.h"
#include "session/registry_access.h"
#include "session/session.h"
#include "support/scratch_folder.h"

namespace foliant::platform::local::test {
namespace {

class LocalRegistryTest : public testing::Test {
  protected:
    tests::ScratchFolder folder;
    RegistryStore store{folder.path()};
    std::vector<std::string> troubles;
    LocalRegistry registry{store, [this](const std::string& trouble) { troubles.push_back(trouble); }};
    RegistryKey key = 0;
    std::uint32_t type = 0;
    std::uint32_t size = 0;
    std::string data;
};

TEST_F(LocalRegistryTest, AnswersWithTheSystemsCodeForAHandleThatIsNotOpen) {
    constexpr std::int32_t invalid_handle = 6;
    EXPECT_EQ(registry.open_key(4711, "Software", 0, key), invalid_handle);
    EXPECT_EQ(registry.create_key(4711, "Software", 0, key), invalid_handle);
    EXPECT_EQ(registry.query_size(4711, "", type, size), invalid_handle);
    EXPECT_EQ(registry.query_data(4711, "", data), invalid_handle);
    EXPECT_EQ(registry.set_value(4711, "", reg_string, ""), invalid_handle);
    EXPECT_EQ(registry.close_key(4711), invalid_handle);
}

TEST_F(LocalRegistryTest, ADamagedStoreIs1009EverywhereAndIsToldOnce) {
    tests::write_file(folder / "registry.json", "not JSON");
    constexpr std::int32_t damaged = 1009;
    EXPECT_EQ(registry.open_key(hkey_local_machine, "SOFTWARE", 0, key), damaged);
    EXPECT_EQ(registry.create_key(hkey_current_user, "Software\\A", 0, key), damaged);
    EXPECT_EQ(registry.query_size(hkey_current_user, "", type, size), damaged);
    EXPECT_EQ(registry.query_data(hkey_current_user, "", data), damaged);
    EXPECT_EQ(registry.set_value(hkey_current_user, "", reg_string, ""), damaged);
    ASSERT_EQ(troubles.size(), 1U);
    EXPECT_NE(troubles[0].find(folder / "registry.json"), std::string::npos) << troubles[0];
    EXPECT_EQ(tests::read_file(folder / "registry.json"), "not JSON");
}

TEST_F(LocalRegistryTest, ATextThatDoesNotEndWithANulStaysAsItIs) {
    ASSERT_EQ(registry.create_key(hkey_current_user, "Software\\A", 0, key), 0);
    ASSERT_EQ(registry.set_value(key, "v", reg_string, "text without its end"), 0);
    ASSERT_EQ(registry.query_size(key, "v", type, size), 0);
    ASSERT_EQ(size, 20U);
    data.resize(size);
    ASSERT_EQ(registry.query_data(key, "v", data), 0);
    EXPECT_EQ(data, "text without its end");
}

TEST_F(LocalRegistryTest, AHandleOutlivesTheKeyThatAnotherProcessRemoves) {
    ASSERT_EQ(registry.create_key(hkey_current_user, "Software\\A", 0, key), 0);
    RegistryStore(folder.path()).remove_key("HKCU\\Software\\A");
    EXPECT_EQ(registry.query_size(key, "v", type, size), registry_not_found);
    EXPECT_EQ(registry.set_value(key, "v", reg_string, std::string_view("x\0", 2)), registry_success);
    EXPECT_EQ(store.text("HKCU\\Software\\A", "v"), "x");
}

TEST(LocalRegistryAccess, EveryKindOfValueGoesThroughTheRegistryClassAndBack) {
    const tests::ScratchFolder folder;
    LocalMachine machine({.temporary_folder = folder.path(), .configuration_folder = folder.path()});
    const Platform ports = machine.platform();
    session::clsRegistry registry(ports);
    ASSERT_TRUE(registry.OpenRegistry(hkey_current_user, ""));
    ASSERT_TRUE(registry.CreateDirectory("Software\\Test"));
    ASSERT_TRUE(registry.OpenRegistry(hkey_current_user, "Software\\Test"));
    EXPECT_TRUE(registry.CreateValue("text", "caf\xC3\xA9", reg_string));
    EXPECT_TRUE(registry.CreateValue("number", std::int32_t{12}, reg_number));
    EXPECT_TRUE(registry.CreateValue("list", "a", reg_multi_string, "b"));
    EXPECT_EQ(registry.GetValue("TEXT", false), automation::Value("caf\xC3\xA9"));
    EXPECT_EQ(registry.GetValue("number", false), automation::Value("31 32 00 00 "));
    const auto list = registry.GetValue("list", false);
    ASSERT_TRUE(list.holds<automation::ArrayPtr>());
    EXPECT_EQ((*list.if_holds<automation::ArrayPtr>())->items,
              (std::vector<automation::Value>{"a", "b", ""}));
    EXPECT_EQ(registry.GetValue("missing", false), automation::Value());
}

}  // namespace
}  // namespace foliant::platform::local::test
