#pragma once

#include <dlfcn.h>
#include <stdexcept>

#include "hosts/module.h"

namespace foliant::tests {

/// The host module in that file, as the command loads it. It stays loaded. Throws runtime_error with the
/// loader's reason.
inline const hosts::Module& built_module(const char* file) {
    void* const library = ::dlopen(file, RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) throw std::runtime_error(::dlerror());
    return *reinterpret_cast<hosts::ModuleEntry>(::dlsym(library, "foliant_host_module"))();
}

}  // namespace foliant::tests
