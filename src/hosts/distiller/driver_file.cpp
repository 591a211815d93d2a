#include "hosts/distiller/driver_file.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "hosts/distiller/distill_error.h"
#include "hosts/distiller/postscript_string.h"

namespace foliant::hosts::distiller {
namespace {

constexpr std::array<std::string_view, 7> prologue = {
    "/prun { /mysave save def", "dup = flush", "RunFile", "clear cleardictstack",
    "mysave restore",           "} def",       "",
};

std::string path_of_run_line(std::string_view line) {
    constexpr std::string_view before_path = "(";
    constexpr std::string_view after_path = ") prun";
    if (line.size() <= before_path.size() + after_path.size() || !line.starts_with(before_path) ||
        !line.ends_with(after_path)) {
        throw DistillError("The multi-file driver has a line that names no file: " + std::string(line));
    }
    line.remove_prefix(before_path.size());
    line.remove_suffix(after_path.size());
    return std::string(line);
}

}  // namespace

std::vector<std::string> files_of_driver(const std::vector<std::string>& lines) {
    if (lines.size() < prologue.size() || !std::equal(prologue.begin(), prologue.end(), lines.begin()))
        throw DistillError("The multi-file driver does not begin with the definition of prun.");
    std::vector<std::string> paths;
    std::transform(lines.begin() + prologue.size(), lines.end(), std::back_inserter(paths), path_of_run_line);
    return paths;
}

std::string driver_program(const std::vector<std::string>& paths) {
    std::string text;
    for (const std::string_view line : prologue)
        text.append(line) += '\n';
    for (const std::string& path : paths)
        text += postscript_string(path) + " prun\n";
    return text;
}

}  // namespace foliant::hosts::distiller
