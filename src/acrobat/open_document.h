#pragma once

#include <string>

#include "acrobat/acrobat.h"
#include "session/session.h"

namespace foliant::acrobat {

/// A PDF to be opened.
struct PdfFile {
    std::string path;
    std::string password = {};  ///< the one that opens it; blank where it needs none, else sent as it stands
};

// How members open a document. The three differ in what opens it, and so in what Acrobat shows; afterwards
// `document` is the one that was opened. With a password all of them leave it to Acrobat's own dialogs, which
// window senders answer: Acrobat's interface takes none.
//
// What `Open` answers is not looked at: a file that Acrobat cannot read fails at the next step. All raise the
// component's error when there is a password and no sender, and what Acrobat raises.

/// A viewer opens the file. Needs the application and a viewer.
void open_in_viewer(const session::Session& session, Acrobat& acrobat, const PdfFile& file);

/// The document opens the file, and no window shows it. Needs the application and a document. With a password
/// there is a viewer afterwards, for Acrobat has its dialogs for documents in windows only.
void open_document(const session::Session& session, Acrobat& acrobat, const PdfFile& file);

/// The document opens the file, and a viewer is opened on it, with a title that Acrobat's "6.0" knows the
/// window by. Needs the application and a document.
void open_document_and_viewer(const session::Session& session, Acrobat& acrobat, const PdfFile& file);

/// "Can't open file " + path + ".", as most members say that change or search a document, whatever failed.
std::string cannot_open_file(const std::string& path);

}  // namespace foliant::acrobat
