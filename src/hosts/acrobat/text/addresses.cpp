#include "hosts/acrobat/text/addresses.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <utility>

#include "hosts/acrobat/text/letters.h"
#include "hosts/acrobat/text/page_lines.h"
#include "hosts/acrobat/text/uri.h"

namespace foliant::hosts::acrobat::text {
namespace {

using Text = std::u32string_view;

constexpr std::size_t longest_address = 2000;
constexpr char32_t closing_quote = U'\u2019';

constexpr std::array<Text, 5> beginnings{U"http://", U"https://", U"ftp://", U"mailto:", U"www."};

/// Endings that tell a piece of an address from a word.
constexpr std::array<Text, 16> endings{U"html", U"htm", U"pdf", U"php", U"asp", U"aspx", U"jsp", U"xml",
                                       U"txt",  U"jpg", U"png", U"zip", U"com", U"org",  U"net", U"json"};

bool is_among(char32_t letter, Text letters) {
    return letters.find(letter) != Text::npos;
}
bool is_plain_letter_or_digit(char32_t letter) {
    return letter < 0x80 && is_word_letter(letter);
}
char32_t small(char32_t letter) {
    return letter >= U'A' && letter <= U'Z' ? letter + (U'a' - U'A') : letter;
}
bool begins_with(Text text, Text beginning) {
    return text.size() >= beginning.size() &&
           std::equal(beginning.begin(), beginning.end(), text.begin(),
                      [](char32_t wanted, char32_t letter) { return wanted == small(letter); });
}

bool may_be_in_address(char32_t letter) {
    if (letter < 0x80) return letter > U' ' && letter != 0x7F && !is_among(letter, U"<>\"{}|\\^`");
    return is_word_letter(letter) && !stands_without_blanks(letter);
}
/// Most fonts print an apostrophe as a closing quotation mark. Behind a host's name it belongs to the address where
/// letters are on both sides of it; "http://example.org's page" names a host.
bool is_apostrophe(Text address, std::size_t at) {
    if (address[at] != closing_quote || at + 1 >= address.size()) return false;
    const std::size_t scheme = address.find(U"://");
    const std::size_t host = scheme < at ? scheme + 3 : 0;
    return is_word_letter(address[at - 1]) && is_word_letter(address[at + 1]) &&
           address.find(U'/', host) < at;
}
/// Where the address ends that the text begins with.
std::size_t length_of_address(Text text) {
    std::size_t end = 0;
    while (end < text.size() && (may_be_in_address(text[end]) || (end > 0 && is_apostrophe(text, end))))
        ++end;
    return end;
}
bool may_be_in_mailbox(char32_t letter) {
    return is_plain_letter_or_digit(letter) || is_among(letter, U".!#$%&'*+/=?_~-");
}
bool may_be_in_domain(char32_t letter) {
    return is_plain_letter_or_digit(letter) || letter == U'-' || letter == U'.';
}

/// The text without the punctuation of the sentence that it ends, and without a bracket that was opened
/// before it.
Text without_punctuation(Text address) {
    const auto closes_more = [&](char32_t open, char32_t close) {
        return address.back() == close && std::count(address.begin(), address.end(), close) >
                                              std::count(address.begin(), address.end(), open);
    };
    while (!address.empty() &&
           (is_among(address.back(), U".,;:!?'*") || closes_more(U'(', U')') || closes_more(U'[', U']')))
        address.remove_suffix(1);
    return address;
}

bool has_known_ending(Text token) {
    token = without_punctuation(token);
    const Text last = token.substr(token.rfind(U'.') + 1);
    return std::find(endings.begin(), endings.end(), last) != endings.end();
}

/// Whether a word of a text is none, but a piece of an address.
bool looks_like_a_piece(Text token) {
    const bool has_inner_sign = without_punctuation(token).find_first_of(U"/=%?&_") != Text::npos;
    return has_inner_sign || has_known_ending(token);
}

bool begins_an_address(Text token) {
    return std::any_of(beginnings.begin(), beginnings.end(),
                       [&](Text beginning) { return begins_with(token, beginning); });
}

/// Whether an address that a line ends with goes on with the next line's first token.
bool web_address_goes_on(Text address, bool line_is_full, Text next) {
    const char32_t first = next.front();
    const char32_t last = address.back();
    if (begins_an_address(next) || is_among(U'@', next)) return false;
    if (is_among(first, U"/?&=#%_~+.-:")) return next.size() > 1 && is_plain_letter_or_digit(next[1]);
    if (!is_word_letter(first)) return false;
    if (is_among(last, U"-_=&?#%+~@")) return true;
    if (last == U'/') return looks_like_a_piece(next) || (line_is_full && small(first) == first);
    if (last == U'.') {
        const bool host_is_open = address.find(U'.') == address.size() - 1 || begins_with(address, U"www.");
        return looks_like_a_piece(next) && (host_is_open || address.find(U'/') != Text::npos);
    }
    return is_word_letter(last) && line_is_full && looks_like_a_piece(next);
}

bool mail_address_goes_on(Text address, Text next) {
    const std::size_t at = address.find(U'@');
    if (at == Text::npos) return next.front() == U'@' && next.size() > 1;
    const Text domain = address.substr(at + 1);
    if (!may_be_in_domain(next.front()) || is_among(U'@', next)) return false;
    return domain.empty() || next.front() == U'.' || domain.back() == U'-' ||
           (domain.back() == U'.' && domain.find(U'.') == domain.size() - 1);
}

/// The tokens of a page one after the other, with a look at what the next line begins with.
class Scanner {
  public:
    explicit Scanner(const PageText& page) : page_(page), lines_(lines_of(page)) {}

