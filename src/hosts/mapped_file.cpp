#include "hosts/mapped_file.h"

#include <cerrno>
#include <sys/mman.h>
#include <sys/stat.h>
#include <system_error>

namespace foliant::hosts {

MappedFile::MappedFile(int descriptor) {
    struct stat status {};
    if (::fstat(descriptor, &status) != 0) throw std::system_error(errno, std::generic_category());
    if (status.st_size == 0) return;  // nothing cannot be mapped
    size_ = static_cast<std::size_t>(status.st_size);
    void* const place = ::mmap(nullptr, size_, PROT_READ, MAP_SHARED, descriptor, 0);
    if (place == MAP_FAILED) throw std::system_error(errno, std::generic_category());
    data_ = static_cast<const char*>(place);
}

MappedFile::~MappedFile() {
    if (data_ != nullptr) ::munmap(const_cast<char*>(data_), size_);
}

}  // namespace foliant::hosts
