#include "cli/visible_text.h"

#include <gtest/gtest.h>

namespace foliant::cli {
namespace {

TEST(VisibleText, WhatATerminalWouldObeyIsWrittenOut) {
    EXPECT_EQ(visible_text("a\x1B[2Jb\rc\a\bd\x7F"), "a\\x1B[2Jb\\x0Dc\\x07\\x08d\\x7F");
    EXPECT_EQ(visible_text("one\xC2\x9B"
                           "31m"),
              "one\\x9B31m");
    EXPECT_EQ(visible_text(std::string("a\0b", 3)), "a\\x00b");
}

TEST(VisibleText, WhatDeceivesAReaderIsWrittenOut) {
    EXPECT_EQ(visible_text("letter\xE2\x80\xAE"
                           "fdp.exe"),
              "letter\\u202Efdp.exe");
    EXPECT_EQ(visible_text("a\xE2\x80\x8B\xE2\x81\xA6z"), "a\\u200B\\u2066z");
}

TEST(VisibleText, WordsOfAnyLanguageStayAsTheyAre) {
    const std::string words =
        "Gr\xC3\xBC\xC3\x9F\x65, \xD0\x9F\xD1\x80\xD0\xB8, \xE6\x97\xA5, \xF0\x9F\x98\x80";
    EXPECT_EQ(visible_text(words), words);
}

TEST(VisibleText, BytesThatAreNoTextAreWrittenOut) {
    EXPECT_EQ(visible_text("a\xFF\xC3"), "a\\xFF\\xC3");
    EXPECT_EQ(visible_text("\xC0\x9B\xED\xA0\x80"), "\\xC0\\x9B\\xED\\xA0\\x80");
}

TEST(VisibleText, LinesStayUnlessOneIsWanted) {
    EXPECT_EQ(visible_text("a\n\tb"), "a\n\tb");
    EXPECT_EQ(visible_line("a\n\tb"), "a\\n\\tb");
}

}  // namespace
}  // namespace foliant::cli
