#pragma once

#include <cstdint>

#include "hosts/machine.h"
#include "hosts/process/wire.h"

namespace foliant::hosts::process {

/// A window as messages have it.
using WindowNumber = std::uint64_t;

/// What a contained host asks of the process that it works for.
enum class MachineCall : std::uint8_t {
    open_document,     ///< path; the file, and its absolute path
    make_output,       ///< path; the file, and a number for it
    commit_output,     ///< its number
    drop_output,       ///< its number
    has_printer,       ///< name; truth
    is_pdf_printer,    ///< name; truth
    default_printer,   ///< its name
    printer_names,     ///< how many; their names
    print,             ///< printer, path, title
    found,             ///< place; whether the next one is wanted
    show,              ///< dialog; the dialog as it was left
    open_window,       ///< caption; the window
    close_window,      ///< the window
    leave_open,        ///< whether there is a document; its path, the page, the file to read aloud
    capture_page,      ///< address; the file, and what it came without
    show_progress,     ///< what is being done, per cent
    tell_failure,      ///< a sentence
    show_in_acrobat,   ///< path, name
    take_handed_over,  ///< whether there is a document; its name, the file
};

/// What it is asked, besides its objects' members.
enum class HostCall : std::uint8_t {
    create,  ///< class name; an object
    click,   ///< index of a control, and the dialog that is shown; the dialog as the host wants it
    closed,  ///< a window
};

void put_place(Writer& message, const FoundText& place);
FoundText read_place(Reader& message);

/// A dialog without its function.
void put_dialog(Writer& message, const Dialog& dialog);

/// Takes everything but the function from a message.
void update_dialog(Dialog& dialog, Reader& message);

}  // namespace foliant::hosts::process
