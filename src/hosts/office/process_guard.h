#pragma once

#include <csignal>
#include <filesystem>
#include <string>
#include <vector>

namespace foliant::hosts::office {

/// Puts what a process does on each signal back as it was, when destroyed. LibreOffice and the libraries that
/// it loads on demand install handlers of their own.
class SignalHandlersGuard {
  public:
    SignalHandlersGuard();
    SignalHandlersGuard(const SignalHandlersGuard&) = delete;
    SignalHandlersGuard& operator=(const SignalHandlersGuard&) = delete;
    ~SignalHandlersGuard();

  private:
    std::vector<struct sigaction> actions_;  ///< by signal number
};

/// Makes a folder the temporary folder of the process (TMPDIR) until destroyed, so that a process that is
/// killed leaves nothing in the shared one.
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

/// What surrounds every call into LibreOffice.
struct CallGuard {
    explicit CallGuard(const std::filesystem::path& temporary_folder) : folder(temporary_folder) {}

    SignalHandlersGuard handlers;
    TemporaryFolderGuard folder;
};

/// What else surrounds its start. The signals that end a process are held back until this is destroyed, and
/// the threads that LibreOffice starts inherit that, so none of them ever receives one in place of the
/// program's own. The C locale is put back as it was.
class StartGuard {
  public:
    StartGuard();
    StartGuard(const StartGuard&) = delete;
    StartGuard& operator=(const StartGuard&) = delete;
    ~StartGuard();

  private:
    sigset_t mask_;
    std::string locale_;
};

}  // namespace foliant::hosts::office
