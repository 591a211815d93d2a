#pragma once

#include <optional>
#include <string>

#include "session/session.h"

namespace foliant::engines {

/// Makes a printer the default one of the whole logged-on user, by the method that the running family of
/// systems takes. Says nothing of failures: a printer that is not known, or that may not be changed, leaves
/// the default as it is.
void SetDefPrinter(const session::Session& session, const std::string& strPrinter);

/// The default printer, changed for one job of a host that prints to no other.
///
/// The destructor puts nothing back: which members do that after a failure, and which leave the printer as it
/// is then, is for them to say.
class PrinterSwitch {
  public:
    explicit PrinterSwitch(const session::Session& session) : session_(session) {}

    /// Remembers the default printer and makes another the default.
    void switch_to(const std::string& printer);

    /// Makes the printer that is remembered the default again, once; does nothing when none is.
    void restore();

  private:
    const session::Session& session_;
    std::optional<std::string> former_;
};

}  // namespace foliant::engines
