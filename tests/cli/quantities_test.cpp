#include "cli/quantities.h"

#include <gtest/gtest.h>

namespace foliant::cli {
namespace {

TEST(Quantities, TimesHaveUnits) {
    EXPECT_EQ(seconds_in("30"), 30);
    EXPECT_EQ(seconds_in("2.5s"), 2.5);
    EXPECT_EQ(seconds_in("500 ms"), 0.5);
    EXPECT_EQ(seconds_in("2min"), 120);
    EXPECT_EQ(seconds_in("1H"), 3600);
    EXPECT_EQ(seconds_in("None"), 0);
    for (const char* text : {"", "s", "nan", "inf", "-1", "-0", "5 parsecs", "1m30s", "0x10"}) {
        EXPECT_FALSE(seconds_in(text).has_value()) << text;
    }
}

TEST(Quantities, SizesHaveUnits) {
    EXPECT_EQ(bytes_in("4096"), 4096U);
    EXPECT_EQ(bytes_in("1k"), 1024U);
    EXPECT_EQ(bytes_in("1.5 GiB"), 3ULL << 29U);
    EXPECT_EQ(bytes_in("512MB"), 512ULL << 20U);
    EXPECT_EQ(bytes_in("none"), 0U);
    for (const char* text : {"", "G", "-1", "nan", "1e30", "2Q", "2 GiBs", "Gi2"}) {
        EXPECT_FALSE(bytes_in(text).has_value()) << text;
    }
}

TEST(Quantities, SizesAreShownShort) {
    EXPECT_EQ(readable_size(512), "512 bytes");
    EXPECT_EQ(readable_size(12 * 1024), "12 KiB");
    EXPECT_EQ(readable_size(2500000), "2.4 MiB");
    EXPECT_EQ(readable_size(2ULL << 30U), "2 GiB");
}

}  // namespace
}  // namespace foliant::cli
