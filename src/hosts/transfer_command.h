#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace foliant::hosts {

/// A command of the Internet Transfer control that names a file of this machine.
struct TransferCommand {
    enum class Verb { put, get };

    Verb verb = Verb::put;
    std::string local_file;
    std::string remote_file;
};

/// Reads "PUT local remote" and "GET remote local": every pair of files that may be meant. None for any other
/// command, and for one that does not name two files. Of several nobody knows which one is meant: whoever sends
/// or makes a file refuses them.
///
/// Two names in quotation marks, in which two of them stand for one, are taken as they stand. Names without are
/// parted by any blank of the text. Of these pairs, those count whose local file exists (PUT), or has an absolute
/// name, else one with a folder, whose folder exists (GET); all of them where none does.
std::vector<TransferCommand> transfer_readings(std::string_view command);

/// The command as those write it who leave blanks in names to the reader: without quotation marks.
std::string unquoted_text(const TransferCommand& command);

/// The command so that it has one reading: with quotation marks where a name has blanks or such marks.
std::string unmistakable_text(const TransferCommand& command);

}  // namespace foliant::hosts
