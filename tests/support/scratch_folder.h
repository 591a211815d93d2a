#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace foliant::tests {

/// A new folder in the system's temporary one, for one test; removed with everything in it. Only its owner
/// may look into it.
class ScratchFolder {
  public:
    ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder();

    const std::filesystem::path& path() const noexcept { return path_; }
    std::filesystem::path operator/(const std::filesystem::path& name) const { return path_ / name; }

    /// Writes a file into it and gives its path.
    std::filesystem::path write(const std::filesystem::path& name, std::string_view content) const;

  private:
    std::filesystem::path path_;
};

/// Raises std::runtime_error when it cannot be written.
void write_file(const std::filesystem::path& path, std::string_view content);

/// "" for a file that cannot be read.
std::string read_file(const std::filesystem::path& path);

using Names = std::vector<std::string>;

/// The names of what is in a folder, sorted.
Names names_in(const std::filesystem::path& folder);

}  // namespace foliant::tests
