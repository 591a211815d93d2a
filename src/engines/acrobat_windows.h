#pragma once

#include <optional>
#include <string>

#include "session/session.h"

namespace foliant::engines {

// Acrobat's windows are told apart by their captions: "Adobe Acrobat - [report.pdf]", in the professional
// edition "Adobe Acrobat Professional - [report.pdf]". The part in brackets is the caption key. Captions are
// compared without regard to case.

/// The caption key of a document: "[report.pdf]" for "C:\Out\Report.PDF" and for "C:\In\Report.doc". The name
/// is cut at its first dot, so "q1.sales.pdf" gives "[q1.pdf]"; one without a dot gives "[pdf]".
std::string caption_key_of_file(const std::string& path, char separator);

/// The caption key of a captured web page: the address as it stands and "/", in brackets.
std::string caption_key_of_page(const std::string& address);

/// Closes the window that shows the PDF at `path`; looks for it for 15 seconds at most, and gives up
/// silently.
void close_acrobat_window(const session::Session& session, const std::string& path);

/// Waits for the window of that caption key, `seconds` at most; without a limit for as long as it takes.
/// Whether it came.
bool wait_for_acrobat_window(const session::Session& session, const std::string& caption_key,
                             std::optional<float> seconds = std::nullopt);

/// Closes the main windows that Acrobat leaves open without a document, in either edition.
void close_acrobat_main_windows(const session::Session& session);

}  // namespace foliant::engines
