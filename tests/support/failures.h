#pragma once

#include <functional>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace foliant::tests {

/// The messages of the expectations that steps do not meet.
inline std::vector<std::string> failures_of(const std::function<void()>& steps) {
    testing::TestPartResultArray results;
    {
        const testing::ScopedFakeTestPartResultReporter reporter(
            testing::ScopedFakeTestPartResultReporter::INTERCEPT_ONLY_CURRENT_THREAD, &results);
        steps();
    }
    std::vector<std::string> messages;
    for (int i = 0; i < results.size(); ++i)
        messages.emplace_back(results.GetTestPartResult(i).message());
    return messages;
}

}  // namespace foliant::tests
