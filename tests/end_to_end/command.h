#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <sys/types.h>
#include <vector>

#include "support/scratch_folder.h"

namespace foliant::end_to_end {

/// What a finished program left.
struct Finished {
    int exit_code = 0;  ///< 128 + signal for one that a signal ended
    std::string output;
    std::string errors;
};

/// A folder of its own to run the real command in: current folder, home and temporary folder are fresh, so
/// that whatever a call leaves behind shows.
class Workshop {
  public:
    Workshop();

    const std::filesystem::path& folder() const { return folder_.path(); }
    /// What `foliant` has as its temporary folder.
    std::filesystem::path temporary_folder() const { return private_ / "tmp"; }
    std::filesystem::path path(const std::string& name) const { return folder_ / name; }
    void write(const std::string& name, const std::string& content) const { folder_.write(name, content); }
    std::string read(const std::string& name) const { return tests::read_file(folder_ / name); }

    /// Runs `foliant` with these words and waits for it.
    Finished foliant(const std::vector<std::string>& words) const;
    /// Runs any program, found by PATH, and waits for it.
    Finished run(const std::vector<std::string>& words) const;
    /// Where a copy of `foliant` is that lacks a file of its hosts, "acrobat-text.so" for example.
    std::string command_without(const std::string& file) const;
    /// Starts `foliant` and does not wait. `finish` does.
    pid_t start(const std::vector<std::string>& words) const;
    Finished finish(pid_t process) const;

    /// Names of the files in the current folder, sorted.
    std::set<std::string> files() const;
    /// What is left in the temporary folder, in words; "" for nothing.
    std::string leftovers() const;
    /// How many processes have the temporary folder of this workshop in their environment.
    int survivors() const;
    /// Whether `survivors` and `leftovers` come to nothing within a few seconds.
    bool is_clean_soon() const;

    // What a PDF says of itself, by poppler's tools.
    int pages(const std::string& pdf) const;
    std::string text(const std::string& pdf) const;
    /// "612 x 792", in points, of the first page.
    std::string page_size(const std::string& pdf) const;

  private:
    tests::ScratchFolder folder_;
    tests::ScratchFolder private_;
};

/// Skips a test that needs a host whose module is not built or whose engine is not installed, naming the
/// package; fails it instead where FOLIANT_REQUIRE_ENGINES is set. Empty when the host is there.
std::string missing_host(const std::string& name);

}  // namespace foliant::end_to_end

#define REQUIRE_HOST(name)                                                                       \
    if (const std::string missing = foliant::end_to_end::missing_host(name); !missing.empty()) { \
        if (std::getenv("FOLIANT_REQUIRE_ENGINES") != nullptr) FAIL() << missing;                \
        GTEST_SKIP() << missing;                                                                 \
    }
