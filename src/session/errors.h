#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "automation/error.h"

namespace foliant::session {

/// The source of every error that reaches a caller.
inline constexpr std::string_view application_title = "Foliant";

/// The number of every error that the component makes itself (hexadecimal 80004100).
inline constexpr std::int32_t component_error_number = -2147467008;

/// An error of the component's own; only the description tells them apart.
automation::Error component_error(std::string description);

/// "File " + path + " does not exist."
automation::Error missing_file_error(std::string_view path);

/// Runs one call of a clean-up; what it raises is passed over, so that the rest of the clean-up goes on and
/// the first error stays the one that the caller sees.
template <class Call>
void ignoring_errors(Call&& call) noexcept {
    try {
        std::forward<Call>(call)();
    } catch (...) {  // NOLINT(bugprone-empty-catch): that is the point
    }
}

/// What the error trap raises for what it caught: the same number and description, the application's title as
/// source.
automation::Error raised_again(const automation::Error& caught);

/// What it raises where a member says one sentence whatever failed: the component's error with that sentence.
/// What was caught is its cause.
automation::Error raised_as(std::string description, const automation::Error& caught);

/// Runs the steps of a member with its error trap armed. When a step fails, `clean_up` lets go of what the
/// member holds, and the failure is raised again.
template <class Steps, class CleanUp>
void with_error_trap(Steps&& steps, CleanUp&& clean_up) {
    try {
        std::forward<Steps>(steps)();
    } catch (...) {
        const automation::Error caught = automation::current_error();
        ignoring_errors(std::forward<CleanUp>(clean_up));
        throw raised_again(caught);
    }
}

/// The same for members that say `description` whatever failed.
template <class Steps, class CleanUp>
void with_error_trap_saying(const std::string& description, Steps&& steps, CleanUp&& clean_up) {
    try {
        std::forward<Steps>(steps)();
    } catch (...) {
        const automation::Error caught = automation::current_error();
        ignoring_errors(std::forward<CleanUp>(clean_up));
        throw raised_as(description, caught);
    }
}

}  // namespace foliant::session
