#pragma once

#include <string>

namespace foliant::hosts::distiller {

/// How a finished PDF is locked. Passwords are UTF-8; AES-256 is used, so a reader of PDF 1.7 or newer is
/// needed.
struct Security {
    std::string open_password;   ///< asked for when the PDF is opened; empty: it opens without one
    std::string owner_password;  ///< lifts the permissions; empty: a random one that nobody is told
    bool allow_printing = true;
    bool allow_accessibility = true;  ///< text for screen readers
    bool allow_copying = false;
    bool allow_changing = false;  ///< pages, notes, form fields and everything else
};

}  // namespace foliant::hosts::distiller
