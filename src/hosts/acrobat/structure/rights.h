#pragma once

#include <cstdint>
#include <qpdf/QPDF.hh>

namespace foliant::hosts::acrobat::structure {

/// What who protects a document may keep to himself, whatever others may do with it.
enum class Right : std::uint8_t {
    print,
    take_text,
    hear,  ///< as people do who do not see it
    mark,  ///< with bookmarks
    link,  ///< to put links on its pages
    give_pages,
    gain_pages,
    protect,  ///< to protect it in another way
};

/// Whether it may be done by whoever has opened the document: by everybody where nothing is protected, and by who knows
/// the owner's password. Not const: qpdf's questions are not.
bool allows(QPDF& pdf, Right right);

}  // namespace foliant::hosts::acrobat::structure
