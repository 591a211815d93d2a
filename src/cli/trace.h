#pragma once

#include <functional>
#include <memory>
#include <string>

#include "automation/object.h"
#include "platform/platform.h"

namespace foliant::cli {

/// The ports of a platform, and a line of text for every call on things outside as it is made, in the words
/// of a rehearsal. Settings are only passed through: they are read all the time.
class TracedPlatform {
  public:
    /// Told a line before its call is made; a failure and the answer of a property follow.
    using Note = std::function<void(const std::string& line)>;

    /// `inner`'s ports outlive this.
    TracedPlatform(const platform::Platform& inner, Note note);
    ~TracedPlatform();

    const platform::Platform& platform() const { return platform_; }

  private:
    struct Ports;
    std::unique_ptr<Ports> ports_;
    platform::Platform platform_;
};

}  // namespace foliant::cli
