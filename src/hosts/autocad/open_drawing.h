#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "hosts/autocad/drawing/drawing.h"
#include "hosts/machine.h"

namespace foliant::hosts::autocad {

/// A drawing that was opened.
struct OpenDrawing {
    OpenDrawing(std::filesystem::path file, std::string dxf, std::optional<NameSet> layers_off)
        : path(std::move(file)), drawing(std::move(dxf), std::move(layers_off)) {}

    std::filesystem::path path;  ///< absolute
    Drawing drawing;
};

/// Reads a drawing by its content, .dxf or .dwg, whatever it is called. Raises an error of AutoCAD's for what is
/// missing, damaged or something else.
std::shared_ptr<const OpenDrawing> open_drawing(Machine& machine, const std::string& path);

}  // namespace foliant::hosts::autocad
