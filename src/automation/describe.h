#pragma once

#include <string>

#include "automation/value.h"

namespace foliant::automation {

/// A value as a reader of a journal wants to see it, with its exact type: "text", True, Integer(0) for 16
/// bits, Long(0) for 32, Single(1.5), Double(1.5), <empty>, <missing>, <null>, <object>, Nothing, (1 To
/// 2){"a", "b"}.
std::string describe(const Value& value);

/// Arguments in the order they are sent: `"letter.doc", PasswordDocument:="x"`; "" when there are none.
std::string describe(const Arguments& arguments);

}  // namespace foliant::automation
