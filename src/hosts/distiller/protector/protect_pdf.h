#pragma once

#include <filesystem>

#include "hosts/distiller/distill_job.h"

namespace foliant::hosts::distiller {

/// Writes `plain` to `locked`, encrypted with AES-256 (revision 6). Throws std::exception with qpdf's reason.
///
/// It lives in a library of its own that is loaded for protected jobs only: loading qpdf takes a few
/// milliseconds, and most jobs never need it.
using ProtectPdf = void (*)(const std::filesystem::path& plain, const std::filesystem::path& locked,
                            const Security& security);

/// The library's file, in the engine folder, and the name under which it exports a `ProtectPdf`.
inline constexpr const char* protector_library = "qpdf-protector.so";
inline constexpr const char* protector_symbol = "foliant_protect_pdf";

}  // namespace foliant::hosts::distiller
