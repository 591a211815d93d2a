#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/distiller/security.h"
#include "hosts/machine.h"

namespace foliant::hosts::distiller {

/// One PostScript file to turn into one PDF. Relative paths start at the process's current folder.
struct DistillJob {
    std::filesystem::path input_ps;
    /// The lines of the multi-file driver that the calling member wrote under the name `input_ps`, where it
    /// did: then nothing of that name is read. Only such a driver may name files for the document to run.
    std::optional<std::vector<std::string>> driver = {};
    std::filesystem::path output_pdf;             ///< replaced when it exists, untouched when the job fails
    std::filesystem::path job_options_file = {};  ///< PostScript run before the input; empty: the defaults
    std::optional<Security> security = {};        ///< empty: the PDF is not protected
    std::filesystem::path private_folder = {};  ///< scratch space is made in it; empty: the temporary folder
    /// What each of the job's engine processes may allocate. A thousand pages take 32 MiB.
    std::uint64_t memory_bytes = usual_memory_limit;
};

/// Is told what a job does while it does it, on the thread that called `Distiller::distill`. An exception
/// thrown from here stops the job, leaves nothing behind, and reaches that caller.
class Progress {
  public:
    virtual ~Progress() = default;

    virtual void job_started(const DistillJob&) {}
    /// A page has been finished. Pages count from 1, over all files of the job, without a gap.
    virtual void page_finished(int /*page*/) {}
    /// 0 to 100, never falling; 100 comes once, and only when the PDF is in its place.
    virtual void percent_done(int /*percent*/) {}
    /// One line, without its end, that the interpreter, the document or this host has to say. UTF-8.
    virtual void message(std::string_view /*line*/) {}
    virtual void job_done(const DistillJob&) {}
    virtual void job_failed(const DistillJob&) {}
    /// Asked some twenty times a second; true ends the job as failed.
    virtual bool cancelled() { return false; }
};

struct DistillResult {
    bool succeeded = false;
    bool cancelled = false;
    bool out_of_memory = false;
    bool engine_missing = false;
    int pages = 0;      ///< finished ones, also when the job failed later
    std::string error;  ///< what failed, on which file, why, what to do; empty on success
};

}  // namespace foliant::hosts::distiller
