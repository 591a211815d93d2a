#include "hosts/office/engine/print_mode.h"

#include <dlfcn.h>

namespace foliant::hosts::office {

namespace {

void (*set_kit_active)(bool) = nullptr;  // comphelper::LibreOfficeKit::setActive

}  // namespace

void PrintMode::prepare(void* library) {
    set_kit_active =
        reinterpret_cast<void (*)(bool)>(dlsym(library, "_ZN10comphelper14LibreOfficeKit9setActiveEb"));
}

PrintMode::PrintMode() {
    if (set_kit_active != nullptr) set_kit_active(false);
}

PrintMode::~PrintMode() {
    if (set_kit_active != nullptr) set_kit_active(true);
}

}  // namespace foliant::hosts::office
