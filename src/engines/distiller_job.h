#pragma once

#include <string>

#include "automation/value.h"
#include "session/session.h"

/// The machinery that several members share: Distiller jobs, the window sender, the printer-based job.
/// Knows session/ and what it stands on.
namespace foliant::engines {

/// What a caller can ask of Distiller.
struct DistillerOptions {
    bool show_window = false;
    bool spool_jobs = false;
    std::string job_options_file;  ///< passed on as it is; "" means Distiller's current settings
    bool apply_security = false;
};

/// One Distiller job: PostScript in, PDF out, progress relayed as the component's events.
///
/// The object lives as long as the member that runs the job, so that the member's error trap can let go of
/// Distiller at the moment its clean-up says.
class DistillerJob {
  public:
    explicit DistillerJob(session::Session& session) : session_(session) {}

    /// Converts; the input file stays where it is. The status that Distiller returns is not looked at: a job
    /// that failed is known by its `JobFail` event, or by finding no output. Raises what creating or driving
    /// Distiller raises.
    void run(const std::string& input_postscript, const std::string& output_pdf,
             const DistillerOptions& options);

    /// Lets go of Distiller when a step has failed: the event-bound one first. Harmless when nothing is held.
    void release() noexcept;

  private:
    void run_with_security(const std::string& input, const std::string& output,
                           const DistillerOptions& options);
    void run_with_events(const std::string& input, const std::string& output,
                         const DistillerOptions& options);

    session::Session& session_;
    automation::Value secure_distiller_;
};

/// Whether a job with that wish is given to the security-capable Distiller: only Acrobat versions above 5
/// have it.
bool applies_security(const session::Session& session, bool wished) noexcept;

}  // namespace foliant::engines
