#pragma once

#include <stdexcept>
#include <string>

namespace foliant::hosts::distiller {

/// A job cannot go on. The text says what failed, on which file, why, and what to do; control characters in
/// it, which come from names and documents, are written out.
class DistillError : public std::runtime_error {
  public:
    explicit DistillError(const std::string& text);
};

/// A job has taken all the memory that it may.
class OutOfMemory : public DistillError {
  public:
    using DistillError::DistillError;
};

/// An engine's library is not there, or cannot be loaded.
class EngineMissing : public DistillError {
  public:
    using DistillError::DistillError;
};

/// "Permission denied" for an errno value.
std::string system_reason(int error_number);

}  // namespace foliant::hosts::distiller
