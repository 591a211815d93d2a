#pragma once

#include <array>
#include <oaidl.h>

#include "automation/value.h"
#include "core/build_pdf.h"
#include "core/member.h"

namespace foliant::com {

/// The caller's variants, one place per parameter in the table's order; nullptr where the caller gave none.
/// They stay the caller's.
using GivenArguments = std::array<VARIANT*, core::most_parameters>;

/// Calls a member with the caller's variants, converted to the types of the parameters as automation does it.
/// What the member changed in a by-reference parameter is written into the caller's variable, also when the
/// member fails; variables whose value did not change keep their type.
///
/// Raises what core::invoke raises; the text for a value that a parameter cannot take names the parameter.
automation::Value call_member(core::BuildPDF& object, const core::Member& member, automation::Access access,
                              const GivenArguments& given);

/// Sorts the arguments of a late-bound call by parameter. Raises 450 for too many or for one given twice, 448
/// for a name that is not one of the member's.
GivenArguments sort_arguments(const core::Member& member, const DISPPARAMS& sent);

}  // namespace foliant::com
