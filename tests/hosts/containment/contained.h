#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "hosts/containment/containment.h"
#include "support/scratch_folder.h"

namespace foliant::hosts::containment::test {

/// Runs `attempt` in a process of its own in which `policy` is in force, and returns what it returned; or
/// "signal 9" and the like when it died.
std::string contained(const Policy& policy, const std::function<std::string()>& attempt);

/// The same in a process that nothing contains yet.
std::string in_a_process(const std::function<std::string()>& attempt);

/// "done" when a system call's result is not negative, else the name of errno's value: "EACCES".
std::string outcome(long result);

/// What opening a file comes to. The descriptor is closed again.
std::string opening(const std::filesystem::path& path, int flags);

/// A folder with something in it to guard; gone with this object.
class Ground {
  public:
    Ground();

    std::filesystem::path operator/(const std::string& name) const { return folder_ / name; }
    const std::filesystem::path& folder() const { return folder_.path(); }
    std::string read(const std::string& name) const { return tests::read_file(folder_ / name); }

  private:
    tests::ScratchFolder folder_;
};

}  // namespace foliant::hosts::containment::test
