#pragma once

#include <ole2.h>
#include <string>

#include "automation/error.h"

namespace foliant::platform::win32 {

/// What the system says about a failure, without the line end; "Automation error" with the number in
/// hexadecimal when it says nothing.
std::string system_text(HRESULT result);

/// The error that a result stands for: its number with the system's text, except that 800A0000 + n is the
/// run-time error n with its usual sentence.
automation::Error error_of(HRESULT result);

/// The error that an object has raised. Asks the object for the details if it left them out at first, and
/// frees the strings of `raised`.
automation::Error error_of(EXCEPINFO& raised);

}  // namespace foliant::platform::win32
