#include "support/fault_scene.h"

#include <algorithm>
#include <gtest/gtest.h>

#include "automation/error.h"
#include "automation/object.h"
#include "platform/stage/cast/cast.h"
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
    if (scene.arrange) scene.arrange(stage);
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
struct End {
    std::string action;
    Lines lines;
};

End end_of(const Lines& failed, const Lines& undisturbed) {
    const auto action = std::find_if(failed.begin(), failed.end(), is_marked);
    End end{without_mark(*action), {action + 1, failed.end()}};
    if (failed.back() == the_failure) {
        end.lines.back() = "raise the failure";
    } else if (!failed.back().starts_with("raise ")) {
        const Lines usual(undisturbed.begin() + (action - failed.begin()) + 1, undisturbed.end());
        const Lines other = changes(usual, end.lines);
        end.lines = {other.empty() ? "go on" : "go on, but"};
        end.lines.insert(end.lines.end(), other.begin(), other.end());
    }
    return end;
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

/// Whether those lines stand there.
bool stand_at(const Lines& lines, std::size_t place, const Lines& wanted) {
    return !wanted.empty() && wanted.size() <= lines.size() - place &&
           std::equal(wanted.begin(), wanted.end(), lines.begin() + static_cast<std::ptrdiff_t>(place));
}

/// With the lines of every ending in place of its name, where `spelled_out`, else the other way round.
Lines with_endings(const Lines& lines, const std::vector<Ending>& endings, bool spelled_out) {
    Lines result;
    for (std::size_t place = 0; place < lines.size();) {
        Lines found{lines[place]};
        Lines put = found;
        for (const Ending& ending : endings) {
            const Lines name{std::string(ending.name)};
            const Lines its_lines = lines_of(ending.lines);
            if (!stand_at(lines, place, spelled_out ? name : its_lines)) continue;
            found = spelled_out ? name : its_lines;
            put = spelled_out ? its_lines : name;
            break;
        }
        result.insert(result.end(), put.begin(), put.end());
        place += found.size();
    }
    return result;
}

/// Whether the call took its usual next step after the action that failed.
bool went_on(const Lines& failed, const Lines& undisturbed) {
    const auto action = std::find_if(failed.begin(), failed.end(), is_marked);
    const auto next = static_cast<std::size_t>(action - failed.begin()) + 1;
    return next < failed.size() && next < undisturbed.size() && failed[next] == undisturbed[next];
}

/// The lines of a call in which a failure is followed by others, as they are where that failure is the only one:
/// without marks, and with what is not done when the profile does not say where a printer is. That it does not
/// is no failure, so a clean-up that puts a printer back has ended silently there.
Lines as_without_later_failures(const Lines& all_after, const Lines& once) {
    Lines lines;
    for (const std::string& line : all_after) {
        const std::size_t place = lines.size();
        const bool refused = is_marked(line) && line.starts_with("profile [PrinterPorts] ");
        if (refused && place + 2 < once.size() && once[place + 1].starts_with("write profile ") &&
            once[place].starts_with(without_mark(line))) {
            lines.insert(lines.end(), once.begin() + static_cast<std::ptrdiff_t>(place),
                         once.begin() + static_cast<std::ptrdiff_t>(place) + 3);
        } else {
            lines.push_back(without_mark(line));
        }
    }
    return lines;
}

}  // namespace

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
        const End end = end_of(journal_of(scene, k), undisturbed);
        if (end.lines != last_end) write_last_end();
        last_end = end.lines;
        report.push_back("fails: " + end.action);
    }
    write_last_end();
    return report;
}

void expect_faults(const FaultScene& scene, const ExpectedFaults& expected, std::source_location place) {
    Lines report = fault_report(scene);
    if (!expected.from.empty()) report = lines_from(report, "fails: " + std::string(expected.from), place);
    const Lines wanted = with_endings(lines_of(expected.report), expected.endings, true);
    expect_lines(with_endings(report, expected.endings, false), with_endings(wanted, expected.endings, false),
                 place);
}

void expect_failing_clean_up_to_hide_nothing(const FaultScene& scene) {
    const Lines undisturbed = journal_of(scene, 0);
    const long actions = count_actions(scene);
    for (long k = 1; k <= actions; ++k) {
        Lines once = journal_of(scene, k);
        Lines all_after = journal_of(scene, k, true);
        const bool passed_over = went_on(once, undisturbed);
        if (once.back() == the_failure) {
            std::transform(once.begin(), once.end(), once.begin(), without_mark);
            all_after = as_without_later_failures(all_after, once);
            EXPECT_EQ(once, all_after) << "action " << k << ":\n" << text_of(difference(once, all_after));
        } else if (!once.back().starts_with("raise ")) {
            // Passed over, so the next failure is the first one that counts, if there is one that does.
            const bool raised = all_after.back().starts_with("raise ");
            EXPECT_TRUE(!raised || all_after.back() == a_later_failure ||
                        all_after.back().starts_with("raise -2147467008 "))
                << text_of(all_after);
        } else if (!passed_over || all_after.back() != a_later_failure) {
            // What follows from it is raised later, unless something else fails before that.
            EXPECT_EQ(once.back(), all_after.back()) << "action " << k;
        }
    }
}

}  // namespace foliant::tests
