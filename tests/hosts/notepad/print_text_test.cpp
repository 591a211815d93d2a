#include "hosts/notepad/print_text.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

#include "hosts/office/pdf_reader.h"
#include "support/scratch_folder.h"

namespace foliant::hosts::notepad {
namespace {

using office::test::PdfReader;

constexpr pages::Paper letter{612, 792};

class PrintText : public testing::Test {
  protected:
    PdfReader printed(std::string_view text, const std::string& name = "notes.txt",
                      const std::function<void(int)>& on_progress = {}) {
        std::string bytes;
        pages::PageWriter writer(letter, {}, [&](std::string_view piece) { bytes += piece; });
        print_text(text, name, letter, writer, on_progress);
        writer.finish();
        return PdfReader(folder.write("out.pdf", bytes));
    }

    tests::ScratchFolder folder;
};

std::string framed(const std::string& text, int page = 1) {
    return "notes.txt / " + text + " / Page " + std::to_string(page);
}

TEST_F(PrintText, PutsNameAndPageNumberAroundEachPage) {
    const PdfReader pdf = printed("first\n\fsecond\n");
    ASSERT_EQ(pdf.pages(), 2);
    EXPECT_EQ(pdf.text(1), framed("first"));
    EXPECT_EQ(pdf.text(2), framed("second", 2));
    EXPECT_EQ(pdf.size(2), "612 x 792");
}

TEST_F(PrintText, KeepsNotepadsMargins) {
    const PdfReader pdf = printed("first\n");
    EXPECT_NEAR(pdf.place(1, "first").left, 54, 0.5);
    EXPECT_NEAR(pdf.place(1, "notes.txt").top, 72, 3);
    EXPECT_NEAR(pdf.place(1, "first").top, 72 + 2 * 11.64, 3) << "a blank line below the head";
    EXPECT_NEAR(pdf.place(1, "Page 1").top, 792 - 72 - 11.64, 3);
    const double head = pdf.place(1, "notes.txt").left;
    EXPECT_NEAR(head + 9 * 6.02 / 2, 306, 1) << "in the middle";
    EXPECT_NEAR(pdf.look(1, "first").points, 10, 0.1);
}

TEST_F(PrintText, EndsLinesAtEveryKindOfLineEnd) {
    EXPECT_EQ(printed("one\rtwo\nthree\r\nfour").text(1), framed("one / two / three / four"));
    const PdfReader pdf = printed("one\n\r\n\rfour\n");
    EXPECT_NEAR(pdf.place(1, "four").top - pdf.place(1, "one").top, 3 * 11.64, 0.5);
}

TEST_F(PrintText, WrapsBetweenWordsAndLongWordsWhereTheyAreFull) {
    // 83 letters of 6.02 points fill 504 points.
    const std::string first(80, 'a');
    const std::string word(100, 'w');
    EXPECT_EQ(printed(first + " bcde").text(1), framed(first + " / bcde"));
    EXPECT_EQ(printed(word).text(1), framed(word.substr(0, 83) + " / " + word.substr(83)));
}

std::string without(std::string text, const std::string& part) {
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at))
        text.erase(at, part.size());
    return text;
}

TEST_F(PrintText, WrapsALineOfAnyLength) {
    std::string line;
    for (int i = 10'000; i < 20'000; ++i)
        line += std::to_string(i) + " ";
    const PdfReader pdf = printed(line);
    std::string all;
    for (int page = 1; page <= pdf.pages(); ++page)
        all += without(without(pdf.text(page), "notes.txt / "), "Page " + std::to_string(page));
    // A line holds 14 numbers, whatever part of the whole was laid out at once.
    EXPECT_EQ(without(all, "/ "), line);
    EXPECT_EQ(std::ranges::count(all, '/'), 715);
}

TEST_F(PrintText, SetsATabAtEveryEighthLetter) {
    const PdfReader pdf = printed("a\tb\n12345678\tc\n");
    EXPECT_NEAR(pdf.place(1, "b").left - 54, 8 * 6.02, 0.5);
    EXPECT_NEAR(pdf.place(1, "c").left - 54, 16 * 6.02, 0.5);
}

TEST_F(PrintText, BeginsAPageAtEachFormFeedButTheLastAndAFirst) {
    EXPECT_EQ(printed("a\fb\f").pages(), 2);
    EXPECT_EQ(printed("\fa\n").pages(), 1);
    const PdfReader pdf = printed("a\n\f\fb\n");
    ASSERT_EQ(pdf.pages(), 3);
    EXPECT_EQ(pdf.text(2), "notes.txt / Page 2");
    EXPECT_EQ(pdf.text(3), framed("b", 3));
}

TEST_F(PrintText, FillsAPageBeforeItBeginsAnother) {
    std::string lines;
    for (int i = 0; i < 51; ++i)
        lines += "line\n";
    EXPECT_EQ(printed(lines).pages(), 1);
    EXPECT_EQ(printed(lines + "line\n").pages(), 2);
}

TEST_F(PrintText, HasAPageForATextWithoutALetter) {
    for (const char* text : {"", "\n", "\f"})
        EXPECT_EQ(printed(text).text(1), "notes.txt / Page 1");
}

TEST_F(PrintText, BeginsWritingFromTheRightAtTheRightMargin) {
    const PdfReader pdf = printed("latin\nשלום עולם\n");
    EXPECT_NEAR(pdf.place(1, "latin").left, 54, 0.5);
    EXPECT_GT(pdf.place(1, "שלום").left, 450);
}

TEST_F(PrintText, ShortensANameThatIsTooLongForTheHead) {
    const PdfReader pdf = printed("here\n", "begin" + std::string(200, 'x') + "end.txt");
    EXPECT_GT(pdf.place(1, "begin").left, 53);
    EXPECT_NEAR(pdf.place(1, "end.txt").top, pdf.place(1, "begin").top, 1);
    EXPECT_NEAR(pdf.place(1, "here").top, 72 + 2 * 11.64, 3);
}

TEST_F(PrintText, TellsHowFarItIs) {
    std::vector<int> told;
    printed("a\nb\nc\nd\n", "a.txt", [&](int percent) { told.push_back(percent); });
    EXPECT_EQ(told, (std::vector<int>{25, 50, 75, 100}));
}

}  // namespace
}  // namespace foliant::hosts::notepad
