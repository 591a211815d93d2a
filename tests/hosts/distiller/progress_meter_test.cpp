#include "hosts/distiller/progress_meter.h"

#include <gtest/gtest.h>

namespace foliant::hosts::distiller {
namespace {

SourceFile file(std::uintmax_t bytes, std::optional<int> pages) {
    return {"x.ps", bytes, pages, true, false};
}

TEST(ProgressMeter, CountsDeclaredPages) {
    ProgressMeter meter({file(1000, 4)});
    EXPECT_EQ(meter.after_page(1, 0, 900), 25);
    EXPECT_EQ(meter.after_page(2, 0, 900), 50);
}

TEST(ProgressMeter, LeavesTheLastPercentToTheFinishedPdf) {
    ProgressMeter meter({file(1000, 1)});
    EXPECT_EQ(meter.after_page(1, 0, 1000), 99);
}

TEST(ProgressMeter, GoesByThePlaceInTheFileWhenNoPagesAreDeclared) {
    ProgressMeter meter({file(1000, std::nullopt)});
    EXPECT_EQ(meter.after_page(1, 0, 300), 30);
    EXPECT_EQ(meter.after_page(2, 0, 1000), 99);
}

TEST(ProgressMeter, GoesByThePlaceInTheFileAfterMorePagesThanDeclared) {
    ProgressMeter meter({file(1000, 2)});
    EXPECT_EQ(meter.after_page(1, 0, 100), 50);
    EXPECT_EQ(meter.after_page(2, 0, 200), 99);
    EXPECT_EQ(meter.after_page(3, 0, 300), 99);
}

TEST(ProgressMeter, NeverFalls) {
    ProgressMeter meter({file(1000, std::nullopt)});
    EXPECT_EQ(meter.after_page(1, 0, 800), 80);
    EXPECT_EQ(meter.after_page(2, 0, 10), 80);
}

TEST(ProgressMeter, CoversAllFilesByPages) {
    ProgressMeter meter({file(10, 1), file(1000, 3)});
    EXPECT_EQ(meter.after_page(1, 0, 10), 25);
    EXPECT_EQ(meter.after_page(2, 1, 1000), 50);
}

TEST(ProgressMeter, CoversAllFilesByBytesWhenOneDeclaresNoPages) {
    ProgressMeter meter({file(300, 1), file(700, std::nullopt)});
    EXPECT_EQ(meter.after_page(1, 0, 300), 30);
    EXPECT_EQ(meter.after_page(2, 1, 350), 65);
}

TEST(ProgressMeter, SurvivesNonsense) {
    ProgressMeter meter({file(0, std::nullopt)});
    EXPECT_EQ(meter.after_page(1, 0, 50), 0);
    EXPECT_EQ(meter.after_page(2, 7, 50), 0);
}

}  // namespace
}  // namespace foliant::hosts::distiller
