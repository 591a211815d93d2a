#include "hosts/acrobat/fixture.h"

namespace foliant::hosts::acrobat {
namespace {

using automation::Value;
using test::AcrobatTest;
using test::pages;
using test::PdfText;
using tests::failure;

class Hostile : public AcrobatTest {
  protected:
    /// What counting its pages and merging it come to: a number and "merged", or the failure.
    std::string fate(const std::string& content) {
        std::string told;
        const std::string failed = failure([&] {
            const Value source = document_on(content);
            const auto count = *source.call("GetNumPages").if_holds<std::int32_t>();
            told = std::to_string(count);
            const Value target = new_document();
            target.call("Create");
            target.call("InsertPages", {std::int32_t{-1}, source, std::int32_t{0}, count, true});
            target.call("Save", {std::int16_t{5}, (folder / "merged.pdf").string()});
            told += " merged";
        });
        return failed == "no failure" ? told : failed;
    }
};

/// A file whose objects are found by a stream of numbers: (kind, place, index), one triple for each object.
std::string with_object_stream(const std::string& object_stream,
                               const std::vector<std::array<int, 3>>& table) {
    std::string text = "%PDF-1.5\n";
    const std::size_t stream_at = text.size();
    text += object_stream;
    const std::size_t table_at = text.size();
    std::string entries;
    for (std::array<int, 3> entry : table) {
        if (entry[0] == 1 && entry[1] == 0) entry[1] = static_cast<int>(stream_at);
        if (entry[0] == 1 && entry[1] == -1) entry[1] = static_cast<int>(table_at);
        entries += static_cast<char>(entry[0]);
        entries += static_cast<char>(entry[1] / 256);
        entries += static_cast<char>(entry[1] % 256);
        entries += static_cast<char>(entry[2]);
    }
    return text + "6 0 obj\n<< /Type /XRef /W [1 2 1] /Size " + std::to_string(table.size()) +
           " /Root 1 0 R /Length " + std::to_string(entries.size()) + " >>\nstream\n" + entries +
           "\nendstream\nendobj\nstartxref\n" + std::to_string(table_at) + "\n%%EOF\n";
}

const std::string objects_of_a_page =
    "<< /Type /Catalog /Pages 2 0 R >> << /Type /Pages /Kids [3 0 R] /Count 1 >> << /Type /Page /MediaBox [0 0 9 9] >>";

std::string object_stream(const std::string& entries = "") {
    const std::string index = "1 0 2 34 3 76 ";
    const std::string data = index + objects_of_a_page;
    return "5 0 obj\n<< /Type /ObjStm /N 3 /First " + std::to_string(index.size()) + " /Length " +
           std::to_string(data.size()) + entries + " >>\nstream\n" + data + "\nendstream\nendobj\n";
}

TEST_F(Hostile, AnObjectStreamIsRead) {
    EXPECT_EQ(
        fate(with_object_stream(
            object_stream(), {{0, 0, 0}, {2, 5, 0}, {2, 5, 1}, {2, 5, 2}, {0, 0, 0}, {1, 0, 0}, {1, -1, 0}})),
        "1 merged");
}

TEST_F(Hostile, ObjectStreamsThatContainThemselvesOrEachOtherEnd) {
    const std::array<int, 3> table{1, -1, 0};
    for (const std::array<int, 3>& own : {std::array<int, 3>{2, 5, 0}, std::array<int, 3>{2, 4, 0}}) {
        const std::string told =
            fate(with_object_stream(object_stream(" /Extends 5 0 R"),
                                    {{0, 0, 0}, {2, 5, 0}, {2, 5, 1}, {2, 5, 2}, {2, 5, 0}, own, table}));
        EXPECT_NE(told, "");
    }
}

TEST_F(Hostile, AFileThatIsCutAnywhereIsCountedOrRefused) {
    PdfText pdf = pages(3);
    pdf.add_to_catalogue("/Outlines 4 0 R /Names << /Dests << /Names [(a) [10 0 R /Fit]] >> >>");
    pdf.set(4, "<< /First 5 0 R /Last 5 0 R /Count 1 >>");
    pdf.set(5, "<< /Title (a) /Parent 4 0 R /Dest (a) >>");
    const std::string whole = pdf.file();
    for (std::size_t size = 1; size < whole.size(); size += 37) {
        const std::string told = fate(whole.substr(0, size));
        EXPECT_TRUE(told.ends_with(" merged") || told.find("document") != std::string::npos) << told;
    }
}

TEST_F(Hostile, TreesOfNamesAndNumbersThatContainThemselvesEnd) {
    PdfText pdf = pages(1);
    pdf.add_to_catalogue(
        "/Names << /Dests 4 0 R /EmbeddedFiles 4 0 R >> /PageLabels 4 0 R /StructTreeRoot 5 0 R");
    pdf.set(4, "<< /Kids [4 0 R 6 0 R] /Names [(a) [10 0 R /Fit]] /Nums [0 << /S /r >>] >>");
    pdf.set(5, "<< /K 5 0 R /ParentTree 4 0 R >>");
    pdf.set(6, "<< /Kids [4 0 R 4 0 R 6 0 R] >>");
    EXPECT_EQ(fate(pdf.file()), "1 merged");
}

TEST_F(Hostile, FieldsAndLayersThatContainThemselvesEnd) {
    PdfText pdf = pages(1, "a", "/Annots [5 0 R 5 0 R]");
    pdf.add_to_catalogue("/AcroForm 4 0 R /OCProperties << /OCGs [6 0 R 7 0 R] /D << /Order 7 0 R >> >>");
    pdf.set(4, "<< /Fields [5 0 R 5 0 R 4 0 R] /DR 4 0 R /Font << /F 4 0 R >> >>");
    pdf.set(5, "<< /Subtype /Widget /T (a) /Kids [5 0 R] /Parent 5 0 R /DA (/F 1 Tf) >>");
    pdf.set(6, "<< /Type /OCG >>");
    pdf.set(7, "[6 0 R 7 0 R]");
    EXPECT_EQ(fate(pdf.file()), "1 merged");
}

TEST_F(Hostile, WhatIsOfAnotherKindThanItShouldBeHarmsNothing) {
    for (const char* value :
         {"null", "7", "(text)", "/Name", "[1 2]", "<< /A 1 >>", "10 0 R", "11 0 R", "99 0 R"}) {
        for (const char* key : {"/Outlines", "/Names", "/Dests", "/AcroForm", "/PageLabels", "/OCProperties",
                                "/StructTreeRoot", "/Metadata", "/MarkInfo"}) {
            const std::string entry = std::string(key) + " " + value;
            EXPECT_EQ(fate(pages(1).add_to_catalogue(entry).file()), "1 merged") << entry;
        }
        for (const char* key : {"/Annots", "/Resources", "/MediaBox", "/Rotate", "/StructParents", "/B"}) {
            const std::string entry = std::string(key) + " " + value;
            PdfText pdf = pages(1);
            pdf.set(10, "<< /Type /Page /Parent 2 0 R /Contents 11 0 R " + entry + " >>");
            EXPECT_EQ(fate(pdf.file()), "1 merged") << entry;
        }
    }
}

TEST_F(Hostile, AStreamThatLiesAboutItsLengthIsReadAsItIs) {
    PdfText pdf = pages(1);
    pdf.set(11, "<< /Length 999999999 >>\nstream\nBT (lie) Tj ET\nendstream");
    EXPECT_EQ(fate(pdf.file()), "1 merged");
    EXPECT_EQ(test::texts(*test::read_pdf(folder / "merged.pdf")), std::vector<std::string>{"lie"});
}

TEST_F(Hostile, ArraysInArraysAreRefusedOrCopied) {
    PdfText pdf = pages(1, "a", "/Deep " + std::string(100'000, '[') + std::string(100'000, ']'));
    EXPECT_NE(fate(pdf.file()), "");
}

}  // namespace
}  // namespace foliant::hosts::acrobat
