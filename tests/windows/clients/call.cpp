#include "windows/clients/call.h"

#include <algorithm>
#include <cctype>
#include <utility>

namespace foliant::tests::clients {
namespace {

Argument parse_argument(std::string text) {
    using Kind = Argument::Kind;
    std::string name;
    const auto equals = text.find('=');
    if (text.front() != '\'' && text.front() != '[' && equals != std::string::npos && equals > 0) {
        name = text.substr(0, equals);
        text.erase(0, equals + 1);
    }
    if (text.front() == '\'') return {Kind::text, text.substr(1, text.size() - 2), name};
    if (text.front() == '[') return {Kind::list, text.substr(1, text.size() - 2), name};
    if (text.starts_with("new ")) return {Kind::object, text.substr(4), name};
    if (text.front() == '=') return {Kind::own, text.substr(1), name};
    if (text == "printer") return {Kind::variable, text, name};
    if (text == "True" || text == "False") return {Kind::truth, text, name};
    const bool is_number = std::isdigit(static_cast<unsigned char>(text.back())) != 0;
    return {is_number ? Kind::number : Kind::file, text, name};
}

/// Goes through the parts of a text, which `separator` parts.
template <class Take>
void for_each_part(const std::string& text, const std::string& separator, Take&& take) {
    for (std::size_t begin = 0; begin < text.size();) {
        const auto end = std::min(text.find(separator, begin), text.size());
        take(text.substr(begin, end - begin));
        begin = end + separator.size();
    }
}

}  // namespace

Call parse_call(const std::string& row) {
    const auto colon = row.find(": ");
    Call call{row.substr(0, colon), {}};
    if (colon != std::string::npos)
        for_each_part(row.substr(colon + 2), "; ",
                      [&](std::string part) { call.arguments.push_back(parse_argument(std::move(part))); });
    return call;
}

std::vector<std::string> texts_of(const Argument& list) {
    std::vector<std::string> texts;
    for_each_part(list.text, ", ",
                  [&](const std::string& part) { texts.push_back(part.substr(1, part.size() - 2)); });
    return texts;
}

}  // namespace foliant::tests::clients
