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
    bool has_printer(std::string_view) const override { return false; }
    bool is_pdf_printer(std::string_view) const override { return false; }
    std::string default_printer() const override { return ""; }
    void print(std::string_view, const std::filesystem::path&, std::string_view) override {}
    HostWindow open_window(std::string, std::function<void()>) override { return 1; }
    void close_window(HostWindow) override {}
    std::optional<std::string> setting(std::string_view, std::string_view) const override { return {}; }

    /// Takes the next of `answers`; without one, refuses as a desktop does where nobody is.
    void show(Dialog& dialog) override;

    /// What goes into the first edit control of each dialog, which is then closed by its default button; of a
    /// dialog "cancel" cancels it.
    std::deque<std::string> answers;
    std::vector<std::string> notes;  ///< "dialog Open", ...

  private:
    tests::ScratchFolder folder_;
};

}  // namespace foliant::hosts::acrobat::test
