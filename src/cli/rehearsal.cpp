#include "cli/rehearsal.h"

#include <vector>

#include "automation/coerce.h"
#include "cli/call.h"
#include "cli/exit_codes.h"
#include "cli/preflight.h"
#include "cli/report.h"
#include "cli/secrets.h"
#include "cli/visible_text.h"
#include "platform/stage/cast/cast.h"
#include "platform/stage/stage.h"
#include "registered/keys.h"
#include "session/session.h"

namespace foliant::cli {

using automation::Value;
using platform::stage::Stage;

namespace {

class EventLines : public automation::EventSink {
  public:
    explicit EventLines(Stage& stage) : stage_(stage) {}
    void notify(std::string_view event, std::span<const Value> arguments) override {
        std::string line = "event " + std::string(event);
        for (const Value& argument : arguments)
            line += " " + automation::to_text(argument);
        stage_.note(line);
    }

  private:
    Stage& stage_;
};

/// A stage that looks like this machine: same settings, same input files, the sender in the system folder.
void cast_like(Stage& stage, const platform::Platform& here) {
    automation::Silence silence;
    const session::Session session(here, silence);
    stage.separator = here.files.separator();
    stage.system_folder = "/system";
    stage.library_folder = session.TempFilePath();
    cast_usual_machine(stage);
    stage.set_registry_text(registered::key_of_computer(registered::acrobat_version_key), "",
                            session.AcrobatVersion());
    stage.set_registry_text(registered::key_of_computer(registered::pdf_printer_key), "",
                            session.PrinterName());
    stage.real_length = [&here](const std::string& path) -> std::optional<std::int64_t> {
        try {
            return here.files.length(path);
        } catch (const automation::Error&) {
            return std::nullopt;
        }
    };
    stage.real_names = [&here](const std::string& pattern) {
        std::vector<std::string> names;
        const auto listing = here.files.list(pattern);
        while (auto name = listing->next())
            names.push_back(std::move(*name));
        return names;
    };
}

}  // namespace

int rehearse(const Request& request, const platform::Platform& platform, std::ostream& out,
             std::ostream& errors) {
    Stage stage;
    cast_like(stage, platform);
    Outcome outcome;
    try {
        std::vector<std::string> left_out = preflight(request, platform);
        EventLines lines(stage);
        outcome = call_member(request, stage.platform(), lines);
        outcome.left_out = std::move(left_out);
    } catch (...) {
        fail(outcome, automation::current_error());
    }
    if (!outcome.error && !outcome.left_out.empty()) outcome.exit_code = exit_incomplete;
    std::vector<std::string> steps;
    const Secrets secrets = secrets_of(request);
    for (const std::string& line : stage.lines())
        steps.push_back(secrets.masked(line));
    outcome = secrets.masked(std::move(outcome));
    if (request.options.json) {
        out << json_rehearsal(*request.member, outcome, steps);
    } else {
        for (const std::string& step : steps)
            out << visible_line(step) << '\n';
    }
    errors << left_out_text(outcome);
    if (outcome.error) errors << error_text(*outcome.error);
    return outcome.exit_code;
}

}  // namespace foliant::cli
