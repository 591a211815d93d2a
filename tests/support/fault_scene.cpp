#include "support/fault_scene.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <ostream>

#include "automation/error.h"
#include "automation/object.h"
#include "core/dispatch.h"
#include "platform/stage/cast/cast.h"
#include "session/errors.h"
#include "support/staged_session.h"

namespace foliant::tests {
namespace {

using automation::Error;
using platform::stage::Stage;

constexpr std::string_view mark = " -> fails";
const std::string the_failure = "raise -2147352567 from Foliant: made to fail";
const std::string a_later_failure = "raise -2146827284 from Foliant: the clean-up fails as well";

/// The journal of one call on a fresh machine. The k-th action fails, and every later one too when
/// `all_after`; with k 0 none does.
Lines journal_of(const FaultScene& scene, long k, bool all_after = false) {
    const long alive_before = automation::Object::live_objects();
    Stage stage;
    EventsInJournal events(stage);
    platform::stage::cast_usual_machine(stage);
    scene.arrange(stage);
    core::BuildPDF object(stage.platform(), events);
    stage.clear_journal();
    stage.fail_action(k, Error(-2147352567, "Word", "made to fail"));
    if (all_after) {
        stage.fail_actions_from(k + 1, Error(-2146827284, "Word", "the clean-up fails as well"));
    }
    run_noting_error(stage, [&] { scene.call(object); });

    EXPECT_EQ(automation::Object::live_objects(), alive_before) << stage.journal();
    EXPECT_EQ(object.session().objAdobeDistiller.object, automation::Value()) << stage.journal();
    EXPECT_EQ(object.session().objAdobeDistiller.subscription, nullptr) << stage.journal();
    return stage.lines();
}

bool is_marked(const std::string& line) {
    return line.ends_with(mark);
}

std::string without_mark(const std::string& line) {
    return is_marked(line) ? line.substr(0, line.size() - mark.size()) : line;
}

/// How a call with a failure ended, from the action that failed on.
struct Ending {
    std::string action;
    Lines lines;
};

Ending ending_of(const Lines& failed, const Lines& undisturbed) {
    const auto action = std::find_if(failed.begin(), failed.end(), is_marked);
    Ending ending{without_mark(*action), {action + 1, failed.end()}};
    if (failed.back() == the_failure) {
        ending.lines.back() = "raise the failure";
    } else if (!failed.back().starts_with("raise ")) {
        const Lines usual(undisturbed.begin() + (action - failed.begin()) + 1, undisturbed.end());
        Lines other = difference(usual, ending.lines);
        std::erase_if(other, [](const std::string& line) { return line.starts_with("  "); });
        ending.lines = {other.empty() ? "go on" : "go on, but"};
        ending.lines.insert(ending.lines.end(), other.begin(), other.end());
    }
    return ending;
}

long count_actions(const FaultScene& scene) {
    // Each failing action has a mark, until there is no k-th action any more.
    long k = 1;
    const auto has_action = [&] {
        const Lines lines = journal_of(scene, k);
        return std::any_of(lines.begin(), lines.end(), is_marked);
    };
    while (has_action())
        ++k;
    return k - 1;
}

}  // namespace

void PrintTo(const FaultScene& scene, std::ostream* out) {
    *out << scene.name;
}

FaultScene scene_of_member(std::string name, std::string_view member, automation::Access access,
                           automation::Arguments arguments, std::function<void(Stage&)> arrange,
                           std::string expected) {
    const core::Member* row = core::find_member(core::find_dispid(member).value(), access);
    const auto call = [row, access, arguments = std::move(arguments)](core::BuildPDF& object) {
        automation::Arguments given = arguments;
        core::invoke(object, row->dispid, access, given);
    };
    return {std::move(name), row, std::move(arrange), call, std::move(expected)};
}

FaultScene scene_of_member(std::string name, std::string_view member, automation::Arguments arguments,
                           std::function<void(Stage&)> arrange, std::string expected) {
    return scene_of_member(std::move(name), member, automation::Access::call, std::move(arguments),
                           std::move(arrange), std::move(expected));
}

FaultScene scene_of_service(std::string name, std::function<void(const session::Session&)> steps,
                            std::function<void(Stage&)> arrange, std::string expected) {
    const auto call = [steps = std::move(steps)](core::BuildPDF& object) {
        session::with_error_trap([&] { steps(object.session()); }, [] {});
    };
    return {std::move(name), nullptr, std::move(arrange), call, std::move(expected)};
}

Lines fault_report(const FaultScene& scene) {
    const Lines undisturbed = journal_of(scene, 0);
    EXPECT_FALSE(!undisturbed.empty() && undisturbed.back().starts_with("raise "))
        << "the scene has to succeed when nothing fails:\n"
        << text_of(undisturbed);
    Lines report;
    Lines last_end;
    const auto write_last_end = [&] { report.insert(report.end(), last_end.begin(), last_end.end()); };
    const long actions = count_actions(scene);
    for (long k = 1; k <= actions; ++k) {
        const Ending ending = ending_of(journal_of(scene, k), undisturbed);
        if (ending.lines != last_end) write_last_end();
        last_end = ending.lines;
        report.push_back("fails: " + ending.action);
    }
    write_last_end();
    return report;
}

void expect_failing_clean_up_to_hide_nothing(const FaultScene& scene) {
    const long actions = count_actions(scene);
    for (long k = 1; k <= actions; ++k) {
        Lines once = journal_of(scene, k);
        Lines all_after = journal_of(scene, k, true);
        if (once.back() == the_failure) {
            std::transform(once.begin(), once.end(), once.begin(), without_mark);
            std::transform(all_after.begin(), all_after.end(), all_after.begin(), without_mark);
            EXPECT_EQ(once, all_after) << "action " << k << ":\n" << text_of(difference(once, all_after));
        } else if (!once.back().starts_with("raise ")) {
            // Passed over, so the next failure is the first one that counts, if there is one that does.
            const bool raised = all_after.back().starts_with("raise ");
            EXPECT_TRUE(!raised || all_after.back() == a_later_failure ||
                        all_after.back().starts_with("raise -2147467008 "))
                << text_of(all_after);
        } else {
            EXPECT_EQ(once.back(), all_after.back()) << "action " << k;
        }
    }
}

}  // namespace foliant::tests
