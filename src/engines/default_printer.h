#pragma once

#include <string>

#include "session/session.h"

namespace foliant::engines {

/// Makes a printer the default one of the whole logged-on user, by the method that the running family of
/// systems takes. Says nothing of failures: a printer that is not known, or that may not be changed, leaves
/// the default as it is.
void SetDefPrinter(const session::Session& session, const std::string& strPrinter);

}  // namespace foliant::engines
