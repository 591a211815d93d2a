#pragma once

#include <chrono>
#include <filesystem>
#include <string>

namespace foliant::hosts::web {

/// How long things may take.
struct CaptureLimits {
    /// From the start until the page has been loaded; what has come by then is captured.
    std::chrono::milliseconds load{60'000};
    /// Until everything is done.
    std::chrono::milliseconds all{110'000};
};

/// Writes a web page to `pdf`, a new file, as the browser prints it: with backgrounds, on the paper that the
/// page asks for, else on Letter. Redirections are followed. `folder` is for the browser's files, which are gone
/// afterwards. Returns what it came without, as the end of a sentence ("without http://a.example/b.png (404) and 2
/// other parts"); "" where it is whole. Throws CaptureError when there is no such page, NoBrowser, and std::system_error.
std::string capture_page(const std::string& address, const std::filesystem::path& pdf,
                         const std::filesystem::path& folder, const CaptureLimits& limits = {});

}  // namespace foliant::hosts::web
