#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <tiffio.h>

namespace foliant::hosts::acrobat::images {

/// A TIFF that libtiff reads from memory, or writes there.
class TiffMemory {
  public:
    /// Opens one for reading; `bytes` stay where they are. Raises ImageError.
    static std::unique_ptr<TiffMemory> read(std::string_view bytes);
    /// Makes an empty one.
    static std::unique_ptr<TiffMemory> write();
    TiffMemory(const TiffMemory&) = delete;
    TiffMemory& operator=(const TiffMemory&) = delete;
    ~TiffMemory();

    TIFF* get() const noexcept { return tiff_; }

    /// Raises ImageError with what libtiff has said, unless `done`.
    void require(bool done) const;

    /// Of one that was written: the whole file. Nothing can be written afterwards.
    std::string finish();

  private:
    TiffMemory() = default;
    void open(const char* mode);
    struct Calls;

    TIFF* tiff_ = nullptr;
    std::string_view source_;
    std::string written_;
    bool is_writing_ = false;
    std::size_t position_ = 0;
    std::string problem_;
};

}  // namespace foliant::hosts::acrobat::images
