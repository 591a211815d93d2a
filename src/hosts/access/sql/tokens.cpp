#include "hosts/access/sql/tokens.h"

#include <utility>

#include "automation/text.h"

namespace foliant::hosts::access {
namespace {

bool is_letter(char character) {
    const auto byte = static_cast<unsigned char>(character);
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || byte == '_' || byte >= 0x80;
}
bool is_digit(char character) {
    return character >= '0' && character <= '9';
}

std::string quoted(std::string_view text) {
    return "<" + std::string(text) + ">";
}

}  // namespace

bool Tokens::is(std::string_view word) const noexcept {
    return (token_.kind == Token::Kind::name || token_.kind == Token::Kind::symbol) && token_.lower == word;
}

Token Tokens::take() {
    Token taken = std::move(token_);
    advance();
    return taken;
}

bool Tokens::take_if(std::string_view word) {
    if (!is(word)) return false;
    advance();
    return true;
}

void Tokens::expect(std::string_view word, const std::string& why) {
    if (!take_if(word)) fail("a \"" + std::string(word) + "\" is missing" + (why.empty() ? "" : " " + why));
}

std::string Tokens::text_from(std::size_t place) const {
    const std::string_view passed = text_.substr(place, begin_ - place);
    return std::string(passed.substr(0, passed.find_last_not_of(" \t\r\n") + 1));
}

std::string Tokens::take_to_closing() {
    const std::size_t first = place();
    for (int depth = 0; depth > 0 || !is(")"); advance()) {
        if (token_.kind == Token::Kind::end) fail("a \")\" is missing");
        if (is("(")) ++depth;
        if (is(")")) --depth;
    }
    std::string held = text_from(first);
    advance();
    return held;
}

void Tokens::fail(const std::string& problem) const {
    const std::string_view rest = text_.substr(begin_);
    throw SqlError(problem + (rest.empty() ? ", at the end of " + quoted(text_)
                                           : ", at " + quoted(rest) + " in " + quoted(text_)));
}

void Tokens::advance() {
    while (at_ < text_.size() && std::string_view(" \t\r\n").find(text_[at_]) != std::string_view::npos)
        ++at_;
    begin_ = at_;
    token_ = {};
    if (at_ == text_.size()) return;
    const char first = text_[at_];
    if (first == '[') return read_name_in_brackets();
    if (first == '\'' || first == '"') return read_text(first);
    if (first == '#') return read_date_text();
    if (is_digit(first) || (first == '.' && at_ + 1 < text_.size() && is_digit(text_[at_ + 1])))
        return read_number();
    if (is_letter(first)) return read_name();
    read_symbol();
}

void Tokens::put(Token::Kind kind, std::size_t length) {
    token_ = {kind, std::string(text_.substr(at_, length)), {}};
    token_.lower = automation::to_lower(token_.text);
    at_ += length;
}

void Tokens::read_name_in_brackets() {
    const std::size_t end = text_.find(']', at_);
    if (end == std::string_view::npos) fail("a [ has no ]");
    token_ = {Token::Kind::quoted_name, std::string(text_.substr(at_ + 1, end - at_ - 1)), {}};
    at_ = end + 1;
}

void Tokens::read_text(char quote) {
    std::string content;
    std::size_t i = at_ + 1;
    for (; i < text_.size(); ++i) {
        if (text_[i] == quote) {
            if (i + 1 == text_.size() || text_[i + 1] != quote) break;
            ++i;
        }
        content += text_[i];
    }
    if (i >= text_.size()) fail("a text has no closing quote");
    token_ = {Token::Kind::text, std::move(content), {}};
    at_ = i + 1;
}

void Tokens::read_date_text() {
    const std::size_t end = text_.find('#', at_ + 1);
    if (end == std::string_view::npos) fail("a date has no closing #");
    token_ = {Token::Kind::date, std::string(text_.substr(at_ + 1, end - at_ - 1)), {}};
    at_ = end + 1;
}

void Tokens::read_number() {
    std::size_t end = at_;
    const auto digits = [&] {
        while (end < text_.size() && is_digit(text_[end]))
            ++end;
    };
    digits();
    if (end < text_.size() && text_[end] == '.') {
        ++end;
        digits();
    }
    if (end < text_.size() && (text_[end] == 'e' || text_[end] == 'E')) {
        std::size_t exponent = end + 1;
        if (exponent < text_.size() && (text_[exponent] == '+' || text_[exponent] == '-')) ++exponent;
        if (exponent < text_.size() && is_digit(text_[exponent])) {
            end = exponent;
            digits();
        }
    }
    put(Token::Kind::number, end - at_);
}

void Tokens::read_name() {
    std::size_t end = at_;
    while (end < text_.size() && (is_letter(text_[end]) || is_digit(text_[end])))
        ++end;
    put(Token::Kind::name, end - at_);
}

void Tokens::read_symbol() {
    for (const std::string_view two : {"<>", "<=", ">="})
        if (text_.substr(at_, 2) == two) return put(Token::Kind::symbol, 2);
    if (std::string_view("=<>+-*/\\^&(),.!;").find(text_[at_]) == std::string_view::npos)
        fail("a sign is not understood");
    put(Token::Kind::symbol, 1);
}

}  // namespace foliant::hosts::access
