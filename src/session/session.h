#pragma once

#include <memory>
#include <random>
#include <string>

#include "automation/object.h"
#include "automation/value.h"
#include "platform/platform.h"

/// What every member shares: the settings of one `BuildPDF` object, its private services, its error style and
/// its registry access. Knows the ports.
namespace foliant::session {

/// The state of one `BuildPDF` object and the services that its members are made of.
///
/// Strings are UTF-8. A session is used by one thread.
class Session {
  public:
    /// Reads the settings from the registry. Never raises: what is not there has a default.
    /// `events` receives "JobStart", "JobDone", "JobFail", "LogMessage", "PercentDone" and "PageNumber" and
    /// outlives the session, as the ports of `platform` do.
    Session(const platform::Platform& platform, automation::EventSink& events);

    const platform::Platform& outside() const noexcept { return platform_; }
    automation::EventSink& events() const noexcept { return events_; }

    /// The PDF printer that stands in for a blank `strDistiller`.
    const std::string& PrinterName() const noexcept { return printer_name_; }
    /// The Acrobat version text as registered, "" when Acrobat is not.
    const std::string& AcrobatVersion() const noexcept { return acrobat_version_; }
    /// The number that `AcrobatVersion` begins with, 0 when it begins with none.
    double acrobat_version_number() const noexcept;

    /// The folder for temporary files, ending in the separator.
    const std::string& TempFilePath() const noexcept { return temp_file_path_; }
    /// Makes the folder when it is not there, and keeps the former one when that fails. Never raises.
    void set_TempFilePath(const std::string& folder) noexcept;

    /// Whether the directory can tell the file's length; an empty file exists. Never raises.
    bool FileExists(const std::string& path) const noexcept;

    /// One to eight decimal digits, no leading zero, that no entry of the current folder is named after.
    std::string RandomFileName();

    /// The path of a shell folder by its number, "" when there is none. Never raises.
    std::string GetSpecialFolder(std::int32_t folder) const noexcept;

    /// The opening of a member with an input document: raises the missing-file error unless the file exists.
    void require_file(const std::string& path) const;

    /// Deletes an output file when it exists.
    void remove_if_exists(const std::string& path) const;

    /// `TempFilePath` + random digits + extension (".ps" or ".pdf").
    std::string temporary_file(std::string_view extension);

    /// The Distiller whose notifications are relayed; Nothing but while a Distiller job runs.
    struct EventBoundDistiller {
        std::unique_ptr<automation::Subscription> subscription;  // first: it ends before its object is let go
        automation::Value object;
    };
    EventBoundDistiller objAdobeDistiller;

  private:
    std::string read_default_value(std::string_view key) const;

    platform::Platform platform_;
    automation::EventSink& events_;
    std::string acrobat_version_;
    std::string printer_name_;
    std::string temp_file_path_;
    std::mt19937_64 random_;
};

}  // namespace foliant::session
