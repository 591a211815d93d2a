#include "session/registry_access.h"

#include <utility>
#include <vector>

#include "automation/coerce.h"
#include "automation/error.h"
#include "session/errors.h"

namespace foliant::session {

using automation::Array;
using automation::ArrayPtr;
using automation::Value;

namespace {

/// Read rights plus query, set, make subkeys and list them; neither notify nor make links.
constexpr std::uint32_t open_access = 0x2000F;
constexpr std::uint32_t all_access = 0xF003F;
constexpr char nul = '\0';

std::string hexadecimal_dump(const std::string& bytes) {
    constexpr char digits[] = "0123456789ABCDEF";
    std::string dump;
    for (const char byte : bytes) {
        const auto bits = static_cast<unsigned char>(byte);
        dump += {digits[bits >> 4U], digits[bits & 0xFU], ' '};
    }
    return dump;
}

Value split_at_nul(const std::string& texts, const platform::Registry& registry) {
    Array array;
    array.element = Array::Element::text;
    std::string rest = texts;
    // The data end in two NULs: the first ends the last text, the second ends the list.
    if (rest.ends_with(nul)) rest.pop_back();
    std::size_t begin = 0;
    while (true) {
        const std::size_t end = rest.find(nul, begin);
        array.items.emplace_back(registry.text_of(rest.substr(begin, end - begin)));
        if (end == std::string::npos) return array;
        begin = end + 1;
    }
}

Value reason_for_no_value(std::uint32_t type) {
    switch (type) {
        case platform::reg_none:
            return "Not defined value_type=REG_NONE";
        case platform::reg_link:
            return "Not defined value_type=REG_LINK";
        case platform::reg_resource_list:
            return "Not defined value_type=REG_RESOURCE_LIST";
        case platform::reg_full_resource_descriptor:
            return "Not defined value_type=REG_FULL_RESOURCE_DESCRIPTOR";
        case platform::reg_resource_requirements_list:
            return "Not defined value_type=REG_RESOURCE_REQUIREMENTS_LIST";
        default:
            return "value_type=" + std::to_string(type);
    }
}

}  // namespace

clsRegistry::~clsRegistry() {
    ignoring_errors([&] {
        if (open_) platform_.registry.close_key(key_);
    });
}

bool clsRegistry::OpenRegistry(std::uint32_t RtHKey, const std::string& sub_key) noexcept {
    if (RtHKey == 0) return false;
    bool opened = false;
    ignoring_errors([&] {
        root_ = RtHKey;
        sub_directory_ = sub_key;
        if (open_) CloseRegistry();
        opened =
            platform_.registry.open_key(RtHKey, sub_key, open_access, key_) == platform::registry_success;
        if (opened) open_ = true;
    });
    return opened;
}

bool clsRegistry::CloseRegistry() noexcept {
    bool closed = false;
    ignoring_errors([&] { closed = platform_.registry.close_key(key_) == platform::registry_success; });
    if (closed) open_ = false;
    return closed;
}

Value clsRegistry::OneBackOnKey() noexcept {
    ignoring_errors([&] {
        const std::size_t last = sub_directory_.rfind('\\');
        const std::string parent = last == std::string::npos ? "" : sub_directory_.substr(0, last);
        CloseRegistry();
        OpenRegistry(root_, parent);
    });
    return {};
}

bool clsRegistry::CreateDirectory(const std::string& sNewDirName) noexcept {
    bool made = false;
    ignoring_errors([&] {
        if (!open_) return;
        // The new key's handle is not kept: this object stays on the key it has open.
        platform::RegistryKey ignored = 0;
        made = platform_.registry.create_key(key_, sNewDirName, all_access, ignored) ==
               platform::registry_success;
    });
    return made;
}

Value clsRegistry::GetValue(const std::string& VarName, bool ReturnBinStr) noexcept {
    Value result;
    ignoring_errors([&] {
        if (open_) result = read_value(VarName, ReturnBinStr);
    });
    return result;
}

Value clsRegistry::read_value(const std::string& name, bool as_bytes) {
    const platform::Registry& texts = platform_.registry;
    std::uint32_t type = 0;
    std::uint32_t size = 0;
    const std::int32_t answer = platform_.registry.query_size(key_, name, type, size);
    if (answer == platform::registry_not_found) return {};
    if (answer == platform::registry_access_denied) return "Access Denied";
    if (answer != platform::registry_success) {
        return "RegQueryValueEx Returned : (" + std::to_string(answer) + ")";
    }
    std::string data(size, nul);
    platform_.registry.query_data(key_, name, data);
    switch (type) {
        case platform::reg_string:
        case platform::reg_expandable_string:
            if (data.empty()) throw automation::Error(automation::RuntimeError::invalid_procedure_call);
            data.pop_back();
            return texts.text_of(data);
        case platform::reg_binary:
        case platform::reg_number:
            return as_bytes ? Value(texts.text_of(data)) : Value(hexadecimal_dump(data));
        case platform::reg_big_endian_number:
            return texts.text_of(data);
        case platform::reg_multi_string:
            return split_at_nul(data, texts);
        default:
            return reason_for_no_value(type);
    }
}

bool clsRegistry::CreateValue(const std::string& sValueName, const Value& vWriteThis,
                              std::int32_t ldValueDataType, const Value& Multi_SZ_AddtlStrings) noexcept {
    bool written = false;
    ignoring_errors([&] {
        if (!open_) return;
        switch (ldValueDataType) {
            case platform::reg_string:
            case platform::reg_expandable_string:
                written = write_data(sValueName, static_cast<std::uint32_t>(ldValueDataType),
                                     platform_.registry.ansi_of(automation::to_text(vWriteThis)) + nul);
                return;
            case platform::reg_number:
                written = write_number(sValueName, vWriteThis);
                return;
            case platform::reg_multi_string:
                written = write_texts(sValueName, vWriteThis, Multi_SZ_AddtlStrings);
                return;
            default:
                platform_.windows.message_box("Unable to process that Type of data.",
                                              std::string(application_title), 0);
        }
    });
    return written;
}

bool clsRegistry::write_number(const std::string& name, const Value& value) {
    std::string data = std::to_string(automation::to_int32(automation::to_text(value)));
    data.resize(4, nul);
    return write_data(name, platform::reg_number, data);
}

bool clsRegistry::write_texts(const std::string& name, const Value& first, const Value& more) {
    std::string data = platform_.registry.ansi_of(automation::to_text(first)) + nul;
    const auto append = [&](const Value& item) {
        if (item.holds<automation::Null>()) return;
        const std::string text = automation::to_text(item);
        if (text.empty() || text == std::string(1, nul)) return;
        data += platform_.registry.ansi_of(text) + nul;
    };
    if (const auto* array = more.if_holds<ArrayPtr>()) {
        for (const Value& item : (*array)->items)
            append(item);
    } else if (!more.holds<automation::Missing>()) {
        append(more);
    }
    return write_data(name, platform::reg_multi_string, data + nul);
}

bool clsRegistry::write_data(const std::string& name, std::uint32_t type, const std::string& data) {
    return platform_.registry.set_value(key_, name, type, data) == platform::registry_success;
}

}  // namespace foliant::session
