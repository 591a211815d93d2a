#include "engines/distiller_job.h"

#include <gtest/gtest.h>

#include "automation/error.h"
#include "platform/stage/stage_object.h"
#include "registered/classes.h"
#include "support/staged_session.h"

namespace foliant::engines {
namespace {

using automation::Arguments;
using automation::Error;
using automation::RuntimeError;
using automation::Value;
using platform::stage::StageObject;

class DistillerJobTest : public tests::StagedSession {
  protected:
    void convert(const DistillerOptions& options = {}) {
        run([&] {
            DistillerJob job(session());
            job.run("C:\\in\\a.ps", "C:\\out\\a.pdf", options);
        });
    }

    bool holds_distiller() { return session().objAdobeDistiller.object != Value(); }
};

TEST_F(DistillerJobTest, BindsEventsSetsBothFlagsConvertsAndLetsGo) {
    convert({.show_window = true, .spool_jobs = false, .job_options_file = "C:\\Print.joboptions"});
    expect_journal(R"(
        create Distiller
        listen to Distiller
        Distiller.bShowWindow = True
        Distiller.bSpoolJobs = False
        Distiller.FileToPDF("C:\in\a.ps", "C:\out\a.pdf", "C:\Print.joboptions")
        event JobStart("C:\in\a.ps", "C:\out\a.pdf")
        event PercentDone(Long(100))
        event PageNumber(Long(1))
        event JobDone("C:\in\a.ps", "C:\out\a.pdf")
        stop listening to Distiller
        release Distiller
    )");
}

TEST_F(DistillerJobTest, BothFlagsAreWrittenAlsoWhenTheyAreFalseAndTheOptionsFileAlsoWhenEmpty) {
    convert({.show_window = false, .spool_jobs = true, .job_options_file = ""});
    tests::expect_text(journal_between("bShowWindow", "FileToPDF"), R"(
        Distiller.bShowWindow = False
        Distiller.bSpoolJobs = True
        Distiller.FileToPDF("C:\in\a.ps", "C:\out\a.pdf", "")
    )");
}

TEST_F(DistillerJobTest, SecurityGoesToTheOtherDistillerWithoutEvents) {
    convert({.show_window = false, .spool_jobs = true, .job_options_file = "x", .apply_security = true});
    expect_journal(R"(
        create SecureDistiller
        SecureDistiller.bShowWindow = False
        SecureDistiller.bSpoolJobs = True
        SecureDistiller.FileToPDF2("C:\in\a.ps", "C:\out\a.pdf", "x", True)
        release SecureDistiller
    )");
    EXPECT_FALSE(holds_distiller());
}

TEST_F(DistillerJobTest, TheClassesAreThoseOfDistillersTypeLibrary) {
    EXPECT_EQ(registered::event_bound_distiller, "{1CD675B2-ECD1-11D1-B976-00600802DB86}");
    EXPECT_EQ(registered::security_capable_distiller, "{FC403250-51F5-4E1B-AC8C-ED9C5E551B9B}");
}

class SecurityDecision : public tests::StagedSession,
                         public testing::WithParamInterface<std::pair<const char*, bool>> {};

TEST_P(SecurityDecision, NeedsAWishAndAnAcrobatNewerThanFive) {
    const auto& [version, capable] = GetParam();
    register_acrobat(version);
    EXPECT_EQ(applies_security(session(), true), capable);
    EXPECT_FALSE(applies_security(session(), false));
}

INSTANTIATE_TEST_SUITE_P(Versions, SecurityDecision,
                         testing::Values(std::pair("", false), std::pair("4.05", false),
                                         std::pair("5", false), std::pair("5.0", false),
                                         std::pair("5.0.5", false), std::pair("5.05", true),
                                         std::pair("6.0", true), std::pair("7.0 beta", true),
                                         std::pair("10.1", true), std::pair("Acrobat 6.0", false)));

TEST_F(DistillerJobTest, SecurityWithAcrobatFiveRunsTheEventBoundJob) {
    register_acrobat("5.0");
    convert({.job_options_file = "", .apply_security = true});
    expect_journal(R"(
        create Distiller
        listen to Distiller
        Distiller.bShowWindow = False
        Distiller.bSpoolJobs = False
        Distiller.FileToPDF("C:\in\a.ps", "C:\out\a.pdf", "")
        event JobStart("C:\in\a.ps", "C:\out\a.pdf")
        event PercentDone(Long(100))
        event PageNumber(Long(1))
        event JobDone("C:\in\a.ps", "C:\out\a.pdf")
        stop listening to Distiller
        release Distiller
    )");
}

TEST_F(DistillerJobTest, TheComponentHoldsDistillerWhileItConvertsAndOnlyThen) {
    EXPECT_FALSE(holds_distiller());
    bool held = false;
    events.handler = [&](std::string_view) { held = holds_distiller(); };
    convert();
    EXPECT_TRUE(held);
    EXPECT_FALSE(holds_distiller());
}

TEST_F(DistillerJobTest, AStatusOfFailureIsNotLookedAt) {
    stage.when("Distiller.FileToPDF", [](StageObject& distiller, const Arguments& arguments) {
        distiller.notify("OnJobFail", {arguments.at(0).value, arguments.at(1).value});
        return Value(std::int16_t{-1});
    });
    convert();
    expect_journal(R"(
        create Distiller
        listen to Distiller
        Distiller.bShowWindow = False
        Distiller.bSpoolJobs = False
        Distiller.FileToPDF("C:\in\a.ps", "C:\out\a.pdf", "")
        event JobFail("C:\in\a.ps", "C:\out\a.pdf")
        stop listening to Distiller
        release Distiller
    )");
}

TEST_F(DistillerJobTest, TheOutputIsNotTested) {
    stage.answer("Distiller.FileToPDF", std::int16_t{1});
    convert();
    EXPECT_EQ(stage.journal().find("length"), std::string::npos);
}

TEST_F(DistillerJobTest, ADistillerThatIsNotInstalledIsError429) {
    stage.missing_classes.insert(std::string(registered::event_bound_distiller));
    convert();
    expect_journal(R"(
        create Distiller
        raise 429 from : ActiveX component can't create object
    )");
    EXPECT_FALSE(holds_distiller());
}

TEST_F(DistillerJobTest, AFailureLeavesTheDistillerForTheTrapToRelease) {
    stage.when("Distiller.FileToPDF",
               [](StageObject&, const Arguments&) -> Value { throw Error(RuntimeError::disk_full); });
    DistillerJob job(session());
    run([&] { job.run("a.ps", "a.pdf", {}); });
    EXPECT_TRUE(holds_distiller());
    stage.clear_journal();
    job.release();
    EXPECT_FALSE(holds_distiller());
    expect_journal(R"(
        stop listening to Distiller
        release Distiller
    )");
}

TEST_F(DistillerJobTest, ReleasingWithoutAJobIsHarmless) {
    DistillerJob job(session());
    job.release();
    EXPECT_EQ(stage.journal(), "");
}

TEST_F(DistillerJobTest, AnInnerJobDuringAnEventLetsTheOuterOneFinish) {
    // Nothing guards against it: the inner job's Distiller takes the place of the outer one's, whose events
    // are no longer heard.
    session();
    bool first = true;
    events.handler = [&](std::string_view) {
        if (!std::exchange(first, false)) return;
        DistillerJob inner(session());
        inner.run("inner.ps", "inner.pdf", {});
    };
    convert();
    expect_journal(R"(
        create Distiller
        listen to Distiller
        Distiller.bShowWindow = False
        Distiller.bSpoolJobs = False
        Distiller.FileToPDF("C:\in\a.ps", "C:\out\a.pdf", "")
        event JobStart("C:\in\a.ps", "C:\out\a.pdf")
        create Distiller
        listen to Distiller
        stop listening to Distiller
        Distiller.bShowWindow = False
        Distiller.bSpoolJobs = False
        Distiller.FileToPDF("inner.ps", "inner.pdf", "")
        event JobStart("inner.ps", "inner.pdf")
        event PercentDone(Long(100))
        event PageNumber(Long(1))
        event JobDone("inner.ps", "inner.pdf")
        stop listening to Distiller
        release Distiller
        release Distiller
    )");
}

TEST_F(DistillerJobTest, WhatAClientRaisesInItsHandlerGoesToDistiller) {
    session();
    events.handler = [](std::string_view) { throw Error(RuntimeError::type_mismatch); };
    stage.when("Distiller.FileToPDF", [](StageObject& distiller, const Arguments&) {
        try {
            distiller.notify("OnPercentDone", {std::int32_t{1}});
        } catch (const Error& error) {
            distiller.stage().note("Distiller sees " + std::to_string(error.number()));
        }
        return Value(std::int16_t{1});
    });
    convert();
    expect_journal(R"(
        create Distiller
        listen to Distiller
        Distiller.bShowWindow = False
        Distiller.bSpoolJobs = False
        Distiller.FileToPDF("C:\in\a.ps", "C:\out\a.pdf", "")
        event PercentDone(Long(1))
        Distiller sees 13
        stop listening to Distiller
        release Distiller
    )");
}

}  // namespace
}  // namespace foliant::engines
