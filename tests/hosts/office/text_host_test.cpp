// Text files in Word, as the members for text files set them up.

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <utility>

#include "automation/object.h"
#include "automation/value.h"
#include "hosts/office/noting_machine.h"
#include "hosts/office/office_module.h"
#include "hosts/office/pdf_reader.h"
#include "hosts/office/scratch.h"
#include "hosts/process/host_process.h"
#include "support/error_of.h"
#include "support/scratch_folder.h"

namespace foliant::hosts::office {
namespace {

using automation::Value;
using test::PdfReader;

class TextHost : public testing::Test {
  protected:
    Value open(std::string_view content) {
        const auto file = folder.write("notes.txt", content);
        return word.get("Documents").call("Open", {file.string()});
    }

    PdfReader print(const Value& document) {
        machine.answer = (folder / "out.pdf").string();
        word.set("ActivePrinter", "Adobe PDF");
        document.call("PrintOut");
        return PdfReader(folder / "out.pdf");
    }

    std::string printed(std::string_view content) { return print(open(content)).text(1); }

    tests::ScratchFolder folder;
    test::NotingMachine machine;
    process::HostProcess host{{"Word", "LibreOffice Writer", test::office_module}, machine};
    Value word = host.create("Word.Application");
};

TEST(TextPaper, IsTheSystems) {
    for (const auto& [paper, size] : {std::pair("letter", "612 x 792"), std::pair("a4", "595 x 842")}) {
        const tests::ScratchFolder folder;
        test::NotingMachine machine;
        ::setenv("PAPERSIZE", paper, 1);
        process::HostProcess host{{"Word", "LibreOffice Writer", test::office_module}, machine};
        const Value word = host.create("Word.Application");
        ::unsetenv("PAPERSIZE");
        const Value document =
            word.get("Documents").call("Open", {folder.write("notes.txt", "words").string()});
        machine.answer = (folder / "out.pdf").string();
        word.set("ActivePrinter", "Adobe PDF");
        document.call("PrintOut");
        EXPECT_EQ(PdfReader(folder / "out.pdf").size(1), size);
    }
}

Value font_of(const Value& document) {
    return document.get("Content").get("Font");
}

TEST_F(TextHost, ReadsUtf8WithAndWithoutAMark) {
    EXPECT_EQ(printed("Łódź, Ελλάδα\r\nМосква\r\n"), "Łódź, Ελλάδα / Москва");
    EXPECT_EQ(printed("\xEF\xBB\xBFŁódź\n"), "Łódź");
}

TEST_F(TextHost, ReadsUtf16InBothByteOrders) {
    using namespace std::string_view_literals;
    EXPECT_EQ(printed("\xFF\xFE\x41\x01\xF3\x00\x0D\x00\x0A\x00z\x00"sv), "Łó / z");
    EXPECT_EQ(printed("\xFE\xFF\x01\x41\x00\xF3\x00\x0D\x00\x0A\x00z"sv), "Łó / z");
}

TEST_F(TextHost, ReadsEveryKindOfLineEnd) {
    EXPECT_EQ(printed("one\rtwo\r"), "one / two");
    EXPECT_EQ(printed("one\ntwo\n"), "one / two");
    EXPECT_EQ(printed("one\r\ntwo\r\n"), "one / two");
}

TEST_F(TextHost, BeginsAPageAtAFormFeed) {
    const PdfReader pdf = print(open("before\fafter\n"));
    ASSERT_EQ(pdf.pages(), 2);
    EXPECT_EQ(pdf.text(1), "before");
    EXPECT_EQ(pdf.text(2), "after");
}

TEST_F(TextHost, SetsTabsAndWrapsLinesThatAreTooLong) {
    const PdfReader pdf = print(open("a\tb\n" + std::string(390, 'x') + " end\n"));
    EXPECT_GT(pdf.place(1, "b").left - pdf.place(1, "a").left, 30);
    EXPECT_GT(pdf.place(1, "end").top - pdf.place(1, "a").top, 40);
    EXPECT_GT(pdf.place(1, "end").left, pdf.place(1, "a").left);
}

TEST_F(TextHost, TheFontIsThatOfAllTheText) {
    const Value document = open("first\n\nlast, Москва\n");
    const Value font = font_of(document);
    font.set("Name", "Liberation Serif");
    font.set("Size", std::int16_t{20});
    font.set("Bold", true);
    font.set("Italic", true);
    font.set("Color", std::int32_t{0x0000FF});
    const PdfReader pdf = print(document);
    for (const char* words : {"first", "last", "Москва"}) {
        const PdfReader::Look look = pdf.look(1, words);
        EXPECT_NE(look.font.find("LiberationSerif-BoldItalic"), std::string::npos) << look.font;
        EXPECT_NEAR(look.points, 20, 0.2) << words;
        EXPECT_EQ(look.color, "#ff0000") << words;
    }
}

TEST_F(TextHost, AnUnderlineIsDrawn) {
    const auto printed_size = [&](bool underlined) {
        const Value document = open("words\n");
        font_of(document).set("Underline", underlined);
        print(document);
        return std::filesystem::file_size(folder / "out.pdf");
    };
    EXPECT_GT(printed_size(true), printed_size(false));
}

TEST_F(TextHost, WithoutANameTheTextStandsInAFontOfEvenWidth) {
    const Value document = open("iiii\nMMMM\n");
    font_of(document).set("Size", std::int16_t{8});
    const PdfReader::Look look = print(document).look(1, "MMMM");
    EXPECT_NE(look.font.find("Mono"), std::string::npos) << look.font;
    EXPECT_NEAR(look.points, 8, 0.2);
    EXPECT_EQ(look.color, "#000000");
}

TEST_F(TextHost, ResetGivesTheTextBackItsOwnFormatting) {
    const Value document = open("words\n");
    const Value font = font_of(document);
    const Value name = font.get("Name");
    const Value size = font.get("Size");
    font.set("Name", "Liberation Serif");
    font.set("Size", std::int16_t{20});
    font.set("Bold", true);
    EXPECT_EQ(font.get("Bold"), Value(true));
    font.call("Reset");
    EXPECT_EQ(font.get("Name"), name);
    EXPECT_EQ(font.get("Size"), size);
    EXPECT_EQ(font.get("Bold"), Value(false));
    EXPECT_NE(print(document).look(1, "words").font.find("Mono"), std::string::npos);
}

TEST_F(TextHost, TheFontOfADocumentIsSetOverItsOwnFormatting) {
    const Value document = word.get("Documents").call("Open", {test::document("one.docx").string()});
    font_of(document).set("Name", "Liberation Mono");
    font_of(document).set("Size", 20.0F);
    const PdfReader pdf = print(document);
    const std::string text = pdf.text(1);
    const PdfReader::Look look = pdf.look(1, text.substr(0, text.find(' ')));
    EXPECT_NE(look.font.find("LiberationMono"), std::string::npos) << look.font;
    EXPECT_NEAR(look.points, 20, 0.2);
}

TEST_F(TextHost, TellsWhatItWasTold) {
    const Value document = open("words\n");
    const Value font = font_of(document);
    font.set("Name", "Liberation Serif");
    font.set("Size", 10.5F);
    font.set("Color", std::int32_t{0x123456});
    font.set("Underline", std::int32_t{1});
    EXPECT_EQ(font.get("Name"), Value("Liberation Serif"));
    EXPECT_EQ(font.get("Size"), Value(10.5F));
    EXPECT_EQ(font.get("Color"), Value(std::int32_t{0x123456}));
    EXPECT_EQ(font.get("Underline"), Value(std::int32_t{1}));
    EXPECT_EQ(font.get("Italic"), Value(false));
}

TEST_F(TextHost, MarginsAreThePointsFromThePapersEdgesToTheText) {
    const Value document = open("words\n");
    const Value setup = document.get("PageSetup");
    setup.set("LeftMargin", 144.0F);
    setup.set("TopMargin", 100.0F);
    EXPECT_NEAR(*setup.get("LeftMargin").if_holds<float>(), 144, 0.1);
    const PdfReader pdf = print(document);
    EXPECT_NEAR(pdf.place(1, "words").left, 144, 1);
    EXPECT_NEAR(pdf.place(1, "words").top, 100, 4);
}

TEST_F(TextHost, MarginsCountUpToTheTextAlsoWhereThereIsAPageNumber) {
    const Value document = open("words\n");
    document.get("Sections", {std::int16_t{1}})
        .get("Headers", {std::int16_t{1}})
        .get("PageNumbers")
        .call("Add", {std::int16_t{1}, true});
    document.get("PageSetup").set("TopMargin", 150.0F);
    const PdfReader pdf = print(document);
    EXPECT_NEAR(pdf.place(1, "words").top, 150, 4);
    EXPECT_LT(pdf.place(1, "1").top, 60);
}

TEST_F(TextHost, RefusesWhatNoPageOrFontHas) {
    const Value document = open("words\n");
    const auto number = [](auto&& call) { return tests::error_of(call).number(); };
    EXPECT_EQ(number([&] { document.get("PageSetup").set("LeftMargin", 1000.0F); }), 4608);
    EXPECT_EQ(number([&] { document.get("PageSetup").set("LeftMargin", -1.0F); }), 4608);
    EXPECT_EQ(number([&] { font_of(document).set("Size", std::int16_t{0}); }), 4608);
    EXPECT_EQ(number([&] { font_of(document).set("Size", std::int16_t{1639}); }), 4608);
    EXPECT_EQ(number([&] { font_of(document).set("Color", std::int32_t{0x1000000}); }), 4608);
    EXPECT_EQ(number([&] { font_of(document).set("Underline", std::int32_t{7}); }), 4608);
}

TEST_F(TextHost, AClosedDocumentHasNoFontAnyMore) {
    const Value document = open("words\n");
    const Value font = font_of(document);
    document.call("Close", {false});
    EXPECT_EQ(tests::error_of([&] { font.set("Bold", true); }).number(), 5825);
}

TEST_F(TextHost, PrintsAMegabyteOfText) {
    std::string content;
    while (content.size() < 1048576)
        content += "The quick brown fox jumps over the lazy dog, again and again.\n";
    const Value document = open(content);
    font_of(document).set("Size", std::int16_t{8});
    const PdfReader pdf = print(document);
    EXPECT_GT(pdf.pages(), 150);
    EXPECT_NE(pdf.text(pdf.pages()).find("lazy dog"), std::string::npos);
}

TEST_F(TextHost, StartsNoOfficeForAPlainText) {
    const auto profiles = [&] {
        const std::filesystem::recursive_directory_iterator files(machine.private_folder());
        return std::ranges::count_if(files,
                                     [](const auto& file) { return file.path().filename() == "office"; });
    };
    const auto before = profiles();
    print(open("words\n"));
    EXPECT_EQ(profiles(), before);
    word.get("Documents").call("Open", {test::document("one.docx").string()});
    EXPECT_EQ(profiles(), before + 1);
}

TEST_F(TextHost, SaysTheLanguageThatTheOfficeTakesATextFor) {
    print(open("words\n"));
    EXPECT_NE(tests::read_file(folder / "out.pdf").find("/Lang (en-US)"), std::string::npos);
}

TEST_F(TextHost, ReadsWhatIsNoUtf8InTheCodePageOfTheUser) {
    EXPECT_EQ(printed("Gr\xF6\xDF"
                      "e\r\n"),
              "Größe");
}

TEST_F(TextHost, StrayZerosAreBlanks) {
    const std::string lines(70000, '\n');
    const PdfReader pdf = print(open(lines + "a" + std::string(2, '\0') + "b\n"));
    EXPECT_EQ(pdf.text(pdf.pages()), "a / b") << "poppler parts words that are so far from each other";
}

TEST_F(TextHost, PageNumbersStandInTheMarginWhereTheyAreWished) {
    const Value document = open("first\fsecond\n");
    const Value section = document.get("Sections", {std::int16_t{1}});
    const auto add = [&](const char* band, std::int16_t alignment, bool on_first) {
        section.get(band, {std::int16_t{1}}).get("PageNumbers").call("Add", {alignment, on_first});
    };
    add("Footers", 2, false);
    add("Headers", 0, true);
    const PdfReader pdf = print(document);
    EXPECT_EQ(pdf.text(1), "1 / first");
    EXPECT_EQ(pdf.text(2), "2 / second / 2");
    EXPECT_NEAR(pdf.place(2, "2").left, 56.7, 1);
    EXPECT_NEAR(pdf.place(2, "2").top, 29, 2);
    EXPECT_NEAR(pdf.place(2, "second").top, 56.7, 2);
}

TEST_F(TextHost, AMarginEndsWhereTheHeaderDoes) {
    const Value document = open("words\n");
    document.get("Sections", {std::int16_t{1}})
        .get("Headers", {std::int16_t{1}})
        .get("PageNumbers")
        .call("Add", {std::int16_t{1}, true});
    document.get("PageSetup").set("TopMargin", 10.0F);
    EXPECT_NEAR(*document.get("PageSetup").get("TopMargin").if_holds<float>(), 31.2, 0.1);
    EXPECT_NEAR(print(document).place(1, "words").top, 42, 2);
}

TEST_F(TextHost, APageLiesInLandscapeWithItsMargins) {
    const Value document = open("words\n");
    const Value setup = document.get("PageSetup");
    setup.set("TopMargin", 100.0F);
    setup.set("Orientation", std::int16_t{1});
    EXPECT_EQ(setup.get("Orientation"), Value(std::int32_t{1}));
    EXPECT_NEAR(*setup.get("LeftMargin").if_holds<float>(), 100, 0.1);
    const PdfReader pdf = print(document);
    EXPECT_TRUE(pdf.size(1) == "792 x 612" || pdf.size(1) == "842 x 595") << pdf.size(1);
    EXPECT_NEAR(pdf.place(1, "words").left, 100, 1);
}

TEST_F(TextHost, PrintsTheAskedPagesInTheirOrder) {
    const Value document = open("one\ftwo\fthree\n");
    machine.answer = (folder / "out.pdf").string();
    word.set("ActivePrinter", "Adobe PDF");
    document.call("PrintOut",
                  {automation::named("Range", std::int16_t{4}), automation::named("Pages", "3-2,1")});
    const PdfReader pdf(folder / "out.pdf");
    ASSERT_EQ(pdf.pages(), 3);
    EXPECT_EQ(pdf.text(1) + pdf.text(2) + pdf.text(3), "threetwoone");
    const auto error = tests::error_of([&] {
        document.call("PrintOut",
                      {automation::named("Range", std::int16_t{4}), automation::named("Pages", "4")});
    });
    EXPECT_EQ(error.number(), 4608);
    EXPECT_NE(error.description().find("has 3 pages"), std::string::npos) << error.description();
}

TEST_F(TextHost, PagesHaveAsManyLinesAsInTheOffice) {
    std::string content;
    for (int line = 0; line < 200; ++line)
        content += "line\n";
    const Value document = open(content);
    document.get("PageSetup").set("Orientation", std::int16_t{0});
    font_of(document).set("Size", std::int16_t{8});
    const PdfReader pdf = print(document);
    const bool is_letter = pdf.size(1) == "612 x 792";
    EXPECT_EQ(std::ranges::count(pdf.text(1), '/'), is_letter ? 73 : 79);
}

}  // namespace
}  // namespace foliant::hosts::office
