#include "hosts/acrobat/text/text_reader.h"

#include <chrono>
#include <gtest/gtest.h>

#include "hosts/acrobat/text/pages.h"
#include "hosts/acrobat/text/words.h"

namespace foliant::hosts::acrobat::text {
namespace {

std::string text_of(TextReader& reader, int page) {
    return words(*reader.page(page)).letters;
}

std::vector<TestPage> numbered_pages(int count) {
    std::vector<TestPage> pages;
    for (int i = 0; i < count; ++i)
        pages.push_back(page_of({U"page " + std::u32string(1, U'A' + static_cast<char32_t>(i % 26))}));
    return pages;
}

TEST(AcrobatTextReader, ReadsPagesInAnyOrder) {
    TextReader reader(bytes_of(make_pdf(numbered_pages(100))), "");
    EXPECT_EQ(reader.page_count(), 100);
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(text_of(reader, i), std::string("page ") + static_cast<char>('A' + i % 26) + "\r\n");
    EXPECT_EQ(text_of(reader, 3), "page D\r\n");
    EXPECT_EQ(text_of(reader, 4), "page E\r\n");
    EXPECT_EQ(text_of(reader, 50), "page Y\r\n");
    EXPECT_EQ(text_of(reader, 99), "page V\r\n");
}

TEST(AcrobatTextReader, EndsWhileItReadsAhead) {
    TextReader reader(bytes_of(make_pdf(numbered_pages(100))), "");
    text_of(reader, 0);
    text_of(reader, 1);
}

TEST(AcrobatTextReader, HasNoTextForAPageThatIsNotThere) {
    TextReader reader(bytes_of(make_pdf(numbered_pages(2))), "");
    EXPECT_EQ(text_of(reader, 2), "");
    EXPECT_EQ(text_of(reader, -1), "");
}

TEST(AcrobatTextReader, SaysWhatIsNoPdf) {
    EXPECT_THROW(TextReader(bytes_of("no PDF"), ""), Unreadable);
    EXPECT_THROW(TextReader(bytes_of(""), ""), Unreadable);
}

/// Twenty-five thousand words, each apart from all others: arranging them takes a minute.
TEST(AcrobatTextReader, ReadsAPageOfScatteredWordsInTheOrderInWhichTheyWereWritten) {
    std::string content = "BT /F1 4 Tf\n";
    for (int i = 0; i < 25'000; ++i)
        content += "1 0 0 1 " + std::to_string(i % 160 * 30) + " " + std::to_string(i / 160 * 20) +
                   " Tm <00610062> Tj\n";
    TextReader reader(bytes_of(make_pdf_of_content(content + "ET", "0 0 5000 3200")), "");
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(words(*reader.page(0)).ends.size(), 25'000U);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

TEST(AcrobatTextReader, ArrangesADensePage) {
    std::string content = "BT /F1 8 Tf\n";
    for (int line = 0; line < 300; ++line) {
        content += "1 0 0 1 10 " + std::to_string(10 + 10 * line) + " Tm <";
        for (int word = 0; word < 60; ++word)
            content += line == 299 ? "007400740020" : "006C006C0020";
        content += "> Tj\n";
    }
    TextReader reader(bytes_of(make_pdf_of_content(content + "ET", "0 0 5000 3200")), "");
    const auto text = separate(words(*reader.page(0)));
    ASSERT_EQ(text.size(), 300U * 60);
    EXPECT_EQ(text.front(), "tt ") << "the line at the top comes first, though it was written last";
}

/// Three million letters, half as wide as their size.
std::string page_of_millions(int size) {
    std::string line = "<";
    for (int i = 0; i < 10'000; ++i)
        line += "0061";
    std::string content = "BT /F1 " + std::to_string(size) + " Tf\n";
    for (int i = 0; i < 300; ++i)
        content += "1 0 0 1 0 " + std::to_string(10 * i) + " Tm " + line + "> Tj\n";
    return make_pdf_of_content(content + "ET", "0 0 50000 3200");
}

TEST(AcrobatTextReader, RefusesAPageOfMillions) {
    TextReader reader(bytes_of(page_of_millions(8)), "");
    EXPECT_THROW(reader.page(0), Unreadable);
}

TEST(AcrobatTextReader, LeavesOutTheMillionsThatNobodyCanRead) {
    TextReader reader(bytes_of(page_of_millions(1)), "");
    EXPECT_EQ(reader.page(0)->letters.size(), 50'000U);
}

}  // namespace
}  // namespace foliant::hosts::acrobat::text
