#pragma once

#include <deque>
#include <filesystem>
#include <string>
#include <vector>

#include "hosts/machine.h"
#include "support/scratch_folder.h"

namespace foliant::hosts::acrobat::test {

/// A machine that notes what a host asks of it, and answers dialogs as it was told to.
class NotingMachine : public Machine {
  public:
    std::filesystem::path private_folder() const override { return folder_.path(); }
    bool has_printer(std::string_view name) const override { return name == printer; }
    bool is_pdf_printer(std::string_view name) const override { return name == "Adobe PDF"; }
    std::string default_printer() const override { return printer; }
    void print(std::string_view queue, const std::filesystem::path& pdf, std::string_view title) override;
    HostWindow open_window(std::string caption, std::function<void()>) override {
        notes.push_back("window " + caption);
        return 1;
    }
    void close_window(HostWindow) override {}
    CapturedPage capture_page(const std::string& address) override;
    void leave_open(const std::optional<LeftOpen>& document) override;
    std::optional<std::string> setting(std::string_view, std::string_view) const override { return {}; }

    bool found(const FoundText& place) override {
        places.push_back(place);
        return wants_every_place;
    }

    void tell_failure(const std::string& sentence) override { failures.push_back(sentence); }
    void show_progress(std::string_view doing, int) override { work_done.emplace_back(doing); }

    /// Takes the next of `answers`; without one, refuses as a desktop does where nobody is.
    void show(Dialog& dialog) override;

    /// What goes into the first edit control of each dialog, which is then closed by its default button; of a
    /// dialog "cancel" cancels it.
    std::deque<std::string> answers;
    std::vector<std::string> work_done;  ///< what people who wait were told
    std::vector<std::string> failures;   ///< that were told and not raised
    std::vector<std::string> notes;      ///< "dialog Open", ...
    std::string printer = "Adobe PDF";   ///< the default one
    std::string printed;                 ///< what was printed last, as a file
    std::string web_page;                ///< the PDF that every captured page is; "" where none can be had
    std::string web_page_errors;         ///< what it came without
    std::string read_aloud;              ///< the text
    std::vector<FoundText> places;       ///< that hosts have told of
    bool wants_every_place = false;

  private:
    tests::ScratchFolder folder_;
};

}  // namespace foliant::hosts::acrobat::test
