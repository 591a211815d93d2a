#pragma once

#include <functional>
#include <streambuf>

#include "posix/file_descriptor.h"

namespace foliant::cli {

/// Puts something into the place of standard streams that are closed, which the next file to be opened would take, and
/// would have messages written into it. Reading and writing results fail as they do from and to a closed one; messages
/// go nowhere.
void fill_closed_streams() noexcept;

/// Keeps standard output and standard error for this program: std::cout and std::cerr go on to where they
/// went, while whatever libraries and child processes write to the two descriptors goes elsewhere. For a
/// process that ends without unwinding: nothing is put back.
class OwnStreams {
  public:
    /// `elsewhere` is open for writing, or -1 for nowhere. `before_message` runs before anything is written
    /// to std::cerr; may be empty.
    OwnStreams(int elsewhere, std::function<void()> before_message);

  private:
    class Buffer : public std::streambuf {
      public:
        Buffer(int standard, std::function<void()> before);
        int_type overflow(int_type c) override;
        std::streamsize xsputn(const char* text, std::streamsize length) override;

      private:
        posix::FileDescriptor target_;
        std::function<void()> before_;
    };

    Buffer output_;
    Buffer errors_;
};

}  // namespace foliant::cli
