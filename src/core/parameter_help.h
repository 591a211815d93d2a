#pragma once

#include <string_view>

#include "core/member.h"

namespace foliant::core {

/// What a parameter means to the one who calls: a file that has to be there, one that is made, a secret, a
/// list, a list of files that are read; a list, or one of true and false, with an element for each of the
/// member's first list.
enum class ParameterRole {
    plain,
    input_file,
    output_file,
    folder,
    password,
    list,
    file_list,
    parallel_list,
    parallel_flags
};

constexpr bool is_parallel_list(ParameterRole role) noexcept {
    return role == ParameterRole::parallel_list || role == ParameterRole::parallel_flags;
}

constexpr bool is_list(ParameterRole role) noexcept {
    return role == ParameterRole::list || role == ParameterRole::file_list || is_parallel_list(role);
}

/// Parameters of one name mean the same in every member, but for the files, which one member reads and
/// another makes.
ParameterRole parameter_role(const Member& member, const Parameter& parameter) noexcept;

/// One sentence without a full stop, for help texts.
std::string_view parameter_help(const Member& member, const Parameter& parameter) noexcept;

}  // namespace foliant::core
