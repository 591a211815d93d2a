#pragma once

#include <string>
#include <string_view>

#include "hosts/access/database/mdb.h"
#include "hosts/access/sql/datum.h"

namespace foliant::hosts::access {

/// What becomes of fields that are bytes without a meaning: opaque, or those bytes as a text.
enum class Binary { opaque, bytes };

/// Where a table is defined, and what it says of its columns.
struct TablePlace {
    std::string name;  ///< what its columns and errors call it
    unsigned long page = 0;
    std::string properties{};  ///< see column_properties.h
};

/// All records of a table. Raises DatabaseError when some cannot be read.
Relation read_records(MdbHandle* database, const TablePlace& place, Binary binary = Binary::opaque);

/// A text of the database's as UTF-8.
std::string to_utf8(MdbHandle* database, std::string_view raw);

}  // namespace foliant::hosts::access
