#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "hosts/acrobat/text/folding.h"

namespace foliant::hosts::acrobat::text {

/// Letters of a page: `end` is behind the last.
struct Match {
    std::size_t first = 0;
    std::size_t end = 0;

    bool operator==(const Match&) const = default;
};

/// The next place from `start` on, in folded text, where `sought` (folded likewise, not empty) stands, as a
/// part of the folded text. A hyphen and a line end in a broken word are there or not, as `sought` has it.
/// `whole_words` means that no word begins before it or goes on behind it.
std::optional<Match> find(const Folded& page, std::u32string_view sought, std::size_t start,
                          bool whole_words);

/// The letters that a part of the folded text, as `find` gives it, comes from.
Match letters_of(const Folded& page, const Match& part);

}  // namespace foliant::hosts::acrobat::text
