#pragma once

#include <cstdint>

#include "hosts/office/application.h"

namespace foliant::hosts::office {

/// Microsoft Visio, which raises its failures without numbers of their own.
inline constexpr Application microsoft_visio = {
    .name = "Microsoft Visio",
    .reads = "a Visio or OpenDocument drawing",
    .library = "libsdlo.so",
    .package = "libreoffice-draw-nogui",
    .pdf_filter = "draw_pdf_Export",
    .command_failed = -2032466967,
    .value_out_of_range = -2032466967,
    .unreadable = -2032466967,
    .file_not_found = -2032466967,
    .wrong_password = -2032466967,
    .file_corrupted = -2032466967,
    .encrypted = " is encrypted, and Visio is given no passwords. Save it without one first."};

}  // namespace foliant::hosts::office
