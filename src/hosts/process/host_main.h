#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <sys/types.h>

#include "hosts/module.h"
#include "hosts/process/channel.h"
#include "hosts/process/shared_notes.h"

namespace foliant::hosts::process {

/// What a new host process is given.
struct HostStart {
    Channel channel;
    const std::function<const Module&()>& load;
    std::filesystem::path folder;  ///< private to it
    std::uint64_t memory_limit_bytes;
    bool may_read_text;  ///< the text of pages
    bool takes_turns;    ///< with its caller, who joins it on its processor
    HostNotes& notes;
    pid_t parent;  ///< it does not outlive that process
};

/// What a host process does from its first to its last instruction, right after it was forked.
[[noreturn]] void run_host(HostStart start);

}  // namespace foliant::hosts::process
