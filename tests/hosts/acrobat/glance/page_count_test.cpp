#include "hosts/acrobat/glance/page_count.h"

#include <gtest/gtest.h>
#include <string>
#include <zlib.h>

#include "hosts/acrobat/pdf_text.h"

namespace foliant::hosts::acrobat::glance {
namespace {

using test::pages;
using test::PdfText;

constexpr auto doubt = std::nullopt;

std::string replaced(std::string text, const std::string& what, const std::string& by) {
    const std::size_t at = text.rfind(what);
    EXPECT_NE(at, std::string::npos) << what;
    return text.replace(at, what.size(), by);
}

TEST(GlancedPageCount, IsWhatThePageTreeClaims) {
    EXPECT_EQ(page_count(pages(1).file()), 1);
    EXPECT_EQ(page_count(pages(7).file()), 7);
    EXPECT_EQ(page_count(pages(300).file()), 300);
    EXPECT_EQ(page_count(PdfText().file()), 0);
}

TEST(GlancedPageCount, AddsUpTheNodesBelowTheRoot) {
    PdfText pdf = pages(3);
    pdf.set(2, "<</Kids[4 0 R 30 0 R]/Count 3/Type/Pages>>");
    pdf.set(4, "<< /Kids 5 0 R /Count 6 0 R /Of [(a \\) b (nested)) <4A> -1.5 true null] >>");
    pdf.set(5, "[10 0 R 20 0 R]");
    pdf.set(6, "2");
    EXPECT_EQ(page_count(pdf.file()), 3);
}

TEST(GlancedPageCount, IsInDoubtWhereClaimsDisagree) {
    const auto with_root = [](const std::string& root) { return page_count(pages(2).set(2, root).file()); };
    EXPECT_EQ(with_root("<< /Type /Pages /Kids [10 0 R 20 0 R] /Count 2 >>"), 2);
    EXPECT_EQ(with_root("<< /Type /Pages /Kids [10 0 R 20 0 R] /Count 3 >>"), doubt);
    EXPECT_EQ(with_root("<< /Type /Pages /Kids [10 0 R 20 0 R] /Count 2.0 >>"), doubt);
    EXPECT_EQ(with_root("<< /Type /Pages /Kids [10 0 R 20 0 R] /Count -2 >>"), doubt);
    EXPECT_EQ(with_root("<< /Type /Pages /Kids [10 0 R 20 0 R] /Count 2 /Count 2 >>"), doubt);
    EXPECT_EQ(with_root("<< /Type /Pages /Kids [10 0 R 20 0 R] /Count 2 /C#6Funt 1 >>"), doubt);
    EXPECT_EQ(with_root("<< /Type /Pages /Kids [10 0 R null] /Count 2 >>"), doubt);
    EXPECT_EQ(with_root("<< /Type /Pages /Kids [10 0 R 99 0 R] /Count 2 >>"), doubt);
    EXPECT_EQ(with_root("<< /Type /Pages /Count 2 >>"), doubt);
    EXPECT_EQ(page_count(pages(70).set(2, "<< /Kids [" + std::string(70, ' ') + "] /Count 69 >>").file()),
              doubt);
}

TEST(GlancedPageCount, IsInDoubtAboutMorePagesThanObjects) {
    std::string kids;
    for (int kid = 0; kid < 70; ++kid)
        kids += " 10 0 R";
    const auto with_count = [&](const std::string& count) {
        return page_count(
            pages(1).set(2, "<< /Kids [" + kids + "] /Count " + count + " >>").set(80, "0").file());
    };
    EXPECT_EQ(with_count("80"), 80);
    EXPECT_EQ(with_count("81"), doubt);
    EXPECT_EQ(with_count("69"), doubt);
}

TEST(GlancedPageCount, IsInDoubtAboutWhatIsNoPlainFile) {
    const std::string file = pages(2).file();
    EXPECT_EQ(page_count(""), doubt);
    EXPECT_EQ(page_count("%PDF-1.4"), doubt);
    EXPECT_EQ(page_count(" " + file), doubt);
    EXPECT_EQ(page_count(file.substr(0, file.size() / 2)), doubt);
    EXPECT_EQ(page_count(replaced(file, "startxref", "startxxxx")), doubt);
    EXPECT_EQ(page_count(replaced(file, " 00000 n \n", " 00000 m \n")), doubt);
    EXPECT_EQ(page_count(replaced(file, " 00000 n \n", " 0000 n  \n")), doubt);
    EXPECT_EQ(page_count(replaced(file, "trailer", "trailex")), doubt);
    EXPECT_EQ(page_count(replaced(file, "20 0 obj", "21 0 obj")), doubt);
    EXPECT_EQ(page_count(replaced(file, "/Size 22", "/Size (x)")), doubt);
    EXPECT_EQ(page_count(replaced(file, "/Root 1 0 R", "/Root 1 1 R")), doubt);
    EXPECT_EQ(page_count(replaced(file, "/Root 1 0 R", "/Root 1 00R")), doubt);
    EXPECT_EQ(page_count(replaced(file, "/Root 1 0 R", "/Root 1 0 Rx")), doubt);
    EXPECT_EQ(page_count(replaced(file, "20 0 obj\n", "20 0 objx")), doubt);
    EXPECT_EQ(page_count(replaced(file, "xref\n0 1\n", "xrefs0 1\n")), doubt);
    EXPECT_EQ(page_count(replaced(file, "startxref", "stream\nstartxref")), doubt);
    EXPECT_EQ(page_count(pages(2).add_to_trailer("/Encrypt << >>").file()), doubt);
    EXPECT_EQ(page_count(pages(2).add_to_trailer("/XRefStm 9").file()), doubt);
    EXPECT_EQ(page_count(pages(2).add_to_trailer("/Prev 99999999").file()), doubt);
    EXPECT_EQ(page_count(pages(2).set(20, "<< /Type /Page >> more").file()), doubt);
    const std::string deep = std::string(100, '[') + std::string(100, ']');
    EXPECT_EQ(page_count(pages(2).set(20, "<< /Type /Page /Deep " + deep + " >>").file()), doubt);
}

/// The file with changes behind it, as programs save that leave what is there.
std::string updated(std::string file, const std::string& object_2, char use, const std::string& more = "") {
    const std::string before = file.substr(file.rfind("startxref") + 10);
    const std::string previous = before.substr(0, before.find('\n'));
    std::string offset = std::to_string(file.size());
    offset.insert(0, 10 - offset.size(), '0');
    file += "2 0 obj\n" + object_2 + "\nendobj\n";
    const std::string table = std::to_string(file.size());
    return file + "xref\n2 1\n" + offset + " 00000 " + use + " \ntrailer << /Size 22 /Root 1 0 R /Prev " +
           (more.empty() ? previous : table) + " >>\nstartxref\n" + table + "\n%%EOF\n";
}

TEST(GlancedPageCount, IsThatOfTheNewestTables) {
    const std::string file = pages(2).file();
    EXPECT_EQ(page_count(updated(file, "<< /Kids [20 0 R] /Count 1 >>", 'n')), 1);
    EXPECT_EQ(page_count(updated(file, "<< /Kids [20 0 R] /Count 1 >>", 'f')), doubt);
    EXPECT_EQ(page_count(updated(file, "<< /Kids [20 0 R] /Count 1 >>", 'n', "itself")), doubt);
}

std::string deflated(const std::string& text) {
    std::string packed(::compressBound(text.size()), '\0');
    uLongf size = packed.size();
    ::compress(reinterpret_cast<Bytef*>(packed.data()), &size, reinterpret_cast<const Bytef*>(text.data()),
               text.size());
    packed.resize(size);
    return packed;
}

/// Rows of five bytes as PNG predicts them, one row in each of its five ways.
std::string predicted(const std::string& rows) {
    std::string text;
    const auto byte = [&](std::size_t row, int column) {
        return column < 0 || row >= rows.size() / 5
                   ? 0
                   : static_cast<unsigned char>(rows[row * 5 + static_cast<std::size_t>(column)]);
    };
    for (std::size_t row = 0; row < rows.size() / 5; ++row) {
        const std::size_t kind = row % 5;
        text += static_cast<char>(kind);
        for (int i = 0; i < 5; ++i) {
            const int left = byte(row, i - 1);
            const int above = byte(row - 1, i);
            const int corner = byte(row - 1, i - 1);
            const int guess = left + above - corner;
            const auto far = [&](int from) { return std::abs(guess - from); };
            const int nearest = far(left) <= far(above) && far(left) <= far(corner) ? left
                                : far(above) <= far(corner)                         ? above
                                                                                    : corner;
            const int expected[] = {0, left, above, (left + above) / 2, nearest};
            text += static_cast<char>(byte(row, i) - expected[kind]);
        }
    }
    return text;
}

/// Two pages whose objects are packed, with a table that is a stream.
struct Packed {
    std::string objects = "1 0 2 29 <</Type/Catalog/Pages 2 0 R>><</Type/Pages/Kids[3 0 R 4 0 R]/Count 2>> ";
    std::string container = "/N 2 /First 9";
    std::string table = "/Index [0 7] /W [1 2 2]";
    bool is_predicted = false;
    std::string more_entries{};

