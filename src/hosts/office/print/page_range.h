#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "hosts/office/application.h"

namespace foliant::hosts::office {

/// A run of pages, from 1, both ends included; `first` > `last` means backwards.
struct PageRun {
    int first;
    int last;
    bool operator==(const PageRun&) const = default;
};

/// Reads a page-range expression as Word's print dialog takes it: pages and runs separated by commas or
/// semicolons, in the order to print ("1-3,5", "-3" up to page 3, "4-" from page 4 to the end, "5-3"
/// backwards). Blanks do not matter; an empty expression gives no run, which means all pages.
/// Raises `application`'s value_out_of_range for anything else, sections ("p1s2") included, and for a page
/// that is not among the `page_count` pages of `document` (its path, for the message).
std::vector<PageRun> parse_page_range(std::string_view expression, int page_count, std::string_view document,
                                      const Application& application);

/// The runs in the form that LibreOffice takes: "1-3,5-5".
std::string format_page_runs(const std::vector<PageRun>& runs);

}  // namespace foliant::hosts::office
