#pragma once

#include <array>
#include <string_view>

namespace foliant::core {

/// What a member works on, in the order in which help and lists show the families. The facade's definitions
/// of a family stand in core/members/, in a file of its enumerator's name, and its tests in a folder of that
/// name.
enum class Family {
    word,
    excel,
    powerpoint,
    text,
    drawings,
    reports,
    any_document,
    web,
    postscript,
    pdf,
    transfer,
    printer,
    settings,
};

/// What a family is called in front of a reader.
struct FamilyHeading {
    Family family;
    std::string_view heading;
};

/// Every family, in order.
inline constexpr std::array families{
    FamilyHeading{Family::word, "Word documents"},
    FamilyHeading{Family::excel, "Excel workbooks"},
    FamilyHeading{Family::powerpoint, "PowerPoint presentations"},
    FamilyHeading{Family::text, "Text files"},
    FamilyHeading{Family::drawings, "Visio and AutoCAD drawings"},
    FamilyHeading{Family::reports, "Access and Crystal reports"},
    FamilyHeading{Family::any_document, "Documents of any kind"},
    FamilyHeading{Family::web, "Web pages"},
    FamilyHeading{Family::postscript, "PostScript files"},
    FamilyHeading{Family::pdf, "PDF files"},
    FamilyHeading{Family::transfer, "File transfer"},
    FamilyHeading{Family::printer, "Printers"},
    FamilyHeading{Family::settings, "Settings"},
};

}  // namespace foliant::core
