#include "hosts/acrobat/pdf_text.h"

#include <cstdio>
#include <utility>

namespace foliant::hosts::acrobat::test {

PdfText::PdfText() {
    set(2, "<< /Type /Pages /Kids [] /Count 0 >>");
}

PdfText& PdfText::set(int number, std::string body) {
    objects_[number] = std::move(body);
    return *this;
}

PdfText& PdfText::set_stream(int number, const std::string& data, const std::string& entries) {
    return set(number, "<< /Length " + std::to_string(data.size()) + " " + entries + " >>\nstream\n" + data +
                           "\nendstream");
}

PdfText& PdfText::add_to_catalogue(const std::string& entries) {
    catalogue_ += " " + entries;
    return *this;
}

PdfText& PdfText::add_to_trailer(const std::string& entries) {
    trailer_ += " " + entries;
    return *this;
}

std::string PdfText::file() const {
    std::map<int, std::string> objects = objects_;
    objects.try_emplace(1, "<< /Type /Catalog /Pages 2 0 R" + catalogue_ + " >>");
    std::string text = "%PDF-1.7\n%\xE2\xE3\xCF\xD3\n";
    std::string table = "xref\n0 1\n0000000000 65535 f \n";
    for (const auto& [number, body] : objects) {
        char entry[64];
        std::snprintf(entry, sizeof entry, "%d 1\n%010zu 00000 n \n", number, text.size());
        table += entry;
        text += std::to_string(number) + " 0 obj\n" + body + "\nendobj\n";
    }
    const std::string size = std::to_string(objects.rbegin()->first + 1);
    return text + table + "trailer << /Size " + size + " /Root 1 0 R" + trailer_ + " >>\nstartxref\n" +
           std::to_string(text.size()) + "\n%%EOF\n";
}

PdfText pages(int count, const std::string& label, const std::string& entries) {
    PdfText pdf;
    std::string kids;
    pdf.set(3, "<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica >>");
    for (int page = 1; page <= count; ++page) {
        const std::string contents = std::to_string(10 * page + 1);
        kids += std::to_string(10 * page) + " 0 R ";
        pdf.set(10 * page, "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 612 792] /Contents " + contents +
                               " 0 R /Resources << /Font << /F 3 0 R >> >> " + entries + " >>");
        pdf.set_stream(10 * page + 1,
                       "BT /F 24 Tf 72 700 Td (" + label + " " + std::to_string(page) + ") Tj ET");
    }
    pdf.set(2, "<< /Type /Pages /Kids [" + kids + "] /Count " + std::to_string(count) + " >>");
    return pdf;
}

}  // namespace foliant::hosts::acrobat::test
