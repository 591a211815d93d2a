#include "cli/pdf_facts.h"

#include <array>
#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <unistd.h>

namespace foliant::cli {
namespace {

/// A PDF with that many pages in its page tree's own words, and what else the trailer says.
std::string a_pdf(int pages, const std::string& trailer = {}) {
    std::string pdf = "%PDF-1.4\n";
    std::array<std::size_t, 3> places{};
    places[1] = pdf.size();
    pdf +=
        "1 0 obj\n<< /Type /Catalog /Names << /Pages 7 0 R >> /Title (\\) >> /Pages) /Pages 2 0 R "
        ">>\nendobj\n";
    places[2] = pdf.size();
    pdf += "2 0 obj\n<</Type/Pages/Kids[]/Count " + std::to_string(pages) + ">>\nendobj\n";
    const std::size_t table = pdf.size();
    pdf += "xref\n0 3\n0000000000 65535 f \n";
    for (std::size_t object = 1; object < places.size(); ++object) {
        std::array<char, 21> entry{};
        std::snprintf(entry.data(), entry.size(), "%010zu 00000 n \n", places[object]);
        pdf += entry.data();
    }
    return pdf + "trailer\n<< /Size 3 /Root 1 0 R " + trailer + " >>\nstartxref\n" + std::to_string(table) +
           "\n%%EOF\n";
}

class Facts : public testing::Test {
  protected:
    ~Facts() override { std::remove(path.c_str()); }
    PdfFacts of(const std::string& content) const {
        std::ofstream(path, std::ios::binary) << content;
        return pdf_facts(path);
    }
    std::string path = testing::TempDir() + "foliant-facts-" + std::to_string(getpid());
};

TEST_F(Facts, TellPagesAndProtection) {
    const PdfFacts plain = of(a_pdf(12));
    EXPECT_TRUE(plain.complete);
    EXPECT_FALSE(plain.encrypted);
    EXPECT_EQ(plain.pages, 12);
    EXPECT_TRUE(of(a_pdf(1, "/ID [(a/Encrypt b)(\\()] /Encrypt 9 0 R")).encrypted);
    EXPECT_FALSE(of(a_pdf(1, "/ID [(a /Encrypt b)(\\()] /Other << /Encrypt 9 0 R >>")).encrypted);
}

TEST_F(Facts, ATableThatIsAStreamTellsProtectionAndNoPages) {
    const PdfFacts facts = of(
        "%PDF-1.5\n1 0 obj\n<< /Type /XRef /Root 2 0 R /Encrypt 3 0 R >>\nstream\n\nstartxref\n9\n%%EOF\n");
    EXPECT_TRUE(facts.complete);
    EXPECT_TRUE(facts.encrypted);
    EXPECT_FALSE(facts.pages.has_value());
}

TEST_F(Facts, WhatIsCutOffIsNotComplete) {
    const std::string whole = a_pdf(3);
    for (std::size_t length = 0; length + 2 < whole.size(); ++length) {
        ASSERT_FALSE(of(whole.substr(0, length)).complete) << length;
    }
}

TEST_F(Facts, NumbersThatLeadNowhereAreNoAnswer) {
    const std::string whole = a_pdf(3);
    for (std::size_t place = 0; place < whole.size(); ++place) {
        for (const char other : {'9', '(', '<'}) {
            std::string changed = whole;
            changed[place] = other;
            of(changed);
        }
    }
    EXPECT_FALSE(of("%PDF-1.4\nstartxref\n99999999999999999999\n%%EOF").complete);
    EXPECT_FALSE(pdf_facts("/nowhere").complete);
    EXPECT_FALSE(pdf_facts("/dev/zero").complete);
}

}  // namespace
}  // namespace foliant::cli
