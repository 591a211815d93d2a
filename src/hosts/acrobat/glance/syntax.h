#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

/// The number of pages of a PDF, read without an engine: loading one takes longer than all the rest of such a call.
///
/// What is read here is the plain file, as programs write it: every table of objects is whole, and every object
/// stands where the table says. Anything else, damaged, encrypted or merely odd, is a Doubt, and the engine's to
/// judge, so that no file gets another answer than the engine's.
namespace foliant::hosts::acrobat::glance {

/// Thrown where a file is not as plain as what is read here.
struct Doubt {};

inline void require(bool plain) {
    if (!plain) throw Doubt();
}

enum class Kind { null, integer, reference, name, array, dictionary, other };

/// An object as it stands in the file.
struct Value {
    Kind kind = Kind::null;
    std::string_view text{};      ///< all of it, with its brackets
    std::int64_t number = 0;      ///< of an integer, or the object that a reference leads to
    std::int64_t generation = 0;  ///< that a reference names
};

/// What a byte is to a reader who looks for words. Files consist of little else than what is looked up here.
enum class Class : std::uint8_t { regular, space, delimiter };

inline constexpr std::array<Class, 256> classes = [] {
    std::array<Class, 256> all{};
    for (const char c : {' ', '\n', '\r', '\t', '\f', '\0'})
        all[static_cast<std::uint8_t>(c)] = Class::space;
    for (const char c : {'(', ')', '<', '>', '[', ']', '{', '}', '/', '%'})
        all[static_cast<std::uint8_t>(c)] = Class::delimiter;
    return all;
}();

constexpr Class class_of(char c) noexcept {
    return classes[static_cast<std::uint8_t>(c)];
}

constexpr bool is_space(char c) noexcept {
    return class_of(c) == Class::space;
}

/// A place in a text that is read forwards. Everything throws Doubt where something else stands there.
class Cursor {
  public:
    explicit Cursor(std::string_view text, std::size_t at = 0) : text_(text), at_(at) {
        require(at <= text.size());
    }

    std::size_t position() const noexcept { return at_; }
    std::string_view rest() const noexcept { return text_.substr(at_); }

    void skip_space() noexcept {
        while (at_ < text_.size() && is_space(text_[at_]))
            ++at_;
    }
    /// A word of its own, behind any space: "obj".
    void expect(std::string_view word);
    /// Passes over what stands here, if it does.
    bool skip(std::string_view word) noexcept {
        // Most of what is looked for is not there, which the first byte says.
        if (at_ >= text_.size() || text_[at_] != word.front() || !rest().starts_with(word)) return false;
        at_ += word.size();
        return true;
    }
    /// A number without sign, behind any space.
    std::int64_t integer();
    /// The next object, behind any space.
    Value value();

  private:
    char here() const noexcept { return at_ < text_.size() ? text_[at_] : '\0'; }
    std::int64_t digits();
    void require_end_of_word() const;
    Value number_or_reference();
    Value collection(std::string_view end, Kind kind, int depth);
    Value value(int depth);
    void skip_regular();
    void skip_text();
    void skip_hexadecimal();
    Value since(std::size_t begin, Kind kind) const { return {kind, text_.substr(begin, at_ - begin)}; }

    std::string_view text_;
    std::size_t at_;
};

/// The value of a dictionary's entry; null for none.
Value entry(const Value& dictionary, std::string_view key);

/// Goes through the entries of a dictionary.
class Entries {
  public:
    explicit Entries(const Value& dictionary);
    /// Whether there is one more, which `key` and `value` are then.
    bool next(std::string_view& key, Value& value);

  private:
    Cursor cursor_;
};

/// Goes through the items of an array.
class Items {
  public:
    explicit Items(const Value& array);
    /// Whether there is one more, which `value` is then.
    bool next(Value& value);

  private:
    Cursor cursor_;
};

}  // namespace foliant::hosts::acrobat::glance
