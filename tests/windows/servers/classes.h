#pragma once

#include <algorithm>
#include <array>
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
    {{0x91493441, 0x5A91, 0x11CF, {0x87, 0x00, 0x00, 0xAA, 0x00, 0x60, 0x26, 0x3B}},
     L"Powerpoint.Application",
     "Powerpoint.Application"},
    {{0x00021A20, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}},
     L"Visio.Application",
     "Visio.Application"},
    {{0x73A4C9C1, 0xD68D, 0x11D0, {0x98, 0xBF, 0x00, 0xA0, 0xC9, 0x0D, 0xC8, 0xD9}},
     L"Access.Application",
     "Access.Application"},
    {{0x48E59293, 0x9880, 0x11CF, {0x97, 0x54, 0x00, 0xAA, 0x00, 0xC0, 0x09, 0x08}},
     L"InetCtls.Inet",
     "InetCtls.Inet"},
    // Which identifier these have differs from version to version.
    {{0x5D7A1E12, 0x3C52, 0x4E0B, {0x9A, 0x41, 0x6C, 0x1D, 0x20, 0x8F, 0x77, 0x03}},
     L"AutoCAD.Application",
     "AutoCAD.Application"},
    {{0x5D7A1E13, 0x3C52, 0x4E0B, {0x9A, 0x41, 0x6C, 0x1D, 0x20, 0x8F, 0x77, 0x03}},
     L"Crystal.CRPE.Application",
     "Crystal.CRPE.Application"},
    {{0x5D7A1E14, 0x3C52, 0x4E0B, {0x9A, 0x41, 0x6C, 0x1D, 0x20, 0x8F, 0x77, 0x03}},
     L"AdobePDFMakerX.Word",
     "AdobePDFMakerX.Word"},
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

/// What a host's caller sees of a call besides its result.
enum class Does {
    nothing,
    prints,                 ///< to the file that an argument names, or where two dialogs of the printer say
    prints_without_notice,  ///< the same, with a printer that has one dialog only
    saves,
    converts,
    launches,        ///< another program, which shows a document in Acrobat
    runs_menu_item,  ///< with its dialogs
    exits,           ///< and leaves Acrobat's main window behind
    transfers,       ///< in the background
};

/// A member of a class, and what it gives back.
struct Member {
    std::string_view object;
    std::string_view name;  ///< matched as it is spelled
    /// Another class, a text in quotation marks, "1" for that 16-bit number, "busy" for whether a transfer
    /// goes on, or "" for nothing.
    std::string_view result;
    Does does = Does::nothing;
};

