#pragma once

#include <ole2.h>
#include <string>

namespace foliant::tests::servers {

/// The file that everything is recorded in, one for all processes of a user.
std::wstring record_path();

/// Adds a line to it.
void record(const std::string& line);

/// A variant with its exact type: `BSTR "a"`, `I2 4`, `BOOL True`, `missing`, `EMPTY`, `I2 by reference 4`.
std::string describe(const VARIANT& variant);

}  // namespace foliant::tests::servers
