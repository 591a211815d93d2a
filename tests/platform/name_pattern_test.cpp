#include "platform/name_pattern.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace foliant::platform {
namespace {

/// Those of the names that match, each with a blank after it.
std::string matching(std::string_view pattern, const std::vector<std::string>& names) {
    const NamePattern wanted(pattern);
    std::string found;
    for (const std::string& name : names)
        if (wanted.matches(name)) found += name + " ";
    return found;
}

TEST(NamePattern, StarIsAnyTextAlsoNoneAndAlsoDots) {
    EXPECT_EQ(matching("a*c", {"ac", "abc", "a.b.c", "acd", "bac"}), "ac abc a.b.c ");
    EXPECT_EQ(matching("*", {"a", "a.b", ".hidden"}), "a a.b .hidden ");
    EXPECT_EQ(matching("**a**", {"a", "bab", "b"}), "a bab ");
}

TEST(NamePattern, QuestionMarkIsOneCharacterOrNoneBeforeADotOrTheEnd) {
    EXPECT_EQ(matching("a??.pdf", {"a.pdf", "a1.pdf", "a12.pdf", "a123.pdf", "a.1.pdf"}),
              "a.pdf a1.pdf a12.pdf ");
    EXPECT_EQ(matching("??b", {"ab", "aab", "b"}), "aab ");
    EXPECT_EQ(matching("a?", {"a", "ab", "abc", "a."}), "a ab ");
    EXPECT_EQ(matching("?.?", {"\xC3\xA9.\xE2\x82\xAC", "ab.c"}), "\xC3\xA9.\xE2\x82\xAC ");
}

TEST(NamePattern, ADotBeforeAWildcardMayBeTheEndOfTheName) {
    EXPECT_EQ(matching("*.*", {"a", "a.b"}), "a a.b ");
    EXPECT_EQ(matching("a*.*", {"abc", "a.b", "b.a"}), "abc a.b ");
    EXPECT_EQ(matching("a.?", {"a", "a.b", "a.bc"}), "a a.b ");
    EXPECT_EQ(matching("*.pdf", {"pdf", "a.pdf", ".pdf", "a.pdfx"}), "a.pdf .pdf ");
}

TEST(NamePattern, ADotAtTheEndAsksForNamesWithoutOne) {
    EXPECT_EQ(matching("*.", {"a", "a.b", "a.b.c"}), "a ");
    EXPECT_EQ(matching("a.", {"a", "ab", "a.b"}), "a ");
    EXPECT_EQ(matching("*.pdf ", {"a.pdf", "a.pdf "}), "a.pdf ");
}

TEST(NamePattern, NothingElseIsSpecial) {
    EXPECT_EQ(matching("[ab]{1}.pdf", {"a.pdf", "[ab]{1}.pdf"}), "[ab]{1}.pdf ");
    EXPECT_EQ(matching("a\\*", {"a", "a\\b"}), "a\\b ");
}

TEST(NamePattern, CaseIsIgnoredInAllAlphabets) {
    EXPECT_EQ(matching("\xC3\x84*.PDF", {"\xC3\xA4.pdf", "a.pdf"}), "\xC3\xA4.pdf ");
    EXPECT_EQ(matching("\xD0\xB6?", {"\xD0\x96x"}), "\xD0\x96x ");
}

TEST(NamePattern, AnEmptyOneMatchesEveryName) {
    EXPECT_EQ(matching("", {"a", "a.b"}), "a a.b ");
}

TEST(NamePattern, ManyStarsTakeNoLongerThanOthers) {
    std::string stars;
    for (int i = 0; i < 100; ++i)
        stars += "*a";
    EXPECT_EQ(matching(stars + "b", {std::string(250, 'a')}), "");
}

TEST(NamePattern, ADirectoryComparesCapitals) {
    std::vector<std::string> names{"b.pdf", "_.pdf",  "\xC3\x84 2.pdf", "A.pdf",
                                   "a.pdf", "10.pdf", "9.pdf",          "\xC3\xA4 1.pdf"};
    std::sort(names.begin(), names.end(), comes_before);
    EXPECT_EQ(names, (std::vector<std::string>{"10.pdf", "9.pdf", "A.pdf", "a.pdf", "b.pdf", "_.pdf",
                                               "\xC3\xA4 1.pdf", "\xC3\x84 2.pdf"}));
}

}  // namespace
}  // namespace foliant::platform
