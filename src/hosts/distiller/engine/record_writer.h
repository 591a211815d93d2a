#pragma once

#include <string_view>

#include "hosts/distiller/engine/protocol.h"

namespace foliant::hosts::distiller::engine {

/// Sends one record to the host; ends the process when nobody listens any more.
void send(Record kind, std::string_view text);

}  // namespace foliant::hosts::distiller::engine
