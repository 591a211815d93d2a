#include "hosts/pages/pdf_language.h"

#include <charconv>

namespace foliant::hosts::pages {

/// The catalog is the last object, so nothing moves but the table of places behind it.
std::string with_language(std::string pdf, std::string_view tag) {
    constexpr std::string_view behind_catalog = ">>\nendobj\nxref\n";
    constexpr std::string_view before_place = "\nstartxref\n";
    const std::size_t catalog = pdf.rfind("/Type /Catalog");
    if (catalog == std::string::npos) return pdf;
    const std::size_t end = pdf.find(">>", catalog);
    if (end == std::string::npos || pdf.compare(end, behind_catalog.size(), behind_catalog) != 0) return pdf;
    const std::size_t table = end + behind_catalog.find("xref");
    const std::size_t told = pdf.rfind(before_place) + before_place.size();
    std::size_t place = 0;
    const char* const file_end = pdf.data() + pdf.size();
    const auto [number_end, problem] = std::from_chars(pdf.data() + told, file_end, place);
    if (problem != std::errc() || place != table) return pdf;

    const std::string entry = "   /Lang (" + std::string(tag) + ")\n";
    const auto digits = static_cast<std::size_t>(number_end - (pdf.data() + told));
    pdf.replace(told, digits, std::to_string(table + entry.size()));
    return pdf.insert(end, entry);
}

}  // namespace foliant::hosts::pages
