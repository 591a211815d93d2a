#pragma once

#include <string>
#include <vector>

#include "windows/servers/scene.h"

namespace foliant::tests::servers {

// Real dialogs, answered by whoever comes. Each records what it ends with; a minute after it came up, a user who
// does not answer counts as one who cancels.

/// A dialog with a text to enter into a control of that class. Returns the text, "" when it was cancelled.
std::wstring ask_text(Scene& scene, const std::wstring& caption, const std::wstring& control_class = L"Edit");

/// A dialog whose text can be entered once its option is ticked.
void ask_optional_text(Scene& scene, const std::wstring& caption, const std::wstring& option);

/// A notice, with a button to close it.
void show_notice(Scene& scene, const std::wstring& caption);

/// What a PDF printer does: asks for its file, tells of security settings if it has such a notice, makes the file.
void print_to_pdf(Scene& scene, bool with_notice);

}  // namespace foliant::tests::servers
