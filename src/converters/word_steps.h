#pragma once

#include <cstdint>
#include <string>

#include "automation/value.h"
#include "engines/host_program.h"
#include "session/session.h"

namespace foliant::converters {

// The steps that members share which print with Word. `word` holds the application, and the document wherever
// one is spoken of. All raise what Word raises.

/// The number on each page of a document's first section.
struct PageNumbers {
    bool in_footer = false;
    bool in_header = false;
    std::int32_t alignment = 1;  ///< 0 left, 2 right, any other number centred
    bool on_first_page = false;
};

/// Turns the document's pages; without `landscape` they stand upright, whatever they did before.
void set_orientation(const engines::HostProgram& word, bool landscape);

/// Adds page numbers where they are wished for, in the footer first.
void add_page_numbers(const engines::HostProgram& word, const PageNumbers& numbers);

/// Has Word ask nothing.
void silence_alerts(const engines::HostProgram& word);

/// Points Word, and only Word, at a printer; a blank name means `PrinterName`. Returns the printer that it
/// had.
std::string choose_active_printer(const session::Session& session, const engines::HostProgram& word,
                                  const std::string& printer);

/// The argument that has `PrintOut` print to a PostScript file.
automation::Argument to_file(const std::string& path);

/// Puts back what `choose_active_printer` and `silence_alerts` have changed.
void restore_printer_and_alerts(const engines::HostProgram& word, const std::string& former_printer);

}  // namespace foliant::converters
