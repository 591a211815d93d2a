#pragma once

#include "hosts/acrobat/structure/pdf.h"
#include "hosts/pending_file.h"

namespace foliant::hosts::acrobat::structure {

/// Writes a document as the file that it was read from, byte for byte, and behind it what has changed since:
/// signatures of what was there stay valid. That takes a file that is sound and not protected, and is not to
/// be; of any other nothing is written, and the result is false. Throws what the output does.
bool append_changes(Pdf& pdf, OutputFile& output);

}  // namespace foliant::hosts::acrobat::structure
