#pragma once

#include <string>

#include "windows/com/component.h"
#include "windows/servers/installation.h"

namespace foliant::tests::clients {

/// Foliant as a user has it, for as long as this lives: Foliant.dll registered, quorixsend.exe in the
/// system's folder.
class RegisteredComponent {
  public:
    RegisteredComponent();
    RegisteredComponent(const RegisteredComponent&) = delete;
    RegisteredComponent& operator=(const RegisteredComponent&) = delete;
    ~RegisteredComponent();

  private:
    com::Component library_;
    std::wstring sender_;
};

/// The same with recorded hosts under the identifiers of Word and Distiller.
class InstalledComponent {
  public:
    explicit InstalledComponent(servers::Kind hosts) : hosts_(hosts, true) {}
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
