#pragma once

#include <cstdint>
#include <guiddef.h>
#include <span>
#include <string>
#include <string_view>

#include "core/member.h"
#include "core/value_type.h"

/// The faces of the member table that Windows clients see: type library source and C++ header.
namespace foliant::com::typelib {

/// The type's name in the interface definition language, which C++ on Windows shares.
std::string_view type_name(core::ValueType type) noexcept;

/// 7D0597EB-9FF3-4D00-8957-BAEA326BC0BF
std::string text_of(const GUID& id);

/// `number` as 0x60030000.
std::string hexadecimal(std::int32_t number);

/// One name and number of an enumeration.
struct EnumerationEntry {
    std::string_view name;
    std::int32_t value;
    std::string_view help;
};
struct Enumeration {
    std::string_view name;
    const GUID& id;
    std::string_view help;
    std::span<const EnumerationEntry> entries;
};
std::span<const Enumeration> enumerations() noexcept;

/// What a member does and what each of its parameters means. A type library has no place for help on single
/// parameters, so they follow in the help of their member.
std::string help_text(const core::Member& member);

/// The source that widl compiles. Three things that widl does not know are added to its result by `arrange`:
/// slots in another order than the library's own list, defaults of texts that go by reference, and help on
/// the values of enumerations.
std::string idl();

/// A header for C++ clients that call by slot.
std::string cpp_header();

/// Corrects a type library that widl has made of `idl()`, in place. `pointer_size` is 4 or 8. Throws
/// std::runtime_error when the library is not what `idl()` describes.
void arrange(std::string& library, int pointer_size);

}  // namespace foliant::com::typelib
