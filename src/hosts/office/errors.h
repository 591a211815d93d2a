#pragma once

#include <string>

#include "automation/error.h"

namespace foliant::hosts::office {

/// Failures of the application and its documents, under the numbers that Microsoft Word raises for them.
enum class WordError : std::int32_t {
    not_running = 462,      ///< the application has been quit
    command_failed = 4198,  ///< anything that has no number of its own
    value_out_of_range =
        4608,                ///< an argument, or a page range, that is not understood or not in the document
    unreadable = 5151,       ///< not a document that Word reads
    file_not_found = 5174,   ///< the document does not exist
    printer_error = 5216,    ///< no such printer
    wrong_password = 5408,   ///< an open password is needed, or the given one is wrong
    file_corrupted = 5792,   ///< the document is empty or damaged
    object_deleted = 5825,   ///< the document has been closed
    no_such_element = 5941,  ///< an index that a collection does not have
};

/// The failure `number` with "Microsoft Word" as its source; `description` says what failed, on which file,
/// why, and what to do.
automation::Error word_error(WordError number, std::string description);

/// The same for a classic run-time error (output folder missing, disk full, no such engine ...).
automation::Error word_error(automation::RuntimeError number, std::string description);

}  // namespace foliant::hosts::office
