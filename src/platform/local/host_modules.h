#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/catalogue.h"
#include "hosts/machine.h"
#include "hosts/module.h"
#include "hosts/process/host_process.h"
#include "platform/servers.h"

namespace foliant::platform::local {

/// What there is of a host on this machine.
struct HostStatus {
    std::string name;     ///< "Word"
    std::string engine;   ///< "LibreOffice Writer"; "" when there is no engine for it
    std::string version;  ///< "7.4.7.2"; "" unless it can be used
    std::string package;  ///< the Debian package that brings the engine; "" when installing does not help
    std::string
        problem;  ///< why it, or with a version some of its work, cannot be done; "" when all of it can
};

/// Modules that the program has in itself, by the names that the catalogue has for them.
using LinkedModules = std::map<std::string_view, hosts::ModuleEntry>;

/// The automation classes of the stand-in hosts. A host's module is loaded when one of its classes is first
/// created, and stays loaded: engines do not survive being unloaded. A host that is contained has a process
/// of its own, which is started then, and again when it is wanted after it has died.
class HostModules : public Servers {
  public:
    /// Told, in a sentence, what the kernel cannot keep hosts from.
    using Trouble = std::function<void(const std::string&)>;

    /// Modules that are not linked are looked for in `folders`, in this order. `machine` outlives this and every object created.
    /// `on_trouble` (may be empty) is told once, before the first host is created.
    HostModules(std::vector<std::filesystem::path> folders, LinkedModules linked, hosts::Machine& machine,
                Trouble on_trouble = {});

    /// Raises 429, whose text names the host, what is wrong, and the package to install where that helps.
    automation::ObjectPtr create(std::string_view class_name) override;

    /// Starts the process that the class will be created in, if its host has one of its own: it gets ready while the
    /// caller does something else. Never raises: what fails here fails again when the class is created.
    void start_ahead(std::string_view class_name) noexcept;

    /// Ends all processes of hosts, and does not wait for them to be gone.
    void dismiss_all() noexcept;

    /// Every host of the catalogue with its state. Loads the modules but starts no engine. Never raises.
    std::vector<HostStatus> list();

  private:
    /// Throws std::runtime_error with the reason when the module is not there or does not load.
    const hosts::Module& module_of(const hosts::Host& host);
    const hosts::Module& load(const hosts::Host& host) const;
    void tell_shortcomings();
    hosts::process::HostProcess& process_of(const hosts::Host& host);

    std::vector<std::filesystem::path> folders_;
    LinkedModules linked_;
    hosts::Machine& machine_;
    Trouble on_trouble_;  ///< empty once it was told
    std::map<std::string_view, const hosts::Module*> loaded_;
    std::map<std::string_view, std::unique_ptr<hosts::process::HostProcess>> processes_;
};

}  // namespace foliant::platform::local
