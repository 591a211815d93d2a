#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/value.h"
#include "core/member.h"

namespace foliant::cli {

/// A file that a call names, and the parameter that names it.
struct NamedFile {
    const core::Parameter* parameter = nullptr;
    std::string path;
};

/// The file that the member was asked to make; nothing when it makes none or was given no name for it.
std::optional<NamedFile> output_of(const core::Member& member, const automation::Arguments& arguments);

/// The file that the member was asked to change where it is; nothing when it changes none.
std::optional<NamedFile> changed_in_place(const core::Member& member, const automation::Arguments& arguments);

/// The files of a folder that the member was asked to take.
struct NamedFolder {
    std::string path;
    std::string pattern;
};

/// Nothing when the member takes none, or was given no name for it.
std::optional<NamedFolder> folder_of_inputs(const automation::Arguments& arguments);

/// What was given for a parameter, by its name in any case; nothing when it was left out.
std::optional<automation::Value> argument_of(const automation::Arguments& arguments,
                                             std::string_view parameter);

/// The same as a text; "" when it was left out.
std::string text_of(const automation::Arguments& arguments, std::string_view parameter);

/// The files that the member was asked to read, in its order: single ones and those in lists. Blank optional
/// ones are left out.
std::vector<NamedFile> inputs_of(const core::Member& member, const automation::Arguments& arguments);

}  // namespace foliant::cli
