#pragma once

#include <stdexcept>

namespace foliant::hosts::acrobat::structure {

/// What is wrong with a file that cannot be used as a PDF: "it is empty", "it seems to be damaged (...)".
class Unreadable : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Nothing in the file says that it is a PDF.
class NoPdf : public Unreadable {
  public:
    NoPdf() : Unreadable("it is no PDF file") {}
};

/// The file is encrypted, and what was given as its password is none of its passwords.
class WrongPassword : public Unreadable {
  public:
    WrongPassword() : Unreadable("it is protected with another password") {}
};

}  // namespace foliant::hosts::acrobat::structure
