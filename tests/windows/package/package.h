#pragma once

#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "windows/package/registry_tree.h"

namespace foliant::tests::package {

/// What a command came to.
struct Outcome {
    int code = 0;
    std::string output;  ///< with line feeds only
};

/// The package as a user has it: extracted into a folder whose name is awkward to scripts, made anew for each
/// test unless that says something else, and registered for nobody.
class Package : public testing::Test {
  protected:
    void SetUp() override { unpack(); }

    /// Extracts it anew.
    static void unpack();

    static const std::filesystem::path& folder() { return folder_; }

    /// Runs a command line in that folder.
    static Outcome run(const std::string& command);

    /// The script hosts of the word sizes that the package has and this Windows runs, the own one first.
    static std::vector<std::string> script_hosts();

    static RegistryTree machine_classes() { return tree_below(HKEY_LOCAL_MACHINE, L"Software\\Classes"); }
    static RegistryTree user_classes() { return tree_below(HKEY_CURRENT_USER, L"Software\\Classes"); }

  private:
    static inline std::filesystem::path folder_;
};

}  // namespace foliant::tests::package
