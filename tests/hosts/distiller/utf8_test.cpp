#include "hosts/distiller/utf8.h"

#include <gtest/gtest.h>

namespace foliant::hosts::distiller {
namespace {

TEST(AsUtf8, KeepsUtf8) {
    EXPECT_EQ(as_utf8("caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80"),
              "caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80");
}

TEST(AsUtf8, ReadsAnythingElseAsLatin1) {
    EXPECT_EQ(as_utf8("caf\xE9"), "caf\xC3\xA9");
    EXPECT_EQ(as_utf8("\xC3"), "\xC3\x83");
    EXPECT_EQ(as_utf8("\xC0\x80"), "\xC3\x80\xC2\x80") << "an overlong sequence is not UTF-8";
    EXPECT_EQ(as_utf8("\xED\xA0\x80"), "\xC3\xAD\xC2\xA0\xC2\x80") << "a surrogate is not UTF-8";
}

TEST(AsUtf8, LeavesControlCharactersToTheReader) {
    EXPECT_EQ(as_utf8("a\tb\x1b[2J\x7f"), "a\tb\x1b[2J\x7f");
}

TEST(Visible, WritesControlCharactersOut) {
    EXPECT_EQ(visible("a\tb\nc\rd\x1b[2J\x7f"), "a\\011b\\nc\\015d\\033[2J\\177");
    EXPECT_EQ(visible("\xC2\x9B"
                      "2J"),
              "\\2332J")
        << "a control character above ASCII";
    EXPECT_EQ(visible(std::string_view("\0", 1)), "\\000");
}

TEST(Visible, LeavesAllOtherTextAlone) {
    EXPECT_EQ(visible("caf\xC3\xA9 \xC2\xA0 \\ \xE2\x82\xAC \xF0\x9F\x98\x80"),
              "caf\xC3\xA9 \xC2\xA0 \\ \xE2\x82\xAC \xF0\x9F\x98\x80");
    EXPECT_EQ(visible("\xC2"), "\xC2");
}

}  // namespace
}  // namespace foliant::hosts::distiller
