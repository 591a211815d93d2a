#include "hosts/acrobat/glance/plain_file.h"

#include <algorithm>
#include <numeric>

#include "hosts/acrobat/glance/unpack.h"

namespace foliant::hosts::acrobat::glance {

namespace {

constexpr std::size_t most_tables = 64;    // which also ends what leads back to itself
constexpr int longest_chain = 8;           // of objects that it takes to read another one
constexpr std::size_t classic_entry = 20;  // characters
constexpr std::size_t end_of_file = 1024;  // where "startxref" is looked for
constexpr std::size_t widest_number = 8;   // bytes
constexpr std::size_t most_unpacked = std::size_t{128} << 20U;  // bytes of objects in streams

bool is_number(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// "0000000017 00000 n" and two characters that end a line.
bool is_classic_entry(std::string_view line) {
    const std::string_view end = line.substr(18);
    return is_number(line.substr(0, 10)) && line[10] == ' ' && is_number(line.substr(11, 5)) &&
           line[16] == ' ' && (line[17] == 'n' || line[17] == 'f') &&
           (end == " \n" || end == " \r" || end == "\r\n");
}

std::int64_t big_endian(std::string_view bytes) {
    std::uint64_t number = 0;
    for (const char byte : bytes)
        number = number << 8U | static_cast<unsigned char>(byte);
    require(number <= std::uint64_t{1} << 62U);
    return static_cast<std::int64_t>(number);
}

std::int64_t integer_of(const Value& value) {
    require(value.kind == Kind::integer);
    return value.number;
}

}  // namespace

PlainFile::PlainFile(std::string_view bytes) : bytes_(bytes) {
    require(bytes.starts_with("%PDF-"));
    for (std::int64_t at = last_table(); at != 0;) {
        require(tables_.size() < most_tables && at > 0 && static_cast<std::uint64_t>(at) < bytes.size());
        Cursor cursor(bytes, static_cast<std::size_t>(at));
        at = cursor.rest().starts_with("xref") ? read_classic_table(cursor) : read_table_stream(at);
    }
    require(entry(trailer_, "/Encrypt").kind == Kind::null);
}

std::int64_t PlainFile::last_table() const {
    const std::string_view end = bytes_.substr(bytes_.size() - std::min(bytes_.size(), end_of_file));
    const std::size_t word = end.rfind("startxref");
    require(word != std::string_view::npos);
    Cursor cursor(end, word);
    cursor.expect("startxref");
    return cursor.integer();
}

std::int64_t PlainFile::take_trailer(const Value& dictionary) {
    if (tables_.size() == 1) trailer_ = dictionary;
    integer_of(entry(dictionary, "/Size"));
    // Tables of both kinds for the same objects are of writers who were careful, and of others who were not.
    require(entry(dictionary, "/XRefStm").kind == Kind::null);
    const Value previous = entry(dictionary, "/Prev");
    if (previous.kind == Kind::null) return 0;
    require(integer_of(previous) > 0);
    return previous.number;
}

/// A table that says two things of an object is not plain.
void PlainFile::put_in_order(Table& table) {
    std::vector<Run>& runs = table.runs;
    std::erase_if(runs, [](const Run& run) { return run.count == 0; });
    std::sort(runs.begin(), runs.end(), [](const Run& a, const Run& b) { return a.first < b.first; });
    for (std::size_t i = 1; i < runs.size(); ++i)
        require(runs[i].first - runs[i - 1].first >= runs[i - 1].count);
}

std::int64_t PlainFile::read_classic_table(Cursor cursor) {
    cursor.expect("xref");
    Table table;
    for (cursor.skip_space(); !cursor.skip("trailer"); cursor.skip_space()) {
        Run run{.first = cursor.integer(), .count = cursor.integer()};
        cursor.skip_space();
        const auto lines = static_cast<std::size_t>(run.count);
        require(lines <= cursor.rest().size() / classic_entry);
        run.entries = cursor.rest().substr(0, lines * classic_entry);
        for (std::size_t i = 0; i < lines; ++i)
            require(is_classic_entry(run.entries.substr(i * classic_entry, classic_entry)));
        cursor = Cursor(bytes_, cursor.position() + run.entries.size());
        table.runs.push_back(run);
    }
    put_in_order(table);
    tables_.push_back(std::move(table));
    const Value dictionary = cursor.value();
    cursor.expect("startxref");
    return take_trailer(dictionary);
}

std::int64_t PlainFile::read_table_stream(std::int64_t offset) {
    Cursor cursor(bytes_, static_cast<std::size_t>(offset));
    const std::int64_t number = cursor.integer();
    const Found stream = object_at(offset, number, cursor.integer());
    table_objects_.push_back(number);
    require(entry(stream.value, "/Type").text == "/XRef");
    const Value length = entry(stream.value, "/Length");
    require(length.kind == Kind::integer);
    unpacked_.push_back(unpacked(stream.value, stream_data(stream, 0)));
    Table table{.is_stream = true};
    Items widths(entry(stream.value, "/W"));
    Value width;
    for (std::size_t& one : table.widths) {
        require(widths.next(width) && integer_of(width) <= static_cast<std::int64_t>(widest_number));
        one = static_cast<std::size_t>(width.number);
    }
    require(!widths.next(width));
    read_runs(table, stream.value, unpacked_.back());
    put_in_order(table);
    tables_.push_back(std::move(table));
    return take_trailer(stream.value);
}

void PlainFile::read_runs(Table& table, const Value& dictionary, std::string_view entries) {
    const std::size_t width =
        std::accumulate(std::begin(table.widths), std::end(table.widths), std::size_t{0});
    require(width > 0);
    const auto add = [&](std::int64_t first, std::int64_t count) {
        require(static_cast<std::uint64_t>(count) <= entries.size() / width);
        const std::size_t size = static_cast<std::size_t>(count) * width;
        table.runs.push_back({first, count, entries.substr(0, size)});
        entries.remove_prefix(size);
    };
    const Value index = entry(dictionary, "/Index");
    if (index.kind == Kind::null) {
        add(0, integer_of(entry(dictionary, "/Size")));
    } else {
        Items numbers(index);
        for (Value first, count; numbers.next(first);) {
            require(numbers.next(count));
            add(integer_of(first), integer_of(count));
        }
    }
    require(entries.empty());
    if (table.widths[0] == 0) return;
    for (const Run& run : table.runs)
        for (std::size_t at = 0; at < run.entries.size(); at += width)
            require(big_endian(run.entries.substr(at, table.widths[0])) <= 2);
}

Value PlainFile::resolved(const Value& value, int depth) {
    if (value.kind != Kind::reference) return value;
    require(depth < longest_chain);
    const Place place = place_of(value.number);
    require(place.generation == value.generation);
    if (place.is_packed) return packed_object(place.where, value.number, depth);
    Found object = object_at(place.where, value.number, value.generation);
    // What is no stream ends here.
    object.behind.expect("endobj");
    require(object.value.kind != Kind::reference);
    return object.value;
}

PlainFile::Place PlainFile::place_of(std::int64_t number) const {
    // A table bears a number like an object; an object of the same number is not to be told from it.
    require(std::find(table_objects_.begin(), table_objects_.end(), number) == table_objects_.end());
    for (const Table& table : tables_) {
        auto run = std::upper_bound(table.runs.begin(), table.runs.end(), number,
                                    [](std::int64_t wanted, const Run& one) { return wanted < one.first; });
        if (run == table.runs.begin()) continue;
        --run;
        if (number - run->first >= run->count) continue;
        const auto index = static_cast<std::size_t>(number - run->first);
        if (!table.is_stream) {
            Cursor line(run->entries.substr(index * classic_entry, classic_entry));
            const Place place{.where = line.integer(), .generation = line.integer()};
            line.expect("n");
            return place;
        }
        const auto& [kind, where, which] = table.widths;
        const std::string_view entry = run->entries.substr(index * (kind + where + which));
        const std::int64_t type = kind == 0 ? 1 : big_endian(entry.substr(0, kind));
        require(type == 1 || type == 2);
        const bool is_packed = type == 2;
        return {is_packed, big_endian(entry.substr(kind, where)),
                is_packed ? 0 : big_endian(entry.substr(kind + where, which))};
    }
    throw Doubt();
}

PlainFile::Found PlainFile::object_at(std::int64_t offset, std::int64_t number,
                                      std::int64_t generation) const {
    require(number > 0 && offset > 0 && static_cast<std::uint64_t>(offset) < bytes_.size());
    Cursor cursor(bytes_, static_cast<std::size_t>(offset));
    require(cursor.integer() == number && cursor.integer() == generation);
    cursor.expect("obj");
    const Value value = cursor.value();
    return {value, cursor};
}

std::string_view PlainFile::stream_data(const Found& stream, int depth) {
    Cursor cursor = stream.behind;
    cursor.expect("stream");
    require(cursor.skip("\r\n") || cursor.skip("\n"));
    const std::int64_t length = integer_of(resolved(entry(stream.value, "/Length"), depth + 1));
    require(static_cast<std::uint64_t>(length) <= cursor.rest().size());
    const std::string_view data = cursor.rest().substr(0, static_cast<std::size_t>(length));
    Cursor(bytes_, cursor.position() + data.size()).expect("endstream");
    return data;
}

const PlainFile::Container& PlainFile::container(std::int64_t stream, int depth) {
    if (const auto known = containers_.find(stream); known != containers_.end()) return known->second;
    const Place place = place_of(stream);
    require(!place.is_packed && place.generation == 0);
    const Found found = object_at(place.where, stream, 0);
    require(entry(found.value, "/Type").text == "/ObjStm");
    const std::int64_t objects = integer_of(entry(found.value, "/N"));
    const std::int64_t first = integer_of(entry(found.value, "/First"));
    Container container{.text = unpacked(found.value, stream_data(found, depth))};
    unpacked_bytes_ += container.text.size();
    require(unpacked_bytes_ <= most_unpacked);
    Cursor pairs(container.text);
    for (std::int64_t i = 0; i < objects; ++i) {
        const std::int64_t number = pairs.integer();
        const std::int64_t place_of_it = first + pairs.integer();
        require(static_cast<std::uint64_t>(place_of_it) <= container.text.size());
        require(container.places.emplace(number, static_cast<std::size_t>(place_of_it)).second);
    }
    return containers_.emplace(stream, std::move(container)).first->second;
}

Value PlainFile::packed_object(std::int64_t stream, std::int64_t number, int depth) {
    const Container& all = container(stream, depth);
    const auto place = all.places.find(number);
    require(place != all.places.end());
    const Value value = Cursor(all.text, place->second).value();
    require(value.kind != Kind::reference);
    return value;
}

Object PlainFile::object(const Value& reference) {
    require(reference.kind == Kind::reference);
    const Place place = place_of(reference.number);
    require(place.generation == reference.generation);
    if (place.is_packed) return {.value = packed_object(place.where, reference.number, 0)};
    Found found = object_at(place.where, reference.number, reference.generation);
    require(found.value.kind != Kind::reference);
    Object object{.value = found.value};
    found.behind.skip_space();
    object.is_stream = found.behind.rest().starts_with("stream");
    if (object.is_stream) {
        require(found.value.kind == Kind::dictionary);
        object.data = stream_data(found, 0);
        const auto end = static_cast<std::size_t>(object.data.data() - bytes_.data()) + object.data.size();
        found.behind = Cursor(bytes_, end);
        found.behind.expect("endstream");
    }
    found.behind.expect("endobj");
    return object;
}

std::string PlainFile::unpacked_stream(const Value& reference) {
    const Object stream = object(reference);
    require(stream.is_stream);
    return unpacked(stream.value, stream.data);
}

}  // namespace foliant::hosts::acrobat::glance
