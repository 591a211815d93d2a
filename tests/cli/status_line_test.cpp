#include "cli/status_line.h"

#include <array>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <unistd.h>

namespace foliant::cli {
namespace {

/// A status line, and the other end of the pipe that it takes for a terminal.
class Shown {
  public:
    Shown() {
        EXPECT_EQ(pipe(ends_.data()), 0);
        status_.emplace(ends_[1], "Converting a.docx");
    }
    ~Shown() { close(ends_[0]); }
    StatusLine& status() { return *status_; }

    /// Waits until that was written.
    void wait_for(const std::string& part) {
        while (text_.find(part) == std::string::npos)
            ASSERT_TRUE(read_piece());
    }

    /// All that was written until the end.
    std::string stop() {
        status_->stop();
        status_.reset();
        close(ends_[1]);
        while (read_piece()) {
        }
        return text_;
    }

  private:
    bool read_piece() {
        std::array<char, 256> piece{};
        const ssize_t got = read(ends_[0], piece.data(), piece.size());
        if (got > 0) text_.append(piece.data(), static_cast<std::size_t>(got));
        return got > 0;
    }

    std::array<int, 2> ends_{};
    std::optional<StatusLine> status_;
    std::string text_;
};

TEST(StatusLine, MovesAndLeavesNothingBehind) {
    Shown shown;
    shown.wait_for("- Converting");
    const std::string text = shown.stop();
    EXPECT_TRUE(
        text.starts_with("\r| Converting a.docx\x1B[K\r/ Converting a.docx\x1B[K\r- Converting a.docx"))
        << text;
    EXPECT_TRUE(text.ends_with("\r\x1B[K")) << text;
}

TEST(StatusLine, TellsHowFarItIsInPlaceOfWhatItToldBefore) {
    Shown shown;
    shown.status().tell("Opening 9 %");
    shown.wait_for("Converting a.docx  Opening 9 %\x1B[K");
    shown.status().tell("Printing 10 %");
    shown.wait_for("Converting a.docx  Printing 10 %\x1B[K");
    shown.stop();
}

TEST(StatusLine, ShowsNothingWithoutATerminal) {
    StatusLine status(-1, "Converting a.docx");
    status.hide();
    status.stop();
}

}  // namespace
}  // namespace foliant::cli
