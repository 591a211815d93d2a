#include "hosts/module_part.h"

#include <dlfcn.h>
#include <stdexcept>
#include <string>

namespace foliant::hosts {

ModuleParts::ModuleParts(const void* inside) {
    Dl_info module{};
    if (::dladdr(inside, &module) != 0) folder_ = std::filesystem::path(module.dli_fname).parent_path();
}

const void* ModuleParts::variable(std::string_view part) const {
    void* const library = ::dlopen(file(part).c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) throw std::runtime_error(::dlerror());
    const void* const variable = ::dlsym(library, "foliant_part");
    if (variable == nullptr) throw std::runtime_error(file(part).string() + " is no part of a host module");
    return variable;
}

}  // namespace foliant::hosts
