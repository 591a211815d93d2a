#include <algorithm>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <vector>

#include "com/identifiers.h"
#include "com/typelib/text.h"
#include "core/members.h"

namespace foliant::com::typelib {
namespace {

/// A type library file as 16- and 32-bit numbers at offsets. Every access is checked.
class File {
  public:
    explicit File(std::string& bytes) : bytes_(bytes) {}

    void insert(std::size_t offset, std::string_view bytes) {
        if (offset > bytes_.size()) throw std::runtime_error("the type library ends too early");
        bytes_.insert(offset, bytes);
    }

    template <class Number>
    Number read(std::size_t offset) const {
        Number number{};
        std::memcpy(&number, place(offset, sizeof number), sizeof number);
        return number;
    }
    template <class Number>
    void write(std::size_t offset, Number number) {
        std::memcpy(place(offset, sizeof number), &number, sizeof number);
    }
    std::size_t offset_at(std::size_t offset) const { return read<std::uint32_t>(offset); }

  private:
    char* place(std::size_t offset, std::size_t size) const {
        if (offset + size > bytes_.size()) throw std::runtime_error("the type library ends too early");
        return bytes_.data() + offset;
    }

    std::string& bytes_;
};

// The layout of the file: a header, the offsets of the types' records, and a directory of segments of 16
// bytes an entry. A type's record points to the records of its functions.
constexpr std::size_t type_count_at = 0x20;
constexpr std::size_t type_offsets_at = 0x54;
constexpr std::size_t directory_entry_size = 16;
constexpr std::size_t directory_entry_count = 15;
constexpr std::size_t segment_size_at = 4;  // in its entry of the directory
constexpr std::size_t types_segment = 0;
constexpr std::size_t ids_segment = 5;
constexpr std::size_t texts_segment = 8;

struct TypeRecord {
    static constexpr std::size_t members_at = 0x04;
    static constexpr std::size_t function_count_at = 0x18;
    static constexpr std::size_t value_count_at = 0x1A;
    static constexpr std::size_t id_at = 0x2C;
};
struct FunctionRecord {
    static constexpr std::size_t slot_at = 0x0C;
    static constexpr std::size_t parameter_count_at = 0x14;
    static constexpr std::size_t parameter_size = 12;
};
struct ValueRecord {
    static constexpr std::size_t size = 0x14;  // as widl writes it, without the number and the text of a help
    static constexpr std::size_t size_with_help = 0x1C;
};

std::size_t directory_entry(const File& file, std::size_t number) {
    return type_offsets_at + 4 * file.offset_at(type_count_at) + number * directory_entry_size;
}

std::size_t segment(const File& file, std::size_t number) {
    return file.offset_at(directory_entry(file, number));
}

std::size_t type_record(const File& file, std::size_t index) {
    return segment(file, types_segment) + file.offset_at(type_offsets_at + 4 * index);
}

/// Where the record of a type is, by the type's identifier.
std::size_t find_type(const File& file, const GUID& id) {
    const std::size_t count = file.offset_at(type_count_at);
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t record = type_record(file, i);
        const auto id_offset = file.read<std::int32_t>(record + TypeRecord::id_at);
        if (id_offset < 0) continue;
        const GUID found = file.read<GUID>(segment(file, ids_segment) + static_cast<std::size_t>(id_offset));
        if (std::memcmp(&found, &id, sizeof id) == 0) return record;
    }
    throw std::runtime_error("the type library has no type {" + text_of(id) + "}");
}

/// Where the record of each function is, in the library's own order.
std::vector<std::size_t> function_records(const File& file, std::size_t type) {
    const std::size_t count = file.read<std::uint16_t>(type + TypeRecord::function_count_at);
    std::size_t record = file.offset_at(type + TypeRecord::members_at) + 4;
    std::vector<std::size_t> records;
    for (std::size_t i = 0; i < count; ++i) {
        records.push_back(record);
        record += file.read<std::uint16_t>(record);
    }
    return records;
}

/// Where the record of a function's parameter is: at its end.
std::size_t parameter_record(const File& file, std::size_t function, std::size_t index) {
    const std::size_t count = file.read<std::uint16_t>(function + FunctionRecord::parameter_count_at);
    const std::size_t size = file.read<std::uint16_t>(function);
    return function + size - (count - index) * FunctionRecord::parameter_size;
}

/// The type "pointer to text", as the parameters have it that widl does write so.
std::int32_t type_of_text_reference(const File& file, const std::vector<std::size_t>& functions) {
    for (std::size_t i = 0; i < functions.size(); ++i) {
        const core::Member& member = core::members[core::library_order[i]];
        for (std::size_t j = 0; j < member.parameter_count; ++j) {
            const core::Parameter& parameter = member.parameters()[j];
            if (parameter.type == core::ValueType::string && parameter.by_reference && !parameter.optional) {
                return file.read<std::int32_t>(parameter_record(file, functions[i], j));
            }
        }
    }
    throw std::runtime_error("no member has a text that goes by reference");
}

void add(File& file, std::size_t offset, std::size_t addend) {
    file.write(offset, static_cast<std::uint32_t>(file.offset_at(offset) + addend));
}

/// Inserts bytes somewhere after the directory, and moves what points behind them.
void insert(File& file, std::size_t place, std::string_view bytes) {
    std::vector<std::size_t> pointers;
    for (std::size_t i = 0; i < directory_entry_count; ++i)
        pointers.push_back(directory_entry(file, i));
    for (std::size_t i = 0; i < file.offset_at(type_count_at); ++i)
        pointers.push_back(type_record(file, i) + TypeRecord::members_at);
    for (const std::size_t pointer : pointers) {
        constexpr std::size_t nowhere = 0xFFFFFFFF;
        const std::size_t target = file.offset_at(pointer);
        if (target >= place && target != nowhere) add(file, pointer, bytes.size());
    }
    file.insert(place, bytes);
}

std::string bytes_of(const std::vector<std::uint32_t>& numbers) {
    return {reinterpret_cast<const char*>(numbers.data()), numbers.size() * sizeof(std::uint32_t)};
}

/// Adds a text to the library; returns where, within the segment of the texts.
std::uint32_t add_text(File& file, std::string_view text) {
    std::string entry(2, '\0');
    const auto length = static_cast<std::uint16_t>(text.size());
    std::memcpy(entry.data(), &length, sizeof length);
    entry += text;
    constexpr std::size_t alignment = 4;
    while (entry.size() % alignment != 0)
        entry += 'W';  // as widl fills it
    const std::size_t size_at = directory_entry(file, texts_segment) + segment_size_at;
    const auto place = file.read<std::uint32_t>(size_at);
    insert(file, segment(file, texts_segment) + place, entry);
    add(file, size_at, entry.size());
    return place;
}

/// Gives the values of an enumeration their help. The members of a type are its records, one after the other
/// behind the size of all, then the number and the name of each, then where each record begins.
void add_help(File& file, const Enumeration& enumeration) {
    std::vector<std::uint32_t> texts;
    for (const EnumerationEntry& entry : enumeration.entries)
        texts.push_back(add_text(file, entry.help));

    const std::size_t type = find_type(file, enumeration.id);
    const std::size_t count = file.read<std::uint16_t>(type + TypeRecord::value_count_at);
    const std::size_t size_at = file.offset_at(type + TypeRecord::members_at);
    if (count != texts.size() || file.offset_at(size_at) != count * ValueRecord::size)
        throw std::runtime_error("the values of " + std::string(enumeration.name) + " have another layout");

    constexpr std::size_t growth = ValueRecord::size_with_help - ValueRecord::size;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t record = size_at + 4 + i * ValueRecord::size_with_help;
        file.write(record, static_cast<std::uint16_t>(ValueRecord::size_with_help));
        insert(file, record + ValueRecord::size, bytes_of({0, texts[i]}));
    }
    add(file, size_at, count * growth);
    const std::size_t numbers = size_at + 4 + count * ValueRecord::size_with_help;
    const std::size_t beginnings = numbers + 2 * count * sizeof(std::uint32_t);
    for (std::size_t i = 0; i < count; ++i)
        add(file, beginnings + i * sizeof(std::uint32_t), i * growth);
}

