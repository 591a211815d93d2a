#include <gtest/gtest.h>
#include <utility>
#include <vector>

#include "core/dispatch.h"
#include "members/distiller_member.h"
#include "members/endings.h"
#include "support/fault_cases.h"
#include "support/member_cases.h"

namespace foliant::members {
namespace {

using automation::Arguments;
using automation::Array;
using automation::named;
using automation::Value;
using platform::stage::Stage;
using platform::stage::StageObject;

Value list(std::vector<Value> paths, std::int32_t lower_bound = 0) {
    Array array;
    array.lower_bound = lower_bound;
    array.items = std::move(paths);
    return array;
}

void put_inputs(Stage& stage) {
    for (const char* path : {"C:\\in\\a.ps", "C:\\in\\b.ps", "C:\\My Files\\a.ps"})
        stage.put_file(path);
}

void put_inputs_and_old_output(Stage& stage) {
    put_inputs(stage);
    stage.put_file("C:\\out\\book.pdf");
}

const tests::WholeJournal journal({.member = "CreatePDFfromMultiPS",
                                   .arrange = put_inputs_and_old_output,
                                   .arguments = {named("strPDFFile", "C:\\out\\book.pdf"),
                                                 named("varPSFiles",
                                                       list({"C:\\in\\a.ps", "C:\\in\\b.ps"}))}},
                                  R"(
    create text file C:\out\book.ps
    write C:\out\book.ps: /prun { /mysave save def
    write C:\out\book.ps: dup = flush
    write C:\out\book.ps: RunFile
    write C:\out\book.ps: clear cleardictstack
    write C:\out\book.ps: mysave restore
    write C:\out\book.ps: } def
    write C:\out\book.ps:
    pump messages
    length C:\in\a.ps -> 1000
    write C:\out\book.ps: (C:/in/a.ps) prun
    pump messages
    length C:\in\b.ps -> 1000
    write C:\out\book.ps: (C:/in/b.ps) prun
    close C:\out\book.ps
    length C:\out\book.pdf -> 1000
    delete C:\out\book.pdf
    create Distiller
    listen to Distiller
    Distiller.bShowWindow = False
    Distiller.bSpoolJobs = False
    Distiller.FileToPDF("C:\out\book.ps", "C:\out\book.pdf", "")
    event JobStart("C:\out\book.ps", "C:\out\book.pdf")
    event PercentDone(Long(100))
    event PageNumber(Long(1))
    event JobDone("C:\out\book.ps", "C:\out\book.pdf")
    stop listening to Distiller
    release Distiller
    delete C:\out\book.ps
)");

const tests::ParameterProbe parameters(
    {.member = "CreatePDFfromMultiPS",
     .arrange = put_inputs,
     .arguments = {named("strPDFFile", "C:\\out\\book.pdf"), named("varPSFiles", list({"C:\\in\\a.ps"})),
                   named("strDistiller", ""), named("blnShowWindow", false), named("blnSpoolJobs", true),
                   named("strJobOptionsFile", "C:\\x.joboptions"), named("blnApplySecurity", true)}},
    {.lines_with = {"prun", "Distiller."},
     .expected = R"(
        write C:\out\book.ps: /prun { /mysave save def
        write C:\out\book.ps: (C:/in/a.ps) prun
        SecureDistiller.bShowWindow = False
        SecureDistiller.bSpoolJobs = True
        SecureDistiller.FileToPDF2("C:\out\book.ps", "C:\out\book.pdf", "C:\x.joboptions", True)
    )",
     .flags = R"(
        blnShowWindow:
            - SecureDistiller.bShowWindow = False
            + SecureDistiller.bShowWindow = True
        blnSpoolJobs:
            - SecureDistiller.bSpoolJobs = True
            + SecureDistiller.bSpoolJobs = False
        blnApplySecurity:
            - SecureDistiller.bShowWindow = False
            - SecureDistiller.bSpoolJobs = True
            - SecureDistiller.FileToPDF2("C:\out\book.ps", "C:\out\book.pdf", "C:\x.joboptions", True)
            + Distiller.bShowWindow = False
            + Distiller.bSpoolJobs = True
            + Distiller.FileToPDF("C:\out\book.ps", "C:\out\book.pdf", "C:\x.joboptions")
    )",
     .written = {{"strDistiller", "Adobe PDF"}}});

class CreatePDFfromMultiPS : public DistillerMember {
  protected:
    CreatePDFfromMultiPS()
        : DistillerMember(
              {.member = "CreatePDFfromMultiPS",
               .arrange = put_inputs,
               .arguments = {named("strPDFFile", "C:\\out\\book.pdf"), named("varPSFiles", list({})),
                             named("strDistiller", "My printer")}}) {}

    void call_with(const Value& inputs) { call({named("varPSFiles", inputs)}); }

