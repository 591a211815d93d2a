#pragma once

#include <atomic>
#include <cerrno>
#include <new>
#include <sys/mman.h>
#include <system_error>

namespace foliant::hosts::process {

/// A flag that a process and its children have in common. Setting it takes no memory and no lock.
class SharedFlag {
  public:
    SharedFlag() {
        void* const place = ::mmap(nullptr, sizeof(std::atomic<bool>), PROT_READ | PROT_WRITE,
                                   MAP_SHARED | MAP_ANONYMOUS, -1, 0);
        if (place == MAP_FAILED)
            throw std::system_error(errno, std::generic_category(), "cannot share memory");
        flag_ = new (place) std::atomic<bool>(false);
    }
    SharedFlag(const SharedFlag&) = delete;
    SharedFlag& operator=(const SharedFlag&) = delete;
    ~SharedFlag() { ::munmap(flag_, sizeof *flag_); }

    void set() noexcept { *flag_ = true; }
    bool is_set() const noexcept { return *flag_; }

  private:
    std::atomic<bool>* flag_;
};

}  // namespace foliant::hosts::process
