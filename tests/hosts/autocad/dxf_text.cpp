#include "hosts/autocad/dxf_text.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <sstream>

namespace foliant::hosts::autocad::test {
namespace {

/// A line of groups, the first of which has this code.
std::string groups(const std::string& line, int first) {
    std::istringstream parts(line);
    std::string part;
    std::getline(parts, part, '|');
    std::string text = std::to_string(first) + "\n" + part + "\n";
    while (std::getline(parts, part, '|')) {
        const std::size_t equals = part.find('=');
        std::ranges::replace(part, '!', '|');
        text += "  " + part.substr(0, equals) + "\n" + part.substr(equals + 1) + "\n";
    }
    return text;
}

std::string section(const std::string& name, const std::vector<std::string>& lines, int first = 0) {
    std::string text = "0\nSECTION\n2\n" + name + "\n";
    for (const std::string& line : lines)
        text += groups(line, first);
    return text + "0\nENDSEC\n";
}

template <typename Number>
std::string raw(Number number) {
    std::string bytes(sizeof(number), '\0');
    std::memcpy(bytes.data(), &number, sizeof(number));
    return bytes;
}

}  // namespace

std::string DxfText::text() const {
    std::vector<std::string> header = {"$ACADVER|1=" + version};
    header.insert(header.end(), variables.begin(), variables.end());
    return section("HEADER", header, 9) + section("TABLES", tables) + section("BLOCKS", blocks) +
           section("ENTITIES", entities) + section("OBJECTS", objects) + "0\nEOF\n";
}

std::string binary_form(const std::string& text) {
    std::string bytes("AutoCAD Binary DXF\r\n\x1a\0", 22);
    std::istringstream lines(text);
    std::string code_line;
    std::string value;
    while (std::getline(lines, code_line) && std::getline(lines, value)) {
        const int code = std::stoi(code_line);
        bytes += raw(static_cast<std::int16_t>(code));
        if (code >= 10 && code <= 59)
            bytes += raw(std::stod(value));
        else if (code >= 60 && code <= 79)
            bytes += raw(static_cast<std::int16_t>(std::stoi(value)));
        else if (code >= 90 && code <= 99)
            bytes += raw(static_cast<std::int32_t>(std::stoi(value)));
        else
            (bytes += value) += '\0';
    }
    return bytes;
}

}  // namespace foliant::hosts::autocad::test
