#pragma once

#include <cstdint>

#include "hosts/office/application.h"

namespace foliant::hosts::office {

/// Microsoft PowerPoint, which raises most failures without a number of their own (80004005), and "integer out
/// of range" (80048240) for slides that are not there.
inline constexpr Application microsoft_powerpoint = {
    .name = "Microsoft PowerPoint",
    .reads = "a PowerPoint or OpenDocument presentation",
    .library = "libsdlo.so",
    .package = "libreoffice-impress-nogui",
    .pdf_filter = "impress_pdf_Export",
    .command_failed = -2147467259,
    .value_out_of_range = -2147188160,
    .unreadable = -2147467259,
    .file_not_found = -2147467259,
    .wrong_password = -2147467259,
    .file_corrupted = -2147467259,
    .encrypted = " is encrypted, and PowerPoint is given no passwords. Save it without one first."};

}  // namespace foliant::hosts::office
