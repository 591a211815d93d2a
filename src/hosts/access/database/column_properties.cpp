#include "hosts/access/database/column_properties.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <utility>
#include <vector>

#include "automation/text.h"
#include "hosts/access/database/mdb.h"

namespace foliant::hosts::access {
namespace {

/// Takes numbers and pieces from the front of bytes; what is not there is 0 or empty.
class Bytes {
  public:
    explicit Bytes(std::string_view bytes) : bytes_(bytes) {}

    bool is_empty() const noexcept { return bytes_.empty(); }

    std::string_view take(std::size_t count) {
        const std::string_view taken = bytes_.substr(0, count);
        bytes_.remove_prefix(taken.size());
        return taken;
    }
    template <class Number>
    Number number() {
        Number value = 0;
        const std::string_view taken = take(sizeof value);
        if (taken.size() == sizeof value) std::memcpy(&value, &taken.front(), sizeof value);
        return value;
    }

  private:
    std::string_view bytes_;
};

using ToUtf8 = std::function<std::string(std::string_view)>;

std::vector<std::string> read_names(Bytes block, const ToUtf8& to_utf8) {
    std::vector<std::string> names;
    while (!block.is_empty())
        names.push_back(to_utf8(block.take(block.number<std::uint16_t>())));
    return names;
}

std::string value_of(int type, std::string_view data, const ToUtf8& to_utf8) {
    if (type == MDB_TEXT || type == MDB_MEMO) return to_utf8(data);
    if (type == MDB_BYTE) return std::to_string(Bytes(data).number<std::uint8_t>());
    if (type == MDB_INT) return std::to_string(Bytes(data).number<std::int16_t>());
    return {};
}

void read_column(Bytes block, const std::vector<std::string>& names, const ToUtf8& to_utf8,
                 ColumnProperties& columns) {
    block.number<std::uint32_t>();
    auto& properties = columns[to_utf8(block.take(block.number<std::uint16_t>()))];
    constexpr std::size_t head = 8;
    while (!block.is_empty()) {
        const auto size = block.number<std::uint16_t>();
        block.number<std::uint8_t>();
        const int type = block.number<std::uint8_t>();
        const std::size_t name = block.number<std::uint16_t>();
        const std::size_t length = block.number<std::uint16_t>();
        if (size < head) return;
        const std::string_view data = block.take(size - head).substr(0, length);
        if (name < names.size()) properties[names[name]] = value_of(type, data, to_utf8);
    }
}

/// "amp" and "#65" as characters; empty for an entity that nobody knows.
std::string character_of(std::string_view entity) {
    constexpr std::array<std::pair<std::string_view, const char*>, 5> named{
        {{"amp", "&"}, {"lt", "<"}, {"gt", ">"}, {"quot", "\""}, {"nbsp", "\u00A0"}}};
    for (const auto& [name, character] : named)
        if (entity == name) return character;
    if (!entity.starts_with('#')) return {};
    std::uint32_t point = 0;
    std::from_chars(entity.data() + 1, entity.data() + entity.size(), point);
    if (g_unichar_validate(point) == FALSE || point == 0) return {};
    std::array<char, 6> utf8{};
    return {utf8.data(), static_cast<std::size_t>(g_unichar_to_utf8(point, utf8.data()))};
}

bool ends_line(std::string_view tag) {
    const std::string name = automation::to_lower(tag.substr(0, tag.find_first_of(" /", 1)));
    return name == "br" || name == "/div" || name == "/p" || name == "/li";
}

}  // namespace

ColumnProperties read_column_properties(std::string_view bytes, const ToUtf8& to_utf8) {
    constexpr std::size_t head = 6;
    constexpr int names_block = 0x80;
    constexpr int column_block = 1;
    ColumnProperties columns;
    std::vector<std::string> names;
    Bytes rest(bytes);
    rest.take(4);  // who has written them
    while (!rest.is_empty()) {
        const auto size = rest.number<std::uint32_t>();
        const int type = rest.number<std::uint16_t>();
        if (size < head) break;
        const Bytes block(rest.take(size - head));
        if (type == names_block) names = read_names(block, to_utf8);
        if (type == column_block) read_column(block, names, to_utf8, columns);
    }
    return columns;
}

std::string without_formats(std::string_view html) {
    std::string text;
    while (!html.empty()) {
        const char first = html.front();
        const std::size_t end = first == '<'   ? html.find('>')
                                : first == '&' ? html.find(';')
                                               : std::string_view::npos;
        if (end == std::string_view::npos) {
            if (first != '\r' && first != '\n') text += first;  // lines end with tags
            html.remove_prefix(1);
            continue;
        }
        const std::string_view inner = html.substr(1, end - 1);
        const std::string character = first == '&' ? character_of(inner) : "";
        if (first == '<' && ends_line(inner)) text += '\n';
        text += first == '&' && character.empty() ? std::string(html.substr(0, end + 1)) : character;
        html.remove_prefix(end + 1);
    }
    while (text.ends_with('\n'))
        text.pop_back();
    return text;
}

}  // namespace foliant::hosts::access
