#include <charconv>
#include <initializer_list>
#include <utility>

#include "automation/text.h"
#include "hosts/access/sql/expression.h"

namespace foliant::hosts::access {
namespace {

struct Token {
    enum class Kind { end, name, quoted_name, text, date, number, symbol };
    Kind kind = Kind::end;
    std::string text{};   ///< without its quotes
    std::string lower{};  ///< of names and symbols
};

bool is_letter(char character) {
    const auto byte = static_cast<unsigned char>(character);
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || byte == '_' || byte >= 0x80;
}
bool is_digit(char character) {
    return character >= '0' && character <= '9';
}

class Tokens {
  public:
    explicit Tokens(std::string_view text) : text_(text) { advance(); }

    const Token& now() const noexcept { return token_; }

    Token take() {
        Token taken = std::move(token_);
        advance();
        return taken;
    }

    bool is(std::string_view word) const noexcept {
        return (token_.kind == Token::Kind::name || token_.kind == Token::Kind::symbol) &&
               token_.lower == word;
    }

    bool take_if(std::string_view word) {
        if (!is(word)) return false;
        advance();
        return true;
    }

    void expect(std::string_view word, const std::string& why) {
        if (!take_if(word))
            fail("a \"" + std::string(word) + "\" is missing" + (why.empty() ? "" : " " + why));
    }

    /// Says what is wrong, and where.
    [[noreturn]] void fail(const std::string& problem) const {
        const std::string_view rest = text_.substr(begin_);
        throw SqlError(problem + (rest.empty() ? ", at the end of " + quoted(text_)
                                               : ", at " + quoted(rest) + " in " + quoted(text_)));
    }

  private:
    static std::string quoted(std::string_view text) { return "<" + std::string(text) + ">"; }

