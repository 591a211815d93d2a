#pragma once

#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/distiller/distill_job.h"
#include "hosts/distiller/distiller.h"
#include "support/scratch_folder.h"

namespace foliant::hosts::distiller {

/// Remembers what a job told, one line per event ("page 1", "50 %", "message ..."), in order.
class Journal : public Progress {
  public:
    void job_started(const DistillJob&) override { note("started"); }
    void page_finished(int page) override { note("page " + std::to_string(page)); }
    void percent_done(int percent) override {
        percents.push_back(percent);
        note(std::to_string(percent) + " %");
    }
    void message(std::string_view line) override {
        messages.emplace_back(line);
        note("message " + std::string(line));
    }
    void job_done(const DistillJob&) override { note("done"); }
    void job_failed(const DistillJob&) override { note("failed"); }
    bool cancelled() override { return cancel_when && cancel_when(); }

    /// The lines that begin so.
    std::vector<std::string> lines_with(std::string_view opening) const;

    std::vector<std::string> lines;
    std::vector<std::string> messages;
    std::vector<int> percents;
    std::function<bool()> cancel_when;

  private:
    void note(std::string line) { lines.push_back(std::move(line)); }
};

/// A folder with PostScript in it, and the real engine. After each test nothing may be left of its jobs.
class DistillerTest : public testing::Test {
  protected:
    DistillerTest();
    ~DistillerTest() override;

    /// Writes a file into the test's folder and gives its path.
    std::filesystem::path write(const std::string& name, std::string_view content) const;
    /// Runs a job from `input` to "out.pdf" in the test's folder.
    DistillResult distill(const std::filesystem::path& input, const std::filesystem::path& job_options = {});
    /// The same for PostScript text.
    DistillResult distill_text(std::string_view postscript, const std::filesystem::path& job_options = {});
    DistillResult distill(DistillJob job);

    /// The same for a driver that was written to run these files.
    DistillResult distill_driver(const std::vector<std::string>& paths);

    /// What the output says, page by page, as `pdftotext` reads it.
    std::string text_of_output() const;

  private:
    const tests::ScratchFolder own_folder_;

  protected:
    const std::filesystem::path folder;
    const std::filesystem::path scratch;
    const std::filesystem::path output;
    const Distiller distiller;
    Journal journal;
};

/// Facts about a PDF, read with qpdf.
struct PdfFacts {
    int pages = 0;
    std::string version;  ///< "1.7"
    bool encrypted = false;
};
PdfFacts facts_of(const std::filesystem::path& pdf, const std::string& password = {});

/// The multi-file driver of these files, line by line.
std::vector<std::string> driver_lines(const std::vector<std::string>& paths);

/// PostScript with so many pages, each saying its number, without any structure comments.
std::string plain_pages(int count);

/// Runs a command line and gives what it wrote to its standard output.
std::string output_of(const std::string& command);

}  // namespace foliant::hosts::distiller
