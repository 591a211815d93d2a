#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace foliant::platform::local {

/// A program with what it is started with.
struct ProgramCall {
    std::filesystem::path program;
    std::vector<std::string> arguments;  ///< without its name
    std::filesystem::path input;         ///< what it reads as its standard input; empty for nothing
};

/// Where a program of that name lies, by PATH; nothing when it is not installed.
std::optional<std::filesystem::path> find_program(std::string_view name);

/// Starts a program that goes on when this process, its group and its terminal have ended. It gets nothing of
/// this process but environment, folder and output. Throws std::system_error when it cannot be started; what
/// becomes of it afterwards is not known.
void start_to_outlive(const ProgramCall& call);

}  // namespace foliant::platform::local
