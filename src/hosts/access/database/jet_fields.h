#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "hosts/access/database/mdb.h"
#include "hosts/access/sql/datum.h"

namespace foliant::hosts::access {

/// What becomes of fields that are bytes without a meaning: opaque, or those bytes as a text.
enum class Binary { opaque, bytes };

/// A column, and how its fields are kept.
struct Stored {
    const MdbColumn* column;
    int type;                    ///< of what its fields hold
    bool is_calculated = false;  ///< from others; they are kept behind a head then
};

/// Reads the fields of the record that a table stands on. What cannot be read raises DatabaseError that names the table.
class JetFields {
  public:
    JetFields(MdbHandle* database, const std::string& table, Binary binary)
        : database_(database), table_(table), binary_(binary) {}

    Datum read(const Stored& field);

  private:
    Datum calculated(const Stored& field);
    Datum calculated_text() const;
    Datum decimal() const;
    Datum value(const Stored& field) const;
    Datum date() const;
    Datum money() const;
    std::size_t long_length() const;
    std::string long_value() const;
    std::string_view row_at(std::uint32_t place) const;
    void require(bool is_sound) const;
    const char* buffer() const { return reinterpret_cast<const char*>(database_->pg_buf); }
    std::uint32_t word(int offset) const;

    MdbHandle* database_;
    const std::string& table_;
    Binary binary_;
    int start_ = 0;
    int length_ = 0;
};

/// A text of the database's as UTF-8.
std::string to_utf8(MdbHandle* database, std::string_view raw);

}  // namespace foliant::hosts::access
