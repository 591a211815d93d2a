#include <gtest/gtest.h>
#include <vector>

#include "members/drawings/autocad_member.h"
#include "members/pdf/acrobat_endings.h"
#include "members/pdf/lists_of_files.h"

namespace foliant::members {
namespace {

using automation::named;
using automation::Value;
using platform::stage::Stage;
using platform::stage::StageObject;

void put_drawing_and_old_output(Stage& stage) {
    put_drawing(stage);
    stage.put_file("C:\\out\\house.pdf");
}

const tests::MemberCall usual{
    .member = "CreatePDFfromMultiAutoCAD",
    .arrange = put_drawing_and_old_output,
    .arguments = {named("strPDFFile", "C:\\out\\house.pdf"), named("strDWGFile", "C:\\in\\house.dwg"),
                  named("varLayouts", list_of({"Ground floor", std::int16_t{2}}))}};

constexpr std::string_view later_than_acrobat_five = R"(
    length C:\in\house.dwg -> 1000
    special folder 37 (owner 100)
    create AutoCAD.Application
    AutoCAD.Application.Application
    AutoCAD.Application.Documents
    AutoCAD.Documents.Open("C:\in\house.dwg", True)
    pump messages
    look for 13387663 in the current folder
    length C:\Temp\13387663.pdf -> not found
    length C:\WINDOWS\system32\quorixsend.exe -> 1000
    start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\Temp\13387663.pdf~0~0~
    AutoCAD.Document.Layouts("Ground floor")
    Set AutoCAD.Document.ActiveLayout = <object>
    AutoCAD.Document.Plot
    AutoCAD.Plot.PlotToDevice("Adobe PDF")
    sleep 2000 ms
    pump messages
    length C:\Temp\13387663.pdf -> 1000
    length C:\Temp\13387663.pdf -> 1000
    sleep 1000 ms
    length C:\Temp\13387663.pdf -> 1000
    pump messages
    look for 90360397 in the current folder
    length C:\Temp\90360397.pdf -> not found
    length C:\WINDOWS\system32\quorixsend.exe -> 1000
    start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\Temp\90360397.pdf~0~0~
    AutoCAD.Document.Layouts(Integer(2))
    Set AutoCAD.Document.ActiveLayout = <object>
    AutoCAD.Document.Plot
    AutoCAD.Plot.PlotToDevice("Adobe PDF")
    sleep 2000 ms
    pump messages
    length C:\Temp\90360397.pdf -> 1000
    length C:\Temp\90360397.pdf -> 1000
    sleep 1000 ms
    length C:\Temp\90360397.pdf -> 1000
    AutoCAD.Document.Close(False)
    release AutoCAD.Document
    AutoCAD.Application.Quit()
    release AutoCAD.Application
    length C:\out\house.pdf -> 1000
    delete C:\out\house.pdf
    create AcroExch.PDDoc
    create AcroExch.PDDoc
    AcroExch.PDDoc.Create()
    length C:\out\house.pdf -> not found
    pump messages
    length C:\Temp\13387663.pdf -> 1000
    AcroExch.PDDoc.Open("C:\Temp\13387663.pdf")
    AcroExch.PDDoc.GetNumPages()
    AcroExch.PDDoc.GetNumPages()
    AcroExch.PDDoc.InsertPages(Integer(-1), <object>, Integer(0), Integer(3), True)
    AcroExch.PDDoc.Close()
    pump messages
    length C:\Temp\90360397.pdf -> 1000
    AcroExch.PDDoc.Open("C:\Temp\90360397.pdf")
    AcroExch.PDDoc.GetNumPages()
    AcroExch.PDDoc.GetNumPages()
    AcroExch.PDDoc.InsertPages(Integer(2), <object>, Integer(0), Integer(3), True)
    AcroExch.PDDoc.Close()
    AcroExch.PDDoc.Save(Integer(5), "C:\out\house.pdf")
    AcroExch.PDDoc.Close()
    release AcroExch.PDDoc
    release AcroExch.PDDoc
    delete C:\Temp\13387663.pdf
    delete C:\Temp\90360397.pdf
)";

const tests::WholeJournal journal(usual, later_than_acrobat_five);

/// Other than Access, AutoCAD has no PDFWriter told its files between 5 and 6.
const tests::WholeJournal journal_with_acrobat505({.member = "CreatePDFfromMultiAutoCAD",
                                                   .of = "WithAcrobat505",
                                                   .arrange =
                                                       [](Stage& stage) {
                                                           put_drawing_and_old_output(stage);
                                                           tests::register_acrobat(stage, "5.05");
                                                       },
                                                   .arguments = usual.arguments},
                                                  later_than_acrobat_five);

const tests::ParameterProbe parameters(
    {.member = "CreatePDFfromMultiAutoCAD",
     .arrange = put_drawing,
     .arguments = {named("strPDFFile", "C:\\out\\house.pdf"), named("strDWGFile", "C:\\in\\house.dwg"),
                   named("varLayouts", list_of({std::int16_t{2}})), named("strPDFWriter", "My writer"),
                   named("blnCloseAcrobat", true)}},
    {.lines_with = {"AutoCAD.Documents.Open(", "Layouts", "save pdf", "PlotToDevice", "WM_CLOSE", "Save("},
     .expected = R"(
        AutoCAD.Documents.Open("C:\in\house.dwg", True)
        start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\Temp\13387663.pdf~0~0~
        AutoCAD.Document.Layouts(Integer(2))
        AutoCAD.Plot.PlotToDevice("Adobe PDF")
        send WM_CLOSE (0, "0") to "Adobe Acrobat Professional - [13387663.pdf]"
        AcroExch.PDDoc.Save(Integer(5), "C:\out\house.pdf")
    )"});

class CreatePDFfromMultiAutoCAD : public AutoCADMember {
  protected:
    CreatePDFfromMultiAutoCAD() : AutoCADMember(usual) {}
};

TEST_F(CreatePDFfromMultiAutoCAD, AMissingDrawingIsSaidBeforeAnythingIsDone) {
    stage.files.erase("C:\\in\\house.dwg");
    call();
    expect_journal(R"(
        length C:\in\house.dwg -> not found
        raise -2147467008 from Foliant: File C:\in\house.dwg does not exist.
    )");
}

TEST_F(CreatePDFfromMultiAutoCAD, UpToAcrobatFivePDFWriterIsToldEachFileAndNobodyWaitsForThem) {
    register_acrobat("5.0");
    stage.set_registry_text("HKEY_CURRENT_USER\\Software\\Adobe\\Acrobat PDFWriter", "PDFFilename", "old");
    stage.answer("AutoCAD.Plot.PlotToDevice", true);  // it writes later than anybody looks
    call({named("strPDFWriter", "My writer"), named("blnCloseAcrobat", true)});
    tests::expect_text(journal_between("AutoCAD.Documents.Open", "AcroExch.PDDoc.Create"), R"(
        AutoCAD.Documents.Open("C:\in\house.dwg", True)
        pump messages
        look for 13387663 in the current folder
        open key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter (access 2000F)
        write value "PDFFilename" of HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter: type 1 C:\Temp\13387663.pdf\0
        close key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter
        length C:\Temp\13387663.pdf -> not found
        AutoCAD.Document.Layouts("Ground floor")
        Set AutoCAD.Document.ActiveLayout = <object>
        AutoCAD.Document.Plot
        AutoCAD.Plot.PlotToDevice("My writer")
        sleep 2000 ms
        pump messages
        look for 90360397 in the current folder
        open key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter (access 2000F)
        write value "PDFFilename" of HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter: type 1 C:\Temp\90360397.pdf\0
        close key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter
        length C:\Temp\90360397.pdf -> not found
        AutoCAD.Document.Layouts(Integer(2))
        Set AutoCAD.Document.ActiveLayout = <object>
        AutoCAD.Document.Plot
        AutoCAD.Plot.PlotToDevice("My writer")
        sleep 2000 ms
        AutoCAD.Document.Close(False)
        release AutoCAD.Document
        AutoCAD.Application.Quit()
        release AutoCAD.Application
        length C:\out\house.pdf -> 1000
        delete C:\out\house.pdf
        create AcroExch.PDDoc
        create AcroExch.PDDoc
        AcroExch.PDDoc.Create()
    )");
}

TEST_F(CreatePDFfromMultiAutoCAD, LayoutsThatBeginAtOneHandOnAnEmptyElementZero) {
    call({named("varLayouts", list_of({"Ground floor"}, 1))});
    tests::expect_text(journal_between("AcroExch.PDDoc.Create()", "AcroExch.PDDoc.Open"), R"(
        AcroExch.PDDoc.Create()
        length C:\out\house.pdf -> not found
        pump messages
        length  -> not found
        pump messages
        length C:\Temp\13387663.pdf -> 1000
        AcroExch.PDDoc.Open("C:\Temp\13387663.pdf")
    )");
    EXPECT_EQ(last_line(), "delete C:\\Temp\\13387663.pdf");
}

TEST_F(CreatePDFfromMultiAutoCAD, ClosesTheWindowOfEachLayoutOnRequest) {
    call({named("blnCloseAcrobat", true)});
    tests::expect_text(lines_with({"WM_CLOSE"}), R"(
        send WM_CLOSE (0, "0") to "Adobe Acrobat Professional - [13387663.pdf]"
        send WM_CLOSE (0, "0") to "Adobe Acrobat Professional - [90360397.pdf]"
    )");
}

TEST_F(CreatePDFfromMultiAutoCAD, DeletesATemporaryFileOfThatNameBeforeTheSenderStarts) {
    stage.put_file("C:\\Temp\\13387663.pdf");
    call();
    tests::expect_text(journal_between("look for 13387663", "AutoCAD.Document.Layouts"), R"(
        look for 13387663 in the current folder
        length C:\Temp\13387663.pdf -> 1000
        delete C:\Temp\13387663.pdf
        length C:\WINDOWS\system32\quorixsend.exe -> 1000
        start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\Temp\13387663.pdf~0~0~
        AutoCAD.Document.Layouts("Ground floor")
    )");
}

TEST_F(CreatePDFfromMultiAutoCAD, WithoutTheSenderTheOpenDrawingIsClosedAndAutoCADQuits) {
    stage.files.erase("C:\\WINDOWS\\system32\\quorixsend.exe");
    call();
    tests::expect_text(
        journal_from("length C:\\WINDOWS"),
        "length C:\\WINDOWS\\system32\\quorixsend.exe -> not found\n"
        "length C:\\Temp\\quorixsend.exe -> not found\n"
        "AutoCAD.Document.Close()\n"
        "release AutoCAD.Document\n"
        "AutoCAD.Application.Quit()\n"
        "release AutoCAD.Application\n"
        "raise -2147467008 from Foliant: Error! Can't find file QUORIXSEND.EXE. Please copy this file into the "
        "same path as QUORIX.OCX or into your Window's System Directory.\n");
}

TEST_F(CreatePDFfromMultiAutoCAD, LayoutsThatAreNoArrayFailOnceTheDrawingIsOpen) {
    call({named("varLayouts", "Ground floor")});
    tests::expect_text(journal_from("AutoCAD.Documents.Open"), R"(
        AutoCAD.Documents.Open("C:\in\house.dwg", True)
        AutoCAD.Document.Close()
        release AutoCAD.Document
        AutoCAD.Application.Quit()
        release AutoCAD.Application
        raise 13 from Foliant: Type mismatch
    )");
}

TEST_F(CreatePDFfromMultiAutoCAD, MoreLayoutsThanASixteenBitCounterCountsAreAnOverflow) {
    call({named("varLayouts", list_of(std::vector<Value>(32768, Value("Ground floor"))))});
    EXPECT_EQ(last_line(), "raise 6 from Foliant: Overflow");
}

TEST_F(CreatePDFfromMultiAutoCAD, TheOldPdfAndTheTemporaryFilesStayWhenALayoutIsUnknown) {
    stage.when("AutoCAD.Document.Layouts", [](StageObject& self, const automation::Arguments& arguments) {
        if (arguments.at(0).value == Value("Ground floor")) return Value(self.stage().make_object("Layout"));
        throw automation::Error(-2145320901, "AutoCAD", "Key not found");
    });
    call();
    EXPECT_EQ(last_line(), "raise -2145320901 from Foliant: Key not found");
    EXPECT_TRUE(stage.files.contains("C:\\out\\house.pdf"));
    EXPECT_TRUE(stage.files.contains("C:\\Temp\\13387663.pdf"));
}

// Passed over by rule: what CreatePDFfromAutoCAD passes over. The system folder is asked for before AutoCAD is
// started; that it is not known is noticed where the sender is to be started from it.

const tests::MemberFaults faults(
    {.member = "CreatePDFfromMultiAutoCAD",
     .arrange = put_drawing_and_old_output,
     .arguments = {"C:\\out\\house.pdf", "C:\\in\\house.dwg", list_of({"Ground floor"})}},
    {.endings = {let_autocad_go, quit_autocad, release_both_documents}, .report = R"(
    fails: length C:\in\house.dwg
        raise -2147467008 from Foliant: File C:\in\house.dwg does not exist.
    fails: special folder 37 (owner 100)
        create AutoCAD.Application
        AutoCAD.Application.Application
        AutoCAD.Application.Documents
        AutoCAD.Documents.Open("C:\in\house.dwg", True)
        pump messages
        look for 13387663 in the current folder
        length C:\Temp\13387663.pdf -> not found
        length \quorixsend.exe -> not found
        length C:\Temp\quorixsend.exe -> not found
        let AutoCAD go
        raise -2147467008 from Foliant: Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as QUORIX.OCX or into your Window's System Directory.
    fails: create AutoCAD.Application
        raise the failure
    fails: AutoCAD.Application.Application
    fails: AutoCAD.Application.Documents
    fails: AutoCAD.Documents.Open("C:\in\house.dwg", True)
        quit AutoCAD
        raise the failure
    fails: pump messages
        let AutoCAD go
        raise the failure
    fails: look for 13387663 in the current folder
    fails: length C:\Temp\13387663.pdf
        go on
    fails: length C:\WINDOWS\system32\quorixsend.exe
        length C:\Temp\quorixsend.exe -> not found
        let AutoCAD go
        raise -2147467008 from Foliant: Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as QUORIX.OCX or into your Window's System Directory.
    fails: start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\Temp\13387663.pdf~0~0~
    fails: AutoCAD.Document.Layouts("Ground floor")
    fails: Set AutoCAD.Document.ActiveLayout = <object>
    fails: AutoCAD.Document.Plot
    fails: AutoCAD.Plot.PlotToDevice("Adobe PDF")
    fails: sleep 2000 ms
    fails: pump messages
        let AutoCAD go
        raise the failure
    fails: length C:\Temp\13387663.pdf
        go on, but
        + pump messages
        + length C:\Temp\13387663.pdf -> 1000
    fails: length C:\Temp\13387663.pdf
    fails: sleep 1000 ms
    fails: length C:\Temp\13387663.pdf
    fails: AutoCAD.Document.Close(False)
        let AutoCAD go
        raise the failure
    fails: AutoCAD.Application.Quit()
        quit AutoCAD
        raise the failure
    fails: length C:\out\house.pdf
        go on, but
        - delete C:\out\house.pdf
        - length C:\out\house.pdf -> not found
        + length C:\out\house.pdf -> 1000
        + delete C:\out\house.pdf
    fails: delete C:\out\house.pdf
    fails: create AcroExch.PDDoc
        raise the failure
    fails: create AcroExch.PDDoc
        release AcroExch.PDDoc
        raise the failure
    fails: AcroExch.PDDoc.Create()
        release both documents
        raise the failure
    fails: length C:\out\house.pdf
        go on
    fails: pump messages
        release both documents
        raise the failure
    fails: length C:\Temp\13387663.pdf
        go on, but
        - AcroExch.PDDoc.Open("C:\Temp\13387663.pdf")
        - AcroExch.PDDoc.GetNumPages()
        - AcroExch.PDDoc.GetNumPages()
        - AcroExch.PDDoc.InsertPages(Integer(-1), <object>, Integer(0), Integer(3), True)
        - AcroExch.PDDoc.Close()
    fails: AcroExch.PDDoc.Open("C:\Temp\13387663.pdf")
    fails: AcroExch.PDDoc.GetNumPages()
    fails: AcroExch.PDDoc.GetNumPages()
    fails: AcroExch.PDDoc.InsertPages(Integer(-1), <object>, Integer(0), Integer(3), True)
    fails: AcroExch.PDDoc.Close()
    fails: AcroExch.PDDoc.Save(Integer(5), "C:\out\house.pdf")
    fails: AcroExch.PDDoc.Close()
        release both documents
        raise the failure
    fails: delete C:\Temp\13387663.pdf
        raise the failure
)"});

}  // namespace
}  // namespace foliant::members
