#include <gtest/gtest.h>
#include <sstream>
#include <vector>

#include "end_to_end/command.h"

namespace foliant::end_to_end {
namespace {

namespace fs = std::filesystem;

/// The command, and every program and module that comes with it.
std::vector<fs::path> binaries() {
    const fs::path command = FOLIANT_COMMAND;
    std::vector<fs::path> files{command};
    for (const auto& entry : fs::recursive_directory_iterator(command.parent_path() / "hosts"))
        if (entry.is_regular_file()) files.push_back(entry.path());
    return files;
}

/// Where a binary looks for libraries, besides the usual places; "" for nowhere.
std::string run_path(const fs::path& file) {
    const std::string dynamic = Workshop().run({"readelf", "-d", file}).output;
    EXPECT_NE(dynamic.find("(NEEDED)"), std::string::npos) << file;
    const std::size_t start = dynamic.find('[', dynamic.find("path: ["));
    return dynamic.find("path: [") == std::string::npos
               ? ""
               : dynamic.substr(start + 1, dynamic.find(']', start) - start - 1);
}

TEST(RunPath, NeverLeadsToTheCurrentFolder) {
    ASSERT_GE(binaries().size(), 2U);
    for (const fs::path& file : binaries()) {
        std::istringstream entries(run_path(file) + ":end");
        for (std::string entry; std::getline(entries, entry, ':') && entry != "end";)
            EXPECT_TRUE(entry.starts_with('/') || entry.starts_with("$ORIGIN") || run_path(file).empty())
                << file << " has \"" << entry << "\" in " << run_path(file);
    }
}

}  // namespace
}  // namespace foliant::end_to_end
