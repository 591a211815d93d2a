#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "automation/error.h"

namespace foliant::hosts::office {

/// The application that LibreOffice stands in for: how it calls itself, and under which numbers it raises
/// what can go wrong with any document. Errors that only one application has are in that application's
/// folder.
struct Application {
    std::string_view name;   ///< the source of its errors: "Microsoft Word"
    std::string_view reads;  ///< what it reads, for messages: "a Word, OpenDocument or text file"

    std::string_view library;     ///< the part of LibreOffice that it takes: "libswlo.so"
    std::string_view package;     ///< the Debian package that brings that
    std::string_view pdf_filter;  ///< the name of its exporter

    std::int32_t command_failed;      ///< anything that has no number of its own
    std::int32_t value_out_of_range;  ///< an argument, or a page range, that is not understood
    std::int32_t unreadable;          ///< not a document that the application reads
    std::int32_t file_not_found;      ///< the document does not exist
    std::int32_t wrong_password;      ///< an open password is needed, or the given one is wrong
    std::int32_t file_corrupted;      ///< the document is empty or damaged

    /// What is said of an encrypted document, after its name.
    std::string_view encrypted = " is encrypted. Give its open password.";

    /// The name without its maker, for messages: "Word".
    std::string_view short_name() const { return name.substr(name.find(' ') + 1); }

    /// A failure under one of these numbers; `description` says what failed, on which file, why, and what to
    /// do.
    automation::Error error(std::int32_t number, std::string description) const {
        return {number, std::string(name), std::move(description)};
    }
    /// The same for a classic run-time error (disk full, no such engine ...).
    automation::Error error(automation::RuntimeError number, std::string description) const {
        return error(static_cast<std::int32_t>(number), std::move(description));
    }
};

}  // namespace foliant::hosts::office
