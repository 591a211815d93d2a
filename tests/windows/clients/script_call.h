#pragma once

#include <string>

namespace foliant::tests::clients {

/// A call (see call.h) as a statement of that language: the members' parameters that it leaves out stay empty
/// in VBScript; JScript cannot leave out a parameter that others follow, so it leaves out those too.
std::string vbscript_call(const std::string& row);
std::string jscript_call(const std::string& row);

}  // namespace foliant::tests::clients
