#include "automation/coerce.h"
#include "hosts/acrobat/fixture.h"
#include "hosts/acrobat/rectangle.h"
#include "hosts/acrobat/written_pages.h"

namespace foliant::hosts::acrobat {
namespace {

using automation::ObjectPtr;
using automation::Value;
using test::AcrobatTest;
using test::line;
using test::PdfText;
using test::written;
using tests::failure;

class Text : public AcrobatTest {
  protected:
    Value rectangle(std::int32_t right, std::int32_t top) {
        Value made = ObjectPtr(std::make_shared<AcrobatRectangle>());
        made.set("Left", std::int16_t{0});
        made.set("Right", right);
        made.set("bottom", std::int16_t{0});
        made.set("Top", top);
        return made;
    }

    std::string words_of(const Value& document, std::int32_t page) {
        const Value selection = document.call("CreateTextSelect", {page, rectangle(6120, 7920)});
        std::string text;
        for (std::int32_t i = 0; i < automation::to_int32(selection.call("GetNumText")); ++i)
            text += "[" + automation::to_text(selection.call("GetText", {i})) + "]";
        return text;
    }
};

TEST_F(Text, OfAPageComesWordByWord) {
    const Value document =
        document_on(written({line("The first page"), line("And the", 700) + line("second", 686)}).file());
    EXPECT_EQ(words_of(document, 0), "[The ][first ][page\r\n]");
    EXPECT_EQ(words_of(document, 1), "[And ][the\r\n][second\r\n]");
}

TEST_F(Text, APageTellsItsSizeAsItIsShown) {
    const auto size = [&](const std::string& entries) {
        const Value point =
            document_on(written({""}, entries).file()).call("AcquirePage", {std::int32_t{0}}).call("GetSize");
        return std::to_string(automation::to_int32(point.get("x"))) + " x " +
               std::to_string(automation::to_int32(point.get("y")));
    };
    EXPECT_EQ(size(""), "612 x 792");
    EXPECT_EQ(size("/Rotate 90"), "792 x 612");
    EXPECT_EQ(size("/Rotate -90"), "792 x 612");
    EXPECT_EQ(size("/CropBox [100 100 300 900]"), "200 x 692");
    EXPECT_EQ(size("/UserUnit 2"), "1224 x 1584");
    EXPECT_EQ(size("/MediaBox [0 0 1e30 5]"), "612 x 792");
}

TEST_F(Text, PagesOfATreeOfSeveralLevelsAreFoundInAnyOrder) {
    PdfText pdf;
    pdf.set(2, "<< /Type /Pages /Kids [3 0 R 4 0 R 9 0 R 7 0 R] /Count 4 >>");
    pdf.set(3, "<< /Type /Pages /Kids [5 0 R 6 0 R 2 0 R] /Count 2 /MediaBox [0 0 30 40] >>");
    pdf.set(5, "<< /Type /Page >>");
    pdf.set(6, "<< /Type /Page /MediaBox [0 0 10 20] >>");
    pdf.set(4, "<< /Type /Page /MediaBox [0 0 50 60] >>");
    pdf.set(7, "<< /Type /Page >>");
    const Value document = document_on(pdf.file());
    const auto width = [&](std::int32_t page) {
        return automation::to_int32(document.call("AcquirePage", {page}).call("GetSize").get("x"));
    };
    EXPECT_EQ(width(1), 10);
    EXPECT_EQ(width(0), 30);
    EXPECT_EQ(width(3), 612);
    EXPECT_EQ(width(2), 50);
    EXPECT_EQ(failure([&] { width(4); }),
              "9 " + (folder.path() / "document.pdf").string() + " has 4 pages, and none of number 5.");
    EXPECT_EQ(saved(document)->pages().size(), 4U);
}

TEST_F(Text, PagesOfAFileThatCountsNonsenseAreReadAndSearched) {
    for (const char* count : {"0", "-5", "2147483647", "(two)"}) {
        PdfText pdf = written({line("one"), line("two")});
        const Value document = document_on(
            pdf.set(2, std::string("<< /Type /Pages /Kids [10 0 R 12 0 R] /Count ") + count + " >>").file());
        EXPECT_EQ(words_of(document, 1), "[two\r\n]") << count;
    }
}

TEST_F(Text, APageThatIsNotThereRaises) {
    const Value document = document_on(written({"", ""}).file());
    for (const std::int32_t page : {-1, 2}) {
        EXPECT_EQ(failure([&] { document.call("AcquirePage", {page}); }).substr(0, 2), "9 ");
        EXPECT_EQ(failure([&] {
                      document.call("CreateTextSelect", {page, rectangle(10, 10)});
                  }).substr(0, 2),
                  "9 ");
    }
    EXPECT_EQ(failure([&] {
                  document.call("CreateTextSelect", {std::int32_t{0}, "all"});
              }).substr(0, 3),
              "13 ");
}

TEST_F(Text, IsFoundAndTheWatcherIsToldWhere) {
    const Value viewer = document_on(written({line("nothing"), line("the needle, and a needle")}).file())
                             .call("OpenAVDoc", {""});
    EXPECT_EQ(viewer.call("FindText", {"Needle", false, true, true}), Value(true));
    EXPECT_EQ(viewer.call("FindText", {"Needle", true, true, true}), Value(false));
    ASSERT_EQ(machine.places.size(), 1U);
    EXPECT_EQ(machine.places[0].page, 2);
    EXPECT_EQ(machine.places[0].context, "the needle, and a needle");
    EXPECT_NEAR(machine.places[0].left, 92, 1);
    EXPECT_NEAR(machine.places[0].bottom, 697, 2);
}

TEST_F(Text, IsToldWithAllItsPlacesToAWatcherWhoWantsThem) {
    machine.wants_every_place = true;
    const Value viewer =
        document_on(written({line("one two one"), line("one")}).file()).call("OpenAVDoc", {""});
    EXPECT_EQ(viewer.call("FindText", {"one", false, false, true}), Value(true));
    EXPECT_EQ(machine.places.size(), 3U);
    machine.wants_every_place = false;
    viewer.call("FindText", {"one", false, false, false});
    EXPECT_NEAR(machine.places.back().left, 118, 2) << "the search goes on behind the first place";
}

TEST_F(Text, IsSearchedFromTheLastHitOn) {
    const Value viewer = document_on(written({line("a b c")}).file()).call("OpenAVDoc", {""});
    const auto found = [&](const char* text) {
        return viewer.call("FindText", {text, false, false, false}) == Value(true);
    };
    EXPECT_TRUE(found("b"));
    EXPECT_FALSE(found("a"));
    EXPECT_TRUE(found("c"));
    EXPECT_FALSE(found("c"));
    EXPECT_EQ(viewer.call("FindText", {"a", false, false, true}), Value(true));
}

TEST_F(Text, OfAClosedWindowIsNotSearched) {
    const Value viewer = document_on(written({line("a")}).file()).call("OpenAVDoc", {""});
    viewer.call("Close", {true});
    EXPECT_EQ(failure([&] {
                  viewer.call("FindText", {"a", false, false, true});
              }),
              "91 No document is open in this window.");
}

}  // namespace
}  // namespace foliant::hosts::acrobat
