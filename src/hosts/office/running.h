#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "hosts/machine.h"
#include "hosts/office/print/office_document.h"

namespace foliant::hosts::office {

/// One running application: what its application object and its documents share.
class Running {
  public:
    Running(Machine& machine, const Application& application)
        : machine_(machine), application_(application), active_printer_(machine.default_printer()) {}

    /// The machine and the application's printer, as long as it runs; 462 after it was quit.
    Machine& machine() const;
    const std::string& active_printer() const;

    /// Raises command_failed for a printer that the machine does not have.
    void choose_printer(const std::string& name);
    void require_printer(const std::string& name) const;

    /// Raises 462 when the application was quit.
    void require_running() const;

    void add(const std::shared_ptr<OfficeDocument>& document);
    std::int32_t open_documents() const;

    /// Closes what is still open.
    void quit();

  private:
    Machine& machine_;
    const Application& application_;
    std::string active_printer_;
    std::vector<std::weak_ptr<OfficeDocument>> documents_;
    bool has_quit_ = false;
};

}  // namespace foliant::hosts::office