    /// What the driver file held when Distiller was given it.
    std::string driver_of(const Value& inputs) {
        std::string content;
        stage.when("Distiller.FileToPDF", [&](StageObject& self, const Arguments&) {
            content = self.stage().files.at("C:\\out\\book.ps").content;
            return Value(std::int16_t{1});
        });
        call_with(inputs);
        return content;
    }
};

TEST_F(CreatePDFfromMultiPS, EveryDriverLineEndsInCarriageReturnAndLineFeed) {
    EXPECT_EQ(driver_of(list({"C:\\in\\a.ps"})),
              "/prun { /mysave save def\r\ndup = flush\r\nRunFile\r\nclear cleardictstack\r\n"
              "mysave restore\r\n} def\r\n\r\n(C:/in/a.ps) prun\r\n");
}

TEST_F(CreatePDFfromMultiPS, MissingInputsAreSkippedSilentlyAndOrderIsKept) {
    const std::string driver = driver_of(list({"C:\\in\\b.ps", "C:\\in\\none.ps", "C:\\in\\a.ps"}));
    EXPECT_TRUE(driver.ends_with("} def\r\n\r\n(C:/in/b.ps) prun\r\n(C:/in/a.ps) prun\r\n")) << driver;
}

TEST_F(CreatePDFfromMultiPS, DistillerRunsAlsoWhenEveryInputIsMissing) {
    EXPECT_TRUE(driver_of(list({"C:\\in\\none.ps"})).ends_with("} def\r\n\r\n"));
    EXPECT_TRUE(driver_of(list({})).ends_with("} def\r\n\r\n"));
}

TEST_F(CreatePDFfromMultiPS, BlanksInAPathAreKeptAndParenthesesAreNotEscaped) {
    stage.put_file("C:\\in\\a (1).ps");
    const std::string driver = driver_of(list({"C:\\My Files\\a.ps", "C:\\in\\a (1).ps"}));
    EXPECT_TRUE(driver.ends_with("(C:/My Files/a.ps) prun\r\n(C:/in/a (1).ps) prun\r\n")) << driver;
}

TEST_F(CreatePDFfromMultiPS, AnArrayMayStartAtAnyBoundAndHoldWhatConvertsToText) {
    stage.put_file("7");
    const std::string driver = driver_of(list({"C:\\in\\a.ps", std::int16_t{7}}, 1));
    EXPECT_TRUE(driver.ends_with("(C:/in/a.ps) prun\r\n(7) prun\r\n")) << driver;
}

TEST_F(CreatePDFfromMultiPS, TheDriverFilesNameIsTheOutputsWithItsLastThreeCharactersReplaced) {
    call({named("strPDFFile", "C:\\out\\book")});
    EXPECT_EQ(line_with("create text file"), "create text file C:\\out\\bps");
    stage.clear_journal();
    call({named("strPDFFile", "C:\\out\\book.jpeg")});
    EXPECT_EQ(line_with("create text file"), "create text file C:\\out\\book.jps");
    stage.clear_journal();
    call({named("strPDFFile", "pdf")});
    EXPECT_EQ(line_with("create text file"), "create text file ps");
}

TEST_F(CreatePDFfromMultiPS, AnOutputNameShorterThanThreeCharactersFailsBeforeAnythingIsDone) {
    call({named("strPDFFile", "ab")});
    expect_journal("raise 5 from Foliant: Invalid procedure call or argument");
}

TEST_F(CreatePDFfromMultiPS, WithSecurityAndAcrobatSixUsesTheOtherDistiller) {
    call({named("blnApplySecurity", true)});
    tests::expect_text(journal_from("close"), R"(
        close C:\out\book.ps
        length C:\out\book.pdf -> not found
        create SecureDistiller
        SecureDistiller.bShowWindow = False
        SecureDistiller.bSpoolJobs = False
        SecureDistiller.FileToPDF2("C:\out\book.ps", "C:\out\book.pdf", "", True)
        release SecureDistiller
        delete C:\out\book.ps
    )");
}

TEST_F(CreatePDFfromMultiPS, ABlankPrinterNameIsFilledInForTheCaller) {
    call({named("strDistiller", " ")});
    EXPECT_EQ(variable("strDistiller"), Value("Adobe PDF"));
}

TEST_F(CreatePDFfromMultiPS, WhatIsNoArrayFailsAndTheDriverFileIsClosedAndStays) {
    call({named("varPSFiles", "C:\\in\\a.ps"), named("strDistiller", "")});
    expect_journal(R"(
        create text file C:\out\book.ps
        write C:\out\book.ps: /prun { /mysave save def
        write C:\out\book.ps: dup = flush
        write C:\out\book.ps: RunFile
        write C:\out\book.ps: clear cleardictstack
        write C:\out\book.ps: mysave restore
        write C:\out\book.ps: } def
        write C:\out\book.ps:
        close C:\out\book.ps
        raise 13 from Foliant: Type mismatch
    )");
    EXPECT_EQ(variable("strDistiller"), Value("")) << "the step that fills it in was not reached";
}

TEST_F(CreatePDFfromMultiPS, MoreEntriesThanASixteenBitIndexCountsAreAnOverflow) {
    call_with(list(std::vector<Value>(32768, Value("C:\\in\\a.ps"))));
    EXPECT_EQ(last_line(), "raise 6 from Foliant: Overflow");
}

TEST_F(CreatePDFfromMultiPS, AnEntryThatIsNoTextFails) {
    call_with(list({"C:\\in\\a.ps", automation::Null{}}));
    EXPECT_EQ(last_line(), "raise 94 from Foliant: Invalid use of Null");
}

TEST_F(CreatePDFfromMultiPS, TheDriverFileStaysWhenDistillerFails) {
    stage.put_file("C:\\out\\book.pdf");
    make_distiller_fail();
    call_with(list({"C:\\in\\a.ps"}));
    tests::expect_text(journal_from("close"), R"(
        close C:\out\book.ps
        length C:\out\book.pdf -> 1000
        delete C:\out\book.pdf
        create Distiller
        listen to Distiller
        Distiller.bShowWindow = False
        Distiller.bSpoolJobs = False
        Distiller.FileToPDF("C:\out\book.ps", "C:\out\book.pdf", "")
        stop listening to Distiller
        release Distiller
        raise -2147352567 from Foliant: Out of paper
    )");
}

TEST_F(CreatePDFfromMultiPS, ADriverFileThatIsGoneAtTheEndIsAFailure) {
    stage.when("Distiller.FileToPDF", [](StageObject& self, const Arguments&) {
        self.stage().files.erase("C:\\out\\book.ps");
        return Value(std::int16_t{1});
    });
    call_with(list({}));
    EXPECT_EQ(last_line(), "raise 53 from Foliant: File not found");
}

TEST_F(CreatePDFfromMultiPS, LetsTheCallersThreadRunOncePerInputAndIsNotGuarded) {
    stage.put_file("C:\\in\\inner.ps");
    bool first = true;
    stage.on_pump = [&] {
        if (!std::exchange(first, false)) return;
        Arguments inner{"C:\\out\\inner.pdf", "C:\\in\\inner.ps"};
        core::invoke(object(), "CreatePDFfromPS", automation::Access::call, inner);
    };
    call_with(list({"C:\\in\\a.ps"}));
    tests::expect_text(journal_from("pump messages"), R"(
        pump messages
        length C:\in\inner.ps -> 1000
        length C:\out\inner.pdf -> not found
        create Distiller
        listen to Distiller
        Distiller.bShowWindow = False
        Distiller.bSpoolJobs = False
        Distiller.FileToPDF("C:\in\inner.ps", "C:\out\inner.pdf", "")
        event JobStart("C:\in\inner.ps", "C:\out\inner.pdf")
        event PercentDone(Long(100))
        event PageNumber(Long(1))
        event JobDone("C:\in\inner.ps", "C:\out\inner.pdf")
        stop listening to Distiller
        release Distiller
        length C:\in\a.ps -> 1000
        write C:\out\book.ps: (C:/in/a.ps) prun
        close C:\out\book.ps
        length C:\out\book.pdf -> not found
        create Distiller
        listen to Distiller
        Distiller.bShowWindow = False
        Distiller.bSpoolJobs = False
        Distiller.FileToPDF("C:\out\book.ps", "C:\out\book.pdf", "")
        event JobStart("C:\out\book.ps", "C:\out\book.pdf")
        event PercentDone(Long(100))
        event PageNumber(Long(1))
        event JobDone("C:\out\book.ps", "C:\out\book.pdf")
        stop listening to Distiller
        release Distiller
        delete C:\out\book.ps
    )");
}

// An input that does not seem to exist is skipped. Whoever opened the driver file closes it.

const tests::MemberFaults faults({.member = "CreatePDFfromMultiPS",
                                  .arrange = put_inputs_and_old_output,
                                  .arguments = {"C:\\out\\book.pdf", list({"C:\\in\\a.ps"})}},
                                 {.endings = {let_distiller_go}, .report = R"(
    fails: create text file C:\out\book.ps
        raise the failure
    fails: write C:\out\book.ps: /prun { /mysave save def
    fails: write C:\out\book.ps: dup = flush
    fails: write C:\out\book.ps: RunFile
    fails: write C:\out\book.ps: clear cleardictstack
    fails: write C:\out\book.ps: mysave restore
    fails: write C:\out\book.ps: } def
    fails: write C:\out\book.ps:
    fails: pump messages
        close C:\out\book.ps
        raise the failure
    fails: length C:\in\a.ps
        go on, but
        - write C:\out\book.ps: (C:/in/a.ps) prun
    fails: write C:\out\book.ps: (C:/in/a.ps) prun
    fails: close C:\out\book.ps
        close C:\out\book.ps
        raise the failure
    fails: length C:\out\book.pdf
        go on, but
        - delete C:\out\book.pdf
    fails: delete C:\out\book.pdf
    fails: create Distiller
        raise the failure
    fails: listen to Distiller
        release Distiller
        raise the failure
    fails: Distiller.bShowWindow = False
    fails: Distiller.bSpoolJobs = False
    fails: Distiller.FileToPDF("C:\out\book.ps", "C:\out\book.pdf", "")
        let Distiller go
        raise the failure
    fails: delete C:\out\book.ps
        raise the failure
)"});

}  // namespace
}  // namespace foliant::members
