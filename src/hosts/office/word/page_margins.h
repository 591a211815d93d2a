#pragma once

#include "hosts/office/word/document.h"
#include "hosts/office/word/page_styles.h"

namespace foliant::hosts::office {

/// The distances from the paper's edges to the text, in 1/100 mm. LibreOffice counts a margin up to the header
/// or footer, Word, and these, up to the text.
struct Margins {
    sal_Int32 left;
    sal_Int32 top;
    sal_Int32 right;
    sal_Int32 bottom;
};

Margins margins_of(const PageStyle& style);

/// The distance from one edge to the text.
sal_Int32 text_margin(const PageStyle& style, Edge edge);

/// How far from an edge the text can begin, so that there is room for it before the margin opposite.
sal_Int32 largest_text_margin(const PageStyle& style, Edge edge);

/// Moves the text to that distance from an edge. A header or footer that is in between stays where it is and
/// as high as its text; the text goes no farther than to its end.
void set_text_margin(const PageStyle& style, Edge edge, sal_Int32 wanted);

}  // namespace foliant::hosts::office
