#include "hosts/process/channel.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <poll.h>
#include <sys/socket.h>
#include <sys/uio.h>
#include <system_error>

namespace foliant::hosts::process {

using posix::FileDescriptor;

namespace {

constexpr std::size_t most_descriptors = 4;
constexpr std::size_t most_waiting_files = 64;         // whose messages were not read yet
constexpr std::uint32_t longest_message = 64U << 20U;  // documents and outputs travel as open files

using ControlPart = std::array<char, CMSG_SPACE(sizeof(int) * most_descriptors)>;

/// Puts the descriptors into a message's control part.
void attach(msghdr& header, ControlPart& control, const std::vector<FileDescriptor>& files) {
    if (files.empty()) return;
    std::array<int, most_descriptors> numbers{};
    const std::size_t size = files.size() * sizeof(int);
    for (std::size_t i = 0; i < files.size(); ++i)
        numbers.at(i) = files[i].get();
    header.msg_control = control.data();
    header.msg_controllen = CMSG_SPACE(size);
    cmsghdr* const part = CMSG_FIRSTHDR(&header);
    part->cmsg_level = SOL_SOCKET;
    part->cmsg_type = SCM_RIGHTS;
    part->cmsg_len = CMSG_LEN(size);
    std::memcpy(CMSG_DATA(part), numbers.data(), size);
}

std::vector<FileDescriptor> attached(msghdr& header) {
    std::vector<FileDescriptor> descriptors;
    for (cmsghdr* part = CMSG_FIRSTHDR(&header); part != nullptr; part = CMSG_NXTHDR(&header, part)) {
        if (part->cmsg_level != SOL_SOCKET || part->cmsg_type != SCM_RIGHTS) continue;
        const std::size_t count = (part->cmsg_len - CMSG_LEN(0)) / sizeof(int);
        for (std::size_t i = 0; i < count; ++i) {
            int number = -1;
            std::memcpy(&number, CMSG_DATA(part) + i * sizeof number, sizeof number);
            descriptors.emplace_back(number);
        }
    }
    return descriptors;
}

/// Returns when something has come, or the other end is gone, or a signal. A recvmsg that waits is woken by the other
/// side's reading, too: two switches of processes for nothing, with every message.
void wait_for_news(int socket) {
    if (socket < 0) return;  // one that was closed here: poll would pass over it, and wait for ever
    pollfd news{socket, POLLIN, 0};
    ::poll(&news, 1, -1);
}

/// One recvmsg that is not interrupted; 0 when the other end is gone.
ssize_t receive_some(int socket, char* target, std::size_t size, msghdr& header) {
    iovec place{target, size};
    header.msg_iov = &place;
    header.msg_iovlen = 1;
    ssize_t got = 0;
    do {
        wait_for_news(socket);
        got = ::recvmsg(socket, &header, MSG_CMSG_CLOEXEC);
    } while (got < 0 && errno == EINTR);
    return got < 0 ? 0 : got;
}

bool receive_all(int socket, char* target, std::size_t size) {
    while (size > 0) {
        msghdr header{};
        const ssize_t got = receive_some(socket, target, size, header);
        if (got == 0) return false;
        target += got;
        size -= static_cast<std::size_t>(got);
    }
    return true;
}

/// In front of a message stands a number: its length in bytes, and above that how many files come with it.
constexpr unsigned bits_of_length = 28;
static_assert(longest_message < 1U << bits_of_length && most_descriptors < 1U << (32U - bits_of_length));

void append(std::string& bytes, const Writer& message) {
    const auto size = static_cast<std::uint32_t>(message.bytes().size());
    const auto files = static_cast<std::uint32_t>(message.files().size());
    const std::uint32_t front = size | files << bits_of_length;
    bytes.append(reinterpret_cast<const char*>(&front), sizeof front);
    bytes += message.bytes();
}

}  // namespace

std::pair<Channel, Channel> Channel::pair() {
    std::array<int, 2> ends{};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0)
        throw std::system_error(errno, std::generic_category(), "cannot make a connection");
    return {Channel(FileDescriptor(ends[0])), Channel(FileDescriptor(ends[1]))};
}

bool Channel::send(const Writer& message) {
    std::string bytes = std::exchange(unsent_, {});
    append(bytes, message);
    ControlPart control{};
    msghdr header{};
    attach(header, control, message.files());
    std::string_view rest = bytes;
    while (!rest.empty()) {
        iovec part{const_cast<char*>(rest.data()), rest.size()};
        header.msg_iov = &part;
        header.msg_iovlen = 1;
        const ssize_t sent = ::sendmsg(socket_.get(), &header, MSG_NOSIGNAL);
        if (sent < 0 && errno == EINTR) continue;
        if (sent < 0) return false;
        rest.remove_prefix(static_cast<std::size_t>(sent));
        header = {};  // the files went with the first byte
    }
    return true;
}

void Channel::send_with_next(const Writer& message) {
    append(unsent_, message);
}

/// Waits until so many bytes, which are no more than there is room for, have come.
bool Channel::has_received(std::size_t size) {
    if (end_ - begin_ >= size) return true;
    std::copy(received_.begin() + begin_, received_.begin() + end_, received_.begin());
    end_ -= std::exchange(begin_, 0);
    while (end_ < size) {
        ControlPart control{};
        msghdr header{};
        header.msg_control = control.data();
        header.msg_controllen = control.size();
        const ssize_t got =
            receive_some(socket_.get(), received_.data() + end_, received_.size() - end_, header);
        if (got == 0) return false;
        end_ += static_cast<std::size_t>(got);
        for (FileDescriptor& file : attached(header))
            files_.push_back(std::move(file));
        if (files_.size() > most_waiting_files) throw Garbled();
    }
    return true;
}

std::optional<Reader> Channel::receive() {
    std::uint32_t front = 0;
    if (!has_received(sizeof front)) return std::nullopt;
    std::memcpy(&front, received_.data() + begin_, sizeof front);
    begin_ += sizeof front;
    const std::uint32_t size = front & ((1U << bits_of_length) - 1);
    const std::uint32_t count = front >> bits_of_length;
    if (size > longest_message || count > files_.size()) throw Garbled();
    std::vector<FileDescriptor> files;
    for (; files.size() < count; files_.pop_front())
        files.push_back(std::move(files_.front()));
    std::string bytes(size, '\0');
    const std::size_t there = std::min(bytes.size(), end_ - begin_);
    bytes.replace(0, there, received_.data() + begin_, there);
    begin_ += there;
    if (!receive_all(socket_.get(), bytes.data() + there, bytes.size() - there)) return std::nullopt;
    return Reader(std::move(bytes), std::move(files));
}

}  // namespace foliant::hosts::process
