#pragma once

#include <csignal>
#include <filesystem>
#include <optional>
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

/// Gives a variable of the process's environment another value until destroyed.
class EnvironmentGuard {
  public:
    EnvironmentGuard(std::string name, const std::string& value);
    EnvironmentGuard(const EnvironmentGuard&) = delete;
    EnvironmentGuard& operator=(const EnvironmentGuard&) = delete;
    ~EnvironmentGuard();

  private:
    std::string name_;
    std::optional<std::string> former_;
};

/// What surrounds every call into LibreOffice: the program's signal handlers stay, and temporary files go
/// into `folder`, so that a process that is killed leaves none in the shared one.
struct CallGuard {
    explicit CallGuard(const std::filesystem::path& folder) : temporary_folder("TMPDIR", folder.string()) {}

    SignalHandlersGuard handlers;
    EnvironmentGuard temporary_folder;
};

/// What else surrounds its start. The signals that end a process are held back until this is destroyed, and
/// the threads that LibreOffice starts inherit that, so none of them ever receives one in place of the
/// program's own. The C locale is put back as it was, and no folder for settings is made in the user's home:
/// `folder` stands in for it. Where the user's locale is not one of UTF-8, or not installed, C.UTF-8 stands
/// in for it: LibreOffice would not find files whose names are not ASCII.
class StartGuard {
  public:
    explicit StartGuard(const std::filesystem::path& folder);
    StartGuard(const StartGuard&) = delete;
    StartGuard& operator=(const StartGuard&) = delete;
    ~StartGuard();

  private:
    sigset_t mask_;
    std::string locale_;
    EnvironmentGuard settings_folder_;
    std::optional<EnvironmentGuard> utf8_;
};

}  // namespace foliant::hosts::office
