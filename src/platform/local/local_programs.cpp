#include "platform/local/local_programs.h"

#include <utility>

#include "automation/error.h"

namespace foliant::platform::local {

void LocalPrograms::install(std::string path, Main main) {
    programs_[std::move(path)] = std::move(main);
}

void LocalPrograms::start(const std::string& command_line, WindowStyle) {
    const std::string_view line = command_line;
    // In falling order a path comes before those that it begins with.
    for (const auto& [path, main] : programs_) {
        if (line == path) return main({});
        if (line.starts_with(path + " ")) return main(line.substr(path.size() + 1));
    }
    // The rest of the line may hold a password, so only what comes before the first blank is shown.
    throw automation::Error(
        automation::RuntimeError::file_not_found,
        "File not found: this machine has no program " + std::string(line.substr(0, line.find(' '))) + ".");
}

}  // namespace foliant::platform::local
