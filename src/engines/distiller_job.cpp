#include "engines/distiller_job.h"

#include "engines/event_relay.h"
#include "registered/classes.h"
#include "session/acrobat_versions.h"

namespace foliant::engines {

using automation::Value;

namespace {

/// A subscription together with the relay that it notifies.
class RelaySubscription : public automation::Subscription {
  public:
    RelaySubscription(automation::Object& distiller, automation::EventSink& component)
        : relay_(component), subscription_(distiller.subscribe(relay_)) {}

  private:
    EventRelay relay_;
    std::unique_ptr<automation::Subscription> subscription_;
};

}  // namespace

bool applies_security(const session::Session& session, bool wished) noexcept {
    return wished && session::acrobat_is_newer_than_5(session);
}

void DistillerJob::run(const std::string& input_postscript, const std::string& output_pdf,
                       const DistillerOptions& options) {
    if (applies_security(session_, options.apply_security)) {
        run_with_security(input_postscript, output_pdf, options);
    } else {
        run_with_events(input_postscript, output_pdf, options);
    }
}

void DistillerJob::run_with_security(const std::string& input, const std::string& output,
                                     const DistillerOptions& options) {
    secure_distiller_ = session_.outside().servers.create(registered::security_capable_distiller);
    secure_distiller_.set("bShowWindow", options.show_window);
    secure_distiller_.set("bSpoolJobs", options.spool_jobs);
    secure_distiller_.call("FileToPDF2", {input, output, options.job_options_file, true});
    secure_distiller_ = {};
}

void DistillerJob::run_with_events(const std::string& input, const std::string& output,
                                   const DistillerOptions& options) {
    auto& bound = session_.objAdobeDistiller;
    // Held here as well: a client that calls in again during an event replaces the member, but not the object
    // whose call is still running.
    const Value distiller = session_.outside().servers.create(registered::event_bound_distiller);
    bound.object = distiller;
    bound.subscription = std::make_unique<RelaySubscription>(distiller.object(), session_.events());
    distiller.set("bShowWindow", options.show_window);
    distiller.set("bSpoolJobs", options.spool_jobs);
    distiller.call("FileToPDF", {input, output, options.job_options_file});
    bound = {};
}

void DistillerJob::release() noexcept {
    session_.objAdobeDistiller = {};
    secure_distiller_ = {};
}

}  // namespace foliant::engines
