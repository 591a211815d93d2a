#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "hosts/access/sql/datum.h"

namespace foliant::hosts::access {

/// A word or a sign of an expression or of a query.
struct Token {
    enum class Kind { end, name, quoted_name, text, date, number, symbol };
    Kind kind = Kind::end;
    std::string text{};   ///< without its quotes
    std::string lower{};  ///< of names and symbols
};

/// The words and signs of a text one after another. The text has to stay. What makes none raises SqlError.
class Tokens {
  public:
    explicit Tokens(std::string_view text) : text_(text) { advance(); }

    const Token& now() const noexcept { return token_; }
    /// Whether the word or sign is there next; in lower case.
    bool is(std::string_view word) const noexcept;

    Token take();
    bool take_if(std::string_view word);
    /// Raises SqlError where the word is not there; `why` goes on after "is missing".
    void expect(std::string_view word, const std::string& why);

    /// Where what comes next begins in the text.
    std::size_t place() const noexcept { return begin_; }
    /// The text from a place to what comes next, without blanks at its end.
    std::string text_from(std::size_t place) const;
    /// Passes over what a parenthesis that was taken holds, and over its end; returns what it holds.
    std::string take_to_closing();

    /// Raises SqlError that says what is wrong, and where.
    [[noreturn]] void fail(const std::string& problem) const;

  private:
    void advance();
    void put(Token::Kind kind, std::size_t length);
    void read_name_in_brackets();
    void read_text(char quote);
    void read_date_text();
    void read_number();
    void read_name();
    void read_symbol();

    std::string_view text_;
    std::size_t at_ = 0;
    std::size_t begin_ = 0;  ///< of the token
    Token token_;
};

}  // namespace foliant::hosts::access
