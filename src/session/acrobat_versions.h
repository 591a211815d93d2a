#pragma once

#include "session/session.h"

namespace foliant::session {

// What members ask about the version of Acrobat. The questions differ, and deliberately so: each stands for
// what one Acrobat brought (5.05 is newer than 5 and still older than 6; 6.0.1 is not "6.0"), and callers
// rely on the answers as they are. Nobody keeps an answer: each decision reads the version again.

/// Whether the number that the version begins with is greater than 5: Distiller can apply security, Acrobat
/// reads aloud and has another Go To Page dialog, the printer asks for its file.
inline bool acrobat_is_newer_than_5(const Session& session) noexcept {
    return session.acrobat_version_number() > 5.0;
}

/// Whether that number is 5 or less, as it also is where no Acrobat is registered: PDFWriter takes its file
/// from the registry.
inline bool acrobat_is_5_or_older(const Session& session) noexcept {
    return !acrobat_is_newer_than_5(session);
}

/// Whether that number is below 6: there is no web capture yet, and Access has PDFWriter told its file.
inline bool acrobat_is_older_than_6(const Session& session) noexcept {
    return session.acrobat_version_number() < 6.0;
}

/// Whether the version is the text "6.0", letter for letter: the printer is called "Adobe PDF", and a
/// document's window has a title of its own.
inline bool acrobat_is_exactly_6_0(const Session& session) noexcept {
    return session.AcrobatVersion() == "6.0";
}

}  // namespace foliant::session
