#include "hosts/pages/page_writer.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <stdexcept>

#include "hosts/office/pdf_reader.h"
#include "hosts/pages/pdf_language.h"
#include "support/scratch_folder.h"

namespace foliant::hosts::pages {
namespace {

using office::test::PdfReader;

constexpr Paper small{300, 400};

class PageWriterTest : public testing::Test {
  protected:
    void show(const char* text, double left, double top, const char* font = "monospace 10") {
        const LayoutPtr layout = writer.make_layout(font);
        pango_layout_set_text(layout.get(), text, -1);
        writer.show(layout.get(), left, top);
    }

    PdfReader finished() {
        writer.finish();
        return PdfReader(folder.write("out.pdf", bytes));
    }

    tests::ScratchFolder folder;
    std::string bytes;
    PageWriter writer{
        small, {.title = "Größe", .creator = "Test"}, [this](std::string_view piece) { bytes += piece; }};
};

TEST_F(PageWriterTest, WhatIsDrawnIsOnThePageThatWasBegunLast) {
    writer.start_page();
    show("first", 30, 40);
    writer.start_page();
    show("second", 30, 40);
    EXPECT_EQ(writer.page(), 2);
    const PdfReader pdf = finished();
    ASSERT_EQ(pdf.pages(), 2);
    EXPECT_EQ(pdf.size(2), "300 x 400");
    EXPECT_EQ(pdf.text(1), "first");
    EXPECT_EQ(pdf.text(2), "second");
    EXPECT_EQ(pdf.title(), "Größe");
}

TEST_F(PageWriterTest, LengthsAreInPointsFromTheUpperLeftCorner) {
    writer.start_page();
    show("here", 30, 40, "monospace 20");
    const PdfReader pdf = finished();
    EXPECT_NEAR(pdf.place(1, "here").left, 30, 1);
    EXPECT_NEAR(pdf.place(1, "here").top, 40, 4);
    EXPECT_NEAR(pdf.look(1, "here").points, 20, 0.1);
}

TEST_F(PageWriterTest, EveryScriptStaysText) {
    writer.start_page();
    show("office fi Łódź", 10, 10);
    show("Москва Ελλάδα", 10, 40);
    const PdfReader pdf = finished();
    EXPECT_EQ(pdf.text(1), "office fi Łódź / Москва Ελλάδα");
}

TEST_F(PageWriterTest, ATextCanBeMeasuredBeforeThereIsAPage) {
    const LayoutPtr layout = writer.make_layout("monospace 10");
    int ten = 0;
    int twenty = 0;
    pango_layout_set_text(layout.get(), "iiiiiiiiii", -1);
    pango_layout_get_size(layout.get(), &ten, nullptr);
    pango_layout_set_text(layout.get(), "WWWWWWWWWWWWWWWWWWWW", -1);
    pango_layout_get_size(layout.get(), &twenty, nullptr);
    EXPECT_NEAR(twenty, 2 * ten, 20);
    EXPECT_GT(ten / PANGO_SCALE, 40);
    EXPECT_LT(ten / PANGO_SCALE, 80);
}

/// More than a writer keeps for itself, whatever it does to make it less.
void draw_much(PageWriter& writer) {
    unsigned place = 1;
    const auto any = [&] {
        place = place * 1103515245U + 12345U;
        return (place >> 8U) % 10007U / 50.0;
    };
    for (int i = 0; i < 20'000; ++i) {
        cairo_line_to(writer.canvas(), any(), any());
    }
    cairo_stroke(writer.canvas());
}

TEST(PageWriter, ThrowsWhatItsSinkThrows) {
    PageWriter writer(small, {}, [](std::string_view) { throw std::length_error("full"); });
    writer.start_page();
    draw_much(writer);
    EXPECT_THROW(writer.start_page(), std::length_error) << "as soon as it is known";
    EXPECT_THROW(writer.finish(), std::length_error);
}

TEST(PageWriter, HandsOverWhatIsDoneBeforeItIsFinished) {
    std::size_t bytes = 0;
    PageWriter writer(small, {}, [&](std::string_view piece) { bytes += piece.size(); });
    writer.start_page();
    draw_much(writer);
    EXPECT_EQ(bytes, 0U);
    writer.start_page();
    EXPECT_GT(bytes, 50'000U);
}

TEST(UsualPaper, IsThatOfTheCountry) {
    for (const char* locale : {"en_US.UTF-8", "fr_CA", "es_MX@x", "C.UTF-8", ""})
        EXPECT_EQ(usual_paper(locale).width, 612) << locale;
    for (const char* locale : {"de_DE.UTF-8", "en_GB", "ja_JP@x"})
        EXPECT_NEAR(usual_paper(locale).height, 841.9, 0.1) << locale;
}

TEST(UsualPaper, IsThatOfTheUsersLocale) {
    ::setenv("LC_ALL", "de_DE.UTF-8", 1);
    EXPECT_NEAR(usual_paper().width, 595.3, 0.1);
    ::setenv("LC_ALL", "en_US.UTF-8", 1);
    EXPECT_EQ(usual_paper().width, 612);
    ::unsetenv("LC_ALL");
}

TEST_F(PageWriterTest, ALanguageCanBeSaidInTheCatalog) {
    writer.start_page();
    show("words", 30, 40);
    writer.finish();
    const std::string told = with_language(bytes, "de-AT");
    EXPECT_NE(told.find("/Lang (de-AT)\n>>\nendobj\nxref\n"), std::string::npos);
    EXPECT_EQ(told.substr(std::stoul(told.substr(told.rfind("startxref\n") + 10)), 5), "xref\n");
    EXPECT_EQ(PdfReader(folder.write("told.pdf", told)).text(1), "words");
}

TEST_F(PageWriterTest, WhatIsNotLikeThisStaysAsItIs) {
    EXPECT_EQ(with_language("%PDF-1.7", "en-US"), "%PDF-1.7");
}

}  // namespace
}  // namespace foliant::hosts::pages
