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
constexpr std::size_t types_segment = 0;
constexpr std::size_t ids_segment = 5;

struct TypeRecord {
    static constexpr std::size_t functions_at = 0x04;
    static constexpr std::size_t function_count_at = 0x18;
    static constexpr std::size_t id_at = 0x2C;
};
struct FunctionRecord {
    static constexpr std::size_t slot_at = 0x0C;
    static constexpr std::size_t parameter_count_at = 0x14;
    static constexpr std::size_t parameter_size = 12;
};

std::size_t segment(const File& file, std::size_t number) {
    const std::size_t directory = type_offsets_at + 4 * file.offset_at(type_count_at);
    return file.offset_at(directory + number * directory_entry_size);
}

/// Where the record of a type is, by the type's identifier.
std::size_t find_type(const File& file, const GUID& id) {
    const std::size_t count = file.offset_at(type_count_at);
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t record = segment(file, types_segment) + file.offset_at(type_offsets_at + 4 * i);
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
    std::size_t record = file.offset_at(type + TypeRecord::functions_at) + 4;
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
    forget_the_time(library);
}

}  // namespace foliant::com::typelib
