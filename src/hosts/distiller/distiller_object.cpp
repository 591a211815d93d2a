#include "hosts/distiller/distiller_object.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

#include "automation/coerce.h"
#include "automation/error.h"
#include "automation/text.h"
#include "hosts/distiller/security_settings.h"

namespace foliant::hosts::distiller {

using automation::Access;
using automation::Arguments;
using automation::Error;
using automation::RuntimeError;
using automation::Value;

namespace {

constexpr std::int32_t unspecified_failure = static_cast<std::int32_t>(0x80004005U);  // E_FAIL

constexpr std::int16_t job_made = 1;
constexpr std::int16_t job_invalid = 0;
constexpr std::int16_t job_failed = -1;

/// Reads or writes a flag; raises what automation raises for a wrong use of a property.
Value reach_flag(bool& flag, Access access, const Arguments& arguments) {
    const bool assigns = access == Access::set || access == Access::set_reference;
    if (arguments.size() != (assigns ? 1U : 0U)) throw Error(RuntimeError::wrong_number_of_arguments);
    if (assigns) flag = automation::to_bool(arguments[0].value);
    return assigns ? Value() : Value(flag);
}

}  // namespace

class DistillerObject::Listening : public automation::Subscription {
  public:
    Listening(std::shared_ptr<DistillerObject> object, automation::EventSink& sink)
        : object_(std::move(object)), sink_(sink) {
        object_->sinks_.push_back(&sink_);
    }
    ~Listening() override { std::erase(object_->sinks_, &sink_); }

  private:
    std::shared_ptr<DistillerObject> object_;
    automation::EventSink& sink_;
};

/// Progress of a job as notifications.
class DistillerObject::Relay : public Progress {
  public:
    explicit Relay(DistillerObject& object) : object_(object) {}

    void job_started(const DistillJob& job) override { notify_files("OnJobStart", job); }
    void job_done(const DistillJob& job) override { notify_files("OnJobDone", job); }
    void job_failed(const DistillJob& job) override { notify_files("OnJobFail", job); }
    void message(std::string_view line) override { object_.notify("OnLogMessage", {line}); }
    void percent_done(int percent) override { object_.notify("OnPercentDone", {std::int32_t{percent}}); }
    void page_finished(int page) override { object_.notify("OnPageNumber", {std::int32_t{page}}); }

  private:
    void notify_files(std::string_view event, const DistillJob& job) {
        object_.notify(event, {job.input_ps.string(), job.output_pdf.string()});
    }

    DistillerObject& object_;
};

DistillerObject::DistillerObject(Distiller distiller, Machine& machine)
    : distiller_(std::move(distiller)), machine_(machine) {}

Value DistillerObject::invoke(Access access, std::string_view member, const Arguments& arguments) {
    const auto is = [member](std::string_view name) { return automation::equal_ignoring_case(member, name); };
    if (is("bShowWindow")) return reach_flag(show_window_, access, arguments);
    if (is("bSpoolJobs")) return reach_flag(spool_jobs_, access, arguments);
    const bool is_method_call = access == Access::call || access == Access::get;
    if (is_method_call && is("FileToPDF")) {
        if (arguments.size() != 3) throw Error(RuntimeError::wrong_number_of_arguments);
        return convert(arguments, false);
    }
    if (is_method_call && is("FileToPDF2")) {
        if (arguments.size() != 4) throw Error(RuntimeError::wrong_number_of_arguments);
        return convert(arguments, automation::to_bool(arguments[3].value));
    }
    throw Error(RuntimeError::no_such_member);
}

std::unique_ptr<automation::Subscription> DistillerObject::subscribe(automation::EventSink& sink) {
    return std::make_unique<Listening>(std::static_pointer_cast<DistillerObject>(shared_from_this()), sink);
}

void DistillerObject::notify(std::string_view event, const std::vector<Value>& arguments) {
    const std::vector<automation::EventSink*> sinks = sinks_;  // listeners may come and go meanwhile
    for (automation::EventSink* const sink : sinks) {
        if (std::find(sinks_.begin(), sinks_.end(), sink) != sinks_.end()) sink->notify(event, arguments);
    }
}

std::int16_t DistillerObject::convert(const Arguments& arguments, bool with_security) {
    DistillJob job;
    job.input_ps = automation::to_text(arguments[0].value);
    job.driver = machine_.scratch_text(job.input_ps.string());
    job.output_pdf = automation::to_text(arguments[1].value);
    job.job_options_file = automation::to_text(arguments[2].value);
    job.private_folder = machine_.private_folder();
    job.memory_bytes = machine_.memory_limit_bytes();
    if (job.input_ps.empty() || job.output_pdf.empty()) return job_invalid;
    if (with_security) job.security = security_settings(machine_);

    const automation::ObjectPtr alive = shared_from_this();  // a listener may let go of the object
    Relay relay(*this);
    const DistillResult result = distiller_.distill(job, relay);
    if (result.succeeded) return job_made;
    if (result.out_of_memory) {
        throw Error(static_cast<std::int32_t>(RuntimeError::out_of_memory), "Acrobat Distiller",
                    result.error);
    }
    if (result.engine_missing)
        throw Error(static_cast<std::int32_t>(RuntimeError::cannot_create_object), "Acrobat Distiller",
                    result.error);
    if (sinks_.empty()) throw Error(unspecified_failure, "Acrobat Distiller", result.error);
    return job_failed;
}

}  // namespace foliant::hosts::distiller
