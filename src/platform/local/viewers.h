#pragma once

#include <filesystem>
#include <optional>

#include "platform/local/outliving_program.h"

namespace foliant::platform::local {

/// Whether there is a screen that a program could show something on.
bool has_screen();

/// The call that shows a document in the viewer that is installed, at a page where the viewer takes one: Okular,
/// Evince, qpdfview, Xpdf, else whatever the desktop opens such files with. Nothing when there is none.
std::optional<ProgramCall> find_viewer(const std::filesystem::path& document, int page);

/// The call that reads a text file (UTF-8) aloud; nothing when no speech engine is installed.
std::optional<ProgramCall> find_reader(const std::filesystem::path& text);

}  // namespace foliant::platform::local
