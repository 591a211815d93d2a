#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "hosts/office/application.h"

namespace foliant::hosts::office {

/// Microsoft Word, with its own numbers.
inline constexpr Application microsoft_word = {.name = "Microsoft Word",
                                               .reads = "a Word, OpenDocument, RTF, HTML or text file",
                                               .library = "libswlo.so",
                                               .package = "libreoffice-writer-nogui",
                                               .pdf_filter = "writer_pdf_Export",
                                               .command_failed = 4198,
                                               .value_out_of_range = 4608,
                                               .unreadable = 5151,
                                               .file_not_found = 5174,
                                               .wrong_password = 5408,
                                               .file_corrupted = 5792};

/// Failures that only Word has, or has under a name of its own.
enum class WordError : std::int32_t {
    not_running = 462,       ///< the application has been quit
    printer_error = 5216,    ///< no such printer
    object_deleted = 5825,   ///< the document has been closed
    no_such_element = 5941,  ///< an index that a collection does not have
};

/// The failure `number`; `description` says what failed, on which file, why, and what to do.
inline automation::Error word_error(WordError number, std::string description) {
    return microsoft_word.error(static_cast<std::int32_t>(number), std::move(description));
}

}  // namespace foliant::hosts::office
