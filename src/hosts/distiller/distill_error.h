#pragma once

#include <stdexcept>
#include <string>

namespace foliant::hosts::distiller {

/// A job cannot go on. The text says what failed, on which file, why, and what to do.
class DistillError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// "Permission denied" for an errno value.
std::string system_reason(int error_number);

}  // namespace foliant::hosts::distiller
