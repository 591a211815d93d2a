#pragma once

#include <optional>
#include <string>
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

/// The files that the member was asked to read, in its order: single ones and those in lists. Blank optional
/// ones are left out.
std::vector<NamedFile> inputs_of(const core::Member& member, const automation::Arguments& arguments);

/// The secrets among the arguments that are not blank.
std::vector<std::string> passwords_of(const core::Member& member, const automation::Arguments& arguments);

/// A line in which every quoted text that is one of the passwords shows as "***".
std::string without_passwords(std::string line, const std::vector<std::string>& passwords);

}  // namespace foliant::cli
