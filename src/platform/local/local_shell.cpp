#include "platform/local/local_shell.h"

#include <utility>

namespace foliant::platform::local {

namespace {
constexpr std::int32_t system_folder_number = 37;
}

LocalShell::LocalShell(Folder library_folder, Folder system_folder)
    : library_folder_(std::move(library_folder)), system_folder_(std::move(system_folder)) {}

std::optional<std::string> LocalShell::special_folder(std::intptr_t, std::int32_t folder) {
    if (folder != system_folder_number) return std::nullopt;
    return system_folder_().string() + '\0';
}

std::string LocalShell::library_folder() {
    return library_folder_().string();
}

}  // namespace foliant::platform::local
