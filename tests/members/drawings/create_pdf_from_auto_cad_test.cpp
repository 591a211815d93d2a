#include <gtest/gtest.h>

#include "members/drawings/autocad_member.h"

namespace foliant::members {
namespace {

using automation::Missing;
using automation::named;
using platform::stage::Stage;

const tests::MemberCall usual{
    .member = "CreatePDFfromAutoCAD",
    .arrange = put_drawing,
    .arguments = {named("strPDFFile", "C:\\out\\House.PDF"), named("strDWGFile", "C:\\in\\house.dwg"),
                  named("varLayout", "Ground floor")}};

constexpr std::string_view later_than_acrobat_five = R"(
    length C:\in\house.dwg -> 1000
    length C:\out\House.PDF -> not found
    special folder 37 (owner 100)
    length C:\WINDOWS\system32\quorixsend.exe -> 1000
    start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\House.PDF~0~0~
    create AutoCAD.Application
    AutoCAD.Application.Application
    AutoCAD.Application.Documents
    AutoCAD.Documents.Open("C:\in\house.dwg", True)
    AutoCAD.Document.Layouts("Ground floor")
    Set AutoCAD.Document.ActiveLayout = <object>
    AutoCAD.Document.Plot
    AutoCAD.Plot.PlotToDevice("Adobe PDF")
    sleep 2000 ms
    pump messages
    length C:\out\House.PDF -> 1000
    length C:\out\House.PDF -> 1000
    sleep 1000 ms
    length C:\out\House.PDF -> 1000
    AutoCAD.Document.Close(False)
    release AutoCAD.Document
    AutoCAD.Application.Quit()
    release AutoCAD.Application
)";

const tests::WholeJournal journal(usual, later_than_acrobat_five);

/// Other than Access, AutoCAD has no PDFWriter told its file between 5 and 6.
const tests::WholeJournal journal_with_acrobat505({.member = "CreatePDFfromAutoCAD",
                                                   .of = "WithAcrobat505",
                                                   .arrange =
                                                       [](Stage& stage) {
                                                           put_drawing(stage);
                                                           tests::register_acrobat(stage, "5.05");
                                                       },
                                                   .arguments = usual.arguments},
                                                  later_than_acrobat_five);

const tests::ParameterProbe parameters(
    {.member = "CreatePDFfromAutoCAD",
     .arrange = put_drawing,
     .arguments = {named("strPDFFile", "C:\\out\\house.pdf"), named("strDWGFile", "C:\\in\\house.dwg"),
                   named("varLayout", std::int16_t{2}), named("strPDFWriter", "My writer"),
                   named("blnCloseAcrobat", true)}},
    {.lines_with = {"Open(", "Layouts", "save pdf", "PlotToDevice", "WM_CLOSE"}, .expected = R"(
        start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\house.pdf~0~0~
        AutoCAD.Documents.Open("C:\in\house.dwg", True)
        AutoCAD.Document.Layouts(Integer(2))
        AutoCAD.Plot.PlotToDevice("Adobe PDF")
        send WM_CLOSE (0, "0") to "Adobe Acrobat Professional - [house.pdf]"
    )"});

class CreatePDFfromAutoCAD : public AutoCADMember {
  protected:
    CreatePDFfromAutoCAD() : AutoCADMember(usual) {}
};

TEST_F(CreatePDFfromAutoCAD, AMissingDrawingIsSaidBeforeAnythingIsDone) {
    stage.files.erase("C:\\in\\house.dwg");
    call();
    expect_journal(R"(
        length C:\in\house.dwg -> not found
        raise -2147467008 from Foliant: File C:\in\house.dwg does not exist.
    )");
}

TEST_F(CreatePDFfromAutoCAD, UpToAcrobatFivePDFWriterIsToldItsFileAndNobodyWaitsForIt) {
    register_acrobat("5.0");
    call({named("blnCloseAcrobat", true)});
    tests::expect_text(journal_from("AutoCAD.Document.Layouts"), R"(
        AutoCAD.Document.Layouts("Ground floor")
        Set AutoCAD.Document.ActiveLayout = <object>
        AutoCAD.Document.Plot
        AutoCAD.Plot.PlotToDevice("Acrobat PDFWriter")
        sleep 2000 ms
        AutoCAD.Document.Close(False)
        release AutoCAD.Document
        AutoCAD.Application.Quit()
        release AutoCAD.Application
    )");
    EXPECT_EQ(stage.registry["HKEY_CURRENT_USER\\Software\\Adobe\\Acrobat PDFWriter"]["PDFFilename"].data,
              std::string("C:\\out\\House.PDF\0", 17));
    EXPECT_EQ(stage.journal().find("quorixsend"), std::string::npos);
}

TEST_F(CreatePDFfromAutoCAD, AnAcrobatThatIsNotRegisteredIsTakenForAnOldOne) {
    register_acrobat("");
    call();
    EXPECT_EQ(line_with("PlotToDevice"), "AutoCAD.Plot.PlotToDevice(\"Acrobat PDFWriter\")");
}

TEST_F(CreatePDFfromAutoCAD, APDFWriterOfAnotherNameCountsUpToAcrobatFiveOnly) {
    call({named("strPDFWriter", "My writer")});
    EXPECT_EQ(line_with("PlotToDevice"), "AutoCAD.Plot.PlotToDevice(\"Adobe PDF\")");
}

class CreatePDFfromAutoCADWithAcrobatFive : public CreatePDFfromAutoCAD {
  protected:
    CreatePDFfromAutoCADWithAcrobatFive() { register_acrobat("5.0"); }
};

TEST_F(CreatePDFfromAutoCADWithAcrobatFive, ThePDFWriterThatIsNamedIsUsedAsItIs) {
    call({named("strPDFWriter", " My writer ")});
    EXPECT_EQ(line_with("PlotToDevice"), "AutoCAD.Plot.PlotToDevice(\" My writer \")");
}

TEST_F(CreatePDFfromAutoCADWithAcrobatFive, TheOldPdfIsDeletedAfterTheRegistryWasWritten) {
    stage.put_file("C:\\out\\House.PDF");
    call();
    const tests::Lines lines = journal_between("PDFFilename", "create AutoCAD");
    ASSERT_GE(lines.size(), 3);
    EXPECT_EQ(lines[lines.size() - 2], "delete C:\\out\\House.PDF");
}

TEST_F(CreatePDFfromAutoCAD, AMissingLayoutIsHandedOnAsMissing) {
    call({named("varLayout", Missing{})});
    EXPECT_EQ(line_with("Layouts("), "AutoCAD.Document.Layouts(<missing>)");
}

TEST_F(CreatePDFfromAutoCAD, WithoutTheSenderNothingIsStarted) {
    stage.files.erase("C:\\WINDOWS\\system32\\quorixsend.exe");
    stage.put_file("C:\\out\\House.PDF");
    call();
    tests::expect_text(
        journal_from("length C:\\out\\House.PDF"),
        "length C:\\out\\House.PDF -> 1000\n"
        "delete C:\\out\\House.PDF\n"
        "special folder 37 (owner 100)\n"
        "length C:\\WINDOWS\\system32\\quorixsend.exe -> not found\n"
        "length C:\\Temp\\quorixsend.exe -> not found\n"
        "raise -2147467008 from Foliant: Error! Can't find file QUORIXSEND.EXE. Please copy this file into the "
        "same path as QUORIX.OCX or into your Window's System Directory.\n");
}

TEST_F(CreatePDFfromAutoCAD, ClosesAcrobatsWindowOnRequestBeforeTheDrawingIsClosed) {
    call({named("blnCloseAcrobat", true)});
    tests::expect_text(journal_between("find window", "AutoCAD.Document.Close"), R"(
        find window "adobe acrobat - [house.pdf]" -> none
        find window "adobe acrobat professional - [house.pdf]" -> found
        send WM_CLOSE (0, "0") to "Adobe Acrobat Professional - [House.PDF]"
        AutoCAD.Document.Close(False)
    )");
}

TEST_F(CreatePDFfromAutoCAD, AnUnknownLayoutClosesTheDrawingWithoutArguments) {
    make_autocad_fail_in("AutoCAD.Document.Layouts");
    call();
    tests::expect_text(journal_from("AutoCAD.Document.Layouts"), R"(
        AutoCAD.Document.Layouts("Ground floor")
        AutoCAD.Document.Close()
        release AutoCAD.Document
        AutoCAD.Application.Quit()
        release AutoCAD.Application
        raise -2145320901 from Foliant: AutoCAD cannot do that.
    )");
}

void have_the_printer_write_the_pdf(Stage& stage) {
    put_drawing(stage);
    stage.put_file("C:\\out\\house.pdf");
    stage.windows["Adobe Acrobat Professional - [house.pdf]"] = 0;
    have_pdf_writer(stage, "C:\\out\\house.pdf");
}

// Passed over by rule: the existence tests (the one that waits for the PDF takes another round); but a sender
// that does not seem to exist is a failure.

const tests::MemberFaults faults({.member = "CreatePDFfromAutoCAD",
                                  .arrange = have_the_printer_write_the_pdf,
                                  .arguments = {"C:\\out\\house.pdf", "C:\\in\\house.dwg", "Ground floor",
                                                named("blnCloseAcrobat", true)}},
                                 {.endings = {let_autocad_go, quit_autocad}, .report = R"(
    fails: length C:\in\house.dwg
        raise -2147467008 from Foliant: File C:\in\house.dwg does not exist.
    fails: length C:\out\house.pdf
        go on, but
        - delete C:\out\house.pdf
    fails: delete C:\out\house.pdf
        raise the failure
    fails: special folder 37 (owner 100)
        length \quorixsend.exe -> not found
        length C:\Temp\quorixsend.exe -> not found
        raise -2147467008 from Foliant: Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as QUORIX.OCX or into your Window's System Directory.
    fails: length C:\WINDOWS\system32\quorixsend.exe
        length C:\Temp\quorixsend.exe -> not found
        raise -2147467008 from Foliant: Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as QUORIX.OCX or into your Window's System Directory.
    fails: start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\house.pdf~0~0~
    fails: create AutoCAD.Application
        raise the failure
    fails: AutoCAD.Application.Application
    fails: AutoCAD.Application.Documents
    fails: AutoCAD.Documents.Open("C:\in\house.dwg", True)
        quit AutoCAD
        raise the failure
    fails: AutoCAD.Document.Layouts("Ground floor")
    fails: Set AutoCAD.Document.ActiveLayout = <object>
    fails: AutoCAD.Document.Plot
    fails: AutoCAD.Plot.PlotToDevice("Adobe PDF")
    fails: sleep 2000 ms
    fails: pump messages
        let AutoCAD go
        raise the failure
    fails: length C:\out\house.pdf
        go on, but
        + pump messages
        + length C:\out\house.pdf -> 1000
    fails: length C:\out\house.pdf
    fails: sleep 1000 ms
    fails: length C:\out\house.pdf
    fails: pump messages
    fails: find window "adobe acrobat - [house.pdf]"
    fails: find window "adobe acrobat professional - [house.pdf]"
    fails: send WM_CLOSE (0, "0") to "Adobe Acrobat Professional - [house.pdf]"
    fails: AutoCAD.Document.Close(False)
        let AutoCAD go
        raise the failure
    fails: AutoCAD.Application.Quit()
        quit AutoCAD
        raise the failure
)"});

void have_acrobat_five(Stage& stage) {
    have_the_printer_write_the_pdf(stage);
    tests::register_acrobat(stage, "5.0");
}

const tests::MemberFaults faults_with_acrobat_five(
    {.member = "CreatePDFfromAutoCAD",
     .of = "WithAcrobatFive",
     .arrange = have_acrobat_five,
     .arguments = {"C:\\out\\house.pdf", "C:\\in\\house.dwg", "Ground floor"}},
    {.endings = {let_autocad_go, quit_autocad}, .from = "length C:\\out\\house.pdf", .report = R"(
    fails: length C:\out\house.pdf
        go on, but
        - delete C:\out\house.pdf
    fails: delete C:\out\house.pdf
    fails: create AutoCAD.Application
        raise the failure
    fails: AutoCAD.Application.Application
    fails: AutoCAD.Application.Documents
    fails: AutoCAD.Documents.Open("C:\in\house.dwg", True)
        quit AutoCAD
        raise the failure
    fails: AutoCAD.Document.Layouts("Ground floor")
    fails: Set AutoCAD.Document.ActiveLayout = <object>
    fails: AutoCAD.Document.Plot
    fails: AutoCAD.Plot.PlotToDevice("Acrobat PDFWriter")
    fails: sleep 2000 ms
    fails: AutoCAD.Document.Close(False)
        let AutoCAD go
        raise the failure
    fails: AutoCAD.Application.Quit()
        quit AutoCAD
        raise the failure
)"});

}  // namespace
}  // namespace foliant::members
