#include "hosts/access/database/query_pieces.h"

#include <algorithm>

#include "automation/text.h"
#include "hosts/access/database/system_table.h"

namespace foliant::hosts::access {
namespace {

// The fields of a piece of a query.
enum Piece : std::size_t { attribute, expression, flag, name1, name2, object_id, order };

enum Attribute : std::int64_t {
    query_type = 1,
    parameter = 2,
    options = 3,
    source = 5,
    output = 6,
    join = 7,
    where = 8,
    group = 9,
    having = 10,
    sorting = 11,
};

StoredQuery::Kind kind_of(std::int64_t type) {
    using Kind = StoredQuery::Kind;
    switch (type) {
        case 1:
            return Kind::select;
        case 6:
            return Kind::crosstab;
        case 8:
            return Kind::pass_through;
        case 9:
            return Kind::united;
        default:
            return Kind::action;
    }
}

using Role = StoredQuery::Output::Role;

/// In a crosstab; elsewhere the flag is 0.
Role role_of(std::int64_t flag) {
    return (flag & 0x01) != 0 ? Role::above : (flag & 0x02) != 0 ? Role::beside : Role::shown;
}

void add_options(StoredQuery& query, const Row& row) {
    const std::int64_t flags = whole(row, flag);
    query.has_all_columns = (flags & 0x01) != 0;
    query.is_distinct = (flags & 0x02) != 0;
    query.is_distinct_row = (flags & 0x08) != 0;
    if ((flags & 0x10) != 0) query.top = text(row, name1);
    query.top_is_percent = (flags & 0x20) != 0;
}

void add_piece(StoredQuery& query, const Row& row) {
    using Join = StoredQuery::Join;
    switch (whole(row, attribute)) {
        case Attribute::query_type:
            query.kind = kind_of(whole(row, flag));
            break;
        case Attribute::parameter:
            query.parameters.push_back(text(row, name1));
            break;
        case Attribute::options:
            add_options(query, row);
            break;
        case Attribute::source:
            query.sources.push_back({text(row, name1), text(row, name2), text(row, expression)});
            break;
        case Attribute::output:
            query.outputs.push_back({text(row, expression), text(row, name1), role_of(whole(row, flag))});
            break;
        case Attribute::join: {
            const std::int64_t kind = whole(row, flag);
            query.joins.push_back({kind == 2   ? Join::Kind::left
                                   : kind == 3 ? Join::Kind::right
                                               : Join::Kind::inner,
                                   text(row, name1), text(row, name2), text(row, expression)});
            break;
        }
        case Attribute::where:
            query.where = text(row, expression);
            break;
        case Attribute::group:
            if (role_of(whole(row, flag)) != Role::above) query.groups.push_back(text(row, expression));
            break;
        case Attribute::having:
            query.having = text(row, expression);
            break;
        case Attribute::sorting:
            query.orders.push_back(
                {text(row, expression), automation::equal_ignoring_case(text(row, name1), "D")});
            break;
        default:
            break;
    }
}

}  // namespace

std::vector<Row> query_pieces(const Relation& table) {
    std::vector<Row> pieces =
        rows_with(table, {"Attribute", "Expression", "Flag", "Name1", "Name2", "ObjectId", "Order"});
    std::ranges::stable_sort(pieces, [](const Row& left, const Row& right) {
        return text(left, Piece::order) < text(right, Piece::order);
    });
    return pieces;
}

StoredQuery query_of(const std::vector<Row>& pieces, unsigned long id) {
    StoredQuery query;
    for (const Row& piece : pieces)
        if ((static_cast<unsigned long>(whole(piece, object_id)) & object_id_mask) == id)
            add_piece(query, piece);
    return query;
}

}  // namespace foliant::hosts::access
