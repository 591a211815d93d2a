#include <charconv>
#include <initializer_list>
#include <utility>

#include "automation/text.h"
#include "hosts/access/sql/dates.h"
#include "hosts/access/sql/expression.h"
#include "hosts/access/sql/tokens.h"

namespace foliant::hosts::access {
namespace {

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
        if (tokens_.is("select"))
            return make({.kind = Expression::Kind::in_query,
                         .name = tokens_.take_to_closing(),
                         .parts = {std::move(value)}});
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
        if (tokens_.is("select"))
            return make({.kind = Expression::Kind::query, .name = tokens_.take_to_closing()});
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
        if (tokens_.is(".") || tokens_.is("!")) {
            const std::string around = automation::to_lower(table);
            if (around == "forms" || around == "reports")
                tokens_.fail("it asks for a field of \"" + first.text + "\", which only Access can show");
            tokens_.fail("\"" + table + "." + first.text + "\" with more behind it is not understood here");
        }
        return make(
            {.kind = Expression::Kind::column, .name = std::move(first.text), .table = std::move(table)});
    }

    ExpressionPtr function(const Token& name) {
        tokens_.expect("(", "");
        if (tokens_.is("select")) {
            if (name.lower == "exists")
                return make({.kind = Expression::Kind::exists, .name = tokens_.take_to_closing()});
            tokens_.fail("\"" + name.text +
                         "\" of a query is not understood here (In, Exists and comparisons are)");
        }
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
