#include "platform/local/registry_json.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <utility>
#include <vector>

namespace foliant::platform::local {
namespace {

using nlohmann::json;

constexpr std::array<std::string_view, 11> type_names{"REG_NONE",
                                                      "REG_SZ",
                                                      "REG_EXPAND_SZ",
                                                      "REG_BINARY",
                                                      "REG_DWORD",
                                                      "REG_DWORD_BIG_ENDIAN",
                                                      "REG_LINK",
                                                      "REG_MULTI_SZ",
                                                      "REG_RESOURCE_LIST",
                                                      "REG_FULL_RESOURCE_DESCRIPTOR",
                                                      "REG_RESOURCE_REQUIREMENTS_LIST"};

[[noreturn]] void refuse(const std::string& problem) {
    throw std::runtime_error(problem);
}

[[noreturn]] void refuse_value(const std::string& path, const std::string& name, const std::string& problem) {
    refuse("value \"" + name + "\" of \"" + path + "\": " + problem);
}

json type_to_json(std::uint32_t type) {
    return type < type_names.size() ? json(type_names[type]) : json(type);
}

std::uint32_t type_from_json(const json& type) {
    if (type.is_number_unsigned() && type.get<std::uint64_t>() <= UINT32_MAX)
        return type.get<std::uint32_t>();
    const auto* found = std::find(type_names.begin(), type_names.end(), type.get<std::string_view>());
    if (found == type_names.end()) refuse("there is no type " + type.dump());
    return static_cast<std::uint32_t>(found - type_names.begin());
}

std::string to_hex(std::string_view bytes) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string hex;
    for (const char byte : bytes) {
        const auto bits = static_cast<unsigned char>(byte);
        hex += digits[bits >> 4U];
        hex += digits[bits & 0xFU];
    }
    return hex;
}

std::string from_hex(std::string_view hex) {
    std::string bytes;
    for (std::size_t i = 0; i < hex.size(); i += 2) {
        unsigned char byte = 0;
        const auto pair = hex.substr(i, 2);
        const auto [end, problem] = std::from_chars(pair.data(), pair.data() + pair.size(), byte, 16);
        if (problem != std::errc() || pair.size() != 2 || end != pair.data() + 2) {
            refuse("\"hex\" is no even number of hexadecimal digits");
        }
        bytes += static_cast<char>(byte);
    }
    return bytes;
}

bool is_utf8(const std::string& text) {
    try {
        return !json(text).dump().empty();
    } catch (const json::type_error&) {
        return false;
    }
}

/// The texts of a list whose bytes have the usual form: each with its NUL, and one NUL at the end.
std::optional<std::vector<std::string>> usual_texts(std::string_view data) {
    std::vector<std::string> texts;
    while (data.size() > 1) {
        const std::size_t end = data.find('\0');
        if (end == std::string_view::npos) return std::nullopt;
        texts.emplace_back(data.substr(0, end));
        data.remove_prefix(end + 1);
    }
    if (data != std::string_view("\0", 1) || !std::all_of(texts.begin(), texts.end(), is_utf8))
        return std::nullopt;
    return texts;
}

std::string number_bytes(std::uint32_t number) {
    std::string bytes;
    for (int i = 0; i < 4; ++i, number >>= 8U)
        bytes += static_cast<char>(number & 0xFFU);
    return bytes;
}

std::uint32_t number_of(std::string_view bytes) {
    std::uint32_t number = 0;
    for (std::size_t i = 4; i > 0; --i)
        number = (number << 8U) | static_cast<unsigned char>(bytes[i - 1]);
    return number;
}

/// The text of a value whose bytes have the usual form: valid UTF-8, and one NUL, at the end.
std::optional<std::string> usual_text(const StoredValue& value) {
    auto text = value.text();
    if (!text || value.data.size() != text->size() + 1 || !is_utf8(*text)) return std::nullopt;
    return text;
}

json value_to_json(const StoredValue& value) {
    const auto text = usual_text(value);
    if (text && value.type == reg_string) return *text;
    json written{{"type", type_to_json(value.type)}};
    if (text) {
        written["text"] = *text;
    } else if (value.type == reg_number && value.data.size() == 4) {
        written["number"] = number_of(value.data);
    } else if (const auto texts = usual_texts(value.data); texts && value.type == reg_multi_string) {
        written["texts"] = *texts;
    } else {
        written["hex"] = to_hex(value.data);
    }
    return written;
}

std::string texts_bytes(const json& texts) {
    std::string data;
    for (const json& text : texts)
        data.append(text.get<std::string>()).push_back('\0');
    return data + '\0';
}

StoredValue value_from_json(const json& read) {
    if (read.is_string()) return StoredValue::of_text(read.get<std::string>());
    if (!read.is_object() || !read.contains("type") || read.size() != 2) {
        refuse(
            "a value is a text, null, or an object of \"type\" and one of \"text\", \"number\", \"texts\", "
            "\"hex\"");
    }
    const std::uint32_t type = type_from_json(read.at("type"));
    if (read.contains("text")) return {type, read.at("text").get<std::string>() + '\0'};
    if (read.contains("texts")) return {type, texts_bytes(read.at("texts"))};
    if (read.contains("hex")) return {type, from_hex(read.at("hex").get<std::string>())};
    const json& number = read.at("number");
    if (!number.is_number_unsigned() || number.get<std::uint64_t>() > UINT32_MAX) {
        refuse("\"number\" is no number from 0 to 4294967295");
    }
    return {type, number_bytes(number.get<std::uint32_t>())};
}

KeyChanges key_from_json(const std::string& path, const json& read) {
    KeyChanges key;
    key.removes_default = read.is_null();
    if (!read.is_object() && !read.is_null())
        refuse("the key \"" + path + "\" is neither an object nor null");
    for (const auto& [name, value] : read.items()) {
        try {
            key.values[name] = value.is_null() ? std::nullopt : std::optional(value_from_json(value));
        } catch (const std::exception& problem) {
            refuse_value(path, name, problem.what());
        }
    }
    return key;
}

json key_to_json(const KeyChanges& key) {
    if (key.removes_default) return nullptr;
    json written = json::object();
    for (const auto& [name, value] : key.values)
        written[name] = value ? value_to_json(*value) : json(nullptr);
    return written;
}

/// The library's message without the identifier that it puts in front for programmers, and without what it
/// has read last, which may be a password.
std::string without_details(std::string message) {
    message.erase(std::min(message.find("; last read: "), message.size()));
    const std::size_t identifier = message.find("] ");
    return identifier == std::string::npos ? message : message.substr(identifier + 2);
}

json parsed(const std::string& text) {
    try {
        return json::parse(text);
    } catch (const json::parse_error& error) {
        refuse(without_details(error.what()));
    }
}

}  // namespace

RegistryChanges registry_from_json(const std::string& text) {
    const json read = parsed(text);
    if (!read.is_object()) refuse("the file holds no object of keys");
    RegistryChanges changes;
    for (const auto& [path, key] : read.items())
        changes[path] = key_from_json(path, key);
    return changes;
}

std::string registry_to_json(const RegistryChanges& changes) {
    json written = json::object();
    for (const auto& [path, key] : changes)
        written[path] = key_to_json(key);
    return written.dump(2) + "\n";
}

}  // namespace foliant::platform::local
