#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "hosts/acrobat/structure/pdf.h"

namespace foliant::hosts::acrobat::structure {

/// What others may change in a document that is signed for good; everything else makes the signature invalid. The
/// numbers are PDF's own. None of them allows bookmarks, links, information or pages.
enum class Changes : std::uint8_t { none = 1, forms = 2, comments = 3 };

/// A signature that says what may still be changed.
struct Seal {
    bool is_certification = false;  ///< by the author, else of somebody who locked the document by signing it
    Changes allowed = Changes::forms;
    std::size_t size = 0;  ///< bytes at the beginning of the file that were signed; 0 where it does not say
};

/// What was signed in a file; it all holds for that file only, and what may be appended to it.
struct Signatures {
    bool exist = false;
    std::optional<Seal> seal;
    bool extend_rights = false;  ///< to fill in, save or mark it in Adobe Reader
};

/// Those in the file that a document was read from; none in one that was never a file. Damaged ones count as there.
Signatures signatures_in(Pdf& pdf);

/// Whether the author has certified it.
bool is_certified(Pdf& pdf);

/// Takes away the rights in Adobe Reader.
void drop_extended_rights(Pdf& pdf);

/// Takes away that and the certification, so that nobody takes what is made of a certified file for it. The
/// signatures stay in their fields.
void drop_permissions(Pdf& pdf);

}  // namespace foliant::hosts::acrobat::structure
