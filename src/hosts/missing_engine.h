#pragma once

#include <string>
#include <string_view>

#include "automation/error.h"

namespace foliant::hosts {

/// The Debian package of the shared library that the loader has not found, by what it says: "libgif7" of
/// "libgif.so.7: cannot open shared object file". "" where it speaks of none whose package has its name.
std::string package_of_library(std::string_view loader_reason);

/// The failure (429) to create the class of an application whose engine is not there or cannot be used:
/// which engine, why, and the package that brings it ("" when installing does not help); where a library is missing, that
/// library's.
automation::Error missing_engine(std::string_view application, std::string_view engine,
                                 std::string_view reason, std::string_view package);

}  // namespace foliant::hosts