/// widl notes the time of the run, by which no two libraries would be the same.
void forget_the_time(std::string& library) {
    const std::string_view note = "Created by WIDL version";
    const auto begin = library.find(note);
    if (begin == std::string::npos) return;
    const auto end = std::min(library.find('\n', begin), library.size());
    std::fill(library.begin() + static_cast<std::ptrdiff_t>(library.find(" at ", begin)),
              library.begin() + static_cast<std::ptrdiff_t>(end), ' ');
}

}  // namespace

void arrange(std::string& library, int pointer_size) {
    File file(library);
    const auto functions = function_records(file, find_type(file, interface_id));
    if (functions.size() != core::members.size()) {
        throw std::runtime_error("the interface has " + std::to_string(functions.size()) + " functions");
    }
    const std::int32_t text_reference = type_of_text_reference(file, functions);
    constexpr int slots_of_dispatch = 7;
    for (std::size_t i = 0; i < functions.size(); ++i) {
        const core::Member& member = core::members[core::library_order[i]];
        const int slot = (slots_of_dispatch + member.slot) * pointer_size;
        file.write(functions[i] + FunctionRecord::slot_at, static_cast<std::int16_t>(slot));
        for (std::size_t j = 0; j < member.parameter_count; ++j) {
            const core::Parameter& parameter = member.parameters()[j];
            if (parameter.by_reference && std::holds_alternative<std::string_view>(parameter.default_value)) {
                file.write(parameter_record(file, functions[i], j), text_reference);
            }
        }
    }
    for (const Enumeration& enumeration : enumerations())
        add_help(file, enumeration);
    forget_the_time(library);
}

}  // namespace foliant::com::typelib
