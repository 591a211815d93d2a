#pragma once

#include <string>
#include <vector>

namespace foliant::cli {

/// Begins the command anew, with the words it was given, where the C library is to manage memory otherwise than it
/// usually does, which it decides when a program starts: a call that reads the text of PDFs makes and drops small
/// objects by the million, on several threads, and takes a quarter less computing when the library keeps more of
/// them at hand. Returns when nothing is to change, or nothing can be. To be called first of all.
void restart_for_many_objects(const std::vector<std::string>& words, char** arguments);

}  // namespace foliant::cli
