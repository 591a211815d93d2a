#pragma once

#include <string>

#include "engines/distiller_job.h"

namespace foliant::core {

// The parameters of such helpers bear the names that they have in the members: lint then finds a call in
// which two of them change places.

/// What a member's caller asks of Distiller.
inline engines::DistillerOptions distiller_options(bool blnShowWindow, bool blnSpoolJobs,
                                                   const std::string& strJobOptionsFile,
                                                   bool blnApplySecurity) {
    return {.show_window = blnShowWindow,
            .spool_jobs = blnSpoolJobs,
            .job_options_file = strJobOptionsFile,
            .apply_security = blnApplySecurity};
}

}  // namespace foliant::core
