#include "hosts/office/word/text_encoding.h"

#include <gtest/gtest.h>

namespace foliant::hosts::office {
namespace {

TEST(TextEncoding, IsThatOfTheLanguage) {
    EXPECT_EQ(text_encoding("ru_RU.UTF-8"), "MS_1251");
    EXPECT_EQ(text_encoding("pl_PL"), "MS_1250");
    EXPECT_EQ(text_encoding("el"), "MS_1253");
    EXPECT_EQ(text_encoding("ja_JP.eucJP"), "MS_932");
}

TEST(TextEncoding, DependsOnCountryAndScriptWhereThoseMatter) {
    EXPECT_EQ(text_encoding("zh_TW.UTF-8"), "MS_950");
    EXPECT_EQ(text_encoding("zh_CN.UTF-8"), "MS_936");
    EXPECT_EQ(text_encoding("sr_RS.UTF-8"), "MS_1251");
    EXPECT_EQ(text_encoding("sr_RS.UTF-8@latin"), "MS_1250");
}

TEST(TextEncoding, IsWesternEuropeanForEverybodyElse) {
    for (const char* locale : {"", "C", "POSIX", "de_DE.UTF-8", "en_US", "rup", "elx_GR"})
        EXPECT_EQ(text_encoding(locale), "ANSI") << locale;
}

}  // namespace
}  // namespace foliant::hosts::office
