#include "cli/call.h"

#include <gtest/gtest.h>
#include <sstream>

#include "automation/coerce.h"
#include "cli/exit_codes.h"
#include "cli/preflight.h"
#include "cli/progress.h"
#include "cli/rehearsal.h"
#include "core/dispatch.h"
#include "core/members.h"
#include "core/parameter_help.h"
#include "platform/stage/cast/cast.h"
#include "platform/stage/stage_object.h"
#include "registered/classes.h"

namespace foliant::cli {
namespace {

using automation::Arguments;
using automation::named;
using automation::Value;
using platform::stage::Stage;
using platform::stage::StageObject;

class Call : public testing::Test {
  protected:
    Call() {
        cast_usual_machine(stage);
        stage.separator = '/';
        stage.put_file("a.ps");
        request.member = core::find_member(*core::find_dispid("CreatePDFfromPS"), automation::Access::call);
        request.arguments = {named("strPDFFile", "a.pdf"), named("strPSFile", "a.ps")};
    }

    Outcome call() { return call_member(request, stage.platform(), bar); }

    Stage stage;
    std::ostringstream shown;
    ProgressBar bar{&shown};
    Request request;
};

TEST_F(Call, KeepsResultEventsAndByReferenceValues) {
    request.arguments.push_back(named("strDistiller", ""));
    const Outcome outcome = call();
    EXPECT_FALSE(outcome.error.has_value());
    EXPECT_EQ(outcome.exit_code, 0);
    EXPECT_EQ(outcome.arguments[2].value, Value("Adobe PDF"));
    std::string names;
    for (const ReceivedEvent& event : outcome.events)
        names += event.name + " ";
    EXPECT_EQ(names, "JobStart PercentDone PageNumber JobDone ");
}

TEST_F(Call, MakesTheTransferControlThatAScriptWouldHandOver) {
    request.member = core::find_member(*core::find_dispid("DownloadFile"), automation::Access::call);
    request.arguments = {named("strRemoteHost", "host"), named("strRemoteDirectory", ""),
                         named("strLocalFile", "/in/a.pdf"), named("strRemoteFile", "a.pdf")};
    stage.put_file("/in/a.pdf");
    const Outcome outcome = call();
    EXPECT_FALSE(outcome.error.has_value());
    EXPECT_NE(stage.journal().find("create InetCtls.Inet\n"), std::string::npos) << stage.journal();
    EXPECT_NE(stage.journal().find("Execute(\"ftp://host\", \"GET a.pdf /in/a.pdf\")\n"), std::string::npos);
    EXPECT_NE(stage.journal().find("release InetCtls.Inet\n"), std::string::npos);
    EXPECT_EQ(outcome.arguments.size(), 4U);
}

TEST_F(Call, TellsTheTransferControlWhichFilesAreMeantWhateverTheirNames) {
    const auto told = [&](const char* member, const char* local, const char* remote) {
        stage.clear_journal();
        stage.put_file(local);
        request.member = core::find_member(*core::find_dispid(member), automation::Access::call);
        request.arguments = {named("strRemoteHost", "host"), named("strRemoteDirectory", ""),
                             named("strLocalFile", local), named("strRemoteFile", remote)};
        call_member(request, stage.platform(), bar, [](std::int32_t) {});
        const std::string journal = stage.journal();
        const std::size_t begin = journal.find("Execute(\"ftp://host\", ");
        return journal.substr(begin, journal.find('\n', begin) - begin);
    };
    EXPECT_EQ(told("DownloadFile", "my file.txt", "report.txt"),
              R"(Execute("ftp://host", "GET "report.txt" "my file.txt""))");
    EXPECT_EQ(told("UploadFile", "report", "old copy.txt"),
              R"(Execute("ftp://host", "PUT "report" "old copy.txt""))");
    EXPECT_EQ(told("UploadFile", "a.pdf", "b.pdf"), R"(Execute("ftp://host", "PUT a.pdf b.pdf"))");
}

TEST_F(Call, AJobThatFailedIsAFailureWithTheInterpretersWords) {
    stage.when("Distiller.FileToPDF", [](StageObject& self, const Arguments& arguments) {
        self.notify("OnJobStart", {arguments[0].value, arguments[1].value});
        self.notify("OnLogMessage", {"undefined in foo"});
        self.notify("OnJobFail", {arguments[0].value, arguments[1].value});
        return Value(std::int16_t{0});
    });
    const Outcome outcome = call();
    ASSERT_TRUE(outcome.error.has_value());
    EXPECT_EQ(outcome.error->description(), "Distiller could not convert a.ps.\n  undefined in foo");
    EXPECT_EQ(outcome.exit_code, exit_host_failure);
}

TEST_F(Call, AnOutputThatIsNotThereIsAFailure) {
    stage.when("Distiller.FileToPDF", [](StageObject&, const Arguments&) { return Value(std::int16_t{0}); });
    const Outcome outcome = call();
    ASSERT_TRUE(outcome.error.has_value());
    EXPECT_EQ(outcome.error->description(), "The host program reported success, but a.pdf was not made.");
}

TEST_F(Call, WhatHostsHaveNotDoneIsTheReasonOfAMissingOutput) {
    stage.when("Distiller.FileToPDF", [](StageObject&, const Arguments&) { return Value(std::int16_t{0}); });
    Outcome outcome = call();
    add_silent_failures(outcome, {"a.png is no image.", "b.png\nis none."});
    EXPECT_EQ(outcome.error->description(),
              "The host program reported success, but a.pdf was not made.\n  a.png is no image.\n"
              "  b.png\\nis none.");
    EXPECT_EQ(outcome.exit_code, exit_host_failure);
    EXPECT_TRUE(outcome.left_out.empty());
}

TEST_F(Call, WhatHostsHaveNotDoneIsLeftOutOfASuccessAndNoMatterOfAnotherFailure) {
    Outcome success = call();
    add_silent_failures(success, {"a.png is no image."});
    EXPECT_FALSE(success.error.has_value());
    EXPECT_EQ(success.left_out, std::vector<std::string>{"a.png is no image."});
    request.arguments[1].value = "none.ps";
    Outcome failure = call();
    add_silent_failures(failure, {"a.png is no image."});
    EXPECT_EQ(failure.error->description(), "File none.ps does not exist.");
    EXPECT_TRUE(failure.left_out.empty());
}

/// The call of a member with files that are there, but for the one that this parameter names.
Request without_file(const core::Member& member, const core::Parameter& missing, Stage& stage) {
    Request request;
    request.member = &member;
    for (const core::Parameter& parameter : member.parameters()) {
        const bool named_file = core::parameter_role(member, parameter) == core::ParameterRole::input_file;
        if (!named_file) continue;
        const std::string path = std::string(parameter.name) + (&parameter == &missing ? ".none" : ".there");
        if (&parameter != &missing) stage.put_file(path);
        request.arguments.push_back(named(parameter.name, path));
    }
    return request;
}

TEST_F(Call, OfAnyMemberDoesNotBeginWhereAFileThatItNamesIsMissing) {
    int files = 0;
    for (const core::Member& member : core::members) {
        for (const core::Parameter& parameter : member.parameters()) {
            if (core::parameter_role(member, parameter) != core::ParameterRole::input_file) continue;
            ++files;
            const Request wrong = without_file(member, parameter, stage);
            try {
                preflight(wrong, stage.platform());
                ADD_FAILURE() << member.name << " " << parameter.name;
            } catch (const automation::Error& error) {
                EXPECT_EQ(error.description(),
                          "File " + std::string(parameter.name) + ".none does not exist.");
                EXPECT_EQ(exit_code_for(error), exit_missing_input) << member.name;
            }
        }
    }
    EXPECT_GE(files, 40);
}

TEST_F(Call, OfAMemberThatWaitsDoesNotBeginWithMoreSecondsThanItCounts) {
    request.member = core::find_member(*core::find_dispid("CreatePDFfromWebPage"), automation::Access::call);
    request.arguments = {named("intSecsToWaitForPDF", std::int16_t{32})};
    EXPECT_NO_THROW(preflight(request, stage.platform()));
    request.arguments = {named("intSecsToWaitForPDF", std::int16_t{33})};
    try {
        preflight(request, stage.platform());
        FAIL();
    } catch (const automation::Error& error) {
        EXPECT_TRUE(error.is(automation::RuntimeError::overflow));
        EXPECT_EQ(error.description(),
                  "Overflow: 33 seconds are more than --secs-to-wait-for-pdf takes, 32. Nothing was done.");
    }
}

TEST_F(Call, EveryKindOfFailureHasItsExitCode) {
    request.arguments[1].value = "none.ps";
    EXPECT_EQ(call().exit_code, exit_missing_input);
    request.arguments[1].value = "a.ps";
    stage.missing_classes.insert(std::string(registered::event_bound_distiller));
    EXPECT_EQ(call().exit_code, exit_missing_engine);
    EXPECT_EQ(exit_code_for(automation::Error(5408, "Foliant", "wrong password")), exit_host_failure);
    EXPECT_EQ(exit_code_for(automation::Error(automation::RuntimeError::permission_denied)), exit_failure);
    EXPECT_EQ(exit_code_for(automation::Error(automation::RuntimeError::out_of_memory)), exit_memory_limit);
    EXPECT_EQ(exit_code_for(automation::Error(automation::RuntimeError::action_not_supported)),
              exit_host_failure);
}

TEST_F(Call, BehindASentenceThatStandsForAnyFailureWhatIsMissingKeepsItsExitCode) {
    const auto saying_the_same_about = [](automation::RuntimeError failure) {
        return automation::Error(-2147467008, "Foliant", "Can't open file a.pdf.",
                                 std::make_shared<const automation::Error>(failure));
    };
    using automation::RuntimeError;
    EXPECT_EQ(exit_code_for(saying_the_same_about(RuntimeError::cannot_create_object)), exit_missing_engine);
    EXPECT_EQ(exit_code_for(saying_the_same_about(RuntimeError::out_of_memory)), exit_memory_limit);
    EXPECT_EQ(exit_code_for(saying_the_same_about(RuntimeError::disk_full)), exit_failure);
    EXPECT_EQ(exit_code_for(saying_the_same_about(RuntimeError::file_not_found)), exit_host_failure);
}

TEST_F(Call, TempPathIsPutBeforeTheCall) {
    stage.folders = {"", "/t"};
    request.member = core::find_member(*core::find_dispid("TempFilePath"), automation::Access::get);
    request.arguments = {};
    request.options.temp_path = "/t";
    EXPECT_EQ(call().result, Value("/t/"));
}

TEST_F(Call, TheBarFollowsTheEvents) {
    call();
    EXPECT_EQ(shown.str(),
              "Converting a.pdf\n"
              "0%   10   20   30   40   50   60   70   80   90   100%\n"
              "|----|----|----|----|----|----|----|----|----|----|\n"
              "***************************************************\n");
}

TEST_F(Call, RehearsingShowsTheStepsWithoutPasswordsAndTakesNone) {
    stage.put_file("letter.docx");
    request.member = core::find_member(*core::find_dispid("CreatePDFfromWord2"), automation::Access::call);
    request.arguments = {named("strPDFFile", "letter.pdf"), named("strWordDocument", "letter.docx"),
                         named("strPassword", "hidden")};
    stage.clear_journal();
    std::ostringstream out;
    std::ostringstream errors;
    EXPECT_EQ(rehearse(request, stage.platform(), out, errors), 0) << errors.str();
    EXPECT_EQ(out.str().substr(out.str().find("length letter.docx")),
              "length letter.docx -> 1000\n"
              "create Word.Application\n"
              "Word.Application.Documents\n"
              "Word.Documents.Open(\"letter.docx\", PasswordDocument:=\"***\", WritePasswordDocument:=\"\")\n"
              "Word.Application.DisplayAlerts = Integer(0)\n"
              "Word.Document.PageSetup\n"
              "Word.PageSetup.Orientation = Integer(0)\n"
              "Word.Application.ActivePrinter -> \"Office printer\"\n"
              "Word.Application.ActivePrinter = \"Adobe PDF\"\n"
              "length letter.pdf -> not found\n"
              "special folder 37 (owner 100)\n"
              "length /system/quorixsend.exe -> 1000\n"
              "start (hidden) /system/quorixsend.exe save pdf file as~Edit~letter.pdf~0~0~\n"
              "start (hidden) /system/quorixsend.exe adobe pdf - security~Button~~0~0~\n"
              "Word.Document.PrintOut()\n"
              "sleep 2000 ms\n"
              "pump messages\n"
              "length letter.pdf -> 1000\n"
              "length letter.pdf -> 1000\n"
              "sleep 1000 ms\n"
              "length letter.pdf -> 1000\n"
              "Word.Application.ActivePrinter = \"Office printer\"\n"
              "Word.Application.DisplayAlerts = Integer(-1)\n"
              "Word.Document.Close(False)\n"
              "release Word.Document\n"
              "Word.Application.Quit()\n"
              "release Word.Application\n"
              "length letter.pdf -> 1000\n");
    EXPECT_EQ(stage.journal().find("create"), std::string::npos);
}

}  // namespace
}  // namespace foliant::cli
