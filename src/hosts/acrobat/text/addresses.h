#pragma once

#include <string>
#include <vector>

#include "hosts/acrobat/text/page_text.h"

namespace foliant::hosts::acrobat::text {

/// An address that is written on a page.
struct Address {
    std::string uri;                ///< ASCII, with its scheme
    std::vector<Rectangle> places;  ///< one for each line that it is written in

    bool operator==(const Address&) const = default;
};

/// The web addresses (with a scheme, or beginning with "www.") and e-mail addresses on a page, in reading
/// order: without the punctuation of the sentence around them, and whole when they go on in the next line.
std::vector<Address> addresses(const PageText& page);

}  // namespace foliant::hosts::acrobat::text
