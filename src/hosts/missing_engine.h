#pragma once

#include <string_view>

#include "automation/error.h"

namespace foliant::hosts {

/// The failure (429) to create the class of an application whose engine is not there or cannot be used:
/// which engine, why, and the package that brings it ("" when installing does not help).
automation::Error missing_engine(std::string_view application, std::string_view engine,
                                 std::string_view reason, std::string_view package);

}  // namespace foliant::hosts
