#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace foliant::hosts::acrobat::images {

/// Bytes that stay where they are as long as somebody holds on to them: a whole file, or what was made of it.
class Content {
  public:
    Content() = default;
    /// `owner` keeps `bytes`.
    Content(std::shared_ptr<const void> owner, std::string_view bytes)
        : owner_(std::move(owner)), bytes_(bytes) {}
    explicit Content(std::string bytes);

    std::string_view bytes() const noexcept { return bytes_; }

  private:
    std::shared_ptr<const void> owner_;
    std::string_view bytes_;
};

}  // namespace foliant::hosts::acrobat::images
