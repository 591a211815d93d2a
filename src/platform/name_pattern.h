#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace foliant::platform {

/// A pattern for file names as Windows reads it, for adapters that have no Windows to ask. Case is ignored.
///
/// "*" is any text. "?" is any character but a dot, and nothing before a dot or at the end of the name. A dot
/// before either of them may also be the name's end, so that "*.*" matches every name; "*." matches names
/// without a dot. Blanks and dots at the end of the pattern count for nothing else.
class NamePattern {
  public:
    /// `pattern` has no folder in it; an empty one matches every name.
    explicit NamePattern(std::string_view pattern);

    bool matches(std::string_view name) const;

  private:
    enum class Kind { character, one_or_none, any, any_but_last_dot, dot_or_end };
    struct Token {
        Kind kind = Kind::character;
        std::string character{};

        /// Whether it may be passed over before that character; "" is the end of the name.
        bool may_be_empty_before(std::string_view next) const;
        bool takes(std::string_view next, bool is_last_dot) const;
        bool repeats() const { return kind == Kind::any || kind == Kind::any_but_last_dot; }
    };

    std::vector<Token> tokens_;
};

/// Whether a directory of Windows gives the file `a` before the file `b`. Names that differ in case only are
/// told apart, too.
bool comes_before(std::string_view a, std::string_view b);

}  // namespace foliant::platform
