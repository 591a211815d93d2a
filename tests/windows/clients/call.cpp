#include "windows/clients/call.h"

#include <algorithm>
#include <cctype>

namespace foliant::tests::clients {
namespace {

Argument parse_argument(std::string text) {
    using Kind = Argument::Kind;
    std::string name;
    const auto equals = text.find('=');
    if (text.front() != '\'' && equals != std::string::npos && equals > 0) {
        name = text.substr(0, equals);
        text.erase(0, equals + 1);
    }
    if (text.front() == '\'') return {Kind::text, text.substr(1, text.size() - 2), name};
    if (text.front() == '=') return {Kind::own, text.substr(1), name};
    if (text == "printer") return {Kind::variable, text, name};
    if (text == "True" || text == "False") return {Kind::truth, text, name};
    const bool is_number = std::isdigit(static_cast<unsigned char>(text.back())) != 0;
    return {is_number ? Kind::number : Kind::file, text, name};
}

}  // namespace

Call parse_call(const std::string& row) {
    const auto colon = row.find(": ");
    Call call{row.substr(0, colon), {}};
    for (auto begin = colon == std::string::npos ? row.size() : colon + 2; begin < row.size();) {
        const auto end = std::min(row.find("; ", begin), row.size());
        call.arguments.push_back(parse_argument(row.substr(begin, end - begin)));
        begin = end + 2;
    }
    return call;
}

}  // namespace foliant::tests::clients
