#pragma once

#include <functional>
#include <optional>
#include <string>

#include "hosts/access/sql/query.h"

namespace foliant::hosts::access {

/// Where a query takes its records from.
struct Origins {
    std::function<std::optional<Relation>(const std::string& name)> named;  ///< tables and queries
    QueryRunner run;                                                        ///< the queries in parentheses
    const Surroundings* around = nullptr;  ///< the record around the query, where it is in parentheses itself
};

/// What a selection or a crosstab gives; its columns bear the name besides those of their tables. Raises SqlError.
Relation select(const Origins& origins, const StoredQuery& query, const std::string& name);

bool is_blank(std::string_view text);

}  // namespace foliant::hosts::access
