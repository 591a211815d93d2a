#pragma once

#include <vector>

#include "hosts/access/sql/query.h"

namespace foliant::hosts::access {

/// All records of several tables side by side, as the joins combine them; tables that none combines, each record
/// with each. The columns of every source bear the name that the joins call it by. Raises SqlError for a join of
/// what is not there, and for one whose result would depend on which is made first.
Relation join_sources(std::vector<Relation> sources, const std::vector<StoredQuery::Join>& joins);

}  // namespace foliant::hosts::access
