#pragma once

#include <optional>

#include "automation/error.h"
#include "cli/request.h"
#include "platform/local/local_machine.h"

namespace foliant::cli {

/// Raises an automation error when this machine cannot do what the request asks for, though the member would
/// pass over it without a word: settings that cannot be read where they are all that the member is about or
/// where protection depends on them, and a printer that does not exist: printing would go on, on another one.
void require_machine(const Request& request, platform::local::LocalMachine& machine);

/// Raises an automation error when a PDF is to be printed and the printer is the one that makes PDFs: its dialog would
/// wait for an answer.
void require_paper(const Request& request, platform::local::LocalMachine& machine);

/// After a call that raised nothing: what it has not done all the same.
std::optional<automation::Error> unkept_promise(const Request& request,
                                                platform::local::LocalMachine& machine);

}  // namespace foliant::cli
