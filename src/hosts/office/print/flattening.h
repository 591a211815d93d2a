#pragma once

#include <string>
#include <string_view>

namespace foliant::hosts::office {

/// Mends what LibreOffice loses when it exports a document without transparency. `flattened` and `original` are the
/// PDFs of the same pages, the second one with transparency. A page of `flattened` that looks otherwise than that of
/// `original`, or lacks text of it, becomes a picture of that, over its text in white: it can still be searched and
/// copied from. Links and outline stay. Raises PostScriptFailure.
std::string with_flattening_mended(std::string flattened, std::string_view original);

}  // namespace foliant::hosts::office
