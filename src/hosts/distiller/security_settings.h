#pragma once

#include "hosts/distiller/security.h"
#include "hosts/machine.h"

namespace foliant::hosts::distiller {

/// Distiller's security settings: text values under
///
///     HKEY_CURRENT_USER\Software\Adobe\Acrobat Distiller\6.0\Security
///
/// OpenPassword and OwnerPassword hold passwords; AllowPrinting, AllowAccessibility, AllowCopying and
/// AllowChanging hold "1" or "0". What is not there is as in a default `Security`. Raises 13, naming the
/// value, for a permission that is neither: a PDF is not locked by guess.
Security security_settings(const Machine& machine);

}  // namespace foliant::hosts::distiller
