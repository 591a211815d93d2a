#pragma once

#include <string>
#include <string_view>

namespace foliant::hosts::pages {

/// A PDF of PageWriter's (its bytes) which says that its text is in that language, a tag such as "en-US": cairo has no
/// words for it. Written otherwise than by cairo 1.16 the file stays as it is.
std::string with_language(std::string pdf, std::string_view tag);

}  // namespace foliant::hosts::pages
