#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "automation/error.h"
#include "hosts/acrobat/document.h"
#include "hosts/acrobat/text/finder.h"
#include "hosts/machine.h"

namespace foliant::hosts::acrobat {

/// A window that shows a document, or nothing once it is closed.
struct View {
    DocumentPtr document;
    std::int32_t page = 0;                          ///< the one in view, from 0
    std::optional<text::Hit> found = std::nullopt;  ///< what the last search has found, which it shows
    HostWindow window = 0;                          ///< 0 where nobody looks for it by its caption
};
using ViewPtr = std::shared_ptr<View>;

/// The running Acrobat, which all of its objects belong to. It ends with the last of them.
struct Program {
    explicit Program(Machine& its_machine) : machine(its_machine) {}

    /// The one that runs on that machine, started if none does.
    static std::shared_ptr<Program> running_on(Machine& machine);

    /// Opens a window on a document, in front of the others.
    ViewPtr show(DocumentPtr document);
    /// Opens a window on what another program has handed over to be shown, if there is anything.
    void show_handed_over();
    /// The window in front; null without any.
    ViewPtr active_view() const;
    /// The document of that path that a window shows; null when none does.
    DocumentPtr shown_document(const std::string& path) const;
    void close(const ViewPtr& view) noexcept;
    void close_all() noexcept;

    /// Comes up on the screen, where it stays when the call is over.
    void become_visible();
    /// Brings a page into view, counted from 0, instead of what was found.
    void go_to(const ViewPtr& view, std::int32_t page);
    /// Reads a text aloud when the call is over, UTF-8.
    void read_aloud(const std::string& text);

    Machine& machine;
    std::vector<ViewPtr> views;                     ///< the one in front last
    std::optional<automation::Error> last_failure;  ///< why what was to be shown last is not

  private:
    void tell_what_is_shown() const;

    bool is_visible_ = false;
    std::filesystem::path speech_;
};
using ProgramPtr = std::shared_ptr<Program>;

}  // namespace foliant::hosts::acrobat
