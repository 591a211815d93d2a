#include "hosts/acrobat/written_pages.h"

namespace foliant::hosts::acrobat::test {

PdfText written(const std::vector<std::string>& pages, const std::string& entries) {
    PdfText pdf;
    std::string kids;
    for (std::size_t i = 0; i < pages.size(); ++i) {
        const int number = 10 + 2 * static_cast<int>(i);
        kids += std::to_string(number) + " 0 R ";
        pdf.set(number, "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 612 792] " + entries +
                            " /Resources << /Font << /F 3 0 R >> >> /Contents " + std::to_string(number + 1) +
                            " 0 R >>");
        pdf.set_stream(number + 1, pages[i]);
    }
    pdf.set(2, "<< /Type /Pages /Count " + std::to_string(pages.size()) + " /Kids [" + kids + "] >>");
    pdf.set(3, "<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica >>");
    return pdf;
}

std::string line(const std::string& text, int y) {
    return "BT /F 12 Tf 72 " + std::to_string(y) + " Td (" + text + ") Tj ET ";
}

}  // namespace foliant::hosts::acrobat::test
