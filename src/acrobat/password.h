#pragma once

#include <string>

#include "session/session.h"

namespace foliant::acrobat {

/// Protects a PDF, in its place, with a password that opens it, by Acrobat's own security dialogs, which four
/// window senders answer. An empty password is sent like any other. Acrobat is exited. Raises the missing-file
/// error, and for any other failure, a missing sender as well, the component's error "Can't open file …", which
/// has left Acrobat as it is.
void SetOpenPassword(const session::Session& session, const std::string& strPDFFile,
                     const std::string& strOpenPassword);

}  // namespace foliant::acrobat
