#pragma once

#include <stdexcept>

namespace foliant::hosts::web {

/// Why a page could not be captured, as a sentence without its end: "the page does not exist (404)".
class CaptureError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// The browser does not do what it is told.
class CallRefused : public CaptureError {
  public:
    using CaptureError::CaptureError;
};

/// It has not answered in time.
class NoAnswer : public CaptureError {
  public:
    using CaptureError::CaptureError;
};

/// There is no browser; what to install.
class NoBrowser : public CaptureError {
  public:
    using CaptureError::CaptureError;
};

}  // namespace foliant::hosts::web
