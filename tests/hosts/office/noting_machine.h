#pragma once

#include <string>
#include <vector>

#include "hosts/machine.h"
#include "hosts/office/pdf_reader.h"
#include "hosts/office/scratch.h"

namespace foliant::hosts::office::test {

/// A machine with a PDF printer and a queue, which notes what is asked of it.
class NotingMachine : public Machine {
  public:
    std::filesystem::path private_folder() const override { return engine_folder(); }
    bool has_printer(std::string_view name) const override { return name == "Adobe PDF" || name == "Office"; }
    bool is_pdf_printer(std::string_view name) const override { return name == "Adobe PDF"; }
    std::string default_printer() const override { return "Office"; }
    void print(std::string_view printer, const std::filesystem::path& pdf, std::string_view title) override {
        notes.push_back("print " + std::string(title) + " on " + std::string(printer) + ", pages " +
                        std::to_string(PdfReader(pdf).pages()));
    }
    void show_progress(std::string_view doing, int percent) override {
        progress.push_back(std::string(doing) + " " + std::to_string(percent));
    }
    void show(Dialog& dialog) override {
        notes.push_back("dialog " + dialog.caption + ": " + dialog.controls.front().text);
        if (answer.empty()) return;
        dialog.controls.front().text = answer;
        dialog.accepted = true;
    }
    HostWindow open_window(std::string caption, std::function<void()>) override {
        notes.push_back("window " + caption);
        return notes.size();
    }
    void close_window(HostWindow) override {}
    std::optional<std::string> setting(std::string_view, std::string_view) const override { return {}; }

    std::string answer;  ///< typed into the dialog; empty to cancel it
    std::vector<std::string> notes;
    std::vector<std::string> progress;
};

}  // namespace foliant::hosts::office::test
