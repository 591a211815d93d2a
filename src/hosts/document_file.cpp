#include "hosts/document_file.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>

namespace foliant::hosts {

DocumentFile open_document_file(const std::filesystem::path& path) {
    DocumentFile document{std::filesystem::absolute(path), std::filesystem::absolute(path), {}};
    const auto fail = [&](int code) {
        throw std::filesystem::filesystem_error("cannot read", document.path,
                                                std::error_code(code, std::generic_category()));
    };
    // Opening a pipe would wait for somebody who writes into it.
    document.descriptor =
        posix::FileDescriptor(::open(document.path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat status {};
    if (!document.descriptor || ::fstat(document.descriptor.get(), &status) != 0)
        fail(errno == ENXIO ? ENOTSUP : errno);  // a socket
    if (S_ISDIR(status.st_mode)) fail(EISDIR);
    if (!S_ISREG(status.st_mode)) fail(ENOTSUP);
    return document;
}

}  // namespace foliant::hosts
