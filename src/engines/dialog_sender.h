#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "session/session.h"

namespace foliant::engines {

/// The text for every case in which the window sender is in neither of its folders.
inline constexpr std::string_view sender_missing_text =
    "Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as QUORIX.OCX or "
    "into your Window's System Directory.";

/// What the window sender is told: wait for the window with that caption (written in lower case), act on a
/// control of that class, with that text. Nothing is quoted or escaped.
struct SenderCommand {
    std::string_view caption;
    std::string_view control_class;  ///< "Edit", "Button" or "RichEdit20W"
    std::string_view text;
    char flag_a = '0';
    char flag_b = '0';
};

/// The Windows system folder, as the special-folder lookup gives it.
std::string system_folder(const session::Session& session);

/// The folder that holds the window sender, without a trailing separator unless it is a drive root: the
/// system folder first, then the library's own. Nothing when it is in neither.
std::optional<std::string> locate_sender(const session::Session& session);

/// The same for those who have looked up the system folder already.
std::optional<std::string> locate_sender(const session::Session& session, const std::string& system);

/// The folder that holds the window sender, for members that cannot do without. Raises the component's error
/// when it is in neither of the two.
std::string require_sender(const session::Session& session);
std::string require_sender(const session::Session& session, const std::string& system);

/// Starts the sender from `folder` hidden and does not wait for it. Raises what starting raises (53 when the
/// program is not there).
void start_sender(const session::Session& session, const std::string& folder, const SenderCommand& command);

}  // namespace foliant::engines
