#pragma once

namespace foliant::platform::win32::test {

/// Under this name the test program is another one: it notes in a file beside it what follows its name on the
/// command line, in UTF-8, and ends.
inline constexpr const char* noting_program = "noter.exe";
inline constexpr const char* noted_arguments = "noted.txt";

/// Whether this process is that program; it has noted its arguments then.
bool is_noting_program();

}  // namespace foliant::platform::win32::test
