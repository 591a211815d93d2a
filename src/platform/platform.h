#pragma once

#include "platform/clock.h"
#include "platform/files.h"
#include "platform/printer_control.h"
#include "platform/programs.h"
#include "platform/registry.h"
#include "platform/servers.h"
#include "platform/shell.h"
#include "platform/window_manager.h"

/// The ports: everything that the library does outside itself goes through one of these. They know
/// automation/ only, and no type of an operating system.
namespace foliant::platform {

/// One outside world: all its ports. They outlive whatever uses them.
struct Platform {
    Registry& registry;
    Files& files;
    Clock& clock;
    WindowManager& windows;
    Programs& programs;
    Shell& shell;
    Servers& servers;
    PrinterControl& printers;
};

}  // namespace foliant::platform
