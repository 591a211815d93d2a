#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "end_to_end/command.h"

namespace foliant::end_to_end {

/// A test that runs the command in a workshop of its own, and in which no call leaves a process or a temporary
/// file behind. One that was skipped has run nothing.
class CommandTest : public testing::Test {
  protected:
    void TearDown() override { EXPECT_TRUE(IsSkipped() || shop.is_clean_soon()) << shop.leftovers(); }

    /// The call succeeds, and what it makes is no text on standard output.
    Finished expect_success(const std::vector<std::string>& words) const {
        Finished call = shop.foliant(words);
        EXPECT_EQ(call.exit_code, 0) << call.errors;
        EXPECT_EQ(call.output, "");
        return call;
    }

    /// The call fails by this exit code (5, a host's failure, unless told), says all of this, and leaves the files
    /// as they were.
    void expect_failure(const std::vector<std::string>& words, const std::vector<std::string>& told,
                        int exit_code = 5) const {
        const auto before = shop.files();
        const Finished call = shop.foliant(words);
        EXPECT_EQ(call.exit_code, exit_code) << call.errors;
        for (const std::string& part : told)
            EXPECT_NE(call.errors.find(part), std::string::npos) << call.errors;
        EXPECT_EQ(shop.files(), before);
    }

    Workshop shop;
};

}  // namespace foliant::end_to_end
