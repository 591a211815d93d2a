#pragma once

#include <string>

#include "hosts/containment/policy.h"

namespace foliant::hosts::containment {

/// What of a policy the kernel enforces, besides the limits, which every kernel does.
struct Enforcement {
    int landlock = 0;    ///< version of Landlock's interface: files, from 4 TCP, from 6 signals; 0: none
    bool calls = false;  ///< system calls are filtered: processes, sockets, what changes the machine

    bool operator==(const Enforcement&) const = default;
};

/// What this kernel can enforce. Changes nothing; takes microseconds.
Enforcement offered() noexcept;

/// Puts a policy into force for this process and all that it will start; there is no way back. To be called
/// before the process sees a byte of a document. A second policy can only take more away.
///
/// Returns what is in force now: all that is offered. Throws std::system_error when the kernel refuses what
/// it offers, or the process has more than one thread; then it must not go on.
Enforcement apply(const Policy& policy);

/// What is missing for people to know, in a sentence: "The kernel has no Landlock: ..."; "" when nothing is.
std::string shortcomings(const Enforcement& enforcement);

/// "Landlock (version 7), seccomp", "seccomp", or "nothing".
std::string describe(const Enforcement& enforcement);

}  // namespace foliant::hosts::containment
