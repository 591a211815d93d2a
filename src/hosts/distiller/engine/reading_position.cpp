#include "hosts/distiller/engine/reading_position.h"

#include <sys/stat.h>
#include <unistd.h>

#include "hosts/distiller/engine/protocol.h"

namespace foliant::hosts::distiller::engine {
namespace {

constexpr int highest_expected = 63;  // the interpreter has a dozen files open

}  // namespace

void ReadingPosition::follow(const std::string& path) {
    struct stat status = {};
    const bool known = ::stat(path.c_str(), &status) == 0;
    device_ = known ? status.st_dev : 0;
    inode_ = known ? status.st_ino : 0;
    descriptor_ = -1;
    last_ = 0;
}

std::uintmax_t ReadingPosition::now() {
    if (descriptor_ < 0 || !is_the_file(descriptor_)) find_descriptor();
    const off_t position = descriptor_ < 0 ? -1 : ::lseek(descriptor_, 0, SEEK_CUR);
    if (position >= 0) last_ = static_cast<std::uintmax_t>(position);
    return last_;
}

bool ReadingPosition::is_the_file(int descriptor) const {
    struct stat status = {};
    return ::fstat(descriptor, &status) == 0 && status.st_dev == device_ && status.st_ino == inode_;
}

void ReadingPosition::find_descriptor() {
    descriptor_ = output_descriptor;
    while (++descriptor_ <= highest_expected) {
        if (is_the_file(descriptor_)) return;
    }
    descriptor_ = -1;
}

}  // namespace foliant::hosts::distiller::engine
