#pragma once

#include <string>

#include "hosts/access/database/jet_fields.h"
#include "hosts/access/database/mdb.h"
#include "hosts/access/sql/datum.h"

namespace foliant::hosts::access {

/// Where a table is defined, and what it says of its columns.
struct TablePlace {
    std::string name;  ///< what its columns and errors call it
    unsigned long page = 0;
    std::string properties{};  ///< see column_properties.h
};

/// All records of a table. Raises DatabaseError when some cannot be read.
Relation read_records(MdbHandle* database, const TablePlace& place, Binary binary = Binary::opaque);

}  // namespace foliant::hosts::access
