#include "engines/host_program.h"

#include <gtest/gtest.h>

#include "automation/error.h"
#include "session/errors.h"
#include "support/fault_cases.h"
#include "support/staged_session.h"

namespace foliant::engines {
namespace {

using automation::Arguments;
using automation::Value;
using platform::stage::Stage;
using session::Session;

HostProgram on_stage(Stage& stage) {
    return {stage.make_object("Drawing.Application"), stage.make_object("Drawing")};
}

class AHostProgram : public tests::StagedSession {};

TEST_F(AHostProgram, ClosesItsDocumentAndQuitsAndLetsEachGoAtOnce) {
    HostProgram program = on_stage(stage);
    program.close_and_quit({false});
    expect_journal(R"(
        Drawing.Close(False)
        release Drawing
        Drawing.Application.Quit()
        release Drawing.Application
    )");
}

TEST_F(AHostProgram, ClosesWithoutArgumentsWhereNoneAreGiven) {
    HostProgram program = on_stage(stage);
    program.close_and_quit();
    EXPECT_EQ(line_with("Drawing.Close"), "Drawing.Close()");
}

TEST_F(AHostProgram, InTheTrapLetsGoOfWhatItHolds) {
    HostProgram program = on_stage(stage);
    program.let_go();
    expect_journal(R"(
        Drawing.Close()
        release Drawing
        Drawing.Application.Quit()
        release Drawing.Application
    )");
    stage.clear_journal();
    program.let_go();
    EXPECT_EQ(stage.journal(), "");
}

TEST_F(AHostProgram, WithoutADocumentIsOnlyQuit) {
    HostProgram program;
    program.application = stage.make_object("Drawing.Application");
    program.let_go({false});
    expect_journal(R"(
        Drawing.Application.Quit()
        release Drawing.Application
    )");
}

TEST_F(AHostProgram, AnObjectThatIsNothingIsNotHeld) {
    HostProgram program;
    program.document = Value(automation::ObjectPtr());
    EXPECT_FALSE(is_held(program.document));
    program.let_go({false});
    EXPECT_EQ(stage.journal(), "");
}

TEST_F(AHostProgram, TheLastCallOnAnObjectIsTheOneThatItsFamilyKnows) {
    Value report = stage.make_object("Report");
    end_with(report, "CanClose");
    Value access = stage.make_object("Access.Application");
    end_with_if_held(access, "Quit", {std::int16_t{2}});
    EXPECT_FALSE(is_held(report));
    EXPECT_FALSE(is_held(access));
    expect_journal(R"(
        Report.CanClose()
        release Report
        Access.Application.Quit(Integer(2))
        release Access.Application
    )");
}

// What fails on the normal path is tried again in the trap, once, and what fails there is passed over.

const tests::ServiceFaults closing_a_drawing(
    "ClosingADrawing",
    [](Stage& stage) { stage.answer_object("Drawing.Application.Open", "Drawing.Document"); },
    [](const Session& session) {
        HostProgram drawing;
        session::with_error_trap(
            [&] {
                drawing.application = session.outside().servers.create("Drawing.Application");
                drawing.document = drawing.application.call("Open", {"C:\\in\\plan.dwg"});
                drawing.close_and_quit({false});
            },
            [&] { drawing.let_go(); });
    },
    {.report = R"(
    fails: create Drawing.Application
        raise the failure
    fails: Drawing.Application.Open("C:\in\plan.dwg")
        Drawing.Application.Quit()
        release Drawing.Application
        raise the failure
    fails: Drawing.Document.Close(False)
        Drawing.Document.Close()
        release Drawing.Document
        Drawing.Application.Quit()
        release Drawing.Application
        raise the failure
    fails: Drawing.Application.Quit()
        Drawing.Application.Quit()
        release Drawing.Application
        raise the failure
)"});

}  // namespace
}  // namespace foliant::engines
