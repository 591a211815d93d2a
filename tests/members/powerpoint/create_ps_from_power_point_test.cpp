#include <gtest/gtest.h>

#include "members/powerpoint/powerpoint_member.h"

namespace foliant::members {
namespace {

using automation::named;
using automation::Value;
using platform::stage::StageObject;

const tests::MemberCall usual{
    .member = "CreatePSfromPowerPoint",
    .arrange = put_presentation,
    .arguments = {named("strPSFile", "C:\\out\\talk.ps"), named("strPPDocument", "C:\\in\\talk.ppt")}};

const tests::WholeJournal journal(usual, R"(
    length C:\in\talk.ppt -> 1000
    create Powerpoint.Application
    Powerpoint.Application.Visible = Integer(-1)
    Powerpoint.Application.WindowState = Integer(2)
    Powerpoint.Application.Presentations
    Powerpoint.Presentations.Open("C:\in\talk.ppt")
    Powerpoint.Presentation.PageSetup
    Powerpoint.PageSetup.SlideOrientation = Integer(2)
    Powerpoint.Presentation.PrintOptions
    Powerpoint.PrintOptions.ActivePrinter -> "Office printer"
    Powerpoint.Presentation.PrintOptions
    Powerpoint.PrintOptions.ActivePrinter = "Adobe PDF"
    length C:\out\talk.ps -> not found
    Powerpoint.Presentation.PrintOut(From:=Long(-1), To:=Long(-1), PrintToFile:="C:\out\talk.ps")
    sleep 2000 ms
    pump messages
    length C:\out\talk.ps -> 1000
    length C:\out\talk.ps -> 1000
    sleep 1000 ms
    length C:\out\talk.ps -> 1000
    Powerpoint.Presentation.PrintOptions
    Powerpoint.PrintOptions.ActivePrinter = "Office printer"
    Powerpoint.Presentation.Close()
    release Powerpoint.Presentation
    Powerpoint.Application.Quit()
    release Powerpoint.Application
)");

const tests::ParameterProbe parameters(
    {.member = "CreatePSfromPowerPoint",
     .arrange = put_presentation,
     .arguments = {named("strPSFile", "C:\\out\\talk.ps"), named("strPPDocument", "C:\\in\\talk.ppt"),
                   named("lngStartSlide", std::int32_t{2}), named("lngEndSlide", std::int32_t{4}),
                   named("blnHorizontalOrientation", true), named("strDistiller", "My printer")}},
    {.lines_with = {"Open(", "SlideOrientation", "ActivePrinter", "PrintOut"}, .expected = R"(
        Powerpoint.Presentations.Open("C:\in\talk.ppt")
        Powerpoint.PageSetup.SlideOrientation = Integer(1)
        Powerpoint.PrintOptions.ActivePrinter -> "Office printer"
        Powerpoint.PrintOptions.ActivePrinter = "My printer"
        Powerpoint.Presentation.PrintOut(From:=Long(2), To:=Long(4), PrintToFile:="C:\out\talk.ps")
        Powerpoint.PrintOptions.ActivePrinter = "Office printer"
    )"});

class CreatePSfromPowerPoint : public PowerPointMember {
  protected:
    CreatePSfromPowerPoint() : PowerPointMember(usual) {}
};

TEST_F(CreatePSfromPowerPoint, AMissingPresentationIsSaidBeforePowerPointIsStarted) {
    stage.files.clear();
    call();
    expect_journal(R"(
        length C:\in\talk.ppt -> not found
        raise -2147467008 from Foliant: File C:\in\talk.ppt does not exist.
    )");
}

TEST_F(CreatePSfromPowerPoint, DeletesTheOldFileBeforePrinting) {
    stage.put_file("C:\\out\\talk.ps");
    call();
    tests::expect_text(journal_between("length C:\\out\\talk.ps", "PrintOut"), R"(
        length C:\out\talk.ps -> 1000
        delete C:\out\talk.ps
        Powerpoint.Presentation.PrintOut(From:=Long(-1), To:=Long(-1), PrintToFile:="C:\out\talk.ps")
    )");
}

TEST_F(CreatePSfromPowerPoint, ABlankPrinterMeansTheComponentsOwnAndStaysBlankForTheCaller) {
    for (const char* blank : {"", "   "}) {
        stage.clear_journal();
        call({named("strDistiller", blank)});
        EXPECT_EQ(lines_with({"ActivePrinter = \"Adobe PDF\""}).size(), 1);
        EXPECT_EQ(variable("strDistiller"), Value(blank));
    }
}

TEST_F(CreatePSfromPowerPoint, APowerPointThatIsNotInstalledIsError429) {
    stage.missing_classes = {"Powerpoint.Application"};
    call();
    expect_journal(R"(
        length C:\in\talk.ppt -> 1000
        create Powerpoint.Application
        raise 429 from Foliant: ActiveX component can't create object
    )");
}

TEST_F(CreatePSfromPowerPoint, APresentationThatDoesNotOpenQuitsPowerPointAndClosesNothing) {
    make_powerpoint_fail_in("Powerpoint.Presentations.Open");
    call();
    tests::expect_text(journal_from("Presentations.Open"), R"(
        Powerpoint.Presentations.Open("C:\in\talk.ppt")
        Powerpoint.Application.Quit()
        release Powerpoint.Application
        raise -2147352567 from Foliant: PowerPoint cannot do that.
    )");
}

TEST_F(CreatePSfromPowerPoint, SlidesOutOfRangeAreAFailureAndThePrinterIsNotPutBack) {
    make_powerpoint_fail_in("Powerpoint.Presentation.PrintOut");
    call({named("lngStartSlide", std::int32_t{99})});
    tests::expect_text(journal_from("PrintOut"), R"(
        Powerpoint.Presentation.PrintOut(From:=Long(99), To:=Long(-1), PrintToFile:="C:\out\talk.ps")
        Powerpoint.Presentation.Close()
        release Powerpoint.Presentation
        Powerpoint.Application.Quit()
        release Powerpoint.Application
        raise -2147352567 from Foliant: PowerPoint cannot do that.
    )");
}

TEST_F(CreatePSfromPowerPoint, APrinterThatPowerPointDoesNotKnowIsAFailure) {
    stage.when("Powerpoint.PrintOptions.ActivePrinter",
               [](StageObject&, const automation::Arguments& arguments) {
                   if (arguments.empty()) return Value("Office printer");
                   throw automation::Error(-2147352567, "Microsoft PowerPoint", "There is no such printer.");
               });
    call({named("strDistiller", "Lost printer")});
    tests::expect_text(journal_from("ActivePrinter = "), R"(
        Powerpoint.PrintOptions.ActivePrinter = "Lost printer"
        Powerpoint.Presentation.Close()
        release Powerpoint.Presentation
        Powerpoint.Application.Quit()
        release Powerpoint.Application
        raise -2147352567 from Foliant: There is no such printer.
    )");
}

void put_presentation_and_old_postscript(platform::stage::Stage& stage) {
    put_presentation(stage);
    stage.put_file("C:\\out\\talk.ps");
}

const tests::MemberFaults faults({.member = "CreatePSfromPowerPoint",
                                  .arrange = put_presentation_and_old_postscript,
                                  .arguments = {"C:\\out\\talk.ps", "C:\\in\\talk.ppt"}},
                                 {.endings = {let_powerpoint_go, quit_powerpoint}, .report = R"(
    fails: length C:\in\talk.ppt
        raise -2147467008 from Foliant: File C:\in\talk.ppt does not exist.
    fails: create Powerpoint.Application
        raise the failure
    fails: Powerpoint.Application.Visible = Integer(-1)
    fails: Powerpoint.Application.WindowState = Integer(2)
    fails: Powerpoint.Application.Presentations
    fails: Powerpoint.Presentations.Open("C:\in\talk.ppt")
        quit PowerPoint
        raise the failure
    fails: Powerpoint.Presentation.PageSetup
    fails: Powerpoint.PageSetup.SlideOrientation = Integer(2)
    fails: Powerpoint.Presentation.PrintOptions
    fails: Powerpoint.PrintOptions.ActivePrinter
    fails: Powerpoint.Presentation.PrintOptions
    fails: Powerpoint.PrintOptions.ActivePrinter = "Adobe PDF"
        let PowerPoint go
        raise the failure
    fails: length C:\out\talk.ps
        go on, but
        - delete C:\out\talk.ps
    fails: delete C:\out\talk.ps
    fails: Powerpoint.Presentation.PrintOut(From:=Long(-1), To:=Long(-1), PrintToFile:="C:\out\talk.ps")
    fails: sleep 2000 ms
    fails: pump messages
        let PowerPoint go
        raise the failure
    fails: length C:\out\talk.ps
        go on, but
        + pump messages
        + length C:\out\talk.ps -> 1000
    fails: length C:\out\talk.ps
    fails: sleep 1000 ms
    fails: length C:\out\talk.ps
    fails: Powerpoint.Presentation.PrintOptions
    fails: Powerpoint.PrintOptions.ActivePrinter = "Office printer"
    fails: Powerpoint.Presentation.Close()
        let PowerPoint go
        raise the failure
    fails: Powerpoint.Application.Quit()
        quit PowerPoint
        raise the failure
)"});

}  // namespace
}  // namespace foliant::members
