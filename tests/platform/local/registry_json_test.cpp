#include "platform/local/registry_json.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace foliant::platform::local::test {
namespace {

using namespace std::string_literals;

RegistryChanges one_value(const StoredValue& value) {
    RegistryChanges changes;
    changes["HKEY_CURRENT_USER\\Software\\K"].values["v"] = value;
    return changes;
}

std::string refusal(const std::string& text) {
    try {
        registry_from_json(text);
        return "understood";
    } catch (const std::exception& problem) {
        return problem.what();
    }
}

TEST(RegistryJson, IsWrittenSoThatAPersonCanReadAndChangeIt) {
    RegistryChanges changes;
    auto& values = changes["HKEY_CURRENT_USER\\Software\\Example"].values;
    values[""] = StoredValue::of_text("unnamed");
    values["Folder"] = StoredValue{reg_expandable_string, "%HOME%\0"s};
    values["Count"] = StoredValue{reg_number, "\x05\0\0\0"s};
    values["List"] = StoredValue{reg_multi_string, "a\0b\0\0"s};
    values["Bytes"] = StoredValue{reg_binary, "\0\xFF"s};
    values["Gone"] = std::nullopt;
    changes["HKEY_LOCAL_MACHINE\\SOFTWARE\\Gone"].removes_default = true;
    EXPECT_EQ(registry_to_json(changes), R"({
  "HKEY_CURRENT_USER\\Software\\Example": {
    "": "unnamed",
    "Bytes": {
      "hex": "00ff",
      "type": "REG_BINARY"
    },
    "Count": {
      "number": 5,
      "type": "REG_DWORD"
    },
    "Folder": {
      "text": "%HOME%",
      "type": "REG_EXPAND_SZ"
    },
    "Gone": null,
    "List": {
      "texts": [
        "a",
        "b"
      ],
      "type": "REG_MULTI_SZ"
    }
  },
  "HKEY_LOCAL_MACHINE\\SOFTWARE\\Gone": null
}
)");
}

TEST(RegistryJson, BringsEveryTypeAndByteBack) {
    for (const StoredValue& value :
         {StoredValue::of_text(""), StoredValue::of_text("caf\xC3\xA9 \"quoted\" \\ \n"),
          StoredValue{reg_string, ""}, StoredValue{reg_string, "no end"},
          StoredValue{reg_string, "two\0ends\0"s}, StoredValue{reg_string, "bad \xFF\0"s},
          StoredValue{reg_expandable_string, "no end"}, StoredValue{reg_number, "123"},
          StoredValue{reg_number, "\xFF\xFF\xFF\xFF"}, StoredValue{reg_number, "12345"},
          StoredValue{reg_multi_string, "\0"s}, StoredValue{reg_multi_string, ""},
          StoredValue{reg_multi_string, "a\0"s}, StoredValue{reg_multi_string, "a\0\0b\0\0"s},
          StoredValue{reg_multi_string, "\xFF\0\0"s}, StoredValue{reg_none, ""}, StoredValue{0xFFFFFFFF, "x"},
          StoredValue{11, "12345678"}}) {
        const std::string text = registry_to_json(one_value(value));
        const auto read = registry_from_json(text);
        EXPECT_EQ(read.at("HKEY_CURRENT_USER\\Software\\K").values.at("v"), value) << text;
    }
}

TEST(RegistryJson, KeepsAKeyWithoutValues) {
    const auto read = registry_from_json(R"({"HKEY_CURRENT_USER\\Empty": {}})");
    ASSERT_TRUE(read.contains("HKEY_CURRENT_USER\\Empty"));
    EXPECT_FALSE(read.at("HKEY_CURRENT_USER\\Empty").removes_default);
}

TEST(RegistryJson, SaysWhereItIsNotUnderstood) {
    EXPECT_EQ(refusal("[]"), "the file holds no object of keys");
    EXPECT_EQ(refusal(R"({"HKCU\\A": 5})"), R"(the key "HKCU\A" is neither an object nor null)");
    EXPECT_EQ(
        refusal(R"({"HKCU\\A": {"v": 5}})"),
        R"(value "v" of "HKCU\A": a value is a text, null, or an object of "type" and one of "text", "number", )"
        R"("texts", "hex")");
    EXPECT_EQ(refusal(R"({"HKCU\\A": {"v": {"type": "REG_SZZ", "text": ""}}})"),
              R"(value "v" of "HKCU\A": there is no type "REG_SZZ")");
    EXPECT_EQ(refusal(R"({"HKCU\\A": {"v": {"type": 3, "hex": "0g"}}})"),
              R"(value "v" of "HKCU\A": "hex" is no even number of hexadecimal digits)");
    EXPECT_EQ(refusal(R"({"HKCU\\A": {"v": {"type": 3, "hex": "000"}}})"),
              R"(value "v" of "HKCU\A": "hex" is no even number of hexadecimal digits)");
    EXPECT_EQ(refusal(R"({"HKCU\\A": {"v": {"type": 4, "number": -1}}})"),
              R"(value "v" of "HKCU\A": "number" is no number from 0 to 4294967295)");
    EXPECT_NE(refusal(R"({"HKCU\\A": {"v": {"type": 4, "other": -1}}})"), "understood");
    EXPECT_NE(refusal(R"({"HKCU\\A": {"v": {"type": [], "text": "a"}}})"), "understood");
    EXPECT_TRUE(refusal("{\n  \"HKCU\": {,}\n}").starts_with("parse error at line 2, column 12: "))
        << refusal("{\n  \"HKCU\": {,}\n}");
}

TEST(RegistryJson, ShowsNoPartOfAValueThatIsNotUnderstood) {
    for (const char* text :
         {R"({"HKCU\\A": {"OpenPassword": "hush", "x": "hush})", R"({"HKCU\\A": {"OpenPassword": hush}})",
          "{\"HKCU\\\\A\": {\"OpenPassword\": \"hush\xFF\"}}", R"({"A": {"OpenPassword": "hush; x \q"}})"}) {
        EXPECT_EQ(refusal(text).find("hu"), std::string::npos) << refusal(text);
        EXPECT_TRUE(refusal(text).starts_with("parse error at line 1, ")) << refusal(text);
    }
}

TEST(RegistryJson, RefusesEveryTruncationOfAFile) {
    const std::string whole = R"({"HKCU\\A": {"v": {"type": 3, "hex": "00"}, "w": "x"}})";
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_NE(refusal(whole.substr(0, length)), "understood") << length;
    EXPECT_EQ(refusal(whole), "understood");
}

TEST(RegistryJson, RefusesToWriteANameThatIsNoText) {
    RegistryChanges changes;
    changes["HKEY_CURRENT_USER\\\xFF"];
    EXPECT_THROW(registry_to_json(changes), std::exception);
}

}  // namespace
}  // namespace foliant::platform::local::test
