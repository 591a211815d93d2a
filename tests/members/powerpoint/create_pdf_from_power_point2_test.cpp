#include <gtest/gtest.h>

#include "members/powerpoint/powerpoint_member.h"
#include "registered/classes.h"

namespace foliant::members {
namespace {

using automation::named;
using automation::Value;
using platform::stage::Stage;
using platform::stage::StageObject;

const tests::MemberCall usual{
    .member = "CreatePDFfromPowerPoint2",
    .arrange = put_presentation,
    .arguments = {named("strPDFFile", "C:\\out\\Talk.PDF"), named("strPPDocument", "C:\\in\\talk.ppt")}};

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
    length C:\out\Talk.PDF -> not found
    special folder 37 (owner 100)
    length C:\WINDOWS\system32\quorixsend.exe -> 1000
    start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\Talk.PDF~0~0~
    start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe pdf - security~Button~~0~0~
    Powerpoint.Presentation.PrintOut(From:=Long(-1), To:=Long(-1))
    sleep 2000 ms
    pump messages
    length C:\out\Talk.PDF -> 1000
    length C:\out\Talk.PDF -> 1000
    sleep 1000 ms
    length C:\out\Talk.PDF -> 1000
    Powerpoint.Presentation.PrintOptions
    Powerpoint.PrintOptions.ActivePrinter = "Office printer"
    Powerpoint.Presentation.Close()
    release Powerpoint.Presentation
    Powerpoint.Application.Quit()
    release Powerpoint.Application
)");

const tests::ParameterProbe parameters(
    {.member = "CreatePDFfromPowerPoint2",
     .arrange = put_presentation,
     .arguments = {named("strPDFFile", "C:\\out\\talk.pdf"), named("strPPDocument", "C:\\in\\talk.ppt"),
                   named("lngStartSlide", std::int32_t{2}), named("lngEndSlide", std::int32_t{4}),
                   named("blnHorizontalOrientation", false), named("strDistiller", "My printer"),
                   named("blnCloseAcrobat", true)}},
    {.lines_with = {"Open(", "SlideOrientation", "ActivePrinter", "save pdf", "PrintOut", "WM_CLOSE"},
     .expected = R"(
        Powerpoint.Presentations.Open("C:\in\talk.ppt")
        Powerpoint.PageSetup.SlideOrientation = Integer(2)
        Powerpoint.PrintOptions.ActivePrinter -> "Office printer"
        Powerpoint.PrintOptions.ActivePrinter = "My printer"
        start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\talk.pdf~0~0~
        Powerpoint.Presentation.PrintOut(From:=Long(2), To:=Long(4))
        send WM_CLOSE (0, "0") to "Adobe Acrobat Professional - [talk.pdf]"
        Powerpoint.PrintOptions.ActivePrinter = "Office printer"
    )",
     .flags = R"(
        blnHorizontalOrientation:
            - Powerpoint.PageSetup.SlideOrientation = Integer(2)
            + Powerpoint.PageSetup.SlideOrientation = Integer(1)
        blnCloseAcrobat:
            - send WM_CLOSE (0, "0") to "Adobe Acrobat Professional - [talk.pdf]"
    )"});

class CreatePDFfromPowerPoint2 : public PowerPointMember {
  protected:
    CreatePDFfromPowerPoint2() : PowerPointMember(usual) {}
};

TEST_F(CreatePDFfromPowerPoint2, LeavesABlankPrinterNameToTheCaller) {
    call({named("strDistiller", "  ")});
    EXPECT_EQ(variable("strDistiller"), Value("  "));
    EXPECT_EQ(lines_with({"ActivePrinter = \"Adobe PDF\""}).size(), 1);
}

TEST_F(CreatePDFfromPowerPoint2, DeletesTheOldPdfBeforeTheSendersStart) {
    stage.put_file("C:\\out\\Talk.PDF");
    call();
    tests::expect_text(journal_between("length C:\\out\\Talk.PDF", "PrintOut"), R"(
        length C:\out\Talk.PDF -> 1000
        delete C:\out\Talk.PDF
        special folder 37 (owner 100)
        length C:\WINDOWS\system32\quorixsend.exe -> 1000
        start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\Talk.PDF~0~0~
        start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe pdf - security~Button~~0~0~
        Powerpoint.Presentation.PrintOut(From:=Long(-1), To:=Long(-1))
    )");
}

TEST_F(CreatePDFfromPowerPoint2, ClosesAcrobatsWindowOnRequestBeforePowerPointIsRestored) {
    call({named("blnCloseAcrobat", true)});
    tests::expect_text(journal_between("find window", "Close()"), R"(
        find window "adobe acrobat - [talk.pdf]" -> none
        find window "adobe acrobat professional - [talk.pdf]" -> found
        send WM_CLOSE (0, "0") to "Adobe Acrobat Professional - [Talk.PDF]"
        Powerpoint.Presentation.PrintOptions
        Powerpoint.PrintOptions.ActivePrinter = "Office printer"
        Powerpoint.Presentation.Close()
    )");
}

TEST_F(CreatePDFfromPowerPoint2, PrintsAlsoWhenTheSenderIsMissing) {
    stage.files.erase("C:\\WINDOWS\\system32\\quorixsend.exe");
    stage.when("Powerpoint.Presentation.PrintOut", [](StageObject& self, const automation::Arguments&) {
        self.stage().put_file("C:\\out\\Talk.PDF");  // somebody types the name into the dialog
        return Value();
    });
    call();
    EXPECT_TRUE(line_with("message box").ends_with("title \"File QUORIXSEND.EXE not found\", style 4144"));
    EXPECT_EQ(last_line(), "release Powerpoint.Application");
}

TEST_F(CreatePDFfromPowerPoint2, NeedsNoDistiller) {
    stage.missing_classes = {std::string(registered::event_bound_distiller)};
    call();
    EXPECT_EQ(last_line(), "release Powerpoint.Application");
}

void have_the_printer_write_the_pdf(Stage& stage) {
    put_presentation_and_old_output(stage);
    stage.when("Powerpoint.Presentation.PrintOut", [](StageObject& self, const automation::Arguments&) {
        self.stage().put_file("C:\\out\\talk.pdf");
        self.stage().windows["Adobe Acrobat Professional - [talk.pdf]"] = 0;
        return Value();
    });
}

// Passed over by rule: what CreatePDFfromPowerPoint passes over. A sender that does not seem to exist is told
// in a message box.

const tests::MemberFaults faults({.member = "CreatePDFfromPowerPoint2",
                                  .arrange = have_the_printer_write_the_pdf,
                                  .arguments = {"C:\\out\\talk.pdf", "C:\\in\\talk.ppt",
                                                named("blnCloseAcrobat", true)}},
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
    fails: length C:\out\talk.pdf
        go on, but
        - delete C:\out\talk.pdf
    fails: delete C:\out\talk.pdf
        let PowerPoint go
        raise the failure
    fails: special folder 37 (owner 100)
        go on, but
        - length C:\WINDOWS\system32\quorixsend.exe -> 1000
        - start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\talk.pdf~0~0~
        - start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe pdf - security~Button~~0~0~
        + length \quorixsend.exe -> not found
        + length C:\Temp\quorixsend.exe -> not found
        + message box "Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as QUORIX.OCX or into your Window's System Directory.", title "File QUORIXSEND.EXE not found", style 4144
    fails: length C:\WINDOWS\system32\quorixsend.exe
        go on, but
        - start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\talk.pdf~0~0~
        - start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe pdf - security~Button~~0~0~
        + length C:\Temp\quorixsend.exe -> not found
        + message box "Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as QUORIX.OCX or into your Window's System Directory.", title "File QUORIXSEND.EXE not found", style 4144
    fails: start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\talk.pdf~0~0~
    fails: start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe pdf - security~Button~~0~0~
    fails: Powerpoint.Presentation.PrintOut(From:=Long(-1), To:=Long(-1))
    fails: sleep 2000 ms
    fails: pump messages
        let PowerPoint go
        raise the failure
    fails: length C:\out\talk.pdf
        go on, but
        + pump messages
        + length C:\out\talk.pdf -> 1000
    fails: length C:\out\talk.pdf
    fails: sleep 1000 ms
    fails: length C:\out\talk.pdf
    fails: pump messages
    fails: find window "adobe acrobat - [talk.pdf]"
    fails: find window "adobe acrobat professional - [talk.pdf]"
    fails: send WM_CLOSE (0, "0") to "Adobe Acrobat Professional - [talk.pdf]"
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