inline constexpr Member members[]{
    {"Word.Application", "Documents", "Word.Documents"},
    {"Word.Application", "DisplayAlerts", ""},
    {"Word.Application", "ActivePrinter", "\"Office printer\""},
    {"Word.Application", "Quit", ""},
    {"Word.Documents", "Open", "Word.Document"},
    {"Word.Document", "PageSetup", "Word.PageSetup"},
    {"Word.Document", "Sections", "Word.Section"},
    {"Word.Document", "PrintOut", "", Does::prints},
    {"Word.Document", "Close", ""},
    {"Word.Document", "Content", "Word.Content"},
    {"Word.Content", "Font", "Word.Font"},
    {"Word.Font", "Name", ""},
    {"Word.Font", "Bold", ""},
    {"Word.Font", "Size", ""},
    {"Word.Font", "Color", ""},
    {"Word.Font", "Italic", ""},
    {"Word.Font", "Underline", ""},
    {"Word.Font", "Reset", ""},
    {"Word.PageSetup", "Orientation", ""},
    {"Word.PageSetup", "TopMargin", ""},
    {"Word.PageSetup", "LeftMargin", ""},
    {"Word.PageSetup", "RightMargin", ""},
    {"Word.PageSetup", "BottomMargin", ""},
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
    {"Excel.Range", "PrintOut", "", Does::prints},
    {"Powerpoint.Application", "Visible", ""},
    {"Powerpoint.Application", "WindowState", ""},
    {"Powerpoint.Application", "Presentations", "Powerpoint.Presentations"},
    {"Powerpoint.Application", "Quit", ""},
    {"Powerpoint.Presentations", "Open", "Powerpoint.Presentation"},
    {"Powerpoint.Presentation", "PageSetup", "Powerpoint.PageSetup"},
    {"Powerpoint.Presentation", "PrintOptions", "Powerpoint.PrintOptions"},
    {"Powerpoint.Presentation", "PrintOut", "", Does::prints},
    {"Powerpoint.Presentation", "Close", ""},
    {"Powerpoint.PageSetup", "SlideOrientation", ""},
    {"Powerpoint.PrintOptions", "ActivePrinter", "\"Office printer\""},
    {"Visio.Application", "Documents", "Visio.Documents"},
    {"Visio.Application", "Quit", ""},
    {"Visio.Documents", "Open", "Visio.Document"},
    {"Visio.Document", "Printer", ""},
    {"Visio.Document", "Print", "", Does::prints},
    {"Visio.Document", "Close", ""},
    {"AutoCAD.Application", "Application", "AutoCAD.AcadApplication"},
    {"AutoCAD.Application", "Quit", ""},
    {"AutoCAD.AcadApplication", "Documents", "AutoCAD.Documents"},
    {"AutoCAD.Documents", "Open", "AutoCAD.Document"},
    {"AutoCAD.Document", "Layouts", "AutoCAD.Layout"},
    {"AutoCAD.Document", "ActiveLayout", ""},
    {"AutoCAD.Document", "Plot", "AutoCAD.Plot"},
    {"AutoCAD.Document", "Close", ""},
    {"AutoCAD.Plot", "PlotToDevice", "1", Does::prints_without_notice},
    {"Access.Application", "Printers", "Access.Printers"},
    {"Access.Application", "Printer", ""},
    {"Access.Application", "OpenCurrentDatabase", ""},
    {"Access.Application", "DoCmd", "Access.DoCmd"},
    {"Access.Application", "CloseCurrentDatabase", ""},
    {"Access.Application", "Quit", ""},
    {"Access.Printers(1)", "DeviceName", "\"Office printer\""},
    {"Access.Printers(2)", "DeviceName", "\"ADOBE PDF\""},
    {"Access.DoCmd", "OpenReport", "", Does::prints_without_notice},
    {"Access.DoCmd", "Close", ""},
    {"Crystal.CRPE.Application", "OpenReport", "Crystal.Report"},
    {"Crystal.CRPE.Application", "CanClose", "1"},
    {"Crystal.Report", "SelectPrinter", ""},
    {"Crystal.Report", "PrintOut", "", Does::prints_without_notice},
    {"AdobePDFMakerX.Word", "LaunchDocument", "1", Does::launches},
    {"InetCtls.Inet", "URL", ""},
    {"InetCtls.Inet", "UserName", ""},
    {"InetCtls.Inet", "Password", ""},
    {"InetCtls.Inet", "Protocol", ""},
    {"InetCtls.Inet", "Execute", "", Does::transfers},
    {"InetCtls.Inet", "StillExecuting", "busy"},
    {"AcroExch.App", "Exit", "1", Does::exits},
    {"AcroExch.App", "GetActiveDoc", "AcroExch.AVDoc"},
    {"AcroExch.App", "MenuItemExecute", "1", Does::runs_menu_item},
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
    {"AcroExch.PDDoc", "Save", "1", Does::saves},
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
    {"Distiller", "FileToPDF", "1", Does::converts},
    {"SecureDistiller", "bShowWindow", ""},
    {"SecureDistiller", "bSpoolJobs", ""},
    {"SecureDistiller", "FileToPDF2", "1", Does::converts},
};

/// A collection that gives its elements to those who ask for them one by one, and what it gives.
struct Collection {
    std::string_view object;
    std::array<std::string_view, 2> elements;
};

inline constexpr Collection collections[]{
    {"Access.Printers", {"Access.Printers(1)", "Access.Printers(2)"}},
};

/// Objects that a member makes anew each time. Their beginning and end are recorded, as a host's are.
inline constexpr std::string_view made_objects[]{
    "Word.Document",  "Excel.Workbook",   "Excel.Worksheet", "Powerpoint.Presentation",
    "Visio.Document", "AutoCAD.Document", "Crystal.Report"};

constexpr bool is_made(std::string_view object) {
    return std::find(std::begin(made_objects), std::end(made_objects), object) != std::end(made_objects);
}

/// How a host says that it cannot do what it is asked.
struct Refusal {
    std::string_view host;  ///< its objects' names begin with this
    WORD code;              ///< a number of its own, or 0 where `result` is one
    HRESULT result;
    const wchar_t* source;
    const wchar_t* description;
};

inline constexpr Refusal refusals[]{
    {"Powerpoint.", 0, static_cast<HRESULT>(0x80048240), L"Recorded slides", L"There is no such slide."},
    {"Visio.", 0, static_cast<HRESULT>(0x86DB0425), L"Recorded drawings", L"The drawing cannot be printed."},
    {"AutoCAD.", 0, static_cast<HRESULT>(0x80200051), L"Recorded plots", L"Key not found"},
    {"Access.", 0, static_cast<HRESULT>(0x800A0837), L"Recorded reports", L"There is no such report."},
    {"Crystal.", 20515, 0, L"Recorded reports", L"Error in formula."},
    {"AdobePDFMakerX.", 0, E_FAIL, nullptr, nullptr},
    {"InetCtls.", 35761, 0, L"Recorded control", L"Request timed out"},
    {"", 0, static_cast<HRESULT>(0x800A03EC), L"Recorded host", L"The host cannot do that."},
};

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
