#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace foliant::platform::stage {

/// The text that a window sender's command line has typed into the edit control of a dialog, "C:\a.pdf" for
/// `quorixsend.exe save pdf file as~Edit~C:\a.pdf~0~0~`; nothing when it is about another dialog.
std::optional<std::string> typed_into(std::string_view dialog, const std::string& command_line);

}  // namespace foliant::platform::stage
