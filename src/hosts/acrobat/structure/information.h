#pragma once

#include <string>

#include "hosts/acrobat/structure/pdf.h"

namespace foliant::hosts::acrobat::structure {

/// What a document says of itself under a key such as "Title", in UTF-8; "" when it says nothing.
std::string information(Pdf& pdf, const std::string& key);

/// Says it, in any characters, also in the document's XMP metadata.
void set_information(Pdf& pdf, const std::string& key, const std::string& text);

/// Notes that the document is written now, by this program: dates, and who made a new one.
void note_writing(Pdf& pdf);

}  // namespace foliant::hosts::acrobat::structure