    void advance() {
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

    void put(Token::Kind kind, std::size_t length) {
        token_ = {kind, std::string(text_.substr(at_, length)), {}};
        token_.lower = automation::to_lower(token_.text);
        at_ += length;
    }

    void read_name_in_brackets() {
        const std::size_t end = text_.find(']', at_);
        if (end == std::string_view::npos) fail("a [ has no ]");
        token_ = {Token::Kind::quoted_name, std::string(text_.substr(at_ + 1, end - at_ - 1)), {}};
        at_ = end + 1;
    }

    void read_text(char quote) {
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

    void read_date_text() {
        const std::size_t end = text_.find('#', at_ + 1);
        if (end == std::string_view::npos) fail("a date has no closing #");
        token_ = {Token::Kind::date, std::string(text_.substr(at_ + 1, end - at_ - 1)), {}};
        at_ = end + 1;
    }

    void read_number() {
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

    void read_name() {
        std::size_t end = at_;
        while (end < text_.size() && (is_letter(text_[end]) || is_digit(text_[end])))
            ++end;
        put(Token::Kind::name, end - at_);
    }

    void read_symbol() {
        for (const std::string_view two : {"<>", "<=", ">="})
            if (text_.substr(at_, 2) == two) return put(Token::Kind::symbol, 2);
        if (std::string_view("=<>+-*/\\^&(),.!").find(text_[at_]) == std::string_view::npos)
            fail("a sign is not understood");
        put(Token::Kind::symbol, 1);
    }

    std::string_view text_;
    std::size_t at_ = 0;
    std::size_t begin_ = 0;  ///< of the token
    Token token_;
};

ExpressionPtr make(Expression expression) {
    return std::make_shared<Expression>(std::move(expression));
}

/// `name` is how it was written, for one that has a name.
ExpressionPtr constant(Datum value, std::string name = {}) {
    return make({.kind = Expression::Kind::constant, .value = std::move(value), .name = std::move(name)});
}

ExpressionPtr combine(std::string operation, ExpressionPtr left, ExpressionPtr right) {
    return make({.kind = Expression::Kind::binary,
                 .name = std::move(operation),
                 .parts = {std::move(left), std::move(right)}});
}

/// From the operators that bind least to those that bind most.
class Parser {
  public:
    explicit Parser(std::string_view text) : tokens_(text) {}

    ExpressionPtr whole() {
        ExpressionPtr result = either();
        if (tokens_.now().kind != Token::Kind::end) tokens_.fail("this is not understood");
        return result;
    }

  private:
    using Level = ExpressionPtr (Parser::*)();

    ExpressionPtr left_to_right(std::initializer_list<std::string_view> operators, Level next) {
        const Deeper level(*this);
        ExpressionPtr result = (this->*next)();
        while (true) {
            bool found = false;
            for (const std::string_view name : operators) {
                if (!tokens_.take_if(name)) continue;
                result = combine(std::string(name), std::move(result), (this->*next)());
                found = true;
                break;
            }
            if (!found) return result;
        }
    }

    ExpressionPtr either() { return left_to_right({"or", "xor"}, &Parser::both); }
    ExpressionPtr both() { return left_to_right({"and"}, &Parser::negation); }

    ExpressionPtr negation() {
        const Deeper level(*this);
        if (!tokens_.take_if("not")) return comparison();
        return make({.kind = Expression::Kind::unary, .name = "not", .parts = {negation()}});
    }

    ExpressionPtr comparison() {
        ExpressionPtr result = joined();
        while (true) {
            const bool negated = tokens_.take_if("not");
            if (tokens_.take_if("like")) {
                result = combine("like", std::move(result), joined());
            } else if (tokens_.take_if("between")) {
                result = between(std::move(result));
            } else if (tokens_.take_if("in")) {
                result = in_list(std::move(result));
            } else if (negated) {
                tokens_.fail("after \"Not\" Like, Between or In is missing");
            } else if (!simple_comparison(result)) {
                return result;
            }
            result->negated = result->negated || negated;
        }
    }

    bool simple_comparison(ExpressionPtr& result) {
        if (tokens_.take_if("is")) {
            const bool negated = tokens_.take_if("not");
            tokens_.expect("null", "after \"Is\"");
            result =
                make({.kind = Expression::Kind::is_null, .negated = negated, .parts = {std::move(result)}});
            return true;
        }
        for (const std::string_view name : {"=", "<>", "<=", ">=", "<", ">"}) {
            if (!tokens_.take_if(name)) continue;
            result = combine(std::string(name), std::move(result), joined());
            return true;
        }
        return false;
    }

    ExpressionPtr between(ExpressionPtr value) {
        ExpressionPtr low = joined();
        tokens_.expect("and", "after \"Between\"");
        return make(
            {.kind = Expression::Kind::between, .parts = {std::move(value), std::move(low), joined()}});
    }

    ExpressionPtr in_list(ExpressionPtr value) {
        tokens_.expect("(", "after \"In\"");
        if (tokens_.is("select")) tokens_.fail("a query inside a condition is not understood here");
        ExpressionPtr list = make({.kind = Expression::Kind::in_list, .parts = {std::move(value)}});
        do {
            list->parts.push_back(joined());
        } while (tokens_.take_if(","));
        tokens_.expect(")", "behind the list of \"In\"");
        return list;
    }

    ExpressionPtr joined() { return left_to_right({"&"}, &Parser::sum); }
    ExpressionPtr sum() { return left_to_right({"+", "-"}, &Parser::remainder); }
    ExpressionPtr remainder() { return left_to_right({"mod"}, &Parser::whole_quotient); }
    ExpressionPtr whole_quotient() { return left_to_right({"\\"}, &Parser::product); }
    ExpressionPtr product() { return left_to_right({"*", "/"}, &Parser::signed_value); }

    ExpressionPtr signed_value() {
        const Deeper level(*this);
        if (tokens_.take_if("+")) return signed_value();
        if (tokens_.take_if("-"))
            return make({.kind = Expression::Kind::unary, .name = "-", .parts = {signed_value()}});
        return power();
    }

    ExpressionPtr power() { return left_to_right({"^"}, &Parser::primary); }

    ExpressionPtr primary() {
        const Token::Kind kind = tokens_.now().kind;
        if (kind == Token::Kind::text) return constant(tokens_.take().text);
        if (kind == Token::Kind::number) return number();
        if (kind == Token::Kind::date) return date();
        if (kind == Token::Kind::name || kind == Token::Kind::quoted_name) return named();
        if (tokens_.is("-") || tokens_.is("+")) return signed_value();
        if (!tokens_.take_if("(")) tokens_.fail("a value is missing");
        if (tokens_.is("select")) tokens_.fail("a query inside a condition is not understood here");
        ExpressionPtr inner = either();
        tokens_.expect(")", "");
        return inner;
    }

    ExpressionPtr number() {
        const std::string written = tokens_.take().text;
        std::int64_t whole = 0;
        const char* const end = written.data() + written.size();
        if (const auto read = std::from_chars(written.data(), end, whole);
            read.ptr == end && read.ec == std::errc{})
            return constant(whole);
        double value = 0;
        std::from_chars(written.data(), end, value);
        return constant(value);
    }

    ExpressionPtr date() {
        const auto value = read_date(tokens_.now().text);
        if (!value) tokens_.fail("this is no date (write month/day/year or year-month-day)");
        tokens_.take();
        return constant(*value);
    }

    /// A column, a constant with a name, or a function.
    ExpressionPtr named() {
        Token first = tokens_.take();
        if (first.kind == Token::Kind::name) {
            if (tokens_.is("(")) return function(first);
            for (const auto& [word, value] : {std::pair("true", Datum(true)),
                                              {"yes", Datum(true)},
                                              {"on", Datum(true)},
                                              {"false", Datum(false)},
                                              {"no", Datum(false)},
                                              {"off", Datum(false)},
                                              {"null", Datum(Null())}})
                if (first.lower == word && !tokens_.is(".") && !tokens_.is("!"))
                    return constant(value, first.lower);
        }
        std::string table;
        if (tokens_.take_if(".") || tokens_.take_if("!")) {
            table = std::move(first.text);
            first = tokens_.take();
            if (first.kind != Token::Kind::name && first.kind != Token::Kind::quoted_name)
                tokens_.fail("behind \"" + table + "\" the name of a column is missing");
        }
        if (tokens_.is(".") || tokens_.is("!"))
            tokens_.fail("\"" + table + "." + first.text +
                         "\" with more behind it, such as a field of a form, is not understood here");
        return make(
            {.kind = Expression::Kind::column, .name = std::move(first.text), .table = std::move(table)});
    }

    ExpressionPtr function(const Token& name) {
        tokens_.expect("(", "");
        ExpressionPtr call = make({.kind = Expression::Kind::function, .name = name.lower});
        if (tokens_.take_if(")")) return call;
        if (name.lower == "count" && tokens_.take_if("*")) {
            call->parts.push_back(constant(true));
            tokens_.expect(")", "behind Count(*");
            return call;
        }
        do {
            call->parts.push_back(either());
        } while (tokens_.take_if(","));
        tokens_.expect(")", "behind the arguments of " + name.text);
        return call;
    }

    /// Bounds how deep expressions nest, which costs the stack.
    class Deeper {
      public:
        explicit Deeper(Parser& parser) : parser_(parser) {
            constexpr int deepest = 2000;
            if (++parser_.depth_ > deepest) parser_.tokens_.fail("the expression is nested too deeply");
        }
        Deeper(const Deeper&) = delete;
        Deeper& operator=(const Deeper&) = delete;
        ~Deeper() { --parser_.depth_; }

      private:
        Parser& parser_;
    };

    Tokens tokens_;
    int depth_ = 0;
};

}  // namespace

ExpressionPtr parse_expression(std::string_view text) {
    return Parser(text).whole();
}

}  // namespace foliant::hosts::access
