#pragma once

#include <cstdint>
#include <list>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/acrobat/glance/syntax.h"

namespace foliant::hosts::acrobat::glance {

/// An object of a file as it stands there. What a stream holds stays packed.
struct Object {
    Value value;
    bool is_stream = false;
    std::string_view data{};
};

/// A PDF whose tables of objects are whole. All of it throws Doubt for what is not plain.
class PlainFile {
  public:
    /// Reads its tables. `bytes` stay where they are.
    explicit PlainFile(std::string_view bytes);
    PlainFile(const PlainFile&) = delete;
    PlainFile& operator=(const PlainFile&) = delete;

    /// The newest one.
    const Value& trailer() const noexcept { return trailer_; }

    /// What a value is: that of the object it refers to, or itself.
    Value resolved(const Value& value) { return resolved(value, 0); }

    /// The object that a reference leads to, which may be a stream.
    Object object(const Value& reference);

    /// What the stream holds that a reference leads to, unpacked.
    std::string unpacked_stream(const Value& reference);

  private:
    /// Objects that follow each other in a table, with an entry of `width` bytes for each.
    struct Run {
        std::int64_t first = 0;
        std::int64_t count = 0;
        std::string_view entries{};
    };
    /// One table. In a classic one an entry is a line of 20 characters; in a stream three numbers of `widths` bytes.
    struct Table {
        bool is_stream = false;
        std::size_t widths[3] = {0, 0, 0};
        std::vector<Run> runs{};
    };
    /// Where an object is: at an offset of the file, or in a stream of objects.
    struct Place {
        bool is_packed = false;
        std::int64_t where = 0;  ///< the offset, or the number of the stream
        std::int64_t generation = 0;
    };
    /// A stream of objects: its text, and by their numbers where in it they begin.
    struct Container {
        std::string text;
        std::map<std::int64_t, std::size_t> places{};
    };
    /// An object of the file, and what stands behind it.
    struct Found {
        Value value;
        Cursor behind;
    };

    std::int64_t last_table() const;
    /// Both return the offset of the table before that one; 0 for none.
    std::int64_t read_classic_table(Cursor cursor);
    std::int64_t read_table_stream(std::int64_t offset);
    void read_runs(Table& table, const Value& dictionary, std::string_view entries);
    static void put_in_order(Table& table);
    std::int64_t take_trailer(const Value& dictionary);

    Value resolved(const Value& value, int depth);
    Place place_of(std::int64_t number) const;
    Found object_at(std::int64_t offset, std::int64_t number, std::int64_t generation) const;
    Value packed_object(std::int64_t stream, std::int64_t number, int depth);
    const Container& container(std::int64_t stream, int depth);
    std::string_view stream_data(const Found& stream, int depth);

    std::string_view bytes_;
    Value trailer_;
    std::vector<Table> tables_;                  ///< the newest first
    std::vector<std::int64_t> table_objects_{};  ///< the numbers of those that are streams
    std::list<std::string> unpacked_{};          ///< tables, which entries lie in
    std::map<std::int64_t, Container> containers_{};
    std::size_t unpacked_bytes_ = 0;  ///< of the containers
};

}  // namespace foliant::hosts::acrobat::glance
