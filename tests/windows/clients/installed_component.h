#pragma once

#include <optional>
#include <string>

#include "windows/com/component.h"
#include "windows/servers/installation.h"

namespace foliant::tests::clients {

/// Where quorixsend.exe is.
enum class Sender { in_system_folder, beside_library, nowhere };

/// Foliant as a user has it, for as long as this lives: Foliant.dll, in a folder of its own, is registered.
class RegisteredComponent {
  public:
    explicit RegisteredComponent(Sender sender = Sender::in_system_folder);
    RegisteredComponent(const RegisteredComponent&) = delete;
    RegisteredComponent& operator=(const RegisteredComponent&) = delete;
    ~RegisteredComponent();

  private:
    std::wstring folder_;
    std::wstring sender_;  ///< its path; empty when there is none
    std::optional<com::Component> library_;
};

/// The same with recorded hosts under the identifiers of Word and Distiller.
class InstalledComponent {
  public:
    explicit InstalledComponent(servers::Kind hosts, Sender sender = Sender::in_system_folder)
        : hosts_(hosts, true), component_(sender) {}
    ~InstalledComponent() { hosts_end(); }

    /// What hosts have recorded that never learned whose they were.
    std::string record() const { return hosts_.record(); }

    /// Waits until no process of the hosts is left; false when there is one after a minute.
    bool hosts_end();

  private:
    servers::Installation hosts_;
    RegisteredComponent component_;
};

/// Waits until no process of a sender is left; false when there is one after a minute.
bool senders_end();

}  // namespace foliant::tests::clients
