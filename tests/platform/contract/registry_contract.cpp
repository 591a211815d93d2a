// What the port of the registry promises.

#include <gtest/gtest.h>
#include <map>

#include "automation/text.h"
#include "platform/contract/world.h"

namespace foliant::platform::contract {
namespace {

constexpr std::uint32_t all_access = 0xF003F;
constexpr const char* version_key = "SOFTWARE\\Classes\\AcroExch.App\\AcrobatVersion";

TEST_P(PortContract, AnInstalledAcrobatIsFoundInTheRegistryInAnyCase) {
    for (const std::string& path : {std::string(version_key), automation::to_lower(version_key)}) {
        RegistryKey key = 0;
        ASSERT_EQ(ports.registry.open_key(hkey_local_machine, path, all_access, key), registry_success)
            << path;
        std::uint32_t type = 0;
        std::uint32_t size = 0;
        ASSERT_EQ(ports.registry.query_size(key, "", type, size), registry_success);
        EXPECT_EQ(type, reg_string);
        ASSERT_EQ(size, 4U);
        std::string data(size, ' ');
        EXPECT_EQ(ports.registry.query_data(key, "", data), registry_success);
        EXPECT_EQ(data, std::string("6.0\0", 4));
        EXPECT_EQ(ports.registry.close_key(key), registry_success);
    }
}

TEST_P(PortContract, EveryLevelAboveAKeyIsAKey) {
    RegistryKey key = 0;
    EXPECT_EQ(ports.registry.open_key(hkey_local_machine, "SOFTWARE\\Adobe", all_access, key),
              registry_success);
    EXPECT_EQ(ports.registry.open_key(hkey_local_machine, "SOFTWARE\\Ado", all_access, key),
              registry_not_found);
    EXPECT_EQ(ports.registry.open_key(hkey_current_user, "SOFTWARE\\Adobe", all_access, key),
              registry_not_found);
    EXPECT_EQ(ports.registry.open_key(hkey_local_machine, "", all_access, key), registry_success);
}

TEST_P(PortContract, ACreatedKeyIsThereWithEveryLevelAndCreatedAgainIsOpened) {
    RegistryKey key = 0;
    Registry& registry = ports.registry;
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

TEST_P(PortContract, ValuesOfEveryTypeComeBackByteForByte) {
    using namespace std::string_literals;
    Registry& registry = ports.registry;
    RegistryKey key = 0;
    ASSERT_EQ(registry.create_key(hkey_current_user, "Software\\Bytes", all_access, key), 0);
    const std::map<std::uint32_t, std::string> written{
        {reg_none, ""},          {reg_string, "text\0"s},         {reg_expandable_string, "%HOME%\0"s},
        {reg_binary, "\xFF\0"s}, {reg_number, "31\0\0"s},         {reg_big_endian_number, "\0\0\0\x07"s},
        {reg_link, "x"},         {reg_multi_string, "a\0b\0\0"s}, {4711, "unheard of"}};
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

TEST_P(PortContract, AMissingValueIsNotFoundAndChangesNothing) {
    RegistryKey key = 0;
    ASSERT_EQ(ports.registry.open_key(hkey_local_machine, version_key, all_access, key), 0);
    std::uint32_t type = 7;
    std::uint32_t size = 7;
    EXPECT_EQ(ports.registry.query_size(key, "missing", type, size), registry_not_found);
    std::string data = "as it was";
    EXPECT_EQ(ports.registry.query_data(key, "missing", data), registry_not_found);
    EXPECT_EQ(data, "as it was");
    EXPECT_EQ(type, 7U);
    EXPECT_EQ(size, 7U);
}

TEST_P(PortContract, AKeyThatIsNotOpenCannotBeClosed) {
    RegistryKey key = 0;
    ASSERT_EQ(ports.registry.open_key(hkey_local_machine, "SOFTWARE", all_access, key), 0);
    EXPECT_EQ(ports.registry.close_key(key), registry_success);
    EXPECT_NE(ports.registry.close_key(key), registry_success);
}

}  // namespace
}  // namespace foliant::platform::contract
