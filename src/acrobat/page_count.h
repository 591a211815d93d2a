#pragma once

#include <cstdint>

#include "acrobat/open_document.h"
#include "session/session.h"

namespace foliant::acrobat {

/// How many pages a PDF has, as Acrobat counts them. Acrobat is exited before this returns, also when it
/// fails. Raises the missing-file error, the component's error when the file has a password and there is no
/// sender, and what Acrobat raises.
std::int32_t GetNumPagesPDF(const session::Session& session, const PdfFile& file);

}  // namespace foliant::acrobat
