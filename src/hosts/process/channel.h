#pragma once

#include <optional>
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

    /// Waits for the next message; none when the other end is gone. Throws Garbled.
    std::optional<Reader> receive();

    int descriptor() const noexcept { return socket_.get(); }
    void close() noexcept { socket_.reset(); }

  private:
    posix::FileDescriptor socket_;
};

}  // namespace foliant::hosts::process
