#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

/// What a process that reads documents may do: one place that holds the policy, and applies it by means of
/// the kernel. Whoever wrote the document may take the process over; then this is what is left to him.
namespace foliant::hosts::containment {

/// How much of the machine the process may take. 0 leaves the limit as it is inherited; no limit is ever
/// raised.
struct Limits {
    std::uint64_t memory_bytes = 0;  ///< what it allocates; libraries and files that it maps do not count
    std::uint64_t file_bytes = 0;    ///< of each file that it writes; more fails with EFBIG
    std::uint64_t open_files = 0;
    std::uint64_t cpu_seconds = 0;  ///< of computing, all threads together; more ends it
};

/// The files, programs and resources of one process. What is not named here it cannot have.
///
/// A path stands for what is there when the policy is applied, links followed; a folder stands for everything
/// below it, a path where nothing is for nothing. Whether a file exists, and how large it is, the kernel
/// tells everybody. Descriptors that are open already stay usable.
struct Policy {
    std::vector<std::filesystem::path> may_read;
    /// In these folders files and folders may be made, written, renamed and removed; these files may be
    /// written. All of them may be read too.
    std::vector<std::filesystem::path> may_write;
    /// Programs that may be started, under this very policy. Empty: no other process can be made at all.
    std::vector<std::filesystem::path> may_start;
    bool may_make_sockets = false;  ///< and symbolic links, where it may write
    bool may_make_threads = true;   ///< where false, the process stays at the one thread that it has
    bool may_connect = false;       ///< to anybody, by any kind of socket
    Limits limits;
};

}  // namespace foliant::hosts::containment
