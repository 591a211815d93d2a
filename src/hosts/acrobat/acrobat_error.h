#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "automation/error.h"

namespace foliant::hosts::acrobat {

/// The program that this stands in for, as the source of its errors.
inline constexpr std::string_view application_name = "Adobe Acrobat";

/// What Acrobat raises where no run-time error says more: E_FAIL.
inline constexpr auto unspecified_failure = static_cast<std::int32_t>(0x80004005U);

/// A failure of Acrobat's; `description` says what failed, on which file, why, and what to do.
inline automation::Error acrobat_error(automation::RuntimeError number, std::string description) {
    return {static_cast<std::int32_t>(number), std::string(application_name), std::move(description)};
}

/// The same for a document that cannot be had or used.
inline automation::Error document_error(std::string description) {
    return {unspecified_failure, std::string(application_name), std::move(description)};
}

}  // namespace foliant::hosts::acrobat
