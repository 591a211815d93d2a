#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace foliant::hosts {

/// A command of the Internet Transfer control that names a file of this machine.
struct TransferCommand {
    enum class Verb { put, get };

    Verb verb = Verb::put;
    std::string local_file;
    std::string remote_file;
};

/// Reads "PUT local remote" and "GET remote local"; nothing for any other command, and for one that does not
/// name two files.
///
/// Callers do not quote names with blanks, though they may. Of the places of the text that could be the one
/// between the two names, the one counts that leaves a file which exists (PUT, the last such place), or an
/// absolute name, else one with a folder, whose folder exists (GET, the first such place). Where none does, it is
/// the first blank of PUT and the last of GET.
std::optional<TransferCommand> transfer_command(std::string_view command);

}  // namespace foliant::hosts
