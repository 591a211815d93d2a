#pragma once

#include <string>

namespace foliant::hosts::acrobat::structure {

/// What a document is protected with when it is written: AES with 256 bits. Whoever knows the password may
/// do everything.
struct Protection {
    std::string password;  ///< in UTF-8; not empty
};

}  // namespace foliant::hosts::acrobat::structure
