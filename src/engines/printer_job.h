#pragma once

#include <string>

#include "session/session.h"

namespace foliant::engines {

// The steps that a printer-based converter performs around its own print call, in this order:
//   choose_printer, remove the old target, answer_printer_dialogs, (the print call), wait_for_file, and
//   close_acrobat_window (acrobat_windows.h) on request.
// The converters that print through the older Acrobat PDFWriter use choose_pdf_writer and answer_save_dialog
// instead; up to Acrobat 5 that printer neither asks nor writes in the background, so that they neither
// answer nor wait, but for let_host_start_writing.

/// Puts `PrinterName` into a blank `strDistiller`; any other name stays exactly as given.
void choose_printer(const session::Session& session, std::string& strDistiller);

/// Up to Acrobat 5: tells PDFWriter its output file through the registry and leaves `strPDFWriter` as it is.
/// Later: replaces `strPDFWriter` by `PrinterName`, whatever was passed.
void choose_pdf_writer(const session::Session& session, std::string& strPDFWriter, const std::string& target);

/// The second half of that, for those who tell PDFWriter its file later, or more than once.
void override_pdf_writer(const session::Session& session, std::string& strPDFWriter);

/// Writes the string value "PDFFilename" of "Software\Adobe\Acrobat PDFWriter" for the current user; makes
/// the key, with every level above it, when it is missing.
void write_pdf_writer_target(const session::Session& session, const std::string& target);

/// Starts the senders that type `target` into the printer's save dialog and close its security notice. When
/// the sender is nowhere, says so in a message box; the dialogs then wait for a person.
void answer_printer_dialogs(const session::Session& session, const std::string& target);

/// Starts the sender for the save dialog only. Raises the component's error when the sender is nowhere.
/// `system` is the system folder, for those who have looked it up already.
void answer_save_dialog(const session::Session& session, const std::string& target);
void answer_save_dialog(const session::Session& session, const std::string& target,
                        const std::string& system);

/// The pause of 2000 ms that a host which prints in the background gets before anyone looks for its file.
void let_host_start_writing(const session::Session& session);

/// Waits until a file is there and has kept its length for 1000 ms. There is no time limit. Raises what
/// reading the length raises.
void wait_until_complete(const session::Session& session, const std::string& path);

/// Both of them: what most members do after their print call.
void wait_for_file(const session::Session& session, const std::string& path);

}  // namespace foliant::engines
