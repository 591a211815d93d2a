#include "platform/local/viewers.h"

#include <array>
#include <cstdlib>
#include <string>

namespace foliant::platform::local {
namespace {

/// A viewer, and how it is told the page.
struct Viewer {
    const char* program;
    std::vector<std::string> (*arguments)(const std::string& document, const std::string& page);
};

using Words = std::vector<std::string>;
using Text = const std::string&;

constexpr std::array viewers{
    Viewer{"okular",
           [](Text document, Text page) {
               return Words{"--page", page, document};
           }},
    Viewer{"evince",
           [](Text document, Text page) {
               return Words{"--page-index=" + page, document};
           }},
    Viewer{"qpdfview",
           [](Text document, Text page) {
               return Words{"--unique", document + "#" + page};
           }},
    Viewer{"xpdf",
           [](Text document, Text page) {
               return Words{document, page};
           }},
    Viewer{"xdg-open", [](Text document, Text) { return Words{document}; }},
};

bool is_set(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

}  // namespace

bool has_screen() {
    return is_set("DISPLAY") || is_set("WAYLAND_DISPLAY");
}

std::optional<ProgramCall> find_viewer(const std::filesystem::path& document, int page) {
    const std::string path = std::filesystem::absolute(document).string();
    for (const Viewer& viewer : viewers)
        if (const auto program = find_program(viewer.program))
            return ProgramCall{*program, viewer.arguments(path, std::to_string(page)), {}};
    return std::nullopt;
}

std::optional<ProgramCall> find_reader(const std::filesystem::path& text) {
    if (const auto dispatcher = find_program("spd-say"))
        return ProgramCall{*dispatcher, {"--pipe-mode"}, text};
    if (const auto synthesizer = find_program("espeak-ng"))
        return ProgramCall{*synthesizer, {"--stdin"}, text};
    return std::nullopt;
}

}  // namespace foliant::platform::local
