#include "platform/win32/text.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace foliant::platform::win32::test {
namespace {

TEST(Text, IsTheSameAfterGoingToUtf16AndBack) {
    for (const std::string text :
         {"", "plain", "caf\xC3\xA9", "\xE2\x82\xAC", "\xF0\x9F\x98\x80!", "a\xEF\xBF\xBF"})
        EXPECT_EQ(to_utf8(to_utf16(text)), text);
    const std::string with_nul("a\0b", 3);
    EXPECT_EQ(to_utf8(to_utf16(with_nul)), with_nul);
}

TEST(Text, KeepsHalvesOfSurrogatePairs) {
    for (const std::wstring text : {L"\xD800", L"a\xDC00z", L"\xDC00\xD800", L"\xD83D\xDE00", L"\xD83D"})
        EXPECT_EQ(to_utf16(to_utf8(text)), text);
}

TEST(Text, PutsAReplacementForEachByteThatIsNoUtf8) {
    EXPECT_EQ(to_utf16("\xFF"), L"\xFFFD");
    EXPECT_EQ(to_utf16("a\xC3"), L"a\xFFFD");
    EXPECT_EQ(to_utf16("\xC0\x80"), L"\xFFFD\xFFFD");
    EXPECT_EQ(to_utf16("\xF4\x90\x80\x80"), L"\xFFFD\xFFFD\xFFFD\xFFFD");
}

TEST(Text, BecomesBytesOfTheCodePageWithQuestionMarksForWhatItLacks) {
    ASSERT_EQ(GetACP(), 1252U) << "these expectations are for the Western code page";
    EXPECT_EQ(to_ansi("caf\xC3\xA9 \xE2\x82\xAC"), "caf\xE9 \x80");
    EXPECT_EQ(to_ansi("\xD0\x94"), "?");
    // A capital A with a macron is no plain A.
    EXPECT_EQ(to_ansi("\xC4\x80"), "?");
    EXPECT_EQ(from_ansi("caf\xE9 \x80"), "caf\xC3\xA9 \xE2\x82\xAC");
    EXPECT_EQ(to_ansi(""), "");
}

}  // namespace
}  // namespace foliant::platform::win32::test
