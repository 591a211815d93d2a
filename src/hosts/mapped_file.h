#pragma once

#include <cstddef>
#include <string_view>

namespace foliant::hosts {

/// The bytes of a file, read as they are needed. They stay those of the file that was open, whatever gets its
/// name later.
class MappedFile {
  public:
    /// Of an open file, which may be closed afterwards. Throws std::system_error.
    explicit MappedFile(int descriptor);
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;
    ~MappedFile();

    std::string_view bytes() const noexcept { return {data_, size_}; }

  private:
    const char* data_ = nullptr;  ///< null for an empty file
    std::size_t size_ = 0;
};

}  // namespace foliant::hosts
