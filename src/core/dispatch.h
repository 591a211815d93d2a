#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "automation/object.h"
#include "automation/value.h"
#include "core/build_pdf.h"
#include "core/member.h"

namespace foliant::core {

/// The DISPID of a member by its name, in any case; nothing when there is none of that name.
std::optional<std::int32_t> find_dispid(std::string_view name) noexcept;

/// The member with that DISPID that is reached in that way, nullptr when there is none. A method is reached
/// by `call` and, as late-bound clients that use a result do, by `get`; `TempFilePath` by `get` (or `call`)
/// and by `set`.
const Member* find_member(std::int32_t dispid, automation::Access access) noexcept;

/// The position of a parameter by its name, in any case; nothing when there is none.
std::optional<std::size_t> find_parameter(const Member& member, std::string_view name) noexcept;

/// Calls a member with positional and named arguments in any order. Values of by-reference parameters are
/// written back into `arguments`, also when the member fails.
///
/// Raises 438 for an unknown member, 448 for an unknown argument name, 449 for a required argument that is
/// missing, 450 for too many arguments or one given twice, 6, 13 or 94 for a value that the parameter cannot
/// take, and what the member raises; source "Foliant" in every case.
automation::Value invoke(BuildPDF& object, std::int32_t dispid, automation::Access access,
                         automation::Arguments& arguments);

/// The same by name.
automation::Value invoke(BuildPDF& object, std::string_view name, automation::Access access,
                         automation::Arguments& arguments);

}  // namespace foliant::core
