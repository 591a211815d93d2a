#pragma once

#include <cstdint>
#include <string>

#include "acrobat/acrobat.h"
#include "session/session.h"

namespace foliant::acrobat {

// The end of the members whose document Acrobat has made and shows by itself.

/// Gives Acrobat that many seconds to finish a document whose window is there. The milliseconds are held in
/// 16 bits: more than 32 seconds raise 6. A negative number is no time.
void let_acrobat_finish(const session::Session& session, std::int16_t seconds);

/// Saves the document that is active in Acrobat (full, linearised, garbage collected), closes it and exits
/// Acrobat, whose main windows it closes, too. Needs the application; all of it is released. An active
/// document that is not valid is closed and not saved. Whether saving succeeded is not looked at.
void save_active_document_and_exit(const session::Session& session, Acrobat& acrobat,
                                   const std::string& path);

}  // namespace foliant::acrobat
