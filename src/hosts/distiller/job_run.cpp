#include "hosts/distiller/job_run.h"

#include <algorithm>
#include <cstdlib>

#include "hosts/distiller/distill_error.h"
#include "hosts/distiller/output_error.h"
#include "hosts/distiller/utf8.h"

namespace foliant::hosts::distiller {
namespace {

std::string without_slash(const std::string& name) {
    return name.starts_with('/') ? name.substr(1) : name;
}

}  // namespace

JobRun::JobRun(const DistillJob& job, const Source& source, Progress& progress, int& pages)
    : job_(job),
      source_(source),
      progress_(progress),
      meter_(source.measured_files()),
      pages_(pages),
      in_job_options_(!job.job_options_file.empty()) {}

void JobRun::take(const EngineRecord& record) {
    using engine::Record;
    switch (record.kind) {
        case Record::line:
            return progress_.message(as_utf8(record.text));
        case Record::running:
            running_file_ = std::strtoul(record.text.c_str(), nullptr, 10);
            return;
        case Record::page:
            return take_page(record.text);
        case Record::options_set:
            in_job_options_ = false;
            return;
        case Record::error:
            error_name_ = without_slash(visible(as_utf8(record.text)));
            return;
        case Record::command:
            error_command_ = visible(as_utf8(record.text));
            return progress_.message("%%[ Error: " + error_name_ + "; OffendingCommand: " + error_command_ +
                                     " ]%%");
        case Record::operand:
            return progress_.message("Operand: " + visible(as_utf8(record.text)));
        case Record::done:
            done_ = true;
            // A page that goes out when a page device is taken away is counted, but not announced.
            while (pages_ < std::atoi(record.text.c_str()))
                progress_.page_finished(++pages_);
            return;
        case Record::failed:
            engine_failure_ = as_utf8(record.text);
            return;
    }
}

void JobRun::take_page(const std::string& position) {
    progress_.page_finished(++pages_);
    const std::size_t file = running_file_ == 0 ? 0 : running_file_ - 1;
    report_percent(meter_.after_page(pages_, file, std::strtoull(position.c_str(), nullptr, 10)));
}

void JobRun::report_percent(int percent) {
    if (percent == percent_) return;
    percent_ = percent;
    progress_.percent_done(percent);
}

void JobRun::require_success(const std::string& how_it_ended) const {
    if (const std::string lost = lost_writes(); !lost.empty()) throw DistillError(lost);
    if (error_name_ == "VMerror") throw OutOfMemory(postscript_error());
    if (!error_name_.empty()) throw DistillError(postscript_error());
    const std::string cannot = "Cannot turn " + file_at_fault() + " into a PDF: ";
    if (!engine_failure_.empty()) throw DistillError(cannot + engine_failure_ + ".");
    if (!how_it_ended.empty()) throw DistillError(cannot + how_it_ended + ".");
    if (!done_) throw DistillError(cannot + "the interpreter gave up " + pages_so_far() + ".");
    if (pages_ == 0) {
        throw DistillError(cannot + "it has no pages. A PostScript file shows each page with showpage.");
    }
}

const SourceFile& JobRun::running_source() const {
    const bool is_part = running_file_ > 0 && running_file_ <= source_.parts.size();
    return is_part ? source_.parts[running_file_ - 1] : source_.main;
}

std::string JobRun::file_at_fault() const {
    return running_source().path.string();
}

std::string JobRun::postscript_error() const {
    const std::string what = error_name_ + " in " + error_command_;
    if (in_job_options_) {
        return "The job-options file " + job_.job_options_file.string() + " failed: " + what +
               ". Correct it, or convert without it.";
    }
    return "Cannot turn " + file_at_fault() + " into a PDF: PostScript error " + what + ", " +
           pages_so_far() + ". " + advice();
}

/// The interpreter calls a full disk an ioerror in whatever PostScript it was running.
std::string JobRun::lost_writes() const {
    if (error_name_ != "ioerror") return {};
    if (disk_is_full(job_.output_pdf.parent_path())) {
        return "Cannot write the PDF " + job_.output_pdf.string() +
               ": the disk is full. Free some space there, or choose another folder.";
    }
    if (disk_is_full(job_.private_folder)) {
        return "Cannot keep temporary data in " + job_.private_folder.string() +
               ": the disk is full. Free some space there, or set TMPDIR to another folder.";
    }
    return {};
}

std::string JobRun::advice() const {
    if (error_name_ == "ioerror") {
        return "Check that the file is complete, and that the disks of " + job_.output_pdf.string() +
               " and " + job_.private_folder.string() + " are in order.";
    }
    if (error_name_ == "invalidfileaccess") {
        return "A document may not use other files of this machine. To put several PostScript files into one "
               "PDF, name them to CreatePDFfromMultiPS.";
    }
    if (error_name_ == "VMerror") {
        return "It needs more memory than " + std::to_string(job_.memory_bytes >> 20U) +
               " MiB, which is what a job may take.";
    }
    if (!running_source().looks_like_postscript) {
        return "It does not begin with %! as PostScript does; check that it is PostScript.";
    }
    return "Correct the file, or print the document to it again.";
}

std::string JobRun::pages_so_far() const {
    if (pages_ == 0) return "before the first page was finished";
    return "after page " + std::to_string(pages_);
}

}  // namespace foliant::hosts::distiller
