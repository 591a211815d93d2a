#pragma once

#include <cstdint>
#include <vector>

#include "hosts/distiller/source_file.h"

namespace foliant::hosts::distiller {

/// Turns "so many pages are done, and the interpreter has read so far" into a percentage of a whole job.
///
/// Pages count where every file of the job declares how many it has; as soon as there are more than declared,
/// or where a file declares none, the place in the files counts, all of them together.
class ProgressMeter {
  public:
    explicit ProgressMeter(const std::vector<SourceFile>& files);

    /// The percentage after page `page` (from 1) was finished at byte `position` of file `file` (from 0).
    /// It never falls, and stays below 100: what is left then is to write the PDF and put it in its place.
    int after_page(int page, std::size_t file, std::uintmax_t position);

  private:
    double share_of_bytes(std::size_t file, std::uintmax_t position) const;

    std::vector<std::uintmax_t> starts_;  ///< of each file in the job's bytes, and at the end their sum
    int declared_pages_ = 0;              ///< of all files; 0 when one of them does not say
    int percent_ = 0;
};

}  // namespace foliant::hosts::distiller
