#pragma once

#include <string>

namespace foliant::platform::win32::test {

/// A folder for one test, removed at its end with all files and empty folders in it.
class Scratch {
  public:
    Scratch();
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;
    ~Scratch();

    const std::string& folder() const { return folder_; }
    std::string path(const std::string& name) const { return folder_ + "\\" + name; }
    /// The bytes of a file, 4096 at most.
    std::string content(const std::string& name) const;

  private:
    std::string folder_;
};

}  // namespace foliant::platform::win32::test
