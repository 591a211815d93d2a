#pragma once

#include <dlfcn.h>
#include <stdexcept>

#include "hosts/module.h"
#include "hosts/office/scratch.h"
#include "hosts/process/host_process.h"
#include "support/scratch_folder.h"

namespace foliant::hosts::office::test {

/// The module as the command loads it.
inline const Module& office_module() {
    static void* library = dlopen(OFFICE_MODULE, RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) throw std::runtime_error(dlerror());
    return *reinterpret_cast<ModuleEntry>(dlsym(library, "foliant_host_module"))();
}

}  // namespace foliant::hosts::office::test
