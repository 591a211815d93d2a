#pragma once

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "hosts/autocad/drawing/drawing.h"

namespace foliant::hosts::autocad {

/// LibreDWG, which reads .dwg, as WebAssembly that Node.js runs.
struct DwgReader {
    std::filesystem::path program;
    std::filesystem::path library;             ///< its module for Node.js
    std::vector<std::filesystem::path> files;  ///< what reading takes besides libraries of the system
};

/// Where it lies; nothing when one of the two is not installed.
std::optional<DwgReader> find_dwg_reader();

/// A reason why a .dwg was not read, in words that go on after "it".
class DwgFailure : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// A .dwg as LibreDWG gives it.
struct DwgContent {
    std::string dxf;
    NameSet layers_off;  ///< of which the DXF does not tell
};

/// Reads a drawing. It runs in a process of its own, which may do what this one may and ends with it;
/// temporary files go to `folder`. Throws DwgFailure, and std::system_error when there can be no process.
DwgContent read_dwg(const DwgReader& reader, const std::filesystem::path& dwg,
                    const std::filesystem::path& folder);

}  // namespace foliant::hosts::autocad
