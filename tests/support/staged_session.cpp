#include "support/staged_session.h"

#include "automation/describe.h"
#include "automation/error.h"
#include "platform/stage/cast/cast.h"
#include "registered/keys.h"

namespace foliant::tests {

void EventsInJournal::notify(std::string_view event, std::span<const automation::Value> arguments) {
    const automation::Arguments all(arguments.begin(), arguments.end());
    stage_.note("event " + std::string(event) + "(" + automation::describe(all) + ")");
    if (handler) handler(event);
}

void run_noting_error(platform::stage::Stage& stage, const std::function<void()>& steps) {
    try {
        steps();
    } catch (const automation::Error& error) {
        stage.note("raise " + std::to_string(error.number()) + " from " + error.source() + ": " +
                   error.description());
    }
}

void expect_journal(const platform::stage::Stage& stage, std::string_view expected,
                    std::source_location place) {
    expect_text(stage.lines(), expected, place);
}

void register_acrobat(platform::stage::Stage& stage, const std::string& version) {
    stage.set_registry_text(registered::key_of_computer(registered::acrobat_version_key), "", version);
}

StagedTest::StagedTest() {
    platform::stage::cast_usual_machine(stage);
}

session::Session& StagedSession::session() {
    if (!session_) {
        session_.emplace(stage.platform(), events);
        stage.clear_journal();
    }
    return *session_;
}

void StagedSession::run(const std::function<void()>& steps) {
    session();
    run_noting_error(stage, steps);
}

}  // namespace foliant::tests
