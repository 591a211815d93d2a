#pragma once

#include <cstddef>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <string>
#include <vector>

#include "hosts/acrobat/text/page_text.h"

namespace foliant::hosts::acrobat::outline {

/// A link to be put on a page.
struct Link {
    std::string uri;                      ///< ASCII
    std::vector<text::Rectangle> places;  ///< where it can be clicked on, in the page's own coordinates
};

/// Puts links on a page, an annotation for each place; where a link is already, none. Returns how many of
/// `links` it has put there, at least in part.
std::size_t add_links(QPDF& pdf, QPDFObjectHandle page, const std::vector<Link>& links);

}  // namespace foliant::hosts::acrobat::outline
