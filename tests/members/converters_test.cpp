// What converters of several families have in common.

#include <algorithm>
#include <gtest/gtest.h>
#include <ostream>
#include <utility>

#include "automation/error.h"
#include "members/pdf/lists_of_files.h"
#include "platform/stage/cast/cast.h"
#include "platform/stage/stage_object.h"
#include "support/member_call.h"
#include "support/staged_session.h"

namespace foliant::members {
namespace {

using automation::Arguments;
using automation::named;
using automation::Value;
using platform::stage::Stage;
using platform::stage::StageObject;

// When a blank `strDistiller` is filled in: a call that fails before that step leaves the caller's variable as it
// was, one that fails later does not. Members that only use the component's printer never fill it in.

const Value blank = "  ";

/// A host that writes whatever a member waits for, and files of all names that a member deletes.
void put_files_and_hosts_that_print(Stage& stage) {
    const auto put_outputs = [&stage] {
        put_files(stage,
                  {"C:\\out\\a.pdf", "C:\\out\\a.ps", "C:\\Temp\\13387663.ps", "C:\\Temp\\13387663.pdf"});
    };
    stage.library_folder = "C:\\Temp";
    stage.put_file("C:\\in\\a");
    put_outputs();
    for (const char* print :
         {"Excel.Range.PrintOut", "Word.Document.PrintOut", "Powerpoint.Presentation.PrintOut",
          "Visio.Document.Print", "crystal.Report.PrintOut"}) {
        stage.when(print, [put_outputs](StageObject&, const Arguments&) {
            put_outputs();
            return Value();
        });
    }
    stage.when_program_starts([put_outputs](const std::string&) { put_outputs(); });
}

/// The first of the call's actions whose failure leaves a name in the caller's blank variable, where the failure
/// of every action before it leaves the variable blank; "" when there is none.
std::string first_failure_with_a_name(const tests::MemberCall& call) {
    constexpr std::string_view mark = " -> fails";
    for (long k = 1;; ++k) {
        Stage stage;
        tests::EventsInJournal events(stage);
        cast_usual_machine(stage);
        put_files_and_hosts_that_print(stage);
        core::BuildPDF object(stage.platform(), events);
        stage.clear_journal();
        stage.fail_action(k, automation::Error(-2147352567, "Host", "made to fail"));
        Arguments given = call.arguments;
        given.push_back(named("strDistiller", blank));
        tests::run_noting_error(stage, [&] { call.make(object, given); });
        const auto action = std::find_if(stage.lines().begin(), stage.lines().end(),
                                         [&](const std::string& line) { return line.ends_with(mark); });
        if (action == stage.lines().end()) return "";
        const bool failed = stage.lines().back().starts_with("raise ");
        if (failed && given.back().value != blank) return action->substr(0, action->size() - mark.size());
    }
}

/// A call of a member, and the first of its actions whose failure leaves a name; "" when there is none.
struct Case {
    tests::MemberCall call;
    std::string_view first_failure;
};

void PrintTo(const Case& stated, std::ostream* out) {
    *out << stated.call.name();
}

Case of(std::string_view member, const Arguments& others, std::string_view first_failure = {}) {
    const bool makes_postscript = member.find("PSfrom") != std::string_view::npos;
    Arguments arguments{makes_postscript ? "C:\\out\\a.ps" : "C:\\out\\a.pdf"};
    arguments.insert(arguments.end(), others.begin(), others.end());
    return {{.member = member, .arguments = arguments}, first_failure};
}

const Arguments input{"C:\\in\\a"};
const Arguments list_of_inputs{list_of({"C:\\in\\a"})};
const Arguments sheet{"C:\\in\\a", "Sheet1", "A1:F40"};
const Arguments sheets{"C:\\in\\a", list_of({"North"}), list_of({"A1"}),
                       named("varLandscape", list_of({true}))};

constexpr std::string_view delete_pdf = "delete C:\\out\\a.pdf";
constexpr std::string_view delete_postscript = "delete C:\\out\\a.ps";

const auto name_of_case = [](const auto& test) { return test.param.call.name(); };

class BlankPrinters : public testing::TestWithParam<Case> {};

TEST_P(BlankPrinters, AreFilledInAtOneStepWhateverFailsAfterIt) {
    EXPECT_EQ(first_failure_with_a_name(GetParam().call), GetParam().first_failure);
}

INSTANTIATE_TEST_SUITE_P(
    Members, BlankPrinters,
    testing::Values(
        of("CreatePDFfromPS", input, delete_pdf), of("CreatePDFfromMultiPS", list_of_inputs, delete_pdf),
        of("CreatePDFfromExcel", sheet, "delete C:\\Temp\\13387663.ps"),
        of("CreatePDFfromExcel2", sheet, delete_pdf), of("CreatePSfromExcel", sheet, delete_postscript),
        of("CreatePDFfromMultiExcel", sheets, "delete C:\\Temp\\13387663.ps"),
        of("CreatePDFfromMultiExcel2", sheets, "delete C:\\Temp\\13387663.pdf"),
        of("CreatePDFfromVisio", input, delete_pdf), of("CreatePDFfromCrystalReport", input, delete_pdf),
        of("CreatePDFfromWord", input), of("CreatePDFfromWord2", input), of("CreatePSfromWord", input),
        of("CreatePDFfromTextFile", input), of("CreatePDFfromTextFile2", input),
        of("CreatePDFfromTextFile3", input), of("CreatePSfromTextFile", input),
        of("CreatePDFfromPowerPoint", input), of("CreatePDFfromPowerPoint2", input),
        of("CreatePSfromPowerPoint", input)),
    name_of_case);

// Temporary files.

class TemporaryFiles : public testing::TestWithParam<Case> {
  protected:
    TemporaryFiles() {
        cast_usual_machine(stage);
        stage.library_folder = "C:\\Library";
        stage.put_file("C:\\in\\a");
        stage.folders.insert("D:");
    }

