#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/document_file.h"
#include "hosts/left_open.h"
#include "hosts/pending_file.h"

/// Stand-in hosts: automation objects with the members that the library calls on the real programs, giving
/// the real result through an open engine. This room knows automation/ and the engines it wraps; what else a
/// host needs of the machine it runs on, it asks for here.
namespace foliant::hosts {

/// A control of a dialog, by the window class that the real dialog has it in ("Edit", "Button",
/// "RichEdit20W").
struct Control {
    std::string window_class;
    std::string caption{};
    std::string text{};
    bool enabled = true;
    bool checked = false;
    bool is_default = false;    ///< the button that Enter presses
    bool is_check_box = false;  ///< a "Button" that is ticked and leaves its dialog open
};

/// A window that a host has opened; 0 is none.
using HostWindow = std::uintptr_t;

/// A modal dialog of a host. `on_click` (may be empty) is told the index of a control that was clicked,
/// before the dialog closes if that click closes it.
struct Dialog {
    std::string caption;
    std::vector<Control> controls;
    std::function<void(Dialog&, std::size_t)> on_click;
    bool accepted = false;  ///< set when the dialog was closed by its default button or Enter
};

/// A place in a document where a host has found a text that it was to look for.
struct FoundText {
    std::int32_t page = 1;
    /// In points, in the coordinates of the page's own content: y upwards.
    double left = 0;
    double bottom = 0;
    double right = 0;
    double top = 0;
    std::string context;  ///< the line that it stands in; a long one is cut
};

/// A page of the web that was captured.
struct CapturedPage {
    posix::FileDescriptor pdf;  ///< open for reading
    std::string errors;         ///< what it came without, a sentence; "" where it is whole
};

/// A PDF that one host hands to another: an open file, and what it is called.
struct HandedOver {
    std::string name;
    posix::FileDescriptor pdf;
};

/// What a host may allocate where nobody says otherwise, in bytes: several times what large documents take.
inline constexpr std::uint64_t usual_memory_limit = std::uint64_t{2} << 30U;

/// The machine as a host sees it.
class Machine {
  public:
    virtual ~Machine() = default;

    /// A folder for this process alone (mode 0700, on a local file system). It exists until the process has
    /// ended, however it ends, and is then removed with everything in it.
    virtual std::filesystem::path private_folder() const = 0;

    /// The lines of the text that the call which uses this host has written for it under that path. Nothing
    /// for any other path, whatever file is there: only such a text comes from the library itself, and is
    /// trusted.
    virtual std::optional<std::vector<std::string>> scratch_text(const std::string& /*path*/) const {
        return std::nullopt;
    }

    /// Opens a document of the user's for reading: a host that is contained cannot open one itself. Throws
    /// what open_document_file does.
    virtual DocumentFile open_document(const std::filesystem::path& path,
                                       DocumentAccess /*access*/ = DocumentAccess::place) {
        return open_document_file(path);
    }

    /// Gives up what the host's policy does not name, as opening the first document does. For hosts that meet
    /// what strangers have made elsewhere than in a document.
    virtual void be_contained() {}

    /// Whether the call that uses this host may look at the text of pages, for which engines look at fonts.
    virtual bool may_read_text() const { return true; }

    /// Whether the call's hosts have private folders. Where not, those do not exist, and all that they work on comes as
    /// open files.
    virtual bool gives_hosts_folders() const { return true; }

    /// Whether the call waits for each of many short answers, so that the thread that makes it is best on the processor
    /// that the host is on.
    virtual bool takes_turns() const { return false; }

    /// A new file that appears under that name when it is complete; also a contained host's only way to make
    /// one. Throws what PendingFile does.
    virtual std::unique_ptr<OutputFile> make_output(const std::filesystem::path& path) {
        return std::make_unique<PendingFile>(path);
    }

    /// How much a host may allocate, in bytes.
    virtual std::uint64_t memory_limit_bytes() const { return usual_memory_limit; }

    /// Whether a printer of that name exists; case matters, as it does for the spooler.
    virtual bool has_printer(std::string_view name) const = 0;
    /// Whether that printer is the built-in PDF printer, which asks for its output file in a dialog.
    virtual bool is_pdf_printer(std::string_view name) const = 0;
    /// The user's default printer.
    virtual std::string default_printer() const = 0;
    /// The names of all printers, the PDF printer first.
    virtual std::vector<std::string> printer_names() const { return {default_printer()}; }
    /// Hands a finished PDF file to a printer that is not the PDF printer. Raises an automation error.
    virtual void print(std::string_view printer, const std::filesystem::path& pdf,
                       std::string_view title) = 0;

    /// Tells whoever watches the host of a place that was found. Whether he wants to be told of the next one,
    /// too: the host then looks for it, without that being a part of what it was called for.
    virtual bool found(const FoundText& /*place*/) { return false; }

    /// Tells the people who wait what a host is doing ("Opening") and how much of it is done, in per cent,
    /// -1 where nobody knows. It
    /// costs a message to another process, so a few times a second are enough.
    virtual void show_progress(std::string_view /*doing*/, int /*percent*/) {}

    /// Tells whoever watches the host, in a sentence, why something is not done that it raises no error for: a
    /// caller may pass over what a member's result says.
    virtual void tell_failure(const std::string& /*sentence*/) {}

    /// Puts up a dialog and returns when it was closed. Raises an automation error that names the dialog when
    /// nobody is there to answer it.
    virtual void show(Dialog& dialog) = 0;

    /// Says that the host shows a window with that caption from now on. Somebody may tell it to close; it is
    /// gone then, and `on_close` (may be empty) is told. That must not raise.
    virtual HostWindow open_window(std::string caption, std::function<void()> on_close) = 0;
    /// Says that a window is gone, without telling `on_close`. It may be gone already.
    virtual void close_window(HostWindow window) = 0;

    /// Says what the host shows its user at the moment, which stays open when the call is over; nothing for
    /// nothing. What was said before does not count any more.
    virtual void leave_open(const std::optional<LeftOpen>& /*document*/) {}

    /// Has Acrobat show a PDF that this host has made in its private folder, under the name that its window bears.
    /// The window is there when this returns; the file may be removed then. Raises an automation error.
    virtual void show_in_acrobat(const std::filesystem::path& pdf, const std::string& name);
    /// The PDF that another host has had Acrobat show last, for Acrobat itself, once; nothing where there is none.
    virtual std::optional<HandedOver> take_handed_over() { return std::nullopt; }

    /// A page of the web, as a PDF. Raises an automation error that says why there is none.
    virtual CapturedPage capture_page(const std::string& address);

    /// A text value of the user's settings store, under a key of HKEY_CURRENT_USER such as
    /// "Software\\Adobe\\Acrobat Distiller\\6.0\\Security"; nothing when it is not there.
    /// Raises 13 for a value that is no text, and what is wrong with settings that cannot be read.
    virtual std::optional<std::string> setting(std::string_view key, std::string_view value) const = 0;
};

}  // namespace foliant::hosts
