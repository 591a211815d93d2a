#pragma once

#include <ole2.h>
#include <string>

namespace foliant::tests::clients {

/// The files b.ps, "no such file.ps", a.ps and c.ps of a folder as a list of that kind: "strings from 1",
/// "strings from -3", "variants from 0" and so on. The caller clears it.
VARIANT list_of_files(const std::string& kind, const std::string& folder);

}  // namespace foliant::tests::clients
