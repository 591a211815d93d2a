#pragma once

#include <stdexcept>
#include <string_view>

#include "hosts/containment/usual_files.h"
#include "hosts/missing_engine.h"
#include "hosts/module_part.h"

namespace foliant::hosts::acrobat::front {

/// A library of the module, loaded when it is needed.
struct Part {
    std::string_view file;
    std::string_view engine;   ///< that it brings
    std::string_view package;  ///< that the engine is in
};

inline constexpr Part engine_part{"acrobat-engine.so", "qpdf", "libqpdf29"};
inline constexpr Part text_part{"acrobat-text.so", "poppler", "libpoppler126"};
inline constexpr Part tiff_part{"acrobat-tiff.so", "libtiff", "libtiff6"};

/// The libraries of this module.
const ModuleParts& parts();

/// Their files, which the process has to be able to read when it is contained.
containment::Paths files_of_parts();

/// The function of a part. Raises 429, which names the package, when it cannot be loaded.
template <typename Function>
Function& load(const Part& part) {
    try {
        return parts().load<Function>(part.file);
    } catch (const std::runtime_error& reason) {
        throw missing_engine("Adobe Acrobat", part.engine, reason.what(), part.package);
    }
}

}  // namespace foliant::hosts::acrobat::front
