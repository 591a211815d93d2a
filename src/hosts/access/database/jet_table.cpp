#include "hosts/access/database/jet_table.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <memory>
#include <string_view>
#include <utility>

#include "hosts/access/database/column_properties.h"
#include "hosts/access/database/jet_file.h"

namespace foliant::hosts::access {
namespace {

struct FreeTable {
    void operator()(MdbTableDef* table) const { mdb_free_tabledef(table); }
};
using TablePtr = std::unique_ptr<MdbTableDef, FreeTable>;

Kind kind_of(int type) {
    switch (type) {
        case MDB_BOOL:
            return Kind::boolean;
        case MDB_BYTE:
        case MDB_INT:
        case MDB_LONGINT:
            return Kind::integer;
        case MDB_MONEY:
            return Kind::money;
        case MDB_FLOAT:
            return Kind::single;
        case MDB_DOUBLE:
            return Kind::real;
        case MDB_NUMERIC:
            return Kind::decimal;
        case MDB_DATETIME:
            return Kind::date;
        case MDB_TEXT:
        case MDB_REPID:
            return Kind::text;
        case MDB_MEMO:
            return Kind::memo;
        default:
            return Kind::opaque;
    }
}

int number_in(const std::string& text, int otherwise) {
    std::from_chars(text.data(), text.data() + text.size(), otherwise);
    return otherwise;
}

std::string property(const ColumnProperties& properties, const std::string& column, const char* name) {
    const auto own = properties.find(column);
    if (own == properties.end()) return {};
    const auto found = own->second.find(name);
    return found == own->second.end() ? std::string() : found->second;
}

/// What is calculated is kept as what comes out, whatever type its column has.
Stored stored(const MdbColumn& column, const ColumnProperties& properties) {
    if (property(properties, column.name, "Expression").empty()) return {&column, column.col_type};
    return {&column, number_in(property(properties, column.name, "ResultType"), column.col_type), true};
}

Column describe(const Stored& field, const std::string& table, const ColumnProperties& properties) {
    Column described{.name = field.column->name, .kind = kind_of(field.type), .tables = {table}};
    described.caption = property(properties, described.name, "Caption");
    described.format = property(properties, described.name, "Format");
    described.has_formats = property(properties, described.name, "TextFormat") == "1";
    constexpr int automatic = 255;
    const int decimals = number_in(property(properties, described.name, "DecimalPlaces"), automatic);
    if (decimals >= 0 && decimals < automatic) described.decimals = std::min(decimals, 15);
    return described;
}

/// Of an empty text the library says the same as of Null.
bool is_null_field(MdbTableDef& table, std::size_t column) {
    constexpr int offset_mask = 0x1FFF;
    int start = 0;
    std::size_t size = 0;
    const int record = static_cast<int>(table.cur_row) - 1;
    if (mdb_find_row(table.entry->mdb, record, &start, &size) != 0) return true;
    std::array<MdbField, MDB_MAX_COLS> fields{};
    const int count = mdb_crack_row(&table, start & offset_mask, size, fields.data());
    return std::cmp_greater_equal(column, count) || fields[column].is_null != 0;
}

}  // namespace

Relation read_records(MdbHandle* database, const TablePlace& place, Binary binary) {
    // Not the library's own list of tables: what is damaged in properties keeps that busy for ever.
    MdbCatalogEntry entry{};
    entry.mdb = database;
    entry.object_type = MDB_TABLE;
    entry.table_pg = place.page;
    const TablePtr table(mdb_read_table(&entry));
    if (!table || mdb_read_columns(table.get()) == nullptr || table->num_cols == 0)
        throw DatabaseError("the table \"" + place.name + "\" is damaged");
    const ColumnProperties properties = read_column_properties(
        place.properties, [&](std::string_view raw) { return to_utf8(database, raw); });
    Relation relation;
    std::vector<Stored> columns;
    for (unsigned i = 0; i < table->num_cols; ++i) {
        columns.push_back(
            stored(*static_cast<const MdbColumn*>(g_ptr_array_index(table->columns, i)), properties));
        relation.columns.push_back(describe(columns.back(), place.name, properties));
    }
    JetFields fields(database, place.name, binary);
    mdb_rewind_table(table.get());
    while (mdb_fetch_row(table.get()) != 0) {
        Row& row = relation.rows.emplace_back();
        row.reserve(columns.size());
        for (std::size_t i = 0; i < columns.size(); ++i) {
            row.push_back(fields.read(columns[i]));
            if (columns[i].type == MDB_TEXT && is_null(row.back()) && !is_null_field(*table, i))
                row.back() = std::string();
            if (auto* text = std::get_if<std::string>(&row.back());
                text != nullptr && relation.columns[i].has_formats)
                *text = without_formats(*text);
        }
    }
    if (relation.rows.size() < table->num_rows)
        throw DatabaseError("of the " + std::to_string(table->num_rows) + " records of the table \"" +
                            place.name + "\" only " + std::to_string(relation.rows.size()) + " can be read");
    return relation;
}

}  // namespace foliant::hosts::access
