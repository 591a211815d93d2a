#include "hosts/distiller/security_record.h"

#include <array>
#include <cerrno>
#include <stdexcept>
#include <sys/mman.h>
#include <unistd.h>

#include "hosts/distiller/distill_error.h"

namespace foliant::hosts::distiller {
namespace {

constexpr std::size_t longest = 65536;

/// The permissions in the order of their record.
std::array<bool*, 4> permissions_of(Security& security) {
    return {&security.allow_printing, &security.allow_accessibility, &security.allow_copying,
            &security.allow_changing};
}

/// A digit for each permission, the open password, a zero byte, the owner password. Settings are texts
/// without zero bytes.
std::string record_of(Security security) {
    std::string record;
    for (const bool* const allowed : permissions_of(security))
        record += *allowed ? '1' : '0';
    return record + security.open_password + '\0' + security.owner_password;
}

}  // namespace

posix::FileDescriptor write_security(const Security& security) {
    const std::string record = record_of(security);
    posix::FileDescriptor file(::memfd_create("security", MFD_CLOEXEC));
    const auto size = static_cast<ssize_t>(record.size());
    if (record.size() > longest || !file || ::pwrite(file.get(), record.data(), record.size(), 0) != size) {
        throw DistillError("Cannot protect the PDF: its passwords cannot be handed over (" +
                           system_reason(record.size() > longest ? EMSGSIZE : errno) + ").");
    }
    return file;
}

Security read_security(int descriptor) {
    std::string record(longest, '\0');
    const ssize_t got = ::pread(descriptor, record.data(), record.size(), 0);
    record.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
    Security security;
    const auto permissions = permissions_of(security);
    const auto end_of_open = record.find('\0', permissions.size());
    if (end_of_open == std::string::npos) throw std::runtime_error("no security was handed over");
    for (std::size_t i = 0; i < permissions.size(); ++i)
        *permissions[i] = record[i] == '1';
    security.open_password = record.substr(permissions.size(), end_of_open - permissions.size());
    security.owner_password = record.substr(end_of_open + 1);
    return security;
}

}  // namespace foliant::hosts::distiller
