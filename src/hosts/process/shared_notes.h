#pragma once

#include <atomic>
#include <cerrno>
#include <new>
#include <sys/mman.h>
#include <system_error>

namespace foliant::hosts::process {

/// What a host tells its caller without a message. Setting it takes no memory and no lock. A host that a document has taken
/// over may set it to anything.
struct HostNotes {
    std::atomic<bool> memory_refused = false;  ///< it has asked for more than it may have
    std::atomic<int> processor = -1;           ///< that it stays on; -1 for none
};

/// The notes of a host, in memory that a process and its children have in common.
class SharedNotes {
  public:
    SharedNotes() {
        void* const place =
            ::mmap(nullptr, sizeof(HostNotes), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
        if (place == MAP_FAILED)
            throw std::system_error(errno, std::generic_category(), "cannot share memory");
        notes_ = new (place) HostNotes;
    }
    SharedNotes(const SharedNotes&) = delete;
    SharedNotes& operator=(const SharedNotes&) = delete;
    ~SharedNotes() { ::munmap(notes_, sizeof *notes_); }

    HostNotes& operator*() const noexcept { return *notes_; }
    HostNotes* operator->() const noexcept { return notes_; }

  private:
    HostNotes* notes_;
};

}  // namespace foliant::hosts::process
