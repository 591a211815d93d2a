#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "hosts/office/application.h"

namespace foliant::hosts::office {

/// Microsoft Excel, which has one number for whatever goes wrong with a workbook.
inline constexpr Application microsoft_excel = {.name = "Microsoft Excel",
                                                .reads = "an Excel, OpenDocument or CSV file",
                                                .library = "libsclo.so",
                                                .package = "libreoffice-calc-nogui",
                                                .pdf_filter = "calc_pdf_Export",
                                                .command_failed = 1004,
                                                .value_out_of_range = 1004,
                                                .unreadable = 1004,
                                                .file_not_found = 1004,
                                                .wrong_password = 1004,
                                                .file_corrupted = 1004};

/// A failure under Excel's one number; `description` says what failed, why, and what to do.
inline automation::Error excel_error(std::string description) {
    return microsoft_excel.error(microsoft_excel.command_failed, std::move(description));
}

}  // namespace foliant::hosts::office
