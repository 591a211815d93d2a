// A comparison that says nothing, or a slice that overlooks what is not there, would make every test that
// uses them worthless.

#include "support/lines.h"

#include <gtest/gtest.h>

#include "support/difference.h"
#include "support/failures.h"

namespace foliant::tests {
namespace {

TEST(ExpectedText, MayBeIndentedAndSurroundedByEmptyLines) {
    EXPECT_EQ(lines_of("\n    a\n      b c \n\n    d\n    "), (Lines{"a", "b c ", "", "d"}));
    EXPECT_EQ(lines_of(""), Lines());
    EXPECT_EQ(lines_of("a"), Lines{"a"});
}

TEST(Difference, ShowsEveryLineOfBothOnce) {
    EXPECT_EQ(difference({"a", "b", "c"}, {"a", "x", "c", "d"}), (Lines{"  a", "- b", "+ x", "  c", "+ d"}));
    EXPECT_EQ(difference({"a"}, {}), Lines{"- a"});
    EXPECT_EQ(difference({}, {"a"}), Lines{"+ a"});
    EXPECT_EQ(difference({}, {}), Lines());
}

TEST(Changes, AreTheLinesThatOnlyOneHas) {
    EXPECT_EQ(changes({"a", "b", "c"}, {"a", "x", "c", "d"}), (Lines{"- b", "+ x", "+ d"}));
    EXPECT_EQ(changes({"a", "b"}, {"a", "b"}), Lines());
}

const Lines journal{"open a", "print a", "close a", "open b", "print b", "close b"};

TEST(Slices, AreFoundByWhatTheirLinesSay) {
    EXPECT_EQ(lines_from(journal, "open b"), (Lines{"open b", "print b", "close b"}));
    EXPECT_EQ(lines_between(journal, "print", "open"), (Lines{"print a", "close a", "open b"}));
    EXPECT_EQ(lines_between(journal, "open", "open"), (Lines{"open a", "print a", "close a", "open b"}));
    EXPECT_EQ(lines_with(journal, {"close", "print b"}), (Lines{"close a", "print b", "close b"}));
    EXPECT_EQ(line_with(journal, "print b"), "print b");
}

TEST(Slices, ThatAreNotThereFailTheTest) {
    EXPECT_FALSE(failures_of([] { lines_from(journal, "open c"); }).empty());
    EXPECT_FALSE(failures_of([] { lines_between(journal, "open c", "close"); }).empty());
    EXPECT_FALSE(failures_of([] { lines_between(journal, "print b", "open"); }).empty());
    EXPECT_FALSE(failures_of([] { lines_between(journal, "close b", "close b"); }).empty());
    EXPECT_FALSE(failures_of([] { lines_with(journal, {"move", "copy"}); }).empty());
    EXPECT_FALSE(failures_of([] { line_with(journal, "move"); }).empty());
    EXPECT_FALSE(failures_of([] { line_with(journal, "print"); }).empty()) << "several have it";
}

}  // namespace
}  // namespace foliant::tests
