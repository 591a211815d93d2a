#pragma once

#include "automation/value.h"
#include "session/session.h"

/// What Acrobat does with PDF documents: each member of `BuildPDF` that has it open, count, read, search,
/// print, show, merge, protect or mark them, as the sequence of steps that it is. Knows engines/.
namespace foliant::acrobat {

// New objects of Acrobat's. They raise 429 where Acrobat is not installed.

automation::Value new_application(const session::Session& session);
automation::Value new_viewer(const session::Session& session);
automation::Value new_document(const session::Session& session);
automation::Value new_bookmark(const session::Session& session);

/// The Acrobat that one call holds. Members make of it what they need; what they do not need stays empty.
///
/// Nothing is closed by the destructor: a member says how it ends, and its error trap has an end of its own.
struct Acrobat {
    automation::Value application;  ///< the program, "AcroExch.App"
    automation::Value viewer;       ///< the window that shows a document, "AcroExch.AVDoc"
    automation::Value document;     ///< what is in the document, "AcroExch.PDDoc"

    // The normal ends. A call that fails leaves everything held, for the error trap.

    /// Closes the viewer without saving, exits Acrobat, and releases.
    void close_and_exit();

    /// The same for members that opened the document itself: that is closed, too, between the two.
    void close_both_and_exit();

    /// Releases the viewer, the document and the application, in that order, and closes nothing: the end of
    /// members that leave Acrobat to the user, and in their error traps of those that say so.
    void release() noexcept;

    /// The end in the error traps that let Acrobat go: what is held is closed without saving and exited,
    /// each released at once, whatever fails.
    void let_go() noexcept;

    /// The same for members whose trap closes the document itself as well, after the viewer.
    void let_both_go() noexcept;
};

}  // namespace foliant::acrobat
