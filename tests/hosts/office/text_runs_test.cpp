#include "hosts/office/print/text_runs.h"

#include <gtest/gtest.h>

namespace foliant::hosts::office {
namespace {

TEST(TextRuns, AreJoinedAcrossKerning) {
    EXPECT_EQ(with_whole_text_runs("/F1_0 10 Tf\n(ab)\n[5\n0\n6\n0] Tj\n-20 TJm\n(c\\051)\n[7\n0\n8\n0] Tj\n"
                                   "100 TJm\n(d)\n[9\n0] Tj\n4 0 Td\n"),
              "/F1_0 10 Tf\n(abc\\051d)\n[5 0 6.2 0 7 0 7 0 9 0] Tj\n4 0 Td\n");
}

TEST(TextRuns, AreJoinedByTheDistancesOfTheirScaling) {
    EXPECT_EQ(with_whole_text_runs("/F1_0 10 Tf\n0.5 Tz\n(a)\n[5\n0] Tj\n100 TJm\n(b)\n[6\n0] Tj\n"),
              "/F1_0 10 Tf\n0.5 Tz\n(ab)\n[4.5 0 6 0] Tj\n");
}

TEST(TextRuns, AreLeftApartWhereTheyAreNotOnlyKerned) {
    for (const char* text : {"/F1_0 10 Tf\n(a)\n[5 0] Tj\n1 0 Td\n(b)\n[6 0] Tj\n",   // moved
                             "/F1_0 10 Tf\n(a)\n[5 0] Tj\n1 TJmV\n(b)\n[6 0] Tj\n",   // downwards
                             "/F1_0 10 Tf\n(a)\n[5 0] Tj16\n1 TJm\n(b)\n[6 0] Tj\n",  // in another encoding
                             "(a)\n[5 0] Tj\n1 TJm\n(b)\n[6 0] Tj\n",                 // of no known size
                             "/F1_0 10 Tf\n(a)\n[5 0] Tj\n1 TJm\n"})
        EXPECT_EQ(with_whole_text_runs(text), text);
}

TEST(TextRuns, AreNotSeenInAnythingElse) {
    for (const char* text :
         {"", "(", "(a", "(a)\n[", "(a)\n[1 2", "(a)\n[x y] Tj\n", "(a(\n", "\n\n(a)\n[1 0] TJ\n", "no end"})
        EXPECT_EQ(with_whole_text_runs(text), text);
}

}  // namespace
}  // namespace foliant::hosts::office
