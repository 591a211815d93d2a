#pragma once

#include <oaidl.h>

/// The dual interface's table of functions, made from the member table at compile time.
namespace foliant::com {

/// The seven functions of IDispatch, then one for each member in slot order. Each takes the types that the
/// table gives, by value or as pointers, and a pointer for the result if there is one.
const void* const* dual_functions() noexcept;

}  // namespace foliant::com
