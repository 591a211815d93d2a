#include "platform/win32/windows_platform.h"

#include "platform/win32/windows_clock.h"
#include "platform/win32/windows_files.h"
#include "platform/win32/windows_printers.h"
#include "platform/win32/windows_programs.h"
#include "platform/win32/windows_registry.h"
#include "platform/win32/windows_servers.h"
#include "platform/win32/windows_shell.h"
#include "platform/win32/windows_windows.h"

namespace foliant::platform::win32 {

struct WindowsPlatform::Ports {
    WindowsRegistry registry;
    WindowsFiles files;
    WindowsClock clock;
    WindowsWindows windows;
    WindowsPrograms programs;
    WindowsShell shell;
    WindowsServers servers;
    WindowsPrinters printers;
};

WindowsPlatform::WindowsPlatform() : ports_(std::make_unique<Ports>()) {}
WindowsPlatform::~WindowsPlatform() = default;

Platform WindowsPlatform::platform() const {
    return {ports_->registry, ports_->files, ports_->clock,   ports_->windows,
            ports_->programs, ports_->shell, ports_->servers, ports_->printers};
}

}  // namespace foliant::platform::win32
