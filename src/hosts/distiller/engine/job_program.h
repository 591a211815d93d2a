#pragma once

#include <string>
#include <string_view>

namespace foliant::hosts::distiller::engine {

/// PostScript that is run once, before any file of the job: the host's own part, and what `running_program`
/// needs.
std::string setup_program();

/// PostScript that runs one file of the workspace. An error in it is reported line by line, and ends the
/// interpreter with status 1; the error handlers that documents bring along have no say in that.
std::string running_program(std::string_view file);

}  // namespace foliant::hosts::distiller::engine
