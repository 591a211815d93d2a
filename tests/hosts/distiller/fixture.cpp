#include "hosts/distiller/fixture.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <qpdf/QPDF.hh>
#include <stdexcept>

namespace foliant::hosts::distiller {
namespace {

namespace fs = std::filesystem;

fs::path make_subfolder(const fs::path& path) {
    fs::create_directory(path);
    return path;
}

}  // namespace

std::vector<std::string> Journal::lines_with(std::string_view opening) const {
    std::vector<std::string> found;
    std::copy_if(lines.begin(), lines.end(), std::back_inserter(found),
                 [opening](const std::string& line) { return line.starts_with(opening); });
    return found;
}

DistillerTest::DistillerTest()
    : folder(own_folder_.path()),
      scratch(make_subfolder(folder / "scratch")),
      output(folder / "out.pdf"),
      distiller(DISTILLER_ENGINE_FOLDER) {}

DistillerTest::~DistillerTest() {
    EXPECT_TRUE(tests::names_in(scratch).empty()) << "a job has left its working folder";
    for (const std::string& name : tests::names_in(folder)) {
        EXPECT_FALSE(name.starts_with(".foliant")) << "a job has left " << name;
    }
}

fs::path DistillerTest::write(const std::string& name, std::string_view content) const {
    return own_folder_.write(name, content);
}

DistillResult DistillerTest::distill(DistillJob job) {
    job.private_folder = scratch;
    if (job.output_pdf.empty()) job.output_pdf = output;
    return distiller.distill(job, journal);
}

DistillResult DistillerTest::distill(const fs::path& input, const fs::path& job_options) {
    DistillJob job;
    job.input_ps = input;
    job.job_options_file = job_options;
    return distill(job);
}

DistillResult DistillerTest::distill_text(std::string_view postscript, const fs::path& job_options) {
    return distill(write("in.ps", postscript), job_options);
}

DistillResult DistillerTest::distill_driver(const std::vector<std::string>& paths) {
    DistillJob job;
    job.input_ps = folder / "out.ps";
    job.driver = driver_lines(paths);
    return distill(job);
}

std::string DistillerTest::text_of_output() const {
    return output_of("pdftotext -enc UTF-8 '" + output.string() + "' -");
}

PdfFacts facts_of(const fs::path& path, const std::string& password) {
    QPDF pdf;
    pdf.processFile(path.c_str(), password.c_str());
    return {static_cast<int>(pdf.getAllPages().size()), pdf.getPDFVersion(), pdf.isEncrypted()};
}

std::vector<std::string> driver_lines(const std::vector<std::string>& paths) {
    std::vector<std::string> lines = {
        "/prun { /mysave save def", "dup = flush", "RunFile", "clear cleardictstack",
        "mysave restore",           "} def",       "",
    };
    for (const std::string& path : paths)
        lines.push_back("(" + path + ") prun");
    return lines;
}

std::string plain_pages(int count) {
    std::string text = "%!\n/Times-Roman findfont 12 scalefont setfont\n";
    for (int page = 1; page <= count; ++page) {
        text += "72 700 moveto (This is page " + std::to_string(page) + ") show showpage\n";
    }
    return text;
}

std::string output_of(const std::string& command) {
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(::popen(command.c_str(), "r"), ::pclose);
    if (!pipe) throw std::runtime_error("cannot run " + command);
    std::string text;
    std::array<char, 4096> buffer{};
    while (const std::size_t got = std::fread(buffer.data(), 1, buffer.size(), pipe.get())) {
        text.append(buffer.data(), got);
    }
    return text;
}

}  // namespace foliant::hosts::distiller
