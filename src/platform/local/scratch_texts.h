#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/files.h"

namespace foliant::platform::local {

/// The texts that this process writes for its hosts to read. They are kept in memory and are known by the
/// paths that were asked for: no file of the user's is made, followed, replaced or removed under such a path,
/// another process can neither see nor change them, and however the process ends, none is left.
class ScratchTexts {
  public:
    using Lines = std::vector<std::string>;

    /// A new text; it hides an older one under the same path until it is removed, as a call does that comes
    /// in while another one is running.
    std::unique_ptr<TextFile> create(const std::string& path);

    /// What has been written so far, a string for each line whatever is in it; null when there is no such
    /// text.
    const Lines* find(const std::string& path) const;

    /// False when there is no such text.
    bool remove(const std::string& path);

  private:
    struct Entry {
        std::string path;
        std::shared_ptr<Lines> lines;
    };
    std::vector<Entry> entries_;  ///< the newest last
};

}  // namespace foliant::platform::local
