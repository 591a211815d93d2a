#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "hosts/distiller/engine/protocol.h"
#include "posix/file_descriptor.h"

namespace foliant::hosts::distiller {

/// A program of ours around an engine, in the folder of the engine programs.
struct EngineProgram {
    const char* file;
    const char* engine;   ///< "Ghostscript"
    const char* package;  ///< that brings the engine's library
};
inline constexpr EngineProgram ghostscript_engine = {"ghostscript-engine", "Ghostscript", "libgs10"};
inline constexpr EngineProgram qpdf_protector = {"qpdf-protector", "qpdf", "libqpdf29"};

struct EngineTask {
    const char* command;             ///< of the protocol
    std::filesystem::path folder;    ///< to work in
    std::vector<int> descriptors;    ///< it gets copies of them as 4, 5, ..., and no other open file
    std::uint64_t memory_bytes = 0;  ///< that it may allocate
};

struct EngineRecord {
    engine::Record kind;
    std::string text;
};

/// One run of an engine program. It does not survive this object, nor the process that holds it.
class EngineProcess {
  public:
    /// Throws DistillError when it does not start.
    EngineProcess(const std::filesystem::path& engine_folder, const EngineProgram& program,
                  const EngineTask& task);
    EngineProcess(const EngineProcess&) = delete;
    EngineProcess& operator=(const EngineProcess&) = delete;
    ~EngineProcess();

    /// The next record, or none when the engine has closed its end or `give_up`, which is asked some twenty
    /// times a second, returns true.
    std::optional<EngineRecord> next(const std::function<bool()>& give_up);

    /// Waits for its end. Empty when it ended by itself and well, otherwise how it ended. Throws EngineMissing where its
    /// library is.
    std::string wait_for_end();

  private:
    void read_more();
    /// Its status, as the system has it.
    int reap() noexcept;

    EngineProgram program_;
    pid_t process_ = -1;
    posix::FileDescriptor records_;
    bool at_end_ = false;
    int batches_ = 0;
    std::string unfinished_;
    std::deque<EngineRecord> waiting_;
};

}  // namespace foliant::hosts::distiller
