#include "support/member_cases.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <optional>
#include <ostream>
#include <set>
#include <utility>

#include "automation/error.h"
#include "platform/stage/cast/cast.h"
#include "support/difference.h"
#include "support/fault_cases.h"
#include "support/staged_session.h"

namespace foliant::tests {

using automation::Argument;
using automation::Arguments;
using automation::Value;

namespace {

template <class Case>
std::vector<const Case*>& all() {
    static std::vector<const Case*> cases;
    return cases;
}

/// What a call on a machine of its own did and gave.
struct Made {
    Lines journal;
    Value result;
    Arguments arguments;
};

Made make(const MemberCall& call) {
    platform::stage::Stage stage;
    EventsInJournal events(stage);
    cast_usual_machine(stage);
    if (call.arrange) call.arrange(stage);
    core::BuildPDF object(stage.platform(), events);
    stage.clear_journal();
    Made made;
    made.arguments = call.arguments;
    run_noting_error(stage, [&] { made.result = call.make(object, made.arguments); });
    made.journal = stage.lines();
    return made;
}

/// What a second call does where the k-th action of the first one has failed, or none with k 0: made on the object
/// of the first call, or on a new one.
Lines second_journal(const MemberCall& call, long k, bool on_a_new_object) {
    platform::stage::Stage stage;
    EventsInJournal events(stage);
    cast_usual_machine(stage);
    if (call.arrange) call.arrange(stage);
    std::optional<core::BuildPDF> object(std::in_place, stage.platform(), events);
    const auto make = [&] {
        stage.clear_journal();
        Arguments arguments = call.arguments;
        run_noting_error(stage, [&] { call.make(*object, arguments); });
    };
    stage.fail_action(k, automation::Error(-2147352567, "Host", "made to fail"));
    make();
    stage.fail_action(0, automation::Error(automation::RuntimeError::internal_error));
    stage.clear_journal();
    if (on_a_new_object) object.emplace(stage.platform(), events);
    make();
    return stage.lines();
}

}  // namespace

WholeJournal::WholeJournal(MemberCall its_call, std::string_view its_expected, std::source_location its_place)
    : call(std::move(its_call)), expected(its_expected), place(its_place) {
    all<WholeJournal>().push_back(this);
}

ParameterProbe::ParameterProbe(MemberCall its_call, Traces its_traces, std::source_location its_place)
    : call(std::move(its_call)), traces(std::move(its_traces)), place(its_place) {
    all<ParameterProbe>().push_back(this);
}

void PrintTo(const WholeJournal* journal, std::ostream* out) {
    *out << journal->call.name();
}

void PrintTo(const ParameterProbe* probe, std::ostream* out) {
    *out << probe->call.name();
}

class WholeJournals : public testing::TestWithParam<const WholeJournal*> {};

TEST_P(WholeJournals, AreAsExpected) {
    const auto& [call, expected, place] = *GetParam();
    expect_text(make(call).journal, expected, place);
}

TEST_P(WholeJournals, AreThoseOfANewObjectAfterOtherCallsWhateverBecameOfThem) {
    const MemberCall& call = GetParam()->call;
    const auto actions = static_cast<long>(make(call).journal.size());  // or fewer: some lines are no actions
    for (long k = 0; k <= actions; ++k) {
        const Lines on_a_new_object = second_journal(call, k, true);
        const Lines on_the_same = second_journal(call, k, false);
        ASSERT_EQ(on_a_new_object, on_the_same) << "action " << k << " of the first call failed:\n"
                                                << text_of(difference(on_a_new_object, on_the_same));
    }
}

INSTANTIATE_TEST_SUITE_P(Members, WholeJournals, testing::ValuesIn(all<WholeJournal>()),
                         [](const auto& test) { return test.param->call.name(); });

namespace {

/// The lines that the probe looks at, of the journal of that call: all when it names none.
Lines traces_of(const MemberCall& call, const ParameterProbe& probe) {
    const Lines journal = make(call).journal;
    const auto& texts = probe.traces.lines_with;
    return texts.empty() ? journal : lines_with(journal, texts, probe.place);
}

/// Of each flag of the probe's call, by its name: what turning it round, and nothing else, does to the traces.
std::vector<std::pair<std::string, Lines>> changes_by_flag(const ParameterProbe& probe) {
    const Lines traces = traces_of(probe.call, probe);
    std::vector<std::pair<std::string, Lines>> all_changes;
    for (std::size_t i = 0; i < probe.call.arguments.size(); ++i) {
        const auto& [name, value] = probe.call.arguments[i];
        const bool* const flag = value.if_holds<bool>();
        if (flag == nullptr) continue;
        MemberCall turned = probe.call;
        turned.arguments[i].value = !*flag;
        all_changes.emplace_back(name, changes(traces, traces_of(turned, probe)));
    }
    return all_changes;
}

std::vector<const ParameterProbe*> probes_that_state_flags() {
    std::vector<const ParameterProbe*> probes = all<ParameterProbe>();
    std::erase_if(probes, [](const ParameterProbe* probe) { return probe->traces.flags.empty(); });
    return probes;
}

}  // namespace

class Parameters : public testing::TestWithParam<const ParameterProbe*> {
  protected:
    const ParameterProbe& probe = *GetParam();
    const testing::ScopedTrace trace{probe.place.file_name(), static_cast<int>(probe.place.line()),
                                     "the probe"};
};

TEST_P(Parameters, AreAllNamed) {
    std::set<std::string_view> named;
    for (const Argument& argument : probe.call.arguments)
        named.insert(argument.name);
    ASSERT_NE(probe.call.row(), nullptr);
    for (const core::Parameter& parameter : probe.call.row()->parameters())
        EXPECT_TRUE(named.contains(parameter.name)) << parameter.name << " is not among the arguments";
}

TEST_P(Parameters, ReachTheirPlacesOutside) {
    expect_text(traces_of(probe.call, probe), probe.traces.expected, probe.place);
}

TEST_P(Parameters, AreWrittenBackWhereTheProbeSaysAndNowhereElse) {
    const Made made = make(probe.call);
    EXPECT_EQ(made.result, probe.traces.result);
    for (std::size_t i = 0; i < made.arguments.size(); ++i) {
        const auto written = probe.traces.written.find(made.arguments[i].name);
        EXPECT_EQ(made.arguments[i].value,
                  written == probe.traces.written.end() ? probe.call.arguments[i].value : written->second)
            << made.arguments[i].name;
    }
}

INSTANTIATE_TEST_SUITE_P(Members, Parameters, testing::ValuesIn(all<ParameterProbe>()),
                         [](const auto& test) { return test.param->call.name(); });

class Flags : public Parameters {};

TEST_P(Flags, ChangeTheirOwnLinesAndNoOthers) {
    Lines report;
    for (const auto& [flag, changed] : changes_by_flag(probe)) {
        report.push_back(flag + ":");
        report.insert(report.end(), changed.begin(), changed.end());
    }
    expect_text(report, probe.traces.flags, probe.place);
}

INSTANTIATE_TEST_SUITE_P(Members, Flags, testing::ValuesIn(probes_that_state_flags()),
                         [](const auto& test) { return test.param->call.name(); });

namespace {

template <class Case>
bool has(const core::Member& member) {
    return std::any_of(all<Case>().begin(), all<Case>().end(),
                       [&](const Case* stated) { return stated->call.row() == &member; });
}

}  // namespace

std::string missing_cases(const core::Member& member) {
    std::string missing;
    const auto note = [&](bool there, const char* what) {
        if (!there) missing += (missing.empty() ? "" : ", ") + std::string(what);
    };
    note(has<WholeJournal>(member), "whole journal");
    note(has<ParameterProbe>(member), "parameter probe");
    note(has_fault_scene(member), "fault scene");
    return missing;
}

std::string unseen_flags(const core::Member& member) {
    std::set<std::string> unseen;
    std::set<std::string> seen;
    for (const ParameterProbe* probe : all<ParameterProbe>()) {
        if (probe->call.row() != &member) continue;
        for (const auto& [flag, changed] : changes_by_flag(*probe))
            (changed.empty() && probe->traces.flags.empty() ? unseen : seen).insert(flag);
    }
    std::string names;
    for (const std::string& flag : unseen)
        if (!seen.contains(flag)) names += (names.empty() ? "" : ", ") + flag;
    return names;
}

}  // namespace foliant::tests
