#include "cli/status_line.h"

#include <array>
#include <gtest/gtest.h>
#include <unistd.h>

namespace foliant::cli {
namespace {

TEST(StatusLine, MovesAndLeavesNothingBehind) {
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    StatusLine status(ends[1], "Converting a.docx");
    std::string shown;
    while (shown.find("- Converting") == std::string::npos) {
        std::array<char, 256> piece{};
        const ssize_t got = read(ends[0], piece.data(), piece.size());
        ASSERT_GT(got, 0);
        shown.append(piece.data(), static_cast<std::size_t>(got));
    }
    status.stop();
    close(ends[1]);
    std::array<char, 256> rest{};
    const ssize_t got = read(ends[0], rest.data(), rest.size());
    close(ends[0]);
    if (got > 0) shown.append(rest.data(), static_cast<std::size_t>(got));
    EXPECT_TRUE(shown.starts_with("\r| Converting a.docx\r/ Converting a.docx\r- Converting a.docx"))
        << shown;
    EXPECT_TRUE(shown.ends_with("\r\x1B[K")) << shown;
}

TEST(StatusLine, ShowsNothingWithoutATerminal) {
    StatusLine status(-1, "Converting a.docx");
    status.hide();
    status.stop();
}

}  // namespace
}  // namespace foliant::cli
