#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "automation/object.h"
#include "hosts/machine.h"
#include "hosts/module.h"

namespace foliant::hosts::process {

class Peer;

/// What runs in a process of its own.
struct HostProgram {
    std::string name;    ///< of the host, for messages: "Word"
    std::string engine;  ///< "LibreOffice Writer"
    /// Loads the module; called in the new process, before a policy is in force. What it throws is what
    /// creating a class fails with.
    std::function<const Module&()> load;
    /// What tells it to save a document in place; "" when it never may. See Host.
    std::string save_command = {};
};

/// A host module in a process of its own, which the kernel keeps to the module's policy. Its objects are
/// proxies here. What it asks of the machine it gets within bounds: files only that were named to it.
///
/// The process ends with this object and the objects that it made, and with the process that made it. When it
/// ends by itself, the call that is under way raises what happened (0x800706BE, or 7 when it ran into its
/// limit on memory), and later ones 462.
class HostProcess {
  public:
    /// Starts the process. `machine` outlives this and its objects. Throws std::system_error.
    HostProcess(HostProgram program, Machine& machine);
    HostProcess(const HostProcess&) = delete;
    HostProcess& operator=(const HostProcess&) = delete;
    ~HostProcess();

    /// Creates a class of the module. Raises what the module does.
    automation::ObjectPtr create(std::string_view class_name);

    /// Ends it, and does not wait for it to be gone.
    void dismiss() noexcept;

    /// False once it has ended; another one can take its place.
    bool is_running() const noexcept;

  private:
    class Child;
    std::shared_ptr<Child> child_;
    std::shared_ptr<Peer> peer_;
};

}  // namespace foliant::hosts::process
