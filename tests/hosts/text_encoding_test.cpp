#include "hosts/text_encoding.h"

#include <gtest/gtest.h>

namespace foliant::hosts {
namespace {

TEST(TextCodePage, IsThatOfTheLanguage) {
    EXPECT_EQ(text_code_page("ru_RU.UTF-8"), 1251);
    EXPECT_EQ(text_code_page("pl_PL"), 1250);
    EXPECT_EQ(text_code_page("el"), 1253);
    EXPECT_EQ(text_code_page("ja_JP.eucJP"), 932);
}

TEST(TextCodePage, DependsOnCountryAndScriptWhereThoseMatter) {
    EXPECT_EQ(text_code_page("zh_TW.UTF-8"), 950);
    EXPECT_EQ(text_code_page("zh_CN.UTF-8"), 936);
    EXPECT_EQ(text_code_page("sr_RS.UTF-8"), 1251);
    EXPECT_EQ(text_code_page("sr_RS.UTF-8@latin"), 1250);
}

TEST(TextCodePage, IsWesternEuropeanForEverybodyElse) {
    for (const char* locale : {"", "C", "POSIX", "de_DE.UTF-8", "en_US", "rup", "elx_GR"})
        EXPECT_EQ(text_code_page(locale), 1252) << locale;
}

}  // namespace
}  // namespace foliant::hosts
