#include "hosts/transfer/plain_page.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <vector>

#include "automation/text.h"
#include "hosts/text_encoding.h"
#include "hosts/transfer/page_fetcher.h"

namespace foliant::hosts::transfer {

namespace {

/// With what means something else in a page written out.
std::string escaped(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (const char letter : text) {
        if (letter == '&')
            result += "&amp;";
        else if (letter == '<')
            result += "&lt;";
        else if (letter == '"')
            result += "&quot;";
        else
            result += letter;
    }
    return result;
}

bool is_picture(const FetchedPage& page) {
    constexpr std::size_t start = 1024;
    return page.type.starts_with("image/") ||
           (page.type.empty() && page.body.substr(0, start).find('\0') != std::string::npos);
}

/// What nobody has told is guessed as browsers do; "" where the page itself may tell it.
std::string charset_of(const FetchedPage& page) {
    constexpr std::size_t start = 1024;
    if (!page.charset.empty()) return page.charset;
    if (automation::to_lower(page.body.substr(0, start)).find("charset") != std::string::npos) return "";
    return is_utf8(page.body) ? "utf-8" : "windows-1252";
}

/// Where the page's own text begins: behind a mark of its encoding.
std::size_t mark_length(std::string_view body) {
    return body.starts_with("\xEF\xBB\xBF") ? 3 : 0;
}

/// A tag of a page: its name in lower case, and what stands behind it.
struct Tag {
    std::string name;
    std::string_view attributes;
};

bool says(const Tag& tag, std::string_view word) {
    return automation::to_lower(tag.attributes).find(word) != std::string::npos;
}

/// Calls `see` with every tag that is neither in a comment nor in a script; a closing one has no name.
template <class See>
void for_each_tag(std::string_view body, See see) {
    const auto is_letter = [](unsigned char letter) { return std::isalnum(letter) != 0; };
    for (std::size_t at = body.find('<'); at != std::string_view::npos; at = body.find('<', at)) {
        const std::string_view rest = body.substr(at + 1);
        if (rest.starts_with("!--")) {
            at = body.find("-->", at);
            continue;
        }
        const std::size_t end = rest.find('>');
        const std::string_view inside = rest.substr(0, end);
        const auto name_end = std::ranges::find_if_not(inside, is_letter);
        const auto name_length = static_cast<std::size_t>(name_end - inside.begin());
        const Tag tag{automation::to_lower(inside.substr(0, name_length)), inside.substr(name_length)};
        see(tag);
        if (end == std::string_view::npos) return;
        at += end + 1;
        if (tag.name == "script") at = body.find("</", at);
    }
}

std::string joined(const std::vector<std::string_view>& words) {
    std::string text;
    for (std::size_t i = 0; i < words.size(); ++i)
        (text += i == 0 ? "" : i + 1 == words.size() ? " and " : ", ") += words[i];
    return text;
}

}  // namespace

std::string stand_alone(const FetchedPage& page) {
    constexpr std::array markup{"", "text/html", "application/xhtml+xml"};
    if (is_picture(page) || page.body.starts_with("\xFF\xFE") || page.body.starts_with("\xFE\xFF"))
        return page.body;
    const bool is_text = page.type == "text/plain";
    if (!is_text && std::ranges::find(markup, page.type) == markup.end())
        throw page_error("it is no web page, but " + page.type);
    const std::size_t mark = mark_length(page.body);
    std::string text = page.body.substr(0, mark);
    if (const std::string charset = charset_of(page); !charset.empty() && mark == 0)
        text += "<meta http-equiv=\"Content-Type\" content=\"text/html; charset=" + escaped(charset) + "\">";
    text += "<base href=\"" + escaped(page.address) + "\">";
    if (is_text) return text + "<pre>" + escaped(std::string_view(page.body).substr(mark)) + "</pre>";
    return text.append(page.body, mark);
}

std::string parts_elsewhere(std::string_view body) {
    constexpr std::array pictures{"svg", "object", "embed", "canvas", "video"};
    std::array<bool, 4> has{};
    constexpr std::array<std::string_view, 4> names{"pictures", "style sheets", "frames", "scripts"};
    for_each_tag(body, [&](const Tag& tag) {
        has[0] = has[0] || (tag.name == "img" && !says(tag, "data:")) ||
                 std::ranges::find(pictures, tag.name) != pictures.end();
        has[1] = has[1] || (tag.name == "link" && says(tag, "stylesheet"));
        has[2] = has[2] || tag.name == "iframe" || tag.name == "frame";
        has[3] = has[3] || tag.name == "script";
    });
    std::vector<std::string_view> words;
    for (std::size_t i = 0; i < names.size(); ++i)
        if (has[i]) words.push_back(names[i]);
    return words.empty() ? "" : "its " + joined(words);
}

}  // namespace foliant::hosts::transfer
