#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace foliant::hosts::web {

/// An address as a browser takes it: what was typed, with "http://" or "file://" where only a name or a path
/// was typed. Throws CaptureError for anything but http, https and file.
std::string full_address(const std::string& typed);

/// What a page on this machine's disk is made of, as far as a browser may look: its file, and the folder that it
/// lies in with what is below it, where its pictures are. In a folder that the user's home lies in, too much else
/// lies there: then it is the file, and the folder that browsers save pictures of a page in ("page_files"). Empty
/// for an address that is no file's.
std::vector<std::filesystem::path> files_of(const std::string& address);

}  // namespace foliant::hosts::web
