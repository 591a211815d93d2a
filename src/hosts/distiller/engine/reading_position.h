#pragma once

#include <cstdint>
#include <string>
#include <sys/types.h>

namespace foliant::hosts::distiller::engine {

/// How far the interpreter, in this process, has read into one file. It reads ahead by a buffer.
class ReadingPosition {
  public:
    /// Follows another file from now on.
    void follow(const std::string& path);

    /// In bytes; the last known one while the file is not open.
    std::uintmax_t now();

  private:
    bool is_the_file(int descriptor) const;
    void find_descriptor();

    dev_t device_ = 0;
    ino_t inode_ = 0;
    int descriptor_ = -1;
    std::uintmax_t last_ = 0;
};

}  // namespace foliant::hosts::distiller::engine
