#pragma once

#include <filesystem>
#include <string>

#include "hosts/distiller/distill_job.h"

namespace foliant::hosts::distiller {

/// Turns PostScript into PDF with Ghostscript.
///
/// The interpreter runs in a process of its own, one per job: Debian's library offers no way to stop a
/// program that never ends, and neither a crash nor a memory hog in a document may take the caller along.
/// That process reads the job's files and Ghostscript's own, writes the one PDF, and dies with its parent.
class Distiller {
  public:
    /// `engine_folder` holds the engine programs that are built together with this host.
    explicit Distiller(std::filesystem::path engine_folder);

    /// Runs one job to its end and returns how it went; what goes wrong with the job is in the result, not
    /// thrown. The output appears under its name complete or not at all. Throws only what `progress` throws.
    DistillResult distill(const DistillJob& wanted, Progress& progress) const;

    /// Ghostscript's, "10.00.0". Throws DistillError, naming the package, when the engine does not
    /// run.
    std::string engine_version() const;

  private:
    std::filesystem::path engine_folder_;
};

}  // namespace foliant::hosts::distiller
