#include "hosts/catalogue.h"

#include <algorithm>
#include <array>

#include "automation/text.h"

namespace foliant::hosts {
namespace {

constexpr std::array<std::string_view, 2> distiller_classes{"{1CD675B2-ECD1-11D1-B976-00600802DB86}",
                                                            "{FC403250-51F5-4E1B-AC8C-ED9C5E551B9B}"};
constexpr std::array<std::string_view, 1> word_classes{"Word.Application"};
constexpr std::array<std::string_view, 5> acrobat_classes{"AcroExch.App", "AcroExch.AVDoc", "AcroExch.PDDoc",
                                                          "AcroExch.Rect", "AcroExch.PDBookmark"};
constexpr std::array<std::string_view, 1> excel_classes{"Excel.Application"};
constexpr std::array<std::string_view, 1> powerpoint_classes{"Powerpoint.Application"};
constexpr std::array<std::string_view, 1> visio_classes{"Visio.Application"};
constexpr std::array<std::string_view, 1> pdfmaker_classes{"AdobePDFMakerX.Word"};
constexpr std::array<std::string_view, 1> autocad_classes{"AutoCAD.Application"};
constexpr std::array<std::string_view, 1> access_classes{"Access.Application"};
constexpr std::array<std::string_view, 1> crystal_classes{"crystal.crpe.application"};
constexpr std::array<std::string_view, 1> transfer_classes{"InetCtls.Inet"};
constexpr std::span<const std::string_view> no_classes;

constexpr std::array<Host, 13> hosts{{
    {"Acrobat Distiller", distiller_classes, "Ghostscript", "distiller", "libgs10"},
    {"Word", word_classes, "LibreOffice Writer", "office", "libreoffice-writer-nogui", true},
    {"Acrobat", acrobat_classes, "qpdf and poppler", "", ""},
    {"Excel", excel_classes, "LibreOffice Calc", "", ""},
    {"PowerPoint", powerpoint_classes, "LibreOffice Impress", "", ""},
    {"Visio", visio_classes, "LibreOffice Draw", "", ""},
    {"PDFMaker", pdfmaker_classes, "LibreOffice Writer", "", ""},
    {"AutoCAD", autocad_classes, "LibreOffice Draw", "", ""},
    {"Access", access_classes, "mdbtools", "", ""},
    {"Crystal Reports", crystal_classes, "", "", ""},
    {"Web capture", no_classes, "Chromium", "", ""},
    {"Internet Transfer control", transfer_classes, "libcurl", "", ""},
    {"Notepad", no_classes, "plain text printing", "", ""},
}};

}  // namespace

std::span<const Host> catalogue() noexcept {
    return hosts;
}

HostClass find_class(std::string_view class_name) noexcept {
    for (const Host& host : hosts) {
        const auto found = std::find_if(host.classes.begin(), host.classes.end(), [&](std::string_view name) {
            return automation::equal_ignoring_case(name, class_name);
        });
        if (found != host.classes.end()) return {&host, *found};
    }
    return {};
}

}  // namespace foliant::hosts
