#pragma once

#include <functional>
#include <string>

#include "hosts/acrobat/structure/pdf.h"
#include "hosts/pending_file.h"

namespace foliant::hosts::acrobat::structure {

/// How a document is written.
struct Writing {
    bool is_linearised = false;
    std::function<void(int percent)> on_progress{};  ///< may be empty
};

/// Writes all of a document, without what nothing in it refers to, with the protection that it has or is to
/// get. It stays as it is, and can be changed and written again. Throws what the output does.
void write_pdf(Pdf& pdf, const Writing& writing, OutputFile& output);

/// A document as it is now, as the bytes of a file that nothing protects; for readers in this process.
std::string written_pdf(Pdf& pdf);

}  // namespace foliant::hosts::acrobat::structure
