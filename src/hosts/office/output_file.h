#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace foliant::hosts::office {

/// A file that appears under its name complete or not at all.
///
/// Until `publish` the content has no name where the file system can do that (so nothing is left even when
/// the process is killed), else a temporary one in the target's folder, removed by the destructor. A target
/// that is a device or a pipe is written directly. All members raise an automation error that names the
/// target: 76 (folder missing), 70 (not permitted), 61 (disk full) or 75.
class OutputFile {
  public:
    explicit OutputFile(const std::filesystem::path& target);
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;
    ~OutputFile();

    void write(std::string_view bytes);

    /// Gives the file its name, in place of any file that had it. Nothing can be written afterwards.
    void publish();

  private:
    void open_nameless(const std::filesystem::path& folder);
    void open_named();
    void link_nameless();

    std::filesystem::path target_;
    std::filesystem::path temporary_;  ///< the name to remove again; empty when there is none
    int descriptor_ = -1;
    bool nameless_ = false;
};

}  // namespace foliant::hosts::office
