#include "hosts/module_part.h"

#include <algorithm>
#include <dlfcn.h>
#include <link.h>
#include <stdexcept>
#include <string>
#include <system_error>

namespace foliant::hosts {

namespace {

/// Where the modules of the running program lie.
std::filesystem::path hosts_of_program() {
    std::error_code none;
    const auto folders = hosts_folders(std::filesystem::read_symlink("/proc/self/exe", none));
    const auto there =
        std::ranges::find_if(folders, [&](const auto& folder) { return is_directory(folder, none); });
    return there == folders.end() ? folders.front() : *there;
}

}  // namespace

std::vector<std::filesystem::path> hosts_folders(const std::filesystem::path& program) {
    const std::filesystem::path folder = program.parent_path();
    return {folder / "hosts", (folder / "../lib/foliant/hosts").lexically_normal()};
}

ModuleParts::ModuleParts(const void* inside) {
    Dl_info place{};
    const link_map* module = nullptr;
    if (::dladdr1(inside, &place, reinterpret_cast<void**>(const_cast<link_map**>(&module)),
                  RTLD_DL_LINKMAP) == 0)
        return;
    const std::string_view library = module->l_name;  // "" is the program
    folder_ = library.empty() ? hosts_of_program() : std::filesystem::path(library).parent_path();
}

const void* ModuleParts::variable(std::string_view part) const {
    void* const library = ::dlopen(file(part).c_str(), RTLD_LAZY | RTLD_LOCAL);
    if (library == nullptr) throw std::runtime_error(::dlerror());
    const void* const variable = ::dlsym(library, "foliant_part");
    if (variable == nullptr) throw std::runtime_error(file(part).string() + " is no part of a host module");
    return variable;
}

}  // namespace foliant::hosts
