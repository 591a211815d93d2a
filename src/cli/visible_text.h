#pragma once

#include <string>
#include <string_view>

namespace foliant::cli {

// Names of files and printers, what PostScript prints and what documents say of themselves are data: a
// terminal must not take them for commands, nor a reader for something else than they are.

/// The text with everything written out that would act on a terminal instead of showing: control characters
/// as "\x1B", those that change the direction of writing or cannot be seen as "\u202E", bytes that are no
/// UTF-8 as "\xFF". Line feeds and tabs stay.
std::string visible_text(std::string_view text);

/// The same for what has to stay on one line: line feeds and tabs are written out as well.
std::string visible_line(std::string_view text);

}  // namespace foliant::cli
