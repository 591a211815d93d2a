#pragma once

#include <filesystem>

#include "hosts/office/application.h"

namespace foliant::hosts::office {

/// Writes a LibreOffice user profile into `profile` (made when missing). With it no macro runs, no link is
/// followed, nothing is fetched from the network, no lock file is written beside a document, and nothing of a
/// first start happens. `office` is the installation that will use it. Raises 75 as an error of
/// `application` when the folder cannot be written.
void write_profile(const std::filesystem::path& profile, const std::filesystem::path& office,
                   const Application& application);

/// The configuration layers for the office process: those of the installation `office` less the desktop's
/// settings and every extension, so that a document comes out the same for every user, and nothing is written
/// outside the profile.
std::string configuration_layers(const std::filesystem::path& office);

}  // namespace foliant::hosts::office
