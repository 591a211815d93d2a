// Reading DXF: groups, texts, layouts.

#include "hosts/autocad/drawing/drawing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/autocad/dxf_text.h"

namespace foliant::hosts::autocad {
namespace {

using test::DxfText;
using testing::ElementsAre;

std::string why_unreadable(const std::string& bytes) {
    try {
        const Drawing drawing(bytes);
    } catch (const Unreadable& failure) {
        return failure.what();
    }
    return "it is readable";
}

std::vector<std::string> layout_names(const Drawing& drawing) {
    std::vector<std::string> names;
    for (const Layout& layout : drawing.layouts())
        names.push_back(layout.name);
    return names;
}

const std::string line = "LINE|8=0|10=0|20=0|11=5|21=0";

TEST(Dxf, IsReadAlikeAsTextAndInItsBinaryForm) {
    const std::string text = DxfText{.entities = {line, "CIRCLE|8=Walls|62=3|10=1.5|20=-2|40=0.25"}}.text();
    const Drawing binary(test::binary_form(text));
    const auto& entities = binary.layouts().front().content->entities;
    ASSERT_EQ(entities.size(), 2U);
    EXPECT_EQ(entities[1].type, "CIRCLE");
    EXPECT_EQ(entities[1].tags.text(8), "Walls");
    EXPECT_EQ(entities[1].tags.integer(62), 3);
    EXPECT_EQ(entities[1].tags.point(10), (Point{1.5, -2, 0}));
    EXPECT_EQ(entities[1].tags.number(40), 0.25);
}

TEST(Dxf, KeepsWhatWasReadOfAFileThatBreaksOff) {
    const std::string text = DxfText{.entities = {line, line}}.text();
    const Drawing drawing(text.substr(0, text.rfind("LINE") + 8));
    EXPECT_EQ(drawing.layouts().front().content->entities.size(), 2U);
}

TEST(Dxf, MayEndItsLinesInEveryWay) {
    for (const std::string end : {"\r\n", "\r"}) {
        std::string text = DxfText{.entities = {line}}.text();
        for (std::size_t at = text.find('\n'); at != std::string::npos; at = text.find('\n', at + end.size()))
            text.replace(at, 1, end);
        EXPECT_EQ(Drawing(text).layouts().front().content->entities.size(), 1U);
    }
}

TEST(Dxf, IsRefusedWithTheLineThatIsWrong) {
    EXPECT_EQ(why_unreadable("Dear Sir,\nplease find\n"), "does not begin as one");
    EXPECT_EQ(why_unreadable(""), "does not begin as one");
    EXPECT_EQ(why_unreadable("0\nSECTION\n2\nENTITIES\nnonsense\nmore\n"),
              "is damaged: line 5 should hold the code of a group and does not");
}

TEST(Dxf, HasItsTextsInTheEncodingOfItsCodePage) {
    const auto read = [](const std::string& version, const std::string& page, const std::string& raw) {
        return TextDecoder(version, page)(raw);
    };
    EXPECT_EQ(read("AC1015", "ANSI_1252",
                   "Gr\xF6\xDF"
                   "e"),
              "Größe");
    EXPECT_EQ(read("AC1009", "ansi_1251", "\xCF\xEB\xE0\xED"), "План");
    EXPECT_EQ(read("AC1018", "ANSI_932", "\x90\x7D"), "図");
    EXPECT_EQ(read("AC1027", "ANSI_1252", "Größe"), "Größe") << "from AC1021 on it is UTF-8";
    EXPECT_EQ(read("AC1027", "",
                   "Gr\xF6\xDF"
                   "e"),
              "Größe")
        << "what is none all the same";
    EXPECT_EQ(read("AC1015", "ANSI_1252", "\\U+00D8 5, \\M+1907D"), "Ø 5, 図");
}

TEST(Dxf, StandsForSignsWithPercentCodes) {
    EXPECT_EQ(expand_percent_codes("%%c10 %%P0.1 45%%d 100%%% %%065 %%"), "⌀10 ±0.1 45° 100% A %%");
    std::string switches;
    EXPECT_EQ(
        expand_percent_codes("a%%uB%%Oc",
                             [&](char code, std::size_t at) { switches += code + std::to_string(at) + " "; }),
        "aBc");
    EXPECT_EQ(switches, "u1 o2 ");
}

DxfText with_layouts() {
    return {.tables = {"BLOCK_RECORD|5=A|2=*Model_Space", "BLOCK_RECORD|5=B|2=*Paper_Space",
                       "BLOCK_RECORD|5=C|2=*Paper_Space0"},
            .objects = {"LAYOUT|100=AcDbPlotSettings|1=setup|100=AcDbLayout|1=Second|71=2|330=C",
                        "LAYOUT|100=AcDbPlotSettings|100=AcDbLayout|1=First|71=1|330=B",
                        "LAYOUT|100=AcDbPlotSettings|100=AcDbLayout|1=Model|71=0|330=A"}};
}

TEST(Drawing, HasItsModelFirstAndThenTheLayoutsByTheirTabs) {
    EXPECT_THAT(layout_names(Drawing(with_layouts().text())), ElementsAre("Model", "First", "Second"));
}

TEST(Drawing, PutsEntitiesOnTheLayoutThatTheyAreDrawnOn) {
    DxfText text = with_layouts();
    text.entities = {line, "POINT|8=0|67=1|10=1|20=1", "CIRCLE|8=0|10=0|20=0|40=1"};
    text.blocks = {"BLOCK|2=*Paper_Space0", "TEXT|8=0|67=1|10=0|20=0|40=1|1=on the second", "ENDBLK"};
    const Drawing drawing(text.text());
    EXPECT_EQ(drawing.layouts()[0].content->entities.size(), 2U);
    ASSERT_EQ(drawing.layouts()[1].content->entities.size(), 1U);
    EXPECT_EQ(drawing.layouts()[1].content->entities[0].type, "POINT");
    ASSERT_EQ(drawing.layouts()[2].content->entities.size(), 1U);
    EXPECT_EQ(drawing.layouts()[2].content->entities[0].type, "TEXT");
}

TEST(Drawing, TakesTheWordOfWhoeverKnowsWhichLayersAreOff) {
    const std::string text = DxfText{.tables = {"LAYER|2=Walls|62=-1", "LAYER|2=Doors|62=-2"}}.text();
    EXPECT_FALSE(Drawing(text).layer("walls").is_shown);
    const Drawing drawing(text, NameSet{"doors"});
    EXPECT_TRUE(drawing.layer("Walls").is_shown);
    EXPECT_FALSE(drawing.layer("Doors").is_shown);
}

TEST(Drawing, OfRelease12HasASheetWhenAnythingStandsOnIt) {
    DxfText text{.entities = {line}, .version = "AC1009"};
    EXPECT_THAT(layout_names(Drawing(text.text())), ElementsAre("Model"));
    text.entities.emplace_back("LINE|8=0|67=1|10=0|20=0|11=1|21=1");
    EXPECT_THAT(layout_names(Drawing(text.text())), ElementsAre("Model", "Layout1"));
}

}  // namespace
}  // namespace foliant::hosts::autocad
