#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "hosts/machine.h"

/// What the PDF printer shows of itself, whoever prints to it.
namespace foliant::hosts {

/// Puts up the dialog "Save PDF File As" for a document of that title: the path that it is answered with.
/// Nothing when it is cancelled or left without a name. Raises what Machine::show does.
std::optional<std::filesystem::path> ask_for_printed_file(Machine& machine, const std::string& title);

/// The sentence about a print that came to nothing because the dialog was cancelled.
std::string not_printed(const std::string& title);

/// Shows the PDF that was printed in Acrobat's window, which stays until somebody closes it.
void show_printed_file(Machine& machine, const std::filesystem::path& pdf);

}  // namespace foliant::hosts
