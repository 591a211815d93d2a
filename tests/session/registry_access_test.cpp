#include "session/registry_access.h"

#include <gtest/gtest.h>
#include <optional>
#include <vector>

#include "automation/error.h"
#include "support/staged_session.h"

namespace foliant::session {
namespace {

using automation::Array;
using automation::Empty;
using automation::Null;
using automation::Value;
using namespace std::string_literals;
using namespace platform;

constexpr const char* key = "Software\\Adobe\\Acrobat PDFWriter";
const std::string whole_key = "HKEY_CURRENT_USER\\Software\\Adobe\\Acrobat PDFWriter";

/// One registry object on a machine where the key exists; the object may already have it open.
class RegistryAccess : public testing::Test {
  protected:
    RegistryAccess() { stage.registry[whole_key]; }

    void put(const std::string& name, std::uint32_t type, const std::string& data) {
        stage.registry[whole_key][name] = {type, data};
    }

    clsRegistry& opened() {
        EXPECT_TRUE(registry->OpenRegistry(hkey_current_user, key));
        stage.clear_journal();
        return *registry;
    }

    void fail_action(long k) {
        stage.fail_action(k, automation::Error(automation::RuntimeError::permission_denied));
    }

    /// What `CreateValue` stored, as type and bytes.
    std::pair<std::uint32_t, std::string> stored(const std::string& name) {
        const auto& value = stage.registry.at(whole_key).at(name);
        return {value.type, value.data};
    }

