#pragma once

#include <vector>

#include "hosts/access/sql/query.h"

namespace foliant::hosts::access {

/// All pieces of all queries, from the table in which a database keeps them (MSysQueries), in their order.
std::vector<Row> query_pieces(const Relation& table);

/// The query that the pieces with that number make.
StoredQuery query_of(const std::vector<Row>& pieces, unsigned long id);

}  // namespace foliant::hosts::access
