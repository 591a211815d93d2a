#pragma once

#include <array>
#include <deque>
#include <optional>
#include <string>
#include <utility>

#include "hosts/process/wire.h"

namespace foliant::hosts::process {

/// One end of a connection between two processes that sends and receives whole messages.
class Channel {
  public:
    explicit Channel(posix::FileDescriptor socket) : socket_(std::move(socket)) {}

    /// Two ends of a new connection. Throws std::system_error.
    static std::pair<Channel, Channel> pair();

    /// Whether the message went out; false when nobody is at the other end.
    bool send(const Writer& message);

    /// Sends a message, which carries no files, together with the next one: for what nobody waits for, and is not
    /// worth waking the other side.
    void send_with_next(const Writer& message);

    /// Waits for the next message; none when the other end is gone. Throws Garbled.
    std::optional<Reader> receive();

    int descriptor() const noexcept { return socket_.get(); }
    void close() noexcept { socket_.reset(); }

  private:
    bool has_received(std::size_t size);

    posix::FileDescriptor socket_;
    std::string unsent_;
    std::array<char, 4096> received_{};  ///< from `begin_` to `end_`: what of the next messages has come
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
    std::deque<posix::FileDescriptor> files_;  ///< that have come, in the order of their messages
};

}  // namespace foliant::hosts::process
