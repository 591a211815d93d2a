#pragma once

#include <oaidl.h>
#include <string>

namespace foliant::com {

/// Everything that clients read in a type library, one row a line, in the library's own order: types with
/// kind, identifier, flags and help; functions with slot, DISPID, kind and help; parameters with type, flags
/// and default.
std::string library_text(ITypeLib& library);

}  // namespace foliant::com
