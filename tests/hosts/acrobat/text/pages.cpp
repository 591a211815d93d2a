#include "hosts/acrobat/text/pages.h"

#include <cstdio>
#include <utility>

namespace foliant::hosts::acrobat::text {
namespace {

std::string hexadecimal(std::u32string_view letters) {
    std::string text = "<";
    for (const char32_t letter : letters) {
        char digits[5];
        std::snprintf(digits, sizeof digits, "%04X", static_cast<unsigned>(letter));
        text += digits;
    }
    return text + ">";
}

std::string stream(const std::string& content) {
    return "<< /Length " + std::to_string(content.size()) + " >>\nstream\n" + content + "\nendstream";
}

/// Objects 3 to 6: a font in which each code is the character of that number.
std::vector<std::string> font_objects() {
    return {
        "<< /Type /Font /Subtype /Type0 /BaseFont /Test /Encoding /Identity-H /DescendantFonts [4 0 R] "
        "/ToUnicode 6 0 R >>",
        "<< /Type /Font /Subtype /CIDFontType2 /BaseFont /Test /DW 500 /FontDescriptor 5 0 R "
        "/CIDSystemInfo << /Registry (Adobe) /Ordering (Identity) /Supplement 0 >> >>",
        "<< /Type /FontDescriptor /FontName /Test /Flags 4 /FontBBox [0 -250 500 750] /ItalicAngle 0 "
        "/Ascent 750 /Descent -250 /CapHeight 700 /StemV 80 >>",
        stream("begincmap 1 begincodespacerange <0000> <FFFF> endcodespacerange "
               "1 beginbfrange <0000> <FFFF> <0000> endbfrange endcmap")};
}

std::string assemble(const std::vector<std::pair<std::string, std::string>>& pages) {
    std::vector<std::string> objects{"<< /Type /Catalog /Pages 2 0 R >>", ""};
    for (std::string& object : font_objects())
        objects.push_back(std::move(object));
    std::string kids;
    for (const auto& [entries, content] : pages) {
        kids += std::to_string(objects.size() + 1) + " 0 R ";
        objects.push_back("<< /Type /Page /Parent 2 0 R /Resources << /Font << /F1 3 0 R >> >> " + entries +
                          " /Contents " + std::to_string(objects.size() + 2) + " 0 R >>");
        objects.push_back(stream(content));
    }
    objects[1] = "<< /Type /Pages /Count " + std::to_string(pages.size()) + " /Kids [" + kids + "] >>";
    std::string pdf = "%PDF-1.7\n";
    std::string table = "xref\n0 " + std::to_string(objects.size() + 1) + "\n0000000000 65535 f \n";
    for (std::size_t i = 0; i < objects.size(); ++i) {
        char entry[21];
        std::snprintf(entry, sizeof entry, "%010zu 00000 n \n", pdf.size());
        table += entry;
        pdf += std::to_string(i + 1) + " 0 obj\n" + objects[i] + "\nendobj\n";
    }
    const std::size_t start = pdf.size();
    return pdf + table + "trailer << /Size " + std::to_string(objects.size() + 1) +
           " /Root 1 0 R >>\nstartxref\n" + std::to_string(start) + "\n%%EOF\n";
}

std::string content_of(const TestPage& page) {
    std::string content = "BT\n";
    for (const Written& line : page.lines)
        content += "/F1 " + std::to_string(line.size) + " Tf 1 0 0 1 " + std::to_string(line.x) + " " +
                   std::to_string(line.y) + " Tm " + hexadecimal(line.letters) + " Tj\n";
    return content + "ET";
}

}  // namespace

TestPage page_of(const std::vector<std::u32string>& lines) {
    TestPage page;
    double y = 700;
    for (const std::u32string& line : lines) {
        page.lines.push_back({.y = y, .letters = line});
        y -= 14;
    }
    return page;
}

std::string make_pdf(const std::vector<TestPage>& pages) {
    std::vector<std::pair<std::string, std::string>> parts;
    for (const TestPage& page : pages)
        parts.emplace_back("/MediaBox [0 0 612 792] " + page.entries, content_of(page));
    return assemble(parts);
}

std::string make_pdf_of_content(const std::string& content, const std::string& media_box) {
    return assemble({{"/MediaBox [" + media_box + "]", content}});
}

Bytes bytes_of(std::string pdf) {
    const auto kept = std::make_shared<const std::string>(std::move(pdf));
    return {*kept, kept};
}

std::vector<std::string> separate(const Words& words) {
    std::vector<std::string> list;
    std::size_t begin = 0;
    for (const std::uint32_t end : words.ends) {
        list.push_back(words.letters.substr(begin, end - begin));
        begin = end;
    }
    return list;
}

std::string words_of(const TestPage& page) {
    TextReader reader(bytes_of(make_pdf({page})), "");
    std::string text;
    for (const std::string& word : separate(words(*reader.page(0))))
        text += "[" + word + "]";
    return text;
}

}  // namespace foliant::hosts::acrobat::text
