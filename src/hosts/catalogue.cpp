#include "hosts/catalogue.h"

#include <algorithm>
#include <array>

#include "automation/text.h"
#include "registered/classes.h"

namespace foliant::hosts {
namespace {

constexpr std::array distiller_classes{registered::event_bound_distiller,
                                       registered::security_capable_distiller};
constexpr std::array word_classes{registered::word};
constexpr std::array acrobat_classes{registered::acrobat, registered::acrobat_viewer,
                                     registered::acrobat_document, registered::acrobat_rectangle,
                                     registered::acrobat_bookmark};
constexpr std::array excel_classes{registered::excel};
constexpr std::array powerpoint_classes{registered::powerpoint};
constexpr std::array visio_classes{registered::visio};
constexpr std::array pdfmaker_classes{registered::pdfmaker};
constexpr std::array autocad_classes{registered::autocad};
constexpr std::array access_classes{registered::access};
constexpr std::array crystal_classes{registered::crystal_reports};
constexpr std::array transfer_classes{registered::transfer_control, page_fetcher};
constexpr std::array notepad_programs{registered::notepad};
constexpr std::span<const std::string_view> no_classes;

constexpr std::array<Host, 13> hosts{{
    {"Acrobat Distiller", distiller_classes, "Ghostscript", "distiller", "libgs10"},
    {"Word", word_classes, "LibreOffice Writer", "office", "libreoffice-writer-nogui", true},
    {"Acrobat", acrobat_classes, "qpdf and poppler", "acrobat", "libqpdf29", true, "Save"},
    {"Excel", excel_classes, "LibreOffice Calc", "office", "libreoffice-calc-nogui", true},
    {"PowerPoint", powerpoint_classes, "LibreOffice Impress", "office", "libreoffice-impress-nogui", true},
    {"Visio", visio_classes, "LibreOffice Draw", "office", "libreoffice-draw-nogui", true},
    {"PDFMaker", pdfmaker_classes, "LibreOffice", "office", "libreoffice-writer-nogui", true},
    {"AutoCAD", autocad_classes, "cairo and Pango", "autocad", "libpangocairo-1.0-0", true},
    {"Access", access_classes, "mdbtools", "access", "libmdb3", true},
    {.name = "Crystal Reports",
     .classes = crystal_classes,
     .engine = "",
     .module = "",
     .package = "",
     .instead =
         "Have Crystal Reports itself export the report: as a PDF, or as a Word document, which CreatePDFfromWord "
         "converts, or as a workbook, which CreatePDFfromExcel does."},
    {"Web capture", no_classes, "Chromium", "web", "chromium"},
    {"Internet Transfer control", transfer_classes, "libcurl", "transfer", "libcurl4", true},
    {"Notepad", notepad_programs, "Pango and cairo", "notepad", "libpangocairo-1.0-0", true},
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