    platform::stage::Stage stage;
    platform::Platform ports = stage.platform();
    std::optional<clsRegistry> registry{std::in_place, ports};
};

Value texts(std::vector<Value> items) {
    Array array;
    array.items = std::move(items);
    array.element = Array::Element::text;
    return array;
}

// OpenRegistry, CloseRegistry, and what an object knows about itself.

TEST_F(RegistryAccess, ANewObjectKnowsNoKeyAndTouchesNothing) {
    EXPECT_EQ(registry->RegistryRootKey(), 0U);
    EXPECT_EQ(registry->SubDirectory(), "");
    registry.reset();
    EXPECT_EQ(stage.journal(), "");
}

TEST_F(RegistryAccess, OpeningRemembersRootAndPath) {
    EXPECT_TRUE(registry->OpenRegistry(hkey_current_user, key));
    EXPECT_EQ(registry->RegistryRootKey(), hkey_current_user);
    EXPECT_EQ(registry->SubDirectory(), key);
    tests::expect_journal(stage, R"(
        open key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter (access 2000F)
    )");
}

TEST_F(RegistryAccess, RootZeroIsRefusedAndChangesNothing) {
    clsRegistry& open = opened();
    EXPECT_FALSE(open.OpenRegistry(0, "Software\\Other"));
    EXPECT_EQ(open.RegistryRootKey(), hkey_current_user);
    EXPECT_EQ(open.SubDirectory(), key);
    EXPECT_EQ(stage.journal(), "");
}

TEST_F(RegistryAccess, AKeyThatDoesNotOpenIsRememberedAllTheSame) {
    EXPECT_FALSE(registry->OpenRegistry(hkey_local_machine, "SOFTWARE\\None"));
    EXPECT_EQ(registry->RegistryRootKey(), hkey_local_machine);
    EXPECT_EQ(registry->SubDirectory(), "SOFTWARE\\None");
    EXPECT_EQ(registry->GetValue("", false), Value());
}

TEST_F(RegistryAccess, OpeningAnotherKeyClosesTheFormerFirst) {
    EXPECT_TRUE(opened().OpenRegistry(hkey_current_user, "Software"));
    tests::expect_journal(stage, R"(
        close key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter
        open key HKEY_CURRENT_USER\Software (access 2000F)
    )");
}

TEST_F(RegistryAccess, WhenTheOtherKeyDoesNotOpenNoneIsOpen) {
    clsRegistry& open = opened();
    EXPECT_FALSE(open.OpenRegistry(hkey_current_user, "Software\\None"));
    EXPECT_FALSE(open.CreateValue("Name", "x", reg_string));
    tests::expect_journal(stage, R"(
        close key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter
        open key HKEY_CURRENT_USER\Software\None (access 2000F) -> not found
    )");
}

TEST_F(RegistryAccess, AKeyThatDoesNotCloseStaysOpen) {
    clsRegistry& open = opened();
    fail_action(1);
    EXPECT_FALSE(open.CloseRegistry());
    EXPECT_TRUE(open.CreateValue("Name", "x", reg_string));
}

TEST_F(RegistryAccess, ClosingSaysWhetherItWorked) {
    clsRegistry& open = opened();
    fail_action(1);
    EXPECT_FALSE(open.CloseRegistry());
    EXPECT_TRUE(open.CloseRegistry());
    EXPECT_FALSE(open.CloseRegistry());
    tests::expect_journal(stage, R"(
        close key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter -> fails
        close key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter
        close key (no key)
    )");
}

TEST_F(RegistryAccess, LettingTheObjectGoClosesTheKeyWithErrorsIgnored) {
    opened();
    fail_action(1);
    registry.reset();
    tests::expect_journal(stage, R"(
        close key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter -> fails
    )");
}

// OneBackOnKey.

TEST_F(RegistryAccess, OneBackOpensTheKeyAbove) {
    EXPECT_EQ(opened().OneBackOnKey(), Value());
    EXPECT_EQ(registry->SubDirectory(), "Software\\Adobe");
    tests::expect_journal(stage, R"(
        close key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter
        open key HKEY_CURRENT_USER\Software\Adobe (access 2000F)
    )");
}

TEST_F(RegistryAccess, OneBackFromTheFirstLevelOpensTheRoot) {
    EXPECT_TRUE(registry->OpenRegistry(hkey_current_user, "Software"));
    stage.clear_journal();
    registry->OneBackOnKey();
    EXPECT_EQ(registry->SubDirectory(), "");
    tests::expect_journal(stage, R"(
        close key HKEY_CURRENT_USER\Software
        open key HKEY_CURRENT_USER (access 2000F)
    )");
}

// GetValue.

TEST_F(RegistryAccess, WithoutAnOpenKeyThereIsNoValueAndNoQuestion) {
    EXPECT_EQ(registry->GetValue("Name", false), Value());
    EXPECT_EQ(stage.journal(), "");
}

TEST_F(RegistryAccess, AMissingValueIsEmpty) {
    EXPECT_EQ(opened().GetValue("None", false), Value());
}

TEST_F(RegistryAccess, TheEmptyNameIsTheUnnamedValue) {
    put("", reg_string, "6.0\0"s);
    EXPECT_EQ(opened().GetValue("", false), Value("6.0"));
}

TEST_F(RegistryAccess, ARefusalIsATextInPlaceOfTheValue) {
    put("Name", reg_string, "x\0"s);
    stage.registry_refusals["Name"] = registry_access_denied;
    EXPECT_EQ(opened().GetValue("Name", false), Value("Access Denied"));
}

TEST_F(RegistryAccess, AnyOtherResultIsTheResultAsText) {
    put("Name", reg_string, "x\0"s);
    for (const std::int32_t result : {1, 6, 234, 1018}) {
        stage.registry_refusals["Name"] = result;
        EXPECT_EQ(opened().GetValue("Name", false),
                  Value("RegQueryValueEx Returned : (" + std::to_string(result) + ")"));
    }
}

TEST_F(RegistryAccess, TextsComeWithoutTheirNulAndUnexpanded) {
    put("Text", reg_string, "a b\0"s);
    put("Path", reg_expandable_string, "%TEMP%\\x\0"s);
    EXPECT_EQ(opened().GetValue("Text", false), Value("a b"));
    EXPECT_EQ(opened().GetValue("Path", true), Value("%TEMP%\\x"));
}

TEST_F(RegistryAccess, ATextLosesItsLastCharacterWhateverItIs) {
    put("Text", reg_string, "abc");
    EXPECT_EQ(opened().GetValue("Text", false), Value("ab"));
}

TEST_F(RegistryAccess, ATextOfSizeZeroIsNoValue) {
    put("Text", reg_string, "");
    EXPECT_EQ(opened().GetValue("Text", false), Value());
}

TEST_F(RegistryAccess, BinaryDataAreADumpWithABlankAfterEveryByte) {
    put("Bytes", reg_binary, "\x0A\x1F\xFF"s);
    EXPECT_EQ(opened().GetValue("Bytes", false), Value("0A 1F FF "));
    put("Nothing", reg_binary, "");
    EXPECT_EQ(opened().GetValue("Nothing", false), Value(""));
}

TEST_F(RegistryAccess, BinaryDataAreTheirBytesOnDemand) {
    put("Bytes", reg_binary, "a\0b"s);
    EXPECT_EQ(opened().GetValue("Bytes", true), Value("a\0b"s));
}

TEST_F(RegistryAccess, ANumberIsTheDumpOfItsStoredBytes) {
    put("One", reg_number, "\1\0\0\0"s);
    EXPECT_EQ(opened().GetValue("One", false), Value("01 00 00 00 "));
    EXPECT_EQ(opened().GetValue("One", true), Value("\1\0\0\0"s));
}

TEST_F(RegistryAccess, ABigEndianNumberIsItsBytesEitherWay) {
    put("Five", reg_big_endian_number, "\0\0\0\5"s);
    EXPECT_EQ(opened().GetValue("Five", false), Value("\0\0\0\5"s));
    EXPECT_EQ(opened().GetValue("Five", true), Value("\0\0\0\5"s));
}

TEST_F(RegistryAccess, SeveralTextsAreAnArrayFromZeroThatEndsInAnEmptyOne) {
    put("List", reg_multi_string, "a\0b\0\0"s);
    EXPECT_EQ(opened().GetValue("List", false), texts({"a", "b", ""}));
}

TEST_F(RegistryAccess, TypesWithoutAFormSayWhichTheyAre) {
    const auto text_for = [&](std::uint32_t type) {
        put("Odd", type, "data");
        return opened().GetValue("Odd", false);
    };
    EXPECT_EQ(text_for(0), Value("Not defined value_type=REG_NONE"));
    EXPECT_EQ(text_for(6), Value("Not defined value_type=REG_LINK"));
    EXPECT_EQ(text_for(8), Value("Not defined value_type=REG_RESOURCE_LIST"));
    EXPECT_EQ(text_for(9), Value("Not defined value_type=REG_FULL_RESOURCE_DESCRIPTOR"));
    EXPECT_EQ(text_for(10), Value("Not defined value_type=REG_RESOURCE_REQUIREMENTS_LIST"));
    EXPECT_EQ(text_for(11), Value("value_type=11"));
    EXPECT_EQ(text_for(4294967295U), Value("value_type=4294967295"));
}

// CreateValue.

TEST_F(RegistryAccess, WithoutAnOpenKeyNothingIsWrittenAndNobodyIsTold) {
    EXPECT_FALSE(registry->CreateValue("Name", "x", reg_string));
    EXPECT_FALSE(registry->CreateValue("Name", "x", reg_binary));
    EXPECT_EQ(stage.journal(), "");
}

TEST_F(RegistryAccess, TextsAreWrittenWithTheirNul) {
    EXPECT_TRUE(opened().CreateValue("Text", "C:\\out\\a.pdf", reg_string));
    tests::expect_journal(stage, R"(
        write value "Text" of HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter: type 1 C:\out\a.pdf\0
    )");
    EXPECT_TRUE(registry->CreateValue("Path", "%TEMP%", reg_expandable_string));
    EXPECT_EQ(stored("Path"), std::pair(2U, "%TEMP%\0"s));
    EXPECT_TRUE(registry->CreateValue("Number", std::int16_t{7}, reg_string));
    EXPECT_EQ(stored("Number"), std::pair(1U, "7\0"s));
}

TEST_F(RegistryAccess, ANumberIsStoredAsTheFirstFourBytesOfItsDecimalText) {
    const auto bytes_of = [&](const Value& number) {
        EXPECT_TRUE(opened().CreateValue("Number", number, reg_number));
        return stored("Number");
    };
    EXPECT_EQ(bytes_of(std::int32_t{1234}), std::pair(4U, "1234"s));
    EXPECT_EQ(bytes_of(std::int32_t{123456}), std::pair(4U, "1234"s));
    EXPECT_EQ(bytes_of(std::int32_t{123}), std::pair(4U, "123\0"s));
    EXPECT_EQ(bytes_of(std::int32_t{5}), std::pair(4U, "5\0\0\0"s));
    EXPECT_EQ(bytes_of(std::int32_t{-5}), std::pair(4U, "-5\0\0"s));
    EXPECT_EQ(bytes_of("0042"), std::pair(4U, "42\0\0"s));
    EXPECT_EQ(bytes_of(2.5), std::pair(4U, "2\0\0\0"s));
}

TEST_F(RegistryAccess, ANumberThatIsNoneOrDoesNotFitIsNotWritten) {
    for (const Value& wrong : {Value("many"), Value(3e9), Value(Null{})})
        EXPECT_FALSE(opened().CreateValue("Number", wrong, reg_number));
    EXPECT_EQ(stage.journal(), "");
}

TEST_F(RegistryAccess, OneTextOfSeveralIsEndedByTwoNuls) {
    EXPECT_TRUE(opened().CreateValue("List", "a", reg_multi_string));
    EXPECT_EQ(stored("List"), std::pair(7U, "a\0\0"s));
}

TEST_F(RegistryAccess, MoreTextsFollowInArrayOrder) {
    Array more;
    more.lower_bound = 1;
    more.items = {"b", "", "\0"s, Null{}, std::int32_t{3}};
    EXPECT_TRUE(opened().CreateValue("List", "a", reg_multi_string, more));
    EXPECT_EQ(stored("List"), std::pair(7U, "a\0b\0003\0\0"s));
}

TEST_F(RegistryAccess, OneMoreTextNeedsNoArray) {
    const auto bytes_with = [&](const Value& more) {
        EXPECT_TRUE(opened().CreateValue("List", "a", reg_multi_string, more));
        return stored("List").second;
    };
    EXPECT_EQ(bytes_with("b"), "a\0b\0\0"s);
    for (const Value& skipped : {Value(""), Value("\0"s), Value(Null{}), Value(Empty{})})
        EXPECT_EQ(bytes_with(skipped), "a\0\0"s);
}

TEST_F(RegistryAccess, AnyOtherTypeIsRefusedInAMessageBox) {
    for (const std::int32_t type : {0, 3, 5, 6, 8, 11, -1}) {
        EXPECT_FALSE(opened().CreateValue("Name", "x", type)) << type;
        tests::expect_journal(stage, R"(
            message box "Unable to process that Type of data.", title "Foliant", style 0
        )");
    }
}

TEST_F(RegistryAccess, AWriteThatIsRefusedIsFalse) {
    clsRegistry& open = opened();
    fail_action(1);
    EXPECT_FALSE(open.CreateValue("Text", "x", reg_string));
}

TEST_F(RegistryAccess, WhatIsNoTextIsNotWritten) {
    EXPECT_FALSE(opened().CreateValue("Text", Null{}, reg_string));
    EXPECT_FALSE(registry->CreateValue("Text", texts({"a"}), reg_multi_string));
    EXPECT_EQ(stage.journal(), "");
}

// CreateDirectory.

TEST_F(RegistryAccess, ANewKeyIsMadeBelowAndTheObjectStaysWhereItIs) {
    EXPECT_TRUE(opened().CreateDirectory("Fonts"));
    EXPECT_EQ(registry->SubDirectory(), key);
    EXPECT_TRUE(registry->CreateValue("Name", "x", reg_string));
    tests::expect_journal(stage, R"(
        create key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter\Fonts (access F003F)
        write value "Name" of HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter: type 1 x\0
    )");
}

TEST_F(RegistryAccess, NoKeyIsMadeWithoutAnOpenOneOrWhenItIsRefused) {
    EXPECT_FALSE(registry->CreateDirectory("Fonts"));
    EXPECT_EQ(stage.journal(), "");
    clsRegistry& open = opened();
    fail_action(1);
    EXPECT_FALSE(open.CreateDirectory("Fonts"));
}

}  // namespace
}  // namespace foliant::session
