#pragma once

#include <string>
#include <vector>

#include "hosts/distiller/distill_job.h"
#include "hosts/distiller/engine_process.h"
#include "hosts/distiller/progress_meter.h"
#include "hosts/distiller/source_file.h"

namespace foliant::hosts::distiller {

/// One running job as the engine's records tell it: passes them on as progress, and knows in the end what
/// became of it.
class JobRun {
  public:
    /// `pages` is kept at the number of pages finished so far.
    JobRun(const DistillJob& job, const Source& source, Progress& progress, int& pages);

    void take(const EngineRecord& record);

    /// After the last record. Throws DistillError unless a PDF with pages was written; `how_it_ended` is
    /// empty for an engine that ended by itself and well.
    void require_success(const std::string& how_it_ended) const;

    void report_percent(int percent);

  private:
    void take_page(const std::string& position);
    const SourceFile& running_source() const;
    std::string file_at_fault() const;
    std::string postscript_error() const;
    std::string lost_writes() const;
    std::string advice() const;
    std::string pages_so_far() const;

    const DistillJob& job_;
    const Source& source_;
    Progress& progress_;
    ProgressMeter meter_;
    int& pages_;
    int percent_ = -1;
    std::size_t running_file_ = 0;  ///< as the engine counts: 0 is the input, 1 the first part
    bool in_job_options_;
    bool done_ = false;
    std::string error_name_;
    std::string error_command_;
    std::string engine_failure_;
};

}  // namespace foliant::hosts::distiller
