#pragma once

#include <algorithm>
#include <iterator>
#include <ole2.h>
#include <string_view>

#include "platform/win32/class_identifier.h"
#include "registered/classes.h"

namespace foliant::tests::servers {

using platform::win32::class_identifier;

/// A class that can be created.
struct Class {
    CLSID id;
    const wchar_t* prog_id;  ///< null when it is created by its identifier only
    std::string_view object;
};

inline constexpr Class classes[]{
    {{0x000209FF, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}},
     L"Word.Application",
     "Word.Application"},
    {{0x00024500, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}},
     L"Excel.Application",
     "Excel.Application"},
    {class_identifier(registered::event_bound_distiller), nullptr, "Distiller"},
    {class_identifier(registered::security_capable_distiller), nullptr, "SecureDistiller"},
    {{0x85DE1C45, 0x2C66, 0x101B, {0xB0, 0x2E, 0x04, 0x02, 0x1C, 0x00, 0x94, 0x02}},
     L"AcroExch.App",
     "AcroExch.App"},
    {{0xFF76CB60, 0x2E68, 0x101B, {0xB0, 0x2E, 0x04, 0x02, 0x1C, 0x00, 0x94, 0x02}},
     L"AcroExch.AVDoc",
     "AcroExch.AVDoc"},
    {{0x72498821, 0x3203, 0x101B, {0xB0, 0x2E, 0x04, 0x02, 0x1C, 0x00, 0x94, 0x02}},
     L"AcroExch.PDDoc",
     "AcroExch.PDDoc"},
    {{0x6D12C400, 0x4E34, 0x101B, {0x9C, 0xA8, 0x92, 0x40, 0xCE, 0x27, 0x38, 0xAE}},
     L"AcroExch.Rect",
     "AcroExch.Rect"},
    {{0x2EAF0840, 0x690A, 0x101B, {0x9C, 0xA8, 0x92, 0x40, 0xCE, 0x27, 0x38, 0xAE}},
     L"AcroExch.PDBookmark",
     "AcroExch.PDBookmark"},
};

constexpr const Class& class_of(std::string_view object) {
    return *std::find_if(std::begin(classes), std::end(classes),
                         [&](const Class& recorded) { return recorded.object == object; });
}

/// A member of a class, and what it gives back.
struct Member {
    std::string_view object;
    std::string_view name;  ///< matched as it is spelled
    /// Another class, a text in quotation marks, "1" for that 16-bit number, or "" for nothing.
    std::string_view result;
};

