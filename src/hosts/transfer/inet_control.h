#pragma once

#include "automation/object.h"
#include "hosts/machine.h"

namespace foliant::hosts::transfer {

/// The Internet Transfer control: `URL` (the server), `UserName`, `Password`, `Protocol` (2, FTP), `Execute`
/// (address, command) with the commands CD, PUT and GET, and `StillExecuting`. A command goes on while
/// somebody asks whether it does.
///
/// What a server refuses raises nothing; `ResponseCode` and `ResponseInfo` say it, 0 and "" as long as nothing
/// was refused, and no command is sent any more after that: a file would go to another folder than was meant.
/// `PercentDone` tells how much of a transfer is done. `machine` outlives the object.
automation::ObjectPtr make_inet_control(Machine& machine);

}  // namespace foliant::hosts::transfer
