#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace foliant::hosts::office {

/// Where LibreOffice is installed; the folder that holds "program" and "share".
const std::filesystem::path& office_folder();

/// The version of the LibreOffice in `folder`, for example "7.4.7.2", read from its files without starting
/// anything (about a millisecond). Empty when there is none.
std::string office_version(const std::filesystem::path& folder = office_folder());

/// The value of `key` in an ini file of LibreOffice (a line "key=value"); empty when file or key are missing.
std::string ini_value(const std::filesystem::path& file, std::string_view key);

}  // namespace foliant::hosts::office