    void call() {
        core::BuildPDF object(stage.platform(), events);
        object.put_TempFilePath("D:\\Scratch");
        stage.clear_journal();
        Arguments given = GetParam().call.arguments;
        tests::run_noting_error(stage, [&] { GetParam().call.make(object, given); });
    }

    Stage stage;
    tests::EventsInJournal events{stage};
};

TEST_P(TemporaryFiles, LieWhereTheClientHasThemAndAreGoneInTheEnd) {
    call();
    EXPECT_TRUE(stage.lines().back().starts_with("delete D:\\Scratch\\13387663.p")) << stage.journal();
    EXPECT_EQ(stage.journal().find("C:\\Library\\1"), std::string::npos) << stage.journal();
}

INSTANTIATE_TEST_SUITE_P(
    Members, TemporaryFiles,
    testing::Values(of("CreatePDFfromExcel", sheet), of("CreatePDFfromMultiExcel", sheets),
                    of("CreatePDFfromMultiExcel2", sheets), of("CreatePDFfromWord", input),
                    of("CreatePDFfromTextFile", input), of("CreatePDFfromPowerPoint", input),
                    of("CreatePDFfromMultiAutoCAD", {"C:\\in\\a", list_of({"Plan"})}),
                    of("CreatePDFfromMultiAccessReport", {"C:\\in\\a", list_of({"Turnover"})})),
    name_of_case);

class JobsThatDistillerFails : public TemporaryFiles {};

TEST_P(JobsThatDistillerFails, EndTheCallAsAnyOther) {
    stage.when("Distiller.FileToPDF", [](StageObject& distiller, const Arguments& arguments) {
        distiller.notify("OnJobFail", {arguments.at(0).value, arguments.at(1).value});
        return Value(std::int16_t{0});
    });
    call();
    EXPECT_TRUE(stage.lines().back().starts_with("delete D:\\Scratch\\")) << stage.journal();
    EXPECT_NE(stage.journal().find("\nevent JobFail("), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(Members, JobsThatDistillerFails,
                         testing::Values(of("CreatePDFfromExcel", sheet),
                                         of("CreatePDFfromMultiExcel", sheets),
                                         of("CreatePDFfromWord", input), of("CreatePDFfromTextFile", input),
                                         of("CreatePDFfromPowerPoint", input)),
                         name_of_case);

}  // namespace
}  // namespace foliant::members
