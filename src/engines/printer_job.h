#pragma once

#include <string>

#include "session/session.h"

namespace foliant::engines {

// The steps that a printer-based converter performs around its own print call, in this order:
//   choose_printer, remove the old target, answer_printer_dialogs, (the print call), wait_for_file,
//   close_acrobat_window.
// The converters that print through the older Acrobat PDFWriter use choose_pdf_writer and answer_save_dialog
// instead.

/// Puts `PrinterName` into a blank `strDistiller`; any other name stays exactly as given.
void choose_printer(const session::Session& session, std::string& strDistiller);

/// Up to Acrobat 5: tells PDFWriter its output file through the registry and leaves `strPDFWriter` as it is.
/// Later: replaces `strPDFWriter` by `PrinterName`, whatever was passed.
void choose_pdf_writer(const session::Session& session, std::string& strPDFWriter, const std::string& target);

/// Whether the printer asks for its file in a dialog and writes in the background (Acrobat above 5), so that
/// the PDFWriter converters answer the dialog and wait.
bool pdf_writer_asks_for_file(const session::Session& session) noexcept;

/// Writes the string value "PDFFilename" of "Software\Adobe\Acrobat PDFWriter" for the current user; makes
/// the key, with every level above it, when it is missing.
void write_pdf_writer_target(const session::Session& session, const std::string& target);

/// Starts the senders that type `target` into the printer's save dialog and close its security notice. When
/// the sender is nowhere, says so in a message box; the dialogs then wait for a person.
void answer_printer_dialogs(const session::Session& session, const std::string& target);

/// Starts the sender for the save dialog only. Raises the component's error when the sender is nowhere.
void answer_save_dialog(const session::Session& session, const std::string& target);

/// Waits until a file that a host prints in the background is there and has kept its length for 1000 ms,
/// after a first pause of 2000 ms. There is no time limit. Raises what reading the length raises.
void wait_for_file(const session::Session& session, const std::string& path);

/// Closes the Acrobat window that shows `target`; looks for it for 15 seconds at most, and gives up silently.
void close_acrobat_window(const session::Session& session, const std::string& target);

/// The part of Acrobat's caption that names a document: "[report.pdf]" for "C:\Out\Report.PDF". The name is
/// cut at its first dot; a name without a dot gives "[pdf]".
std::string acrobat_caption_key(const std::string& target, char separator);

}  // namespace foliant::engines
