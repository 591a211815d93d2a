#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "hosts/pages/page_writer.h"

namespace foliant::hosts::notepad {

/// Lays out a text (UTF-8) as Notepad prints it: in a font of even width, 10 points high, between margins of 0.75
/// inch at the sides and 1 inch above and below, `name` in the middle of the head of each page and "Page 1" of its
/// foot. Lines that are too long are wrapped, between words where there are any; tabs stand at every eighth letter;
/// a form feed ends its page. A text without a letter has one page.
///
/// `on_progress` (may be empty) is told how much of the text is printed, in per cent, line by line.
void print_text(std::string_view text, const std::string& name, const pages::Paper& paper,
                pages::PageWriter& writer, const std::function<void(int)>& on_progress = {});

}  // namespace foliant::hosts::notepad