    std::vector<Address> scan() {
        for (line_ = 0; line_ < lines_.size(); ++line_)
            for (std::size_t token = line_ < first_free_line_ ? 1 : 0; token < lines_[line_].tokens.size();
                 ++token)
                scan(token);
        return std::move(found_);
    }

  private:
    void scan(std::size_t number) {
        Token token = lines_[line_].tokens[number];
        const bool ends_line = number + 1 == lines_[line_].tokens.size();
        if (ends_line) join_next_lines(token);
        std::size_t at = 0;
        while (at < token.text.size())
            at = find_in(token, at);
    }

    /// Adds what the next lines begin with, as long as an address goes on there.
    void join_next_lines(Token& token) {
        for (std::size_t next = line_ + 1; next < lines_.size(); ++next) {
            const Token& piece = lines_[next].tokens.front();
            if (piece.text.empty() || token.text.empty() || token.text.size() > longest_address) return;
            const auto start = open_address(token.text);
            if (!start) return;
            const Text open = Text(token.text).substr(*start);
            const bool is_mail = !begins_an_address(open);
            if (is_mail ? !mail_address_goes_on(open, piece.text)
                        : !web_address_goes_on(open, lines_[next - 1].is_full, piece.text))
                return;
            token.text += piece.text;
            token.origin.insert(token.origin.end(), piece.origin.begin(), piece.origin.end());
            first_free_line_ = next + 1;
            if (lines_[next].tokens.size() > 1) return;
        }
    }

    /// Where an address begins that reaches to the end of the text.
    static std::optional<std::size_t> open_address(Text text) {
        for (std::size_t at = 0; at < text.size(); ++at)
            if (begins_there(text, at)) {
                const bool is_open = length_of_address(text.substr(at)) == text.size() - at;
                return is_open ? std::optional(at) : std::nullopt;
            }
        std::size_t start = text.size();
        while (start > 0 && (may_be_in_mailbox(text[start - 1]) || text[start - 1] == U'@'))
            --start;
        return start < text.size() ? std::optional(start) : std::nullopt;
    }

    static bool begins_there(Text text, std::size_t at) {
        const bool inside_a_word =
            at > 0 && is_word_letter(text[at - 1]) && !stands_without_blanks(text[at - 1]);
        return !inside_a_word && begins_an_address(text.substr(at));
    }

    /// Looks at one place of a token; returns the place to look at next.
    std::size_t find_in(const Token& token, std::size_t at) {
        const Text text = token.text;
        if (begins_there(text, at)) {
            const Text behind = text.substr(at);
            const Text address = without_punctuation(behind.substr(0, length_of_address(behind)));
            if (is_web_address(address)) {
                const bool has_scheme = !begins_with(address, U"www.");
                add(token, at, address, has_scheme ? U"" : U"http://");
                return std::max(at + address.size(), at + 1);
            }
        }
        return text[at] == U'@' ? find_mail(token, at) : at + 1;
    }

    static bool is_web_address(Text address) {
        if (address.size() > longest_address) return false;
        if (begins_with(address, U"www.")) return address.find(U'.', 5) != Text::npos;
        if (begins_with(address, U"mailto:")) return address.find(U'@') != Text::npos;
        const std::size_t scheme = address.find(U"://");
        const Text rest = scheme == Text::npos ? Text() : address.substr(scheme + 3);
        return !rest.empty() && is_word_letter(rest.front());
    }

    std::size_t find_mail(const Token& token, std::size_t at) {
        const Text text = token.text;
        std::size_t start = at;
        while (start > behind_last(token) && may_be_in_mailbox(text[start - 1]))
            --start;
        while (start < at && !is_plain_letter_or_digit(text[start]))
            ++start;
        std::size_t end = at + 1;
        while (end < text.size() && may_be_in_domain(text[end]))
            ++end;
        while (end > at + 1 && !is_plain_letter_or_digit(text[end - 1]))
            --end;
        const Text domain = text.substr(at + 1, end - at - 1);
        const std::size_t dot = domain.rfind(U'.');
        const bool is_address = start < at && end - start <= longest_address && dot != Text::npos &&
                                dot > 0 && domain.size() - dot > 2 && !is_digit(domain.back()) &&
                                is_plain_letter_or_digit(domain.front()) && domain.find(U"..") == Text::npos;
        if (is_address) add(token, start, text.substr(start, end - start), U"mailto:");
        return end;
    }

    /// The first place in the token that no address has taken.
    std::size_t behind_last(const Token& token) const {
        const auto place = std::lower_bound(token.origin.begin(), token.origin.end(), behind_last_letter_);
        return static_cast<std::size_t>(place - token.origin.begin());
    }

    void add(const Token& token, std::size_t start, Text address, Text scheme) {
        const std::size_t first = token.origin[start];
        const std::size_t end = token.origin[start + address.size() - 1] + std::size_t{1};
        behind_last_letter_ = end;
        std::u32string written = std::u32string(scheme).append(address);
        std::ranges::replace(written, closing_quote, U'\'');
        std::string target = uri(written);
        if (!target.empty()) found_.push_back({std::move(target), page_.places(first, end)});
    }

    const PageText& page_;
    std::vector<Line> lines_;
    std::vector<Address> found_;
    std::size_t line_ = 0;
    std::size_t first_free_line_ = 0;  ///< those before it have lost their first token to an address
    std::size_t behind_last_letter_ = 0;
};

}  // namespace

std::vector<Address> addresses(const PageText& page) {
    return Scanner(page).scan();
}

}  // namespace foliant::hosts::acrobat::text
