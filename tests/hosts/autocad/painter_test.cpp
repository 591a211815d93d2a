// What is drawn of each kind of entity.

#include "hosts/autocad/plot/painter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/autocad/dxf_text.h"
#include "hosts/autocad/noting_canvas.h"

namespace foliant::hosts::autocad {
namespace {

using test::drawn;
using test::DxfText;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> drawn_entities(std::vector<std::string> entities) {
    return drawn(DxfText{.entities = std::move(entities)}.text());
}

TEST(Entities, OfLinesAndArcs) {
    EXPECT_THAT(drawn_entities({"LINE|8=0|10=1|20=2|11=5|21=0", "CIRCLE|8=0|10=0|20=0|40=2",
                                "ARC|8=0|10=0|20=0|40=1|50=270|51=90",
                                "ELLIPSE|8=0|10=0|20=0|11=4|21=0|40=0.5|41=0|42=3.14159265"}),
                ElementsAre("stroke 1,2 - 5,0", "stroke 2,0 ~ 0,2 ~ -2,0 ~ 0,-2 ~ 2,0 closed",
                            "stroke 0,-1 ~ 1,0 ~ 0,1", "stroke 4,0 ~ 0,2 ~ -4,0"));
}

TEST(Entities, ArePutOnPaperFromTheCoordinatesOfObjectsThatLieOnTheirFace) {
    EXPECT_THAT(drawn_entities({"ARC|8=0|10=5|20=1|40=1|50=0|51=90|210=0|220=0|230=-1"}),
                ElementsAre("stroke -6,1 ~ -5,2"));
}

TEST(Entities, OfPolylinesHaveTheirBulgesAndWidths) {
    EXPECT_THAT(drawn_entities({"LWPOLYLINE|8=0|90=2|70=1|10=0|20=0|42=1|10=2|20=0",
                                "LWPOLYLINE|8=0|90=2|43=0.5|10=0|20=0|10=9|20=0",
                                "LWPOLYLINE|8=0|90=2|10=0|20=0|40=2|41=0|10=4|20=0"}),
                ElementsAre("stroke 0,0 ~ 1,-1 ~ 2,0 closed", "stroke 0,0 - 9,0 width 0.5",
                            "fill 0,1 - 4,0 - 4,0 - 0,-1 closed"));
    EXPECT_THAT(drawn_entities({"POLYLINE|8=0|66=1|70=1", "VERTEX|8=0|10=0|20=0", "VERTEX|8=0|10=3|20=0",
                                "VERTEX|8=0|10=3|20=3", "SEQEND"}),
                ElementsAre("stroke 0,0 - 3,0 - 3,3 closed"));
}

TEST(Entities, OfMeshesShowTheirEdges) {
    EXPECT_THAT(drawn_entities({"POLYLINE|8=0|66=1|70=64", "VERTEX|8=0|70=192|10=0|20=0",
                                "VERTEX|8=0|70=192|10=3|20=0", "VERTEX|8=0|70=192|10=3|20=3",
                                "VERTEX|8=0|70=128|71=1|72=-2|73=3", "SEQEND"}),
                ElementsAre("stroke 0,0 - 3,0 / 3,3 - 0,0"));
    EXPECT_THAT(drawn_entities({"3DFACE|8=0|10=0|20=0|11=2|21=0|12=2|22=2|13=0|23=2|70=2"}),
                ElementsAre("stroke 0,0 - 2,0 / 2,2 - 0,2 / 0,2 - 0,0"));
}

TEST(Entities, OfSplinesGoThroughTheirEnds) {
    const std::string knots = "|40=0|40=0|40=0|40=0|40=1|40=1|40=1|40=1";
    const auto notes = drawn_entities(
        {"SPLINE|8=0|70=8|71=3|72=8|73=4" + knots + "|10=0|20=0|10=1|20=2|10=3|20=2|10=4|20=0"});
    ASSERT_EQ(notes.size(), 1U);
    EXPECT_TRUE(notes[0].starts_with("stroke 0,0 - ")) << notes[0];
    EXPECT_NE(notes[0].find(" - 2,1.5 - "), std::string::npos) << "in the middle: " << notes[0];
    EXPECT_TRUE(notes[0].ends_with(" - 4,0")) << notes[0];
}

TEST(Entities, OfAreasAreFilled) {
    EXPECT_THAT(drawn_entities({"SOLID|8=0|62=1|10=0|20=0|11=2|21=0|12=0|22=1|13=2|23=1"}),
                ElementsAre("fill 0,0 - 2,0 - 2,1 - 0,1 closed rgb 1,0,0"));
}

const std::string square = "|91=1|92=2|72=0|73=1|93=4|10=0|20=0|10=4|20=0|10=4|20=4|10=0|20=4|97=0|75=0|76=1";

TEST(Hatches, AreFilledOrDrawnWithLinesThatAreCutToTheirBoundary) {
    EXPECT_THAT(drawn_entities({"HATCH|8=0|10=0|20=0|2=SOLID|70=1" + square}),
                ElementsAre("fill 0,0 - 4,0 - 4,4 - 0,4 - 0,0 closed"));
    const std::string lines = "|52=0|41=1|77=0|78=1|53=0|43=0|44=1|45=0|46=2|79=0";
    EXPECT_THAT(
        drawn_entities({"HATCH|8=0|10=0|20=0|2=LINES|70=0" + square + lines}),
        ElementsAre("clip 0,0 - 4,0 - 4,4 - 0,4 - 0,0 closed", "stroke 0,1 - 4,1 / 0,3 - 4,3", "unclip"));
}

TEST(Hatches, MayBeBoundByCurves) {
    const std::string disc = "|91=1|92=1|93=1|72=2|10=0|20=0|40=1|50=0|51=360|73=1|97=0|75=0|76=1";
    EXPECT_THAT(drawn_entities({"HATCH|8=0|10=0|20=0|2=SOLID|70=1" + disc}),
                ElementsAre("fill 1,0 ~ 0,1 ~ -1,0 ~ 0,-1 ~ 1,0 closed"));
}

TEST(Hatches, WithLinesTooNearToTellApartAreFilled) {
    const std::string lines = "|52=0|41=1|77=0|78=1|53=0|43=0|44=1|45=0|46=0.0001|79=0";
    EXPECT_THAT(drawn_entities({"HATCH|8=0|10=0|20=0|2=LINES|70=0" + square + lines}),
                testing::Contains("fill 0,0 - 4,0 - 4,4 - 0,4 - 0,0 closed"));
}

TEST(Texts, StandOnTheirPointAsTheyAreAligned) {
    const auto text = [](const std::string& more) { return "TEXT|8=0|10=0|20=0|40=2|1=Hall" + more; };
    const auto notes = drawn_entities({text(""), text("|72=2|73=3|11=50|21=20"), text("|72=4|11=50|21=20"),
                                       text("|50=90"), text("|72=5|11=0|21=8")});
    ASSERT_EQ(notes.size(), 5U);
    EXPECT_EQ(notes[0], "text \"Hall\" at 0,0 height 2");
    EXPECT_THAT(notes[1], testing::MatchesRegex("text .Hall. at 4[0-9.]+,18 height 2"));
    EXPECT_THAT(notes[2], testing::MatchesRegex("text .Hall. at 4[0-9.]+,19 height 2"));
    EXPECT_EQ(notes[3], "text \"Hall\" at 0,0 height 2 along 0,1");
    EXPECT_EQ(notes[4], "text \"Hall\" at 0,0 height 2 along 0,1") << "fitted between two points";
}

TEST(Texts, AreUnderlinedWherePercentSignsSaySo) {
    const auto notes = drawn_entities({"TEXT|8=0|10=0|20=0|40=2|1=a %%ub%%u c"});
    ASSERT_EQ(notes.size(), 4U);
    EXPECT_TRUE(notes[0].starts_with("text \"a \"")) << notes[0];
    EXPECT_TRUE(notes[1].starts_with("text \"b\"")) << notes[1];
    EXPECT_TRUE(notes[2].starts_with("stroke")) << notes[2];
    EXPECT_TRUE(notes[3].starts_with("text \" c\"")) << notes[3];
}

TEST(Texts, HaveTheFontOfTheirStyle) {
    const auto font = [](const std::string& file) {
        const DxfText text{.entities = {"TEXT|8=0|7=Mine|10=0|20=0|40=2|1=x"},
                           .tables = {"STYLE|2=MINE|3=" + file}};
        const Font found = font_of(Drawing(text.text()).style("mine"));
        return found.family + (found.is_bold ? " bold" : "") + (found.is_italic ? " italic" : "");
    };
    EXPECT_EQ(font("arialbd.ttf"), "Arial bold");
    EXPECT_EQ(font("C:\\Windows\\Fonts\\timesi.ttf"), "Times New Roman italic");
    EXPECT_EQ(font("txt.shx"), "Liberation Sans");
    EXPECT_EQ(font("romanc.shx"), "Liberation Serif");
    EXPECT_EQ(font("monotxt"), "monotxt");
    EXPECT_EQ(font("DejaVu Sans"), "DejaVu Sans");
}

TEST(Paragraphs, GoDownFromTheirTopAndChangeTheirLooks) {
    EXPECT_THAT(drawn_entities({"MTEXT|8=0|10=0|20=10|40=3|71=1|1=one {\\fArial!b1!i0;\\C1;two}\\Pthree"}),
                ElementsAre("text \"one \" at 0,7 height 3",
                            testing::MatchesRegex("text .two. at [0-9.]+,7 height 3 bold rgb 1,0,0"),
                            "text \"three\" at 0,2 height 3"));
}

TEST(Paragraphs, AreBrokenAtTheirWidth) {
    const auto notes = drawn_entities({"MTEXT|8=0|10=0|20=0|40=1|41=8|71=1|1=aaaaaa bbbbbb cccccc"});
    ASSERT_EQ(notes.size(), 3U);
    EXPECT_TRUE(notes[0].starts_with("text \"aaaaaa\" at 0,-1 ")) << notes[0];
    EXPECT_TRUE(notes[2].starts_with("text \"cccccc\" at 0,-4.333 ")) << notes[2];
}

TEST(Paragraphs, StackFractionsAndJoinTheGroupsOfALongText) {
    const auto notes = drawn_entities({"MTEXT|8=0|10=0|20=0|40=1|71=7|3=ab|1=c\\S1/2;"});
    ASSERT_EQ(notes.size(), 4U);
    EXPECT_EQ(notes[0], "text \"abc\" at 0,0 height 1");
    EXPECT_TRUE(notes[1].starts_with("text \"1\"")) << notes[1];
    EXPECT_TRUE(notes[2].starts_with("text \"2\"")) << notes[2];
    EXPECT_TRUE(notes[3].starts_with("stroke")) << notes[3];
}

TEST(Looks, ComeFromTheEntityItsLayerOrItsBlock) {
    DxfText text{
        .entities = {"LINE|8=Walls|10=0|20=0|11=1|21=0", "LINE|8=Walls|62=5|370=100|10=0|20=0|11=1|21=0",
                     "LINE|8=Walls|420=8388608|440=33554559|10=0|20=0|11=1|21=0",
                     "INSERT|8=Walls|2=B|62=3|10=0|20=0"},
        .blocks = {"BLOCK|2=b|10=0|20=0", "LINE|8=0|10=0|20=0|11=2|21=0", "LINE|8=0|62=0|10=0|20=0|11=3|21=0",
                   "ENDBLK"},
        .tables = {"LAYER|2=WALLS|62=1|370=50"}};
    EXPECT_THAT(
        drawn(text.text()),
        ElementsAre("stroke 0,0 - 1,0 rgb 1,0,0 width 1.417", "stroke 0,0 - 1,0 rgb 0,0,1 width 2.835",
                    "stroke 0,0 - 1,0 rgb 0.502,0,0 width 1.417 opacity 0.498",
                    "stroke 0,0 - 2,0 rgb 1,0,0 width 1.417", "stroke 0,0 - 3,0 rgb 0,1,0 width 1.417"));
}

TEST(Looks, OfLinesAreDashedByTheirLinetype) {
    DxfText text{
        .entities = {"LINE|8=0|6=Dashed|10=0|20=0|11=99|21=0", "LINE|8=0|6=Dots|48=2|10=0|20=0|11=99|21=0"},
        .tables = {"LTYPE|2=DASHED|49=5|49=-2", "LTYPE|2=DOTS|49=0|49=-3"},
        .variables = {"$LTSCALE|40=2"}};
    EXPECT_THAT(drawn(text.text()),
                ElementsAre("stroke 0,0 - 99,0 dashes 10,4", "stroke 0,0 - 99,0 dashes 0.7087,12"));
}

TEST(Looks, OfWhatIsWhiteOnTheScreenAreBlackOnPaper) {
    EXPECT_THAT(
        drawn_entities({"LINE|8=0|62=7|10=0|20=0|11=1|21=0", "LINE|8=0|420=16777215|10=0|20=0|11=1|21=0",
                        "SOLID|8=0|420=16777215|10=0|20=0|11=2|21=0|12=0|22=1|13=2|23=1"}),
        ElementsAre("stroke 0,0 - 1,0", "stroke 0,0 - 1,0", "fill 0,0 - 2,0 - 2,1 - 0,1 closed rgb 1,1,1"));
}

TEST(Layers, ThatAreOffFrozenOrForTheScreenOnlyAreNotPlotted) {
    DxfText text{.tables = {"LAYER|2=off|62=-1", "LAYER|2=frozen|70=1|62=1", "LAYER|2=screen|62=1|290=0",
                            "LAYER|2=Defpoints|62=7"}};
    for (const std::string layer : {"Off", "Frozen", "Screen", "DEFPOINTS"})
        text.entities.push_back("LINE|8=" + layer + "|10=0|20=0|11=1|21=0");
    text.entities.emplace_back("LINE|8=0|60=1|10=0|20=0|11=1|21=0");
    EXPECT_THAT(drawn(text.text()), IsEmpty());
}

TEST(Blocks, AreTurnedScaledMirroredAndRepeated) {
    DxfText text{.entities = {"INSERT|8=0|2=A|10=10|20=0|41=-2|42=1|50=90",
                              "INSERT|8=0|2=A|10=0|20=0|70=2|71=2|44=5|45=7"},
                 .blocks = {"BLOCK|2=A|10=1|20=0", "LINE|8=0|10=1|20=0|11=2|21=0", "ENDBLK"}};
    EXPECT_THAT(drawn(text.text()), ElementsAre("stroke 10,0 - 10,-2", "stroke 0,0 - 1,0", "stroke 5,0 - 6,0",
                                                "stroke 0,7 - 1,7", "stroke 5,7 - 6,7"));
}

TEST(Blocks, MayHoldBlocksAndBringAttributesAlong) {
    DxfText text{
        .entities = {"INSERT|8=0|2=Outer|66=1|10=5|20=5", "ATTRIB|8=0|10=6|20=6|40=1|1=No. 7|2=TAG|70=0",
                     "ATTRIB|8=0|10=6|20=4|40=1|1=hidden|2=OTHER|70=1", "SEQEND"},
        .blocks = {"BLOCK|2=Inner|10=0|20=0", "LINE|8=0|10=0|20=0|11=1|21=0", "ENDBLK",
                   "BLOCK|2=Outer|10=0|20=0", "INSERT|8=0|2=Inner|10=0|20=1|50=90",
                   "ATTDEF|8=0|10=0|20=0|40=1|1=usual|2=TAG|70=0", "ENDBLK"}};
    EXPECT_THAT(drawn(text.text()), ElementsAre("stroke 5,6 - 5,7", "text \"No. 7\" at 6,6 height 1"));
}

TEST(Blocks, ThatAreOtherDrawingsAreNotFetched) {
    DxfText text{.entities = {"INSERT|8=0|2=Site|10=0|20=0",
                              "IMAGE|8=0|10=0|20=0|11=0.1|21=0|12=0|22=0.1|13=20|23=10"},
                 .blocks = {"BLOCK|2=Site|70=4|1=/etc/passwd", "LINE|8=0|10=0|20=0|11=1|21=0", "ENDBLK"}};
    EXPECT_THAT(drawn(text.text()), ElementsAre("stroke 0,0 - 2,0 - 2,1 - 0,1 closed"));
}

TEST(Dimensions, AreDrawnAsTheirBlockHasThem) {
    DxfText text{
        .entities = {"DIMENSION|8=0|2=*D1|10=0|20=0|70=32", "LEADER|8=0|71=0|76=2|10=0|20=0|10=3|20=4"},
        .blocks = {"BLOCK|2=*D1|10=0|20=0", "LINE|8=0|10=0|20=0|11=9|21=0",
                   "MTEXT|8=0|10=4|20=1|40=1|71=7|1=9.00", "ENDBLK"}};
    EXPECT_THAT(drawn(text.text()),
                ElementsAre("stroke 0,0 - 9,0", "text \"9.00\" at 4,1 height 1", "stroke 0,0 - 3,4"));
}

TEST(Viewports, ShowTheModelThroughTheirFrame) {
    DxfText text{
        .entities =
            {"LINE|8=0|10=0|20=0|11=100|21=0", "LINE|8=Plumbing|10=0|20=0|11=100|21=0",
             "VIEWPORT|8=0|67=1|10=50|20=40|40=60|41=20|68=2|69=2|12=100|22=0|16=0|26=0|36=1|45=200|331=2F",
             "VIEWPORT|8=0|67=1|10=5|20=4|40=60|41=20|68=1|69=1|12=0|22=0|45=20"},
        .tables = {"LAYER|2=Plumbing|5=2F|62=1"}};
    EXPECT_THAT(drawn(text.text(), "Layout1"),
                ElementsAre("clip 20,30 - 80,30 - 80,50 - 20,50 closed", "stroke 40,40 - 50,40", "unclip",
                            "stroke 20,30 - 80,30 - 80,50 - 20,50 closed"));
}

TEST(Viewports, OfRelease12HaveTheirViewAmongWhatProgramsAdd) {
    DxfText text{
        .entities =
            {"LINE|8=0|10=0|20=0|11=100|21=0",
             "VIEWPORT|8=0|67=1|10=50|20=40|40=60|41=20|68=2|69=2|1001=ACAD|1000=MVIEW|1002={|1070=16|1010=0|1020=0|1030=0|"
             "1010=0|1020=0|1030=1|1040=0|1040=200|1040=100|1040=0|1040=50|1002=}"},
        .version = "AC1009"};
    EXPECT_THAT(drawn(text.text(), "Layout1"), testing::Contains("stroke 40,40 - 50,40"));
}

// Drawings that were made to do harm.

TEST(HostileDrawings, WithBlocksInsideThemselvesEnd) {
    const DxfText text{
        .entities = {"INSERT|8=0|2=A|10=0|20=0"},
        .blocks = {"BLOCK|2=A", "LINE|8=0|10=0|20=0|11=1|21=0", "INSERT|8=0|2=A|10=1|20=0", "ENDBLK"}};
    EXPECT_EQ(drawn(text.text()).size(), 64U);
}

TEST(HostileDrawings, ThatRepeatBlocksWithoutEndAreRefused) {
    EXPECT_THROW(drawn(DxfText{.entities = {"INSERT|8=0|2=A|10=0|20=0|70=100000|71=100000|44=1|45=1"},
                               .blocks = {"BLOCK|2=A", "ENDBLK"}}
                           .text()),
                 TooMuch);
    DxfText nested{.entities = {"INSERT|8=0|2=b0|10=0|20=0"}};
    for (int i = 0; i < 12; ++i) {
        nested.blocks.push_back("BLOCK|2=b" + std::to_string(i));
        for (int k = 0; k < 10; ++k)
            nested.blocks.push_back("INSERT|8=0|2=b" + std::to_string(i + 1) + "|10=0|20=0");
        nested.blocks.emplace_back("ENDBLK");
    }
    EXPECT_THROW(drawn(nested.text()), TooMuch);
}

TEST(HostileDrawings, WithCountsThatLieAreReadAsFarAsTheyGo) {
    EXPECT_NO_THROW(drawn_entities(
        {"HATCH|8=0|10=0|20=0|2=X|70=1|91=2000000000|92=2|72=0|73=1|93=2000000000|10=0|20=0",
         "SPLINE|8=0|71=2000000000|72=-1|73=5|40=nan|10=0|20=0", "POLYLINE|8=0|70=16|71=65535|72=65535",
         "VERTEX|8=0|10=0|20=0", "MLINE|8=0|72=60000|73=60000|11=0|21=0|74=3",
         "INSERT|8=0|2=none|70=-5|71=-7|10=0|20=0", "LWPOLYLINE|8=0|10=0|20=0|40=-1|41=nan|10=5|20=5"}));
}

}  // namespace
}  // namespace foliant::hosts::autocad
