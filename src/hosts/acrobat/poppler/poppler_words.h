#pragma once

#include <array>
#include <cstddef>

#include "hosts/acrobat/text/page_text.h"

class TextFlow;
class TextWordList;

/// From poppler's words to the text of a page. `from_page` is the matrix that leads from the page's own
/// coordinates to those of poppler's words.
namespace foliant::hosts::acrobat::text {

/// The text of a page that poppler has arranged in columns, paragraphs and lines.
PageText arranged_text(const TextFlow* flows, const std::array<double, 6>& from_page);

/// The text of a page in the order in which it was written, with a line end wherever the writing goes on
/// elsewhere.
PageText text_in_written_order(TextWordList& words, const std::array<double, 6>& from_page);

/// How many pieces of text stand apart from what was written before them.
std::size_t piece_count(TextWordList& words);

}  // namespace foliant::hosts::acrobat::text
