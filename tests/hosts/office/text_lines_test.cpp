#include "hosts/office/word/text_lines.h"

#include <gtest/gtest.h>

namespace foliant::hosts::office {
namespace {

using namespace std::string_view_literals;

TEST(TextLines, AreAParagraphTogether) {
    EXPECT_EQ(with_lines_joined("one\ntwo\r\n\nthree\n", {}), "one\ntwo\n\nthree");
}

TEST(TextLines, ArePartedIntoParagraphsThatAreNotTooLong) {
    std::string lines;
    for (int i = 1; i <= 18; ++i)
        lines += std::to_string(i) + "\n";
    EXPECT_EQ(with_lines_joined(lines, {}), "1\n2\n3\n4\n5\n6\n7\n8\n9\n10\n11\n12\n13\n14\n15\n16\r17\n18");
    const std::string page(1300, 'x');
    EXPECT_EQ(with_lines_joined("a\n" + page + "\nb\nc", {}), "a\n" + page + "\rb\nc");
}

TEST(TextLines, EndAParagraphBeforeAFormFeed) {
    EXPECT_EQ(with_lines_joined("one\n\ftwo\nthree", {}), "one\r\ftwo\nthree");
}

TEST(TextLines, MayEndInCarriageReturns) {
    EXPECT_EQ(with_lines_joined("one\rtwo\r", {LineForm::Unit::byte, '\r'}), "one\ntwo");
    EXPECT_EQ(with_lines_joined("a\rb\n", {}), "ab") << "one that stands alone among line feeds is none";
}

TEST(TextLines, AreJoinedInUtf16) {
    EXPECT_EQ(with_lines_joined("\xFF\xFE"
                                "a\0\r\0\n\0\n\xFF"
                                "b\0\n\0"sv,
                                {LineForm::Unit::utf16_little_endian, '\n'}),
              "\xFF\xFE"
              "a\0\n\0\n\xFF"
              "b\0"sv);
    EXPECT_EQ(with_lines_joined("\xFE\xFF\0a\0\n\x0A\0\0b"sv, {LineForm::Unit::utf16_big_endian, '\n'}),
              "\xFE\xFF\0a\0\n\x0A\0\0b"sv);
}

}  // namespace
}  // namespace foliant::hosts::office
