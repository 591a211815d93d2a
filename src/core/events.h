#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "core/value_type.h"

namespace foliant::core {

/// One event of the component. All parameters go by reference; what a client changes stays with that client.
struct Event {
    std::int32_t dispid = 0;
    std::string_view name;
    std::array<std::string_view, 2> parameters;  ///< the second is "" for an event with one
    ValueType parameter_type = ValueType::string;
    std::string_view help;
};

inline constexpr std::array events{
    Event{1,
          "JobStart",
          {"strInputPostScript", "strOutputPDF"},
          ValueType::string,
          "Distiller begins to convert a PostScript file."},
    Event{2,
          "JobDone",
          {"strInputPostScript", "strOutputPDF"},
          ValueType::string,
          "Distiller has made the PDF."},
    Event{3,
          "JobFail",
          {"strInputPostScript", "strOutputPDF"},
          ValueType::string,
          "Distiller could not make the PDF."},
    Event{4, "LogMessage", {"strMessage", ""}, ValueType::string, "Distiller wrote a line of its log."},
    Event{5,
          "PercentDone",
          {"nPercentDone", ""},
          ValueType::long_number,
          "How much of the PostScript file Distiller has read, in percent."},
    Event{6,
          "PageNumber",
          {"nPageNumber", ""},
          ValueType::long_number,
          "The page that Distiller is working on."},
};

}  // namespace foliant::core
