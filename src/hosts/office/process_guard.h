#pragma once

#include <csignal>
#include <filesystem>
#include <string>
#include <vector>

namespace foliant::hosts {

/// Keeps what belongs to the process out of LibreOffice's reach while it starts: signal dispositions and
/// the C locale are put back as they were when this is destroyed. Meanwhile the signals that end a process
/// are held back, and the threads that LibreOffice starts inherit that, so they never receive one later.
class ProcessGuard {
  public:
    ProcessGuard();
    ProcessGuard(const ProcessGuard&) = delete;
    ProcessGuard& operator=(const ProcessGuard&) = delete;
    ~ProcessGuard();

  private:
    std::vector<struct sigaction> actions_;
    sigset_t mask_;
    std::string locale_;
};

/// Makes `folder` the temporary folder of the process (TMPDIR) until this is destroyed, so that a process
/// that is killed leaves nothing in the shared one.
class TemporaryFolderGuard {
  public:
    explicit TemporaryFolderGuard(const std::filesystem::path& folder);
    TemporaryFolderGuard(const TemporaryFolderGuard&) = delete;
    TemporaryFolderGuard& operator=(const TemporaryFolderGuard&) = delete;
    ~TemporaryFolderGuard();

  private:
    bool was_set_;
    std::string former_;
};

}  // namespace foliant::hosts
