#pragma once

#include <stdexcept>

namespace foliant::hosts::acrobat::images {

/// Why an image becomes no PDF, as the end of a sentence: "the JPEG is cut off before its end".
class ImageError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

}  // namespace foliant::hosts::acrobat::images
