#pragma once

#include <cstdint>
#include <string_view>
#include <sys/types.h>

#include "hosts/containment/policy.h"

namespace foliant::hosts::distiller::engine {

/// What EngineProcess tells an engine program.
struct Orders {
    std::string_view command;  ///< of protocol.h
    pid_t parent = 0;
    std::uint64_t memory_bytes = 0;
};

/// The orders in the arguments of `main`; ends a process that was started by hand.
Orders take_orders(int argc, char** argv);

/// Readies this process for a document: from now on it ends with its parent, and may do what `policy` names,
/// within the limits that every engine program has. Ends the process where its parent is gone already, or
/// where the kernel refuses, with a record that says so.
void confine(const Orders& orders, containment::Policy policy);

}  // namespace foliant::hosts::distiller::engine