    std::string file() const {
        std::string text = "%PDF-1.5\n";
        std::string entries;
        const auto entry = [&](char type, std::size_t where, char which = 0) {
            entries += {type, static_cast<char>(where >> 8U), static_cast<char>(where), 0, which};
        };
        const auto stream = [](const std::string& dictionary, const std::string& data) {
            const std::string packed = deflated(data);
            return "<< " + dictionary + " /Filter /FlateDecode /Length " + std::to_string(packed.size()) +
                   " >> stream\r\n" + packed + "\nendstream\nendobj\n";
        };
        entry(0, 0);
        entry(2, 5, 0);
        entry(2, 5, 1);
        for (const char* page : {"3", "4"}) {
            entry(1, text.size());
            text += std::string(page) + " 0 obj << /Type /Page >> endobj\n";
        }
        entry(1, text.size());
        text += "5 0 obj " + stream("/Type /ObjStm " + container, objects);
        const std::string at = std::to_string(text.size());
        entry(1, text.size());
        entries += more_entries;
        const std::string parameters = is_predicted ? " /DecodeParms << /Predictor 15 /Columns 5 >>" : "";
        text += "6 0 obj " + stream("/Type /XRef /Root 1 0 R /Size 7 " + table + parameters,
                                    is_predicted ? predicted(entries) : entries);
        return text + "startxref\n" + at + "\n%%EOF\n";
    }
};

TEST(GlancedPageCount, IsFoundAmongPackedObjects) {
    EXPECT_EQ(page_count(Packed().file()), 2);
    EXPECT_EQ(page_count(Packed{.is_predicted = true}.file()), 2);
    EXPECT_EQ(page_count(Packed{.table = "/W [1 2 2]"}.file()), 2);
}

TEST(GlancedPageCount, IsInDoubtAboutPackedObjectsThatAreDamaged) {
    EXPECT_EQ(page_count(Packed{.container = "/N 1 /First 9"}.file()), doubt);
    EXPECT_EQ(page_count(Packed{.container = "/N 2 /First 9000"}.file()), doubt);
    EXPECT_EQ(page_count(Packed{.container = "/N 2"}.file()), doubt);
    EXPECT_EQ(page_count(Packed{.objects = "1 0 1 0  <</Type/Catalog/Pages 2 0 R>> "}.file()), doubt);
    EXPECT_EQ(page_count(Packed{.table = "/Index [0 8] /W [1 2 2]"}.file()), doubt);
    EXPECT_EQ(page_count(Packed{.table = "/Index [0 6] /W [1 2 2]"}.file()), doubt);
    EXPECT_EQ(page_count(Packed{.table = "/W [1 2]"}.file()), doubt);
    EXPECT_EQ(page_count(Packed{.table = "/W [0 0 0]"}.file()), doubt);
    EXPECT_EQ(
        page_count(Packed{.table = "/W [1 2 2] /Index [0 8]", .more_entries = std::string(5, '\3')}.file()),
        doubt);
    EXPECT_EQ(page_count(replaced(Packed().file(), "6 0 obj", "0 0 obj")), doubt);
    EXPECT_EQ(page_count(replaced(Packed().file(), "6 0 obj", "3 0 obj")), doubt);
    EXPECT_EQ(page_count(replaced(Packed().file(), "/Size 7", "/Sise 7")), doubt);
    EXPECT_EQ(page_count(replaced(Packed().file(), "/Root 1 0 R", "/Root 1 1 R")), doubt);
    EXPECT_EQ(page_count(replaced(Packed().file(), "endstream", "endstreax")), doubt);
    EXPECT_EQ(page_count(replaced(Packed().file(), "/FlateDecode", "/LZWDecode  ")), doubt);
}

TEST(GlancedPageCount, GivesUpOnWhatUnpacksToTooMuch) {
    Packed bomb;
    bomb.objects += std::string(std::size_t{17} << 20U, ' ');
    EXPECT_EQ(page_count(bomb.file()), doubt);
}

}  // namespace
}  // namespace foliant::hosts::acrobat::glance
