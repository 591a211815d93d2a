#pragma once

#include <ole2.h>
#include <string>
#include <vector>

namespace foliant::tests::clients {

/// The files b.ps, "no such file.ps", a.ps and c.ps of a folder as a list of that kind: "strings from 1",
/// "strings from -3", "variants from 0" and so on. The caller clears it.
VARIANT list_of_files(const std::string& kind, const std::string& folder);

/// A list of texts as scripts have it: of variants, from 0. The caller clears it.
VARIANT list_of_texts(const std::vector<std::string>& texts);

}  // namespace foliant::tests::clients
