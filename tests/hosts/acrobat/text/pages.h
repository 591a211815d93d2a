#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "hosts/acrobat/text/text_reader.h"
#include "hosts/acrobat/text/words.h"

namespace foliant::hosts::acrobat::text {

/// A line that is written on a page, from left to right as it is seen.
struct Written {
    double x = 72;
    double y = 700;
    std::u32string letters;
    double size = 12;  ///< each letter is half as wide
};

/// What a page of a test says.
struct TestPage {
    std::vector<Written> lines;
    std::string entries;  ///< of its dictionary, besides the usual: "/Rotate 90"
};

/// Lines of text below each other, the first at y = 700, 14 points apart.
TestPage page_of(const std::vector<std::u32string>& lines);

/// A PDF with these pages of 612 x 792 points.
std::string make_pdf(const std::vector<TestPage>& pages);

/// A PDF of one page with this content; its font is /F1, whose codes are UTF-16.
std::string make_pdf_of_content(const std::string& content, const std::string& media_box = "0 0 612 792");

/// Bytes that keep themselves.
Bytes bytes_of(std::string pdf);

/// The words one by one.
std::vector<std::string> separate(const Words& words);

/// The words of the first page, one after the other.
std::string words_of(const TestPage& page);

}  // namespace foliant::hosts::acrobat::text