inline constexpr Member members[]{
    {"Word.Application", "Documents", "Word.Documents"},
    {"Word.Application", "DisplayAlerts", ""},
    {"Word.Application", "ActivePrinter", "\"Office printer\""},
    {"Word.Application", "Quit", ""},
    {"Word.Documents", "Open", "Word.Document"},
    {"Word.Document", "PageSetup", "Word.PageSetup"},
    {"Word.Document", "Sections", "Word.Section"},
    {"Word.Document", "PrintOut", ""},
    {"Word.Document", "Close", ""},
    {"Word.PageSetup", "Orientation", ""},
    {"Word.Section", "Footers", "Word.Footer"},
    {"Word.Section", "Headers", "Word.Header"},
    {"Word.Footer", "PageNumbers", "Word.PageNumbers"},
    {"Word.Header", "PageNumbers", "Word.PageNumbers"},
    {"Word.PageNumbers", "Add", ""},
    {"Excel.Application", "Workbooks", "Excel.Workbooks"},
    {"Excel.Application", "DisplayAlerts", ""},
    {"Excel.Application", "InchesToPoints", "1"},
    {"Excel.Application", "Quit", ""},
    {"Excel.Workbooks", "Open", "Excel.Workbook"},
    {"Excel.Workbook", "Worksheets", "Excel.Worksheet"},
    {"Excel.Workbook", "Close", ""},
    {"Excel.Worksheet", "PageSetup", "Excel.PageSetup"},
    {"Excel.Worksheet", "Range", "Excel.Range"},
    {"Excel.PageSetup", "PrintGridlines", ""},
    {"Excel.PageSetup", "Orientation", ""},
    {"Excel.PageSetup", "RightHeader", ""},
    {"Excel.PageSetup", "CenterFooter", ""},
    {"Excel.PageSetup", "TopMargin", ""},
    {"Excel.PageSetup", "FirstPageNumber", ""},
    {"Excel.Range", "PrintOut", ""},
    {"AcroExch.App", "Exit", "1"},
    {"AcroExch.App", "GetActiveDoc", "AcroExch.AVDoc"},
    {"AcroExch.App", "MenuItemExecute", "1"},
    {"AcroExch.App", "Show", "1"},
    {"AcroExch.AVDoc", "Open", "1"},
    {"AcroExch.AVDoc", "GetPDDoc", "AcroExch.PDDoc"},
    {"AcroExch.AVDoc", "Close", "1"},
    {"AcroExch.AVDoc", "FindText", "1"},
    {"AcroExch.AVDoc", "IsValid", "1"},
    {"AcroExch.AVDoc", "PrintPages", "1"},
    {"AcroExch.AVDoc", "PrintPagesSilent", "1"},
    {"AcroExch.PDDoc", "AcquirePage", "AcroExch.PDPage"},
    {"AcroExch.PDDoc", "Close", "1"},
    {"AcroExch.PDDoc", "Create", "1"},
    {"AcroExch.PDDoc", "CreateTextSelect", "AcroExch.PDTextSelect"},
    {"AcroExch.PDDoc", "GetNumPages", "1"},
    {"AcroExch.PDDoc", "InsertPages", "1"},
    {"AcroExch.PDDoc", "Open", "1"},
    {"AcroExch.PDDoc", "OpenAVDoc", "AcroExch.AVDoc"},
    {"AcroExch.PDDoc", "Save", "1"},
    {"AcroExch.PDDoc", "SetFlags", "1"},
    {"AcroExch.PDDoc", "SetInfo", "1"},
    {"AcroExch.PDPage", "GetSize", "AcroExch.Point"},
    {"AcroExch.Point", "x", "1"},
    {"AcroExch.Point", "y", "1"},
    {"AcroExch.PDTextSelect", "GetNumText", "1"},
    {"AcroExch.PDTextSelect", "GetText", "\"words\""},
    {"AcroExch.Rect", "Left", ""},
    {"AcroExch.Rect", "Right", ""},
    {"AcroExch.Rect", "bottom", ""},
    {"AcroExch.Rect", "Top", ""},
    {"AcroExch.PDBookmark", "GetByTitle", "1"},
    {"AcroExch.PDBookmark", "Perform", "1"},
    {"AcroExch.PDBookmark", "SetTitle", "1"},
    {"Distiller", "bShowWindow", ""},
    {"Distiller", "bSpoolJobs", ""},
    {"Distiller", "FileToPDF", "1"},
    {"SecureDistiller", "bShowWindow", ""},
    {"SecureDistiller", "bSpoolJobs", ""},
    {"SecureDistiller", "FileToPDF2", "1"},
};

/// Objects that a member makes anew each time. Their beginning and end are recorded, as a host's are.
inline constexpr std::string_view made_objects[]{"Word.Document", "Excel.Workbook", "Excel.Worksheet"};

constexpr bool is_made(std::string_view object) {
    return std::find(std::begin(made_objects), std::end(made_objects), object) != std::end(made_objects);
}

/// Exists as long as a process of the recorded local server does.
inline constexpr const wchar_t* server_mutex = L"Foliant recording server";

/// Keeps it from ending for want of work: a client that comes just then would find classes of a process that
/// is gone.
inline constexpr const wchar_t* server_wanted = L"Foliant recording server is wanted";

/// The source interface of the Distiller's events.
inline constexpr IID distiller_events{
    0x5D7A1E10, 0x3C52, 0x4E0B, {0x9A, 0x41, 0x6C, 0x1D, 0x20, 0x8F, 0x77, 0x03}};

/// The type library that names them, where it is registered: the numbers are then those of events.idl, and 1
/// to 6 in the order of the Distiller's reference where it is not.
inline constexpr GUID events_library{
    0x5D7A1E11, 0x3C52, 0x4E0B, {0x9A, 0x41, 0x6C, 0x1D, 0x20, 0x8F, 0x77, 0x03}};

}  // namespace foliant::tests::servers
