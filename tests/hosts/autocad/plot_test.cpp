// Layouts on pages.

#include "hosts/autocad/plot/plot.h"

#include <gtest/gtest.h>

#include "hosts/autocad/dxf_text.h"
#include "hosts/autocad/plot/sheet.h"
#include "hosts/office/pdf_reader.h"
#include "support/scratch_folder.h"

namespace foliant::hosts::autocad {
namespace {

using office::test::PdfReader;
using test::DxfText;

class PlottedLayout : public testing::Test {
  protected:
    PdfReader plotted(const DxfText& text, std::size_t layout = 0) const {
        const Drawing drawing(text.text());
        return PdfReader(folder.write("out.pdf", plot(drawing, drawing.layouts().at(layout), "title")));
    }

    tests::ScratchFolder folder;
};

/// A drawing with a sheet, whose plot settings are these.
DxfText with_sheet(const std::string& settings, const std::string& entity) {
    return {.entities = {entity},
            .tables = {"BLOCK_RECORD|5=A|2=*Model_Space", "BLOCK_RECORD|5=B|2=*Paper_Space"},
            .objects = {"LAYOUT|100=AcDbPlotSettings|" + settings + "|100=AcDbLayout|1=Sheet|71=1|330=B",
                        "LAYOUT|100=AcDbPlotSettings|" + settings + "|100=AcDbLayout|1=Model|71=0|330=A"}};
}

const std::string on_sheet = "TEXT|8=0|67=1|10=20|20=30|40=10|1=Here";

TEST_F(PlottedLayout, OfPaperIsToScaleOnItsOwnPaperWithinItsMargins) {
    // A3, margins of 10 and 5 mm, a unit is a millimetre.
    const PdfReader pdf =
        plotted(with_sheet("40=10|41=5|42=10|43=5|44=420|45=297|72=1|74=5|142=1|143=1|70=0", on_sheet), 1);
    EXPECT_EQ(pdf.pages(), 1);
    EXPECT_EQ(pdf.size(1), "1191 x 842");
    EXPECT_EQ(pdf.title(), "title");
    const auto place = pdf.place(1, "Here");
    EXPECT_NEAR(place.left, 30 * 72 / 25.4, 3);
    EXPECT_NEAR(place.top, (297 - 35 - 10) * 72 / 25.4, 12) << "the letters are 10 mm high";
    EXPECT_NEAR(pdf.look(1, "Here").points, 10 / 0.688 * 72 / 25.4, 1.5)
        << "that is what capitals are of a font's size";
}

TEST_F(PlottedLayout, TurnsThePaperWithTheDrawing) {
    const PdfReader pdf =
        plotted(with_sheet("40=1|41=2|42=3|43=4|44=210|45=297|72=1|73=1|74=5|142=1|143=1", on_sheet), 1);
    EXPECT_EQ(pdf.size(1), "842 x 595");
    EXPECT_NEAR(pdf.place(1, "Here").left, (20 + 2) * 72 / 25.4, 3)
        << "what was the paper's bottom is on the left";
}

TEST_F(PlottedLayout, MayCountInInches) {
    const PdfReader pdf = plotted(
        with_sheet("44=279.4|45=215.9|72=0|74=5|142=1|143=1", "TEXT|8=0|67=1|10=1|20=1|40=0.5|1=Inch"), 1);
    EXPECT_EQ(pdf.size(1), "792 x 612");
    EXPECT_NEAR(pdf.place(1, "Inch").left, 72, 3);
}

TEST_F(PlottedLayout, OfTheModelFillsAPageWhateverTheDrawingSaysOfItsExtents) {
    for (const double size : {0.001, 5.0, 2e6}) {
        DxfText text{.variables = {"$EXTMIN|10=1e20|20=1e20", "$EXTMAX|10=-1e20|20=-1e20"}};
        const std::string end = std::to_string(1000 + size * 2);
        text.entities = {"LINE|8=0|10=1000|20=500|11=" + end + "|21=500",
                         "TEXT|8=0|10=1000|20=500|40=" + std::to_string(size) + "|1=Wide"};
        const PdfReader pdf = plotted(text);
        EXPECT_EQ(pdf.size(1), "842 x 595") << "as it is wider than high";
        const auto place = pdf.place(1, "Wide");
        EXPECT_NEAR(place.left, 28, 12) << size;
    }
}

TEST_F(PlottedLayout, OfTheModelIsToScaleWhereAllOfItFits) {
    const std::string entity = "TEXT|8=0|10=0|20=0|40=100|1=Scaled";
    const PdfReader scaled = plotted(with_sheet("44=420|45=297|72=1|74=1|142=1|143=10", entity));
    EXPECT_NEAR(scaled.look(1, "Scaled").points, 10 / 0.688 * 72 / 25.4, 1.5);
    const PdfReader whole = plotted(with_sheet("44=420|45=297|72=1|74=1|142=1|143=0.1", entity));
    EXPECT_EQ(whole.text(1), "Scaled");
    EXPECT_GT(whole.place(1, "Scaled").left, 0) << "at that scale it would not fit";
}

TEST_F(PlottedLayout, OfTheModelIsOnLetterWhereDrawingsAreInInches) {
    const PdfReader pdf =
        plotted({.entities = {"CIRCLE|8=0|10=0|20=0|40=5"}, .variables = {"$MEASUREMENT|70=0"}});
    EXPECT_EQ(pdf.size(1), "612 x 792");
}

TEST_F(PlottedLayout, WithoutAnythingIsRefused) {
    EXPECT_THROW(plotted({}), NothingToPlot);
    EXPECT_THROW(plotted({.entities = {"XLINE|8=0|10=0|20=0|11=1|21=0"}}), NothingToPlot)
        << "a line without ends";
    EXPECT_THROW(plotted({.entities = {"LINE|8=0|10=nan|20=0|11=1e400|21=0"}}), NothingToPlot);
}

TEST_F(PlottedLayout, IsAPageWhateverStandsThere) {
    EXPECT_EQ(plotted({.entities = {"POINT|8=0|10=5|20=5"}}).pages(), 1);
    EXPECT_EQ(plotted({.entities = {"LINE|8=0|10=0|20=0|11=0|21=7"}}).pages(), 1) << "which has no width";
    EXPECT_EQ(
        plotted({.entities = {"LINE|8=0|10=-1e15|20=0|11=1e15|21=1e-15", "XLINE|8=0|10=0|20=0|11=1|21=1"}})
            .pages(),
        1);
    EXPECT_EQ(plotted({.entities = {"CIRCLE|8=0|10=0|20=0|40=1", "TEXT|8=0|10=0|20=0|40=0|1=low",
                                    "TEXT|8=0|10=0|20=0|40=1|41=0|51=90|1=flat",
                                    "INSERT|8=0|2=A|10=0|20=0|41=1e-12|42=0"},
                       .blocks = {"BLOCK|2=A", "TEXT|8=0|10=0|20=0|40=1|1=small", "ENDBLK"}})
                  .pages(),
              1);
}

TEST_F(PlottedLayout, ShowsWhatIsSeenOfThingsThatGoFarBeyondIt) {
    // Through a window that shows a millimetre of a circle of a kilometre.
    const DxfText text{
        .entities = {
            "CIRCLE|8=0|10=0|20=-1000000|40=1000000",
            "HATCH|8=0|10=0|20=0|2=SOLID|70=1|91=1|92=2|72=0|73=1|93=3|10=-1e9|20=-1e9|10=1e9|20=-1e9|10=0|20=0|97=0",
            "VIEWPORT|8=0|67=1|10=100|20=100|40=100|41=100|68=2|69=2|12=0|22=0|16=0|26=0|36=1|45=1"}};
    EXPECT_EQ(plotted(text, 1).pages(), 1);
}

}  // namespace
}  // namespace foliant::hosts::autocad
