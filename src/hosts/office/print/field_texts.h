#pragma once

#include <qpdf/QPDF.hh>

namespace foliant::hosts::office {

/// Gives the text fields, combo boxes and list boxes of a PDF looks of their own that show what is in them: LibreOffice
/// leaves that to viewers. What is empty keeps its look, and so does every other field.
///
/// `looks` gets what the looks are made of, and has to stay until `document` has been written.
void draw_field_texts(QPDF& document, QPDF& looks);

}  // namespace foliant::hosts::office
