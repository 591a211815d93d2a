#pragma once

#include <chrono>
#include <deque>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "hosts/distiller/engine/protocol.h"
#include "posix/file_descriptor.h"

namespace foliant::hosts::distiller {

struct EngineRecord {
    engine::Record kind;
    std::string text;
};

/// One run of the engine program. It does not survive this object, nor the process that holds it.
class EngineProcess {
  public:
    /// Starts it with a command of the protocol, in `folder`, with `output` as the file that it may write.
    /// Throws DistillError.
    EngineProcess(const std::filesystem::path& program, const char* command,
                  const std::filesystem::path& folder, int output);
    EngineProcess(const EngineProcess&) = delete;
    EngineProcess& operator=(const EngineProcess&) = delete;
    ~EngineProcess();

    /// The next record, or none when the engine has closed its end or `give_up`, which is asked some twenty
    /// times a second, returns true.
    std::optional<EngineRecord> next(const std::function<bool()>& give_up);

    /// Waits for its end. Empty when it ended by itself and well, otherwise how it ended.
    std::string wait_for_end();

  private:
    void read_more();

    pid_t process_ = -1;
    posix::FileDescriptor records_;
    bool at_end_ = false;
    int batches_ = 0;
    std::string unfinished_;
    std::deque<EngineRecord> waiting_;
};

}  // namespace foliant::hosts::distiller
