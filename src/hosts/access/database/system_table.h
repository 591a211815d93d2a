#pragma once

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <variant>
#include <vector>

#include "hosts/access/sql/datum.h"

// What the tables hold in which a database keeps what it is made of.

namespace foliant::hosts::access {

/// Of the number by which a database calls a thing, the part that is one of its own.
inline constexpr unsigned long object_id_mask = 0xFFFFFF;

/// The number in a field, 0 for anything else.
inline std::int64_t whole(const Row& row, std::size_t field) {
    const auto* number = std::get_if<std::int64_t>(&row[field]);
    return number == nullptr ? 0 : *number;
}

/// The text in a field, empty for anything else.
inline std::string text(const Row& row, std::size_t field) {
    const auto* content = std::get_if<std::string>(&row[field]);
    return content == nullptr ? std::string() : *content;
}

/// The records with these fields only, Null for what the table does not have.
inline std::vector<Row> rows_with(const Relation& table, std::initializer_list<const char*> fields) {
    std::vector<Row> rows;
    for (const Row& whole_row : table.rows) {
        Row& row = rows.emplace_back();
        for (const char* name : fields) {
            const auto column = std::ranges::find(table.columns, name, &Column::name);
            const bool is_there = column != table.columns.end();
            row.push_back(is_there ? whole_row[static_cast<std::size_t>(column - table.columns.begin())]
                                   : Datum(Null()));
        }
    }
    return rows;
}

}  // namespace foliant::hosts::access
