#include "hosts/pages/text.h"

#include <gtest/gtest.h>

namespace foliant::hosts::pages {
namespace {

using namespace std::string_view_literals;

std::string western(std::string_view file) {
    return text_of(file, 1252);
}

TEST(TextFile, IsUtf8WhereAllOfItIs) {
    EXPECT_EQ(western("Łódź, Москва"), "Łódź, Москва");
    EXPECT_EQ(western("\xEF\xBB\xBFŁódź"), "Łódź");
    EXPECT_EQ(western("Łódź\0Москва"sv), "Łódź Москва");
}

TEST(TextFile, IsUtf16ByItsMarkInBothByteOrders) {
    EXPECT_EQ(western("\xFF\xFE\x41\x01\xF3\x00\x0D\x00\x0A\x00z\x00"sv), "Łó\r\nz");
    EXPECT_EQ(western("\xFE\xFF\x01\x41\x00\xF3\x00\x0D\x00\x0A\x00z"sv), "Łó\r\nz");
}

/// As a program writes it that leaves out the mark.
std::string utf16(std::u16string_view text, bool is_little) {
    std::string bytes;
    for (const char16_t unit : text) {
        const auto high = static_cast<char>(unit >> 8U);
        const auto low = static_cast<char>(unit & 0xFFU);
        bytes += is_little ? low : high;
        bytes += is_little ? high : low;
    }
    return bytes;
}

TEST(TextFile, IsUtf16WithoutAMarkInEveryScript) {
    struct Text {
        std::u16string_view utf16;
        std::string_view utf8;
    };
    for (const auto& [units, letters] : {
             Text{u"abc", "abc"},
             Text{u"Größe 5 €\r\n", "Größe 5 €\r\n"},
             Text{u"Привет", "Привет"},
             Text{u"Привет, мир! Это обычный текст.\r\n", "Привет, мир! Это обычный текст.\r\n"},
             Text{u"Καλημέρα κόσμε, ένα κείμενο.\r\n", "Καλημέρα κόσμε, ένα κείμενο.\r\n"},
             Text{u"שלום עולם\r\n", "שלום עולם\r\n"},
             Text{u"हिन्दी में एक पाठ\r\n", "हिन्दी में एक पाठ\r\n"},
             Text{u"吾輩は猫である。名前はまだ無い。\r\n", "吾輩は猫である。名前はまだ無い。\r\n"},
             Text{u"最近一个中文文本，没有标记。\r\n", "最近一个中文文本，没有标记。\r\n"},
             Text{u"한국어로 쓴 글입니다.\r\n", "한국어로 쓴 글입니다.\r\n"},
             Text{u"Lächeln 😀 пока\r\n", "Lächeln 😀 пока\r\n"},
         }) {
        EXPECT_EQ(western(utf16(units, true)), letters);
        EXPECT_EQ(western(utf16(units, false)), letters);
    }
    EXPECT_EQ(western("a\0b\0c"sv), "a b c") << "half a character is left";
}

TEST(TextFile, InBytesIsNoUtf16WhateverStraysInIt) {
    struct Text {
        std::string_view bytes;
        int code_page;
        std::string_view utf8;
    };
    for (const auto& [bytes, code_page, letters] : {
             Text{"Bush hid the facts", 1252, "Bush hid the facts"},
             Text{"one\0two\0three\0four\0"sv, 1252, "one two three four "},
             Text{"8=FIX\x01"
                  "9=61\x01"
                  "35=A\x01"
                  "49=BB\x01"sv,
                  1252, "8=FIX 9=61 35=A 49=BB "},
             Text{"Gr\xF6\xDF"
                  "e\0Stra\xDF"
                  "e\0\0\0"sv,
                  1252, "Größe Straße   "},
             Text{"\xCF\xF0\xE8\xE2\xE5\xF2\r\n\0\0"sv, 1251, "Привет\r\n  "},
             Text{"\x8C\xE1\x94\x79\x82\xCD\x94\x4C\r\n", 932, "吾輩は猫\r\n"},
             Text{"\xB0\xA1\xB3\xAA\xB4\xD9\r\n\x01\n"sv, 949, "가나다\r\n \n"},
         })
        EXPECT_EQ(text_of(bytes, code_page), letters);
}

TEST(TextFile, IsInTheCodePageOtherwise) {
    EXPECT_EQ(western("Gr\xF6\xDF"
                      "e 5 \x80"),
              "Größe 5 €");
    EXPECT_EQ(text_of("\xCC\xEE\xF1\xEA\xE2\xE0", 1251), "Москва");
    EXPECT_EQ(text_of("\x93\xFA\x96\x7B", 932), "日本");
}

TEST(TextFile, SaysWhereItCannotBeUnderstood) {
    EXPECT_EQ(western("a\x81z"), "a\uFFFDz");
    EXPECT_EQ(western("\xEF\xBB\xBF"
                      "a\xFFz"),
              "a\uFFFDz");
    EXPECT_EQ(western("\xFF\xFE\x00\xD8z\x00"sv), "\uFFFDz") << "half a pair";
    EXPECT_EQ(western("\xFF\xFEz\x00q"sv), "z\uFFFD") << "half a character";
    EXPECT_EQ(text_of("a\x93", 932), "a\uFFFD");
}

TEST(TextFile, HasBlanksForControlCharacters) {
    EXPECT_EQ(western("a\tb\r\n\fc"), "a\tb\r\n\fc");
    EXPECT_EQ(western("a\0\x01\x1B\x7Fz"sv), "a    z");
    EXPECT_EQ(western("a\u0085z"), "a\u00A0z");
    EXPECT_EQ(western("a\u00A0é"), "a\u00A0é");
}

TEST(TextFile, MayBeEmpty) {
    EXPECT_EQ(western(""), "");
    EXPECT_EQ(western("\xEF\xBB\xBF"), "");
    EXPECT_EQ(western("\xFF\xFE"), "");
}

TEST(TextFile, LongerThanOnePieceIsWhole) {
    std::string file;
    for (int i = 0; i < 50'000; ++i)
        file += "\xE9";
    EXPECT_EQ(western(file).size(), 100'000U);
    EXPECT_EQ(western(file).substr(65'530, 10), "ééééé");
}

TEST(ForPrograms, IsWhatHoldsControlCharactersOfManyKinds) {
    std::string noise;
    for (int i = 0; i < 4096; ++i)
        noise += static_cast<char>(i * 7);
    EXPECT_TRUE(is_for_programs(noise));
    EXPECT_TRUE(
        is_for_programs("\x7F"
                        "ELF\x02\x01\x01\x00\x03\x04\x05\x06 and so on"sv));
}

TEST(ForPrograms, IsNoTextWithZerosSeparatorsOrEscapes) {
    EXPECT_FALSE(is_for_programs("log" + std::string(4000, '\0')));
    EXPECT_FALSE(
        is_for_programs("8=FIX.4.2\x01"
                        "9=178\x01"
                        "35=8\x01"));
    EXPECT_FALSE(is_for_programs("\x1B[31mred\x1B[0m \b\b"));
    EXPECT_FALSE(is_for_programs("\xFF\xFE\x01\x02\x03\x04\x05\x06"sv)) << "Chinese";
    EXPECT_FALSE(is_for_programs(""));
}

TEST(TextFile, HasNoNumbersThatAreNoLetters) {
    EXPECT_EQ(western("a\uFFFE\U0001FFFFb\uFDD0c\uFDCF"), "a\uFFFD\uFFFDb\uFFFDc\uFDCF");
}

}  // namespace
}  // namespace foliant::hosts::pages
