#pragma once

#include <string>
#include <vector>

#include "hosts/acrobat/pdf_text.h"

namespace foliant::hosts::acrobat::test {

/// A document of pages with text in Helvetica, each page a content stream; page n, from 0, is object
/// 10 + 2 * n. `entries` go into each page's dictionary.
PdfText written(const std::vector<std::string>& pages, const std::string& entries = "");

/// The content of a page: a line of text, 12 points high, at x = 72.
std::string line(const std::string& text, int y = 700);

}  // namespace foliant::hosts::acrobat::test
