#pragma once

#include <string_view>

#include "automation/object.h"

namespace foliant::platform {

/// The automation classes of other programs.
class Servers {
  public:
    virtual ~Servers() = default;

    /// Creates an object of a class, named by its ProgID ("Word.Application") or its class identifier in
    /// braces. Raises 429 when that fails, whatever the reason was.
    virtual automation::ObjectPtr create(std::string_view class_name) = 0;
};

}  // namespace foliant::platform
