#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "core/conversion.h"

namespace foliant::core {

/// One event of the component. All parameters go by reference; what a client changes stays with that client.
struct Event {
    std::int32_t dispid = 0;
    std::string_view name;
    std::array<std::string_view, 2> parameters;  ///< the second is "" for an event with one
    ValueType parameter_type = ValueType::string;
};

inline constexpr std::array events{
    Event{1, "JobStart", {"strInputPostScript", "strOutputPDF"}, ValueType::string},
    Event{2, "JobDone", {"strInputPostScript", "strOutputPDF"}, ValueType::string},
    Event{3, "JobFail", {"strInputPostScript", "strOutputPDF"}, ValueType::string},
    Event{4, "LogMessage", {"strMessage", ""}, ValueType::string},
    Event{5, "PercentDone", {"nPercentDone", ""}, ValueType::long_number},
    Event{6, "PageNumber", {"nPageNumber", ""}, ValueType::long_number},
};

}  // namespace foliant::core
