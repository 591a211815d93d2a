#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "automation/object.h"
#include "hosts/containment/policy.h"
#include "hosts/machine.h"

namespace foliant::hosts {

/// What a host module (a shared library in the folder `hosts` beside the command, loaded when one of its
/// classes is created) offers. Module and command come from one build, so C++ types may cross.
struct Module {
    /// The version of the engine, for example "10.00.0"; does not start the engine.
    std::string (*engine_version)();

    /// Creates the class of that ProgID or class identifier, for example "Word.Application". `machine`
    /// outlives every object of the module. Raises 429 with the reason, and the package that brings the
    /// engine when that is missing.
    automation::ObjectPtr (*create)(std::string_view class_name, Machine& machine);

    /// What the process that the host runs in may do, `folder` being its private folder; limits are set by
    /// whoever makes the process. Null for a host that runs in the caller's process, because what it does
    /// with documents it does in contained processes of its own.
    containment::Policy (*policy)(const std::filesystem::path& folder) = nullptr;

    /// What that process may read besides, in a call that may look at the text of pages (Machine::may_read_text).
    /// Null for nothing.
    std::vector<std::filesystem::path> (*for_text)() = nullptr;

    /// Which engines are missing that only some of its work takes, and what brings them, in sentences; "" for none. It
    /// loads them all, which no call does. May be null.
    std::string (*shortcomings)() = nullptr;

    /// Whether the process is contained as soon as the module is loaded, and not when it opens its first document: for
    /// a host that opens no document by its path.
    bool is_contained_at_once = false;
};

/// Every module exports this function under the name `foliant_host_module`.
using ModuleEntry = const Module* (*)();

}  // namespace foliant::hosts
