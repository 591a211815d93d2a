// The tests' own tools: a comparison that says nothing, or a fault test that overlooks what is left behind,
// would make every test that uses them worthless.

#include <gtest/gtest.h>

#include "automation/error.h"
#include "session/errors.h"
#include "support/failures.h"
#include "support/fault_scene.h"
#include "support/staged_session.h"

namespace foliant::tests {
namespace {

using platform::stage::Stage;

TEST(ExpectJournal, SaysNothingWhenTheJournalIsAsExpected) {
    Stage stage;
    stage.note("one");
    stage.note("two");
    EXPECT_TRUE(failures_of([&] { expect_journal(stage, "\n  one\n  two\n"); }).empty());
}

TEST(ExpectJournal, ShowsBothWhenItIsNot) {
    Stage stage;
    stage.note("one");
    stage.note("three");
    EXPECT_EQ(failures_of([&] { expect_journal(stage, "one\ntwo"); }),
              std::vector<std::string>{
                  "Failed\nWhat was expected (-) and what happened (+):\n  one\n- two\n+ three\n"});
}

FaultScene scene_with(std::function<void(core::BuildPDF&)> call) {
    const auto trapped = [call = std::move(call)](core::BuildPDF& object) {
        session::with_error_trap([&] { call(object); }, [] {});
    };
    return {"Scene", nullptr, {}, trapped};
}

TEST(FaultReport, TellsWhatBecameOfEachFailureAndGroupsWhatEndsAlike) {
    const FaultScene scene = scene_with([](core::BuildPDF& object) {
        const auto& outside = object.session().outside();
        outside.clock.sleep(1);
        outside.clock.sleep(2);
        if (object.session().FileExists("a.ps")) outside.clock.sleep(3);
        object.session().FileExists("b.ps");
        session::ignoring_errors([&] { outside.clock.sleep(4); });
    });
    FaultScene with_file = scene;
    with_file.arrange = [](Stage& stage) { stage.put_file("a.ps"); };
    expect_text(fault_report(with_file), R"(
        fails: sleep 1 ms
        fails: sleep 2 ms
            raise the failure
        fails: length a.ps
            go on, but
            - sleep 3 ms
        fails: sleep 3 ms
            raise the failure
        fails: length b.ps
        fails: sleep 4 ms
            go on
    )");
}

/// A scene whose three actions end in one of two ways.
FaultScene scene_with_endings() {
    return scene_with([](core::BuildPDF& object) {
        auto& clock = object.session().outside().clock;
        const auto pump_if_it_fails = [&](std::uint32_t milliseconds, int times) {
            try {
                clock.sleep(milliseconds);
            } catch (const automation::Error&) {
                for (int i = 0; i < times; ++i)
                    clock.pump_messages();
                throw;
            }
        };
        pump_if_it_fails(1, 2);
        pump_if_it_fails(2, 3);
        pump_if_it_fails(3, 2);
    });
}

const std::vector<Ending> endings{{"pump twice", "pump messages\npump messages"}};

TEST(ExpectedFaults, MayNameEndings) {
    expect_faults(scene_with_endings(), {.endings = endings, .report = R"(
        fails: sleep 1 ms
            pump twice
            raise the failure
        fails: sleep 2 ms
            pump twice
            pump messages
            raise the failure
        fails: sleep 3 ms
            pump messages
            pump messages
            raise the failure
    )"});
}

TEST(ExpectedFaults, MayBeginAtOneOfTheActions) {
    expect_faults(scene_with_endings(), {.endings = endings, .from = "sleep 3 ms", .report = R"(
        fails: sleep 3 ms
            pump twice
            raise the failure
    )"});
    EXPECT_FALSE(failures_of([] { expect_faults(scene_with_endings(), {.from = "sleep 4 ms"}); }).empty());
}

TEST(ExpectedFaults, AreComparedByTheLinesOfTheirEndings) {
    const ExpectedFaults wrong{.endings = {{"pump", "pump messages"}}, .from = "sleep 3 ms", .report = R"(
        fails: sleep 3 ms
            pump
            raise the failure
    )"};
    EXPECT_EQ(failures_of([&] { expect_faults(scene_with_endings(), wrong); }),
              std::vector<std::string>{"Failed\nWhat was expected (-) and what happened (+):\n"
                                       "  fails: sleep 3 ms\n  pump\n+ pump\n  raise the failure\n"});
}

class IdleObject : public automation::Object {
  public:
    automation::Value invoke(automation::Access, std::string_view, const automation::Arguments&) override {
        return {};
    }
};

TEST(FaultReport, NoticesAnObjectThatIsLeftAlive) {
    static automation::ObjectPtr kept;
    const FaultScene leaking = scene_with([](core::BuildPDF& object) {
        kept = std::make_shared<IdleObject>();
        object.session().outside().clock.sleep(1);
        kept = nullptr;
    });
    EXPECT_FALSE(failures_of([&] { fault_report(leaking); }).empty());
    kept = nullptr;
}

TEST(FaultReport, NoticesADistillerThatIsStillHeld) {
    const FaultScene holding = scene_with([](core::BuildPDF& object) {
        object.session().objAdobeDistiller.object = std::int32_t{1};
        object.session().outside().clock.sleep(1);
    });
    EXPECT_FALSE(failures_of([&] { fault_report(holding); }).empty());
}

TEST(FaultReport, NoticesASceneThatFailsByItself) {
    const FaultScene broken = scene_with(
        [](core::BuildPDF&) { throw automation::Error(automation::RuntimeError::file_not_found); });
    EXPECT_FALSE(failures_of([&] { fault_report(broken); }).empty());
}

TEST(FailingCleanUp, IsNoticedWhenItHidesTheFirstError) {
    const FaultScene hiding = scene_with([](core::BuildPDF& object) {
        auto& clock = object.session().outside().clock;
        try {
            clock.sleep(1);
        } catch (const automation::Error&) {
            clock.sleep(2);
            throw;
        }
    });
    EXPECT_FALSE(failures_of([&] { expect_failing_clean_up_to_hide_nothing(hiding); }).empty());
}

}  // namespace
}  // namespace foliant::tests
