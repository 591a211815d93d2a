#pragma once

#include <cstdint>
#include <string>

#include "hosts/acrobat/document.h"
#include "hosts/acrobat/program.h"

namespace foliant::hosts::acrobat {

/// Writes a document to a file, which appears, or is replaced, when it is complete; that may be the file that
/// the document was read from. `flags` are Acrobat's: 0 saves what was changed, 1 all, +4 for reading page by
/// page from a network, +32 without what nothing refers to. Where all of it is written, it is without such
/// remains. The machine is told which signatures do not hold any more. Raises when it cannot be.
void save(Document& document, std::int16_t flags, const std::string& path);

/// Saves the document in front under its own name.
bool save_active_document(Program& program);

}  // namespace foliant::hosts::acrobat
