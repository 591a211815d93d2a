#pragma once

#include <memory>
#include <vector>

#include "automation/object.h"
#include "hosts/distiller/distill_job.h"
#include "hosts/distiller/distiller.h"
#include "hosts/machine.h"

namespace foliant::hosts::distiller {

/// Acrobat Distiller as automation sees it. Members, in any case:
///
///     bShowWindow, bSpoolJobs             kept, without effect: there is no window, and every job runs
///                                         at once
///     FileToPDF(input, output, options)   runs a job; 1 when the PDF was made, 0 for an argument that is
///                                         empty where a path has to be, -1 when the job failed
///     FileToPDF2(..., applySecurity)      the same, and locks the PDF as the machine's settings say
///
/// Notifications: OnJobStart and OnJobDone or OnJobFail (input, output), OnLogMessage (text), OnPercentDone
/// and OnPageNumber (32-bit numbers). An exception from a listener stops the job and reaches the caller of
/// the conversion. While nobody listens, a failed job raises E_FAIL with its reason instead of returning -1:
/// it would be lost otherwise. One that takes more memory than it may raises 7 in any case.
class DistillerObject : public automation::Object {
  public:
    /// `machine` has to outlive the object.
    DistillerObject(Distiller distiller, Machine& machine);

    automation::Value invoke(automation::Access access, std::string_view member,
                             const automation::Arguments& arguments) override;
    std::unique_ptr<automation::Subscription> subscribe(automation::EventSink& sink) override;

  private:
    class Listening;
    class Relay;

    void notify(std::string_view event, const std::vector<automation::Value>& arguments);
    std::int16_t convert(const automation::Arguments& arguments, bool with_security);

    Distiller distiller_;
    Machine& machine_;
    bool show_window_ = false;
    bool spool_jobs_ = false;
    std::vector<automation::EventSink*> sinks_;
};

}  // namespace foliant::hosts::distiller
