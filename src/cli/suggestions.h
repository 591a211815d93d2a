#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace foliant::cli {

/// Those of the names that are most like a word that somebody mistyped, the nearest first, at most three.
std::vector<std::string> nearest(std::string_view word, const std::vector<std::string>& names);

/// What is wrong with words that `app` could not parse, where it can be told better than by the parser: a
/// command or an option that does not exist, and what it may have meant, or a name that begins with a dash.
/// "" otherwise.
std::string diagnosis(const CLI::App& app, const std::vector<std::string>& words);

}  // namespace foliant::cli
