#include "hosts/acrobat/glance/syntax.h"

#include <charconv>

namespace foliant::hosts::acrobat::glance {

namespace {

constexpr int deepest = 64;              // dictionaries in dictionaries
constexpr std::size_t most_digits = 15;  // of a number

bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

bool is_hexadecimal(char c) {
    return is_digit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

}  // namespace

void Cursor::expect(std::string_view word) {
    skip_space();
    require(skip(word));
    require_end_of_word();
}

void Cursor::require_end_of_word() const {
    require(class_of(here()) != Class::regular);
}

std::int64_t Cursor::integer() {
    skip_space();
    const std::int64_t number = digits();
    require_end_of_word();
    return number;
}

std::int64_t Cursor::digits() {
    const std::size_t begin = at_;
    while (is_digit(here()))
        ++at_;
    require(at_ > begin && at_ - begin <= most_digits);
    std::int64_t number = 0;
    std::from_chars(text_.data() + begin, text_.data() + at_, number);
    return number;
}

Value Cursor::value() {
    return value(0);
}

Value Cursor::value(int depth) {
    require(depth < deepest);
    skip_space();
    require(at_ < text_.size());
    const std::size_t begin = at_;
    switch (here()) {
        case '/':
            ++at_;
            skip_regular();
            return since(begin, Kind::name);
        case '[':
            ++at_;
            return collection("]", Kind::array, depth);
        case '(':
            skip_text();
            return since(begin, Kind::other);
        case '<':
            if (skip("<<")) return collection(">>", Kind::dictionary, depth);
            skip_hexadecimal();
            return since(begin, Kind::other);
        default:
            break;
    }
    if (is_digit(here())) return number_or_reference();
    skip_regular();
    const std::string_view word = since(begin, Kind::other).text;
    if (word == "null") return since(begin, Kind::null);
    const bool is_known = word == "true" || word == "false";
    require(is_known || (!word.empty() && word.find_first_not_of("+-.0123456789") == std::string_view::npos));
    return since(begin, Kind::other);
}

/// 7, 7.5 or 7 0 R.
Value Cursor::number_or_reference() {
    const std::size_t begin = at_;
    Value value{.kind = Kind::integer, .number = digits()};
    if (here() == '.') {
        skip_regular();
        value = since(begin, Kind::other);
        require(value.text.find_first_not_of(".0123456789") == std::string_view::npos);
        return value;
    }
    const std::size_t end = at_;
    require_end_of_word();
    skip_space();
    if (is_digit(here())) {
        const std::int64_t generation = digits();
        const bool ends = is_space(here());
        skip_space();
        if (skip("R")) {
            require(ends);
            require_end_of_word();
            value.kind = Kind::reference;
            value.generation = generation;
            value.text = text_.substr(begin, at_ - begin);
            return value;
        }
    }
    at_ = end;
    value.text = text_.substr(begin, end - begin);
    return value;
}

/// From behind its opening bracket to its end.
Value Cursor::collection(std::string_view end, Kind kind, int depth) {
    const std::size_t begin = at_ - end.size();
    for (bool is_key = kind == Kind::dictionary;; is_key = kind == Kind::dictionary && !is_key) {
        skip_space();
        const bool may_end = kind == Kind::array || is_key;
        if (may_end && skip(end)) return since(begin, kind);
        const Value item = value(depth + 1);
        // A name can be spelt in several ways; keys that are have to be looked at by who knows them all.
        if (is_key) require(item.kind == Kind::name && item.text.find('#') == std::string_view::npos);
    }
}

void Cursor::skip_regular() {
    while (at_ < text_.size() && class_of(text_[at_]) == Class::regular)
        ++at_;
}

void Cursor::skip_text() {
    int open = 0;
    do {
        require(at_ < text_.size());
        const char c = text_[at_++];
        if (c == '\\') ++at_;
        if (c == '(') ++open;
        if (c == ')') --open;
    } while (open > 0);
    require(at_ <= text_.size());
}

void Cursor::skip_hexadecimal() {
    ++at_;
    while (is_hexadecimal(here()) || (is_space(here()) && at_ < text_.size()))
        ++at_;
    require(skip(">"));
}

Value entry(const Value& dictionary, std::string_view key) {
    Entries entries(dictionary);
    Value found;
    bool is_there = false;
    std::string_view name;
    for (Value value; entries.next(name, value);) {
        if (name != key) continue;
        require(!is_there);
        is_there = true;
        found = value;
    }
    return found;
}

Entries::Entries(const Value& dictionary) : cursor_(dictionary.text, 2) {
    require(dictionary.kind == Kind::dictionary);
}

bool Entries::next(std::string_view& key, Value& value) {
    cursor_.skip_space();
    if (cursor_.skip(">>")) return false;
    key = cursor_.value().text;
    value = cursor_.value();
    return true;
}

Items::Items(const Value& array) : cursor_(array.text, 1) {
    require(array.kind == Kind::array);
}

bool Items::next(Value& value) {
    cursor_.skip_space();
    if (cursor_.skip("]")) return false;
    value = cursor_.value();
    return true;
}

}  // namespace foliant::hosts::acrobat::glance
