#include "hosts/access/database/jet_fields.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <utility>

#include "hosts/access/database/jet_file.h"

namespace foliant::hosts::access {
namespace {

struct FreeText {
    void operator()(char* text) const { g_free(text); }
};
using TextPtr = std::unique_ptr<char, FreeText>;

// Where a long value lies, beside its length.
constexpr std::uint32_t is_here = 0x80000000;
constexpr std::uint32_t is_in_one_row = 0x40000000;

// The head of what is calculated: nothing that is known but the length.
constexpr int length_at = 16;
constexpr int head = 20;

int fixed_size(int type) {
    switch (type) {
        case MDB_BYTE:
            return 1;
        case MDB_INT:
            return 2;
        case MDB_LONGINT:
        case MDB_FLOAT:
            return 4;
        case MDB_MONEY:
        case MDB_DOUBLE:
        case MDB_DATETIME:
            return 8;
        case MDB_REPID:
            return 16;
        case MDB_NUMERIC:
            return 17;
        case MDB_MEMO:
        case MDB_OLE:
            return MDB_MEMO_OVERHEAD;
        default:
            return 0;
    }
}

}  // namespace

Datum JetFields::read(const Stored& field) {
    start_ = field.column->cur_value_start;
    length_ = field.column->cur_value_len;
    if (field.is_calculated) return calculated(field);
    if (field.type == MDB_BOOL) return length_ == 0;  // what it says is whether it is missing
    if (start_ == 0) return Null();
    return value(field);
}

Datum JetFields::calculated(const Stored& field) {
    if (start_ == 0) return Null();
    if (field.type == MDB_MEMO) return calculated_text();
    require(length_ >= head && start_ + length_ <= MDB_PGSIZE);
    const std::uint32_t length = word(length_at);
    require(std::cmp_less_equal(length, length_ - head));
    start_ += head;
    length_ = static_cast<int>(length);
    if (length_ == 0) return field.type == MDB_TEXT ? Datum(std::string()) : Null();
    if (field.type == MDB_BOOL) return buffer()[start_] != 0;
    if (field.type == MDB_NUMERIC) return decimal();
    return value(field);
}

Datum JetFields::calculated_text() const {
    require(length_ >= fixed_size(MDB_MEMO) && start_ + length_ <= MDB_PGSIZE);
    const std::string bytes = long_value();
    require(bytes.size() >= head);
    std::uint32_t length = 0;
    std::memcpy(&length, bytes.data() + length_at, sizeof length);
    require(length <= bytes.size() - head);
    return to_utf8(database_, std::string_view(bytes).substr(head, length));
}

/// The sign, how many digits are decimals, and 96 bits, the highest first.
Datum JetFields::decimal() const {
    require(length_ >= 16);
    const std::size_t scale = static_cast<unsigned char>(buffer()[start_ + 2]);
    const bool is_negative = (static_cast<unsigned char>(buffer()[start_ + 3]) & 0x80U) != 0;
    std::array<std::uint32_t, 3> number{word(4), word(12), word(8)};
    std::string digits;
    while (number != decltype(number){} || digits.size() <= scale) {
        std::uint64_t rest = 0;
        for (std::uint32_t& part : number) {
            rest = rest << 32U | part;
            part = static_cast<std::uint32_t>(rest / 10);
            rest %= 10;
        }
        digits.insert(digits.begin(), static_cast<char>('0' + rest));
    }
    if (scale > 0) digits.insert(digits.size() - scale, ".");
    return Decimal{(is_negative ? "-" : "") + digits};
}

Datum JetFields::value(const Stored& field) const {
    require(length_ >= 0 && start_ + length_ <= MDB_PGSIZE);
    require(length_ >= fixed_size(field.type));
    switch (field.type) {
        case MDB_BYTE:
            return std::int64_t{mdb_pg_get_byte(database_, start_)};
        case MDB_INT:
            return std::int64_t{static_cast<std::int16_t>(mdb_pg_get_int16(database_, start_))};
        case MDB_LONGINT:
            return std::int64_t{static_cast<std::int32_t>(mdb_pg_get_int32(database_, start_))};
        case MDB_MONEY:
            return money();
        case MDB_FLOAT:
            return double{mdb_pg_get_single(database_, start_)};
        case MDB_DOUBLE:
            return mdb_pg_get_double(database_, start_);
        case MDB_NUMERIC:
            return Decimal{TextPtr(mdb_numeric_to_string(database_, start_, field.column->col_scale,
                                                         field.column->col_prec))
                               .get()};
        case MDB_DATETIME:
            return date();
        case MDB_TEXT:
            return to_utf8(database_, {buffer() + start_, static_cast<std::size_t>(length_)});
        case MDB_REPID:
            return std::string(TextPtr(mdb_uuid_to_string(database_->pg_buf, start_)).get());
        case MDB_MEMO:
            return to_utf8(database_, long_value());
        case MDB_OLE:
            return binary_ == Binary::bytes ? Datum(long_value()) : Opaque{long_length()};
        default:
            if (binary_ == Binary::bytes)
                return std::string(buffer() + start_, static_cast<std::size_t>(length_));
            return Opaque{static_cast<std::size_t>(length_)};
    }
}

/// From the year 100 to 9999; anything else was never a date.
Datum JetFields::date() const {
    const double days = mdb_pg_get_double(database_, start_);
    require(days > -657435 && days < 2958466);
    return Date{days};
}

std::size_t JetFields::long_length() const {
    if ((word(0) & is_here) != 0) return static_cast<std::size_t>(length_ - MDB_MEMO_OVERHEAD);
    return word(0) & ~(is_here | is_in_one_row);
}

/// A long text, which lies in the record itself, in a row of its own, or in a chain of those.
std::string JetFields::long_value() const {
    const std::uint32_t first = word(0);
    if ((first & is_here) != 0)
        return {buffer() + start_ + MDB_MEMO_OVERHEAD, static_cast<std::size_t>(length_ - MDB_MEMO_OVERHEAD)};
    const std::size_t wanted = long_length();
    const std::size_t link = (first & is_in_one_row) != 0 ? 0 : 4;
    std::string bytes;
    std::uint32_t place = word(4);
    while (place != 0 && bytes.size() < wanted) {
        const std::string_view row = row_at(place);
        require(row.size() > link);
        bytes.append(row.substr(link));
        if (link == 0) break;
        std::uint32_t next = 0;
        std::memcpy(&next, row.data(), sizeof next);  // little-endian, as this machine
        place = next;
    }
    require(bytes.size() >= wanted);
    bytes.resize(wanted);
    return bytes;
}

std::string_view JetFields::row_at(std::uint32_t place) const {
    void* page = nullptr;
    int offset = 0;
    std::size_t size = 0;
    require(mdb_find_pg_row(database_, static_cast<int>(place), &page, &offset, &size) == 0);
    require(offset >= 0 && static_cast<std::size_t>(offset) + size <= MDB_PGSIZE);
    return {static_cast<const char*>(page) + offset, size};
}

Datum JetFields::money() const {
    return Money{static_cast<std::int64_t>((std::uint64_t{word(4)} << 32U) | word(0))};
}

void JetFields::require(bool is_sound) const {
    if (!is_sound) throw DatabaseError("a record of the table \"" + table_ + "\" is damaged");
}

std::uint32_t JetFields::word(int offset) const {
    return static_cast<std::uint32_t>(mdb_pg_get_int32(database_, start_ + offset));
}

std::string to_utf8(MdbHandle* database, std::string_view raw) {
    if (raw.empty()) return {};
    std::string utf8(raw.size() * 4 + 8, '\0');
    const int length = mdb_unicode2ascii(database, raw.data(), raw.size(), utf8.data(), utf8.size());
    utf8.resize(static_cast<std::size_t>(std::max(length, 0)));
    if (const std::size_t end = utf8.find('\0'); end != std::string::npos) utf8.resize(end);
    return utf8;
}

}  // namespace foliant::hosts::access
