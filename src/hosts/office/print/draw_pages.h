#pragma once

#include <string>
#include <string_view>

namespace foliant::hosts::office {

/// The pages of a PDF document (its bytes) as poppler writes them in PostScript, but for plain upright text, which
/// most of a document is: that says where it stands and is shown a line at a time, without what poppler says again
/// for each piece of it. An interpreter takes half as long for it, and it is written in a fraction of the time.
///
/// Raises PostScriptFailure.
std::string draw_pages(std::string_view pdf);

}  // namespace foliant::hosts::office
