#include "cli/restart.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>
#include <sys/auxv.h>
#include <unistd.h>

#include "automation/text.h"

namespace foliant::cli {
namespace {

constexpr const char* variable = "GLIBC_TUNABLES";
constexpr const char* many_objects = "glibc.malloc.tcache_count=4000";

constexpr std::array<std::string_view, 4> members = {"CreateTextfileFromPDF", "FindTextInPDF",
                                                     "CreateBookmarksInPDF", "CreateBookmarkInPDF"};

bool reads_text(const std::vector<std::string>& words) {
    return std::ranges::any_of(words, [](const std::string& word) {
        return std::ranges::any_of(
            members, [&](std::string_view member) { return automation::equal_ignoring_case(member, word); });
    });
}

}  // namespace

void restart_for_many_objects(const std::vector<std::string>& words, char** arguments) {
    if (const char* const chosen = std::getenv(variable); chosen != nullptr) {
        if (std::string_view(chosen) == many_objects)
            ::unsetenv(variable);  // no matter of the programs that this one starts
        return;
    }
    // Who runs with another's rights gets no such choice, and would begin anew for ever.
    if (::getauxval(AT_SECURE) != 0 || !reads_text(words)) return;
    if (::setenv(variable, many_objects, 0) != 0) return;
    ::execv("/proc/self/exe", arguments);
    ::unsetenv(variable);
}

}  // namespace foliant::cli
