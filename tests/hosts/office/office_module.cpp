#include "hosts/office/office_module.h"

#include <dlfcn.h>
#include <stdexcept>

namespace foliant::hosts::office::test {

const Module& office_module() {
    static void* library = dlopen(OFFICE_MODULE, RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) throw std::runtime_error(dlerror());
    return *reinterpret_cast<ModuleEntry>(dlsym(library, "foliant_host_module"))();
}

}  // namespace foliant::hosts::office::test
