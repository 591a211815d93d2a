#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace foliant::hosts::autocad {

/// Turns the texts of a drawing into UTF-8.
class TextDecoder {
  public:
    /// `version` as $ACADVER has it ("AC1015"; "" when it is not told), `code_page` as $DWGCODEPAGE does.
    TextDecoder(std::string_view version, std::string_view code_page);

    /// What is no text of that encoding counts as one of western Europe. \U+XXXX and \M+NXXXX stand for
    /// characters; other codes are left as they are.
    std::string operator()(std::string_view text) const;

  private:
    std::string_view encoding_;  ///< by iconv's name
};

/// A character as UTF-8; nothing for what is none.
std::string utf8_of(std::uint32_t character);

/// The text without what %%-codes switch, with the characters that they stand for: %%c, %%d, %%p and %%nnn. Told
/// where underlining (%%u) and overlining (%%o) are switched, with the place in the result in bytes.
std::string expand_percent_codes(std::string_view text,
                                 const std::function<void(char, std::size_t)>& on_switch = {});

/// Lower-case letters of ASCII: names of a drawing are the same in any case.
std::string folded(std::string_view name);

}  // namespace foliant::hosts::autocad
