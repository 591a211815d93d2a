#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "hosts/machine.h"
#include "hosts/office/pdf_reader.h"
#include "support/scratch_folder.h"

namespace foliant::tests {

/// A machine with a PDF printer, "Adobe PDF", and a queue, "Office", which notes what a host that prints asks of it.
class NotingMachine : public hosts::Machine {
  public:
    std::filesystem::path private_folder() const override { return folder_.path(); }
    bool has_printer(std::string_view name) const override { return name == "Adobe PDF" || name == "Office"; }
    bool is_pdf_printer(std::string_view name) const override { return name == "Adobe PDF"; }
    std::string default_printer() const override { return printer; }
    std::vector<std::string> printer_names() const override { return {"Adobe PDF", "Office"}; }
    void print(std::string_view queue, const std::filesystem::path& pdf, std::string_view title) override {
        notes.push_back("print " + std::string(title) + " on " + std::string(queue) + ", pages " +
                        std::to_string(hosts::office::test::PdfReader(pdf).pages()));
    }
    void show_progress(std::string_view doing, int percent) override {
        progress.push_back(std::string(doing) + " " + std::to_string(percent));
    }
    void show(hosts::Dialog& dialog) override {
        notes.push_back("dialog " + dialog.caption + ": " + dialog.controls.front().text);
        if (answer.empty()) return;
        dialog.controls.front().text = answer;
        dialog.accepted = true;
    }
    hosts::HostWindow open_window(std::string caption, std::function<void()>) override {
        notes.push_back("window " + caption);
        return notes.size();
    }
    void close_window(hosts::HostWindow) override {}
    std::optional<std::string> setting(std::string_view, std::string_view) const override { return {}; }

    std::string printer = "Office";  ///< the default one
    std::string answer;              ///< typed into the dialog; empty to cancel it
    std::vector<std::string> notes;
    std::vector<std::string> progress;

  private:
    ScratchFolder folder_;
};

}  // namespace foliant::tests
