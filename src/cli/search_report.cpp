#include "cli/search_report.h"

#include <cstdio>

#include "cli/exit_codes.h"
#include "cli/visible_text.h"

namespace foliant::cli {

bool is_search(const core::Member& member) {
    return member.name == "FindTextInPDF";
}

int failure_code(const core::Member& member) {
    return is_search(member) ? exit_host_failure : exit_failure;
}

void conclude_search(const core::Member& member, Outcome& outcome) {
    if (!is_search(member)) return;
    if (outcome.error && outcome.exit_code == exit_failure) outcome.exit_code = failure_code(member);
    if (!outcome.error && outcome.found.empty()) outcome.exit_code = exit_not_found;
}

std::string found_text(const Outcome& outcome) {
    std::string text;
    for (const hosts::FoundText& place : outcome.found) {
        char position[64];
        std::snprintf(position, sizeof position, " (%.1f, %.1f): ", place.left, place.bottom);
        text += "page " + std::to_string(place.page) + position + visible_line(place.context) + "\n";
    }
    return text;
}

}  // namespace foliant::cli
