#include "converters/fault_scenes.h"
#include "platform/stage/stage_object.h"

namespace foliant::converters {

using automation::Arguments;
using automation::named;
using automation::Value;
using platform::stage::Stage;
using platform::stage::StageObject;
using tests::FaultScene;
using tests::scene_of_member;

namespace {

void put_document_and_old_output(Stage& stage) {
    stage.library_folder = "C:\\Temp";
    stage.put_file("C:\\in\\letter.doc");
    stage.put_file("C:\\out\\letter.pdf");
}

/// Whoever answers the printer's dialog, the sender or a person, the PDF is written; then Acrobat shows it.
void have_the_printer_write_the_pdf(Stage& stage) {
    stage.when("Word.Document.PrintOut", [](StageObject& document, const Arguments&) {
        document.stage().put_file("C:\\out\\letter.pdf");
        document.stage().windows["Adobe Acrobat Professional - [letter.pdf]"] = 0;
        return Value();
    });
}

// Passed over by rule: the orientation, the existence tests (the one that waits for the printed file takes
// another round), the look for a file that is named like the temporary one. A failing Close or Quit is called
// again.

FaultScene create_pdf_from_word() {
    return scene_of_member(
        "CreatePDFfromWord", "CreatePDFfromWord",
        {"C:\\out\\letter.pdf", "C:\\in\\letter.doc", named("blnPageNumberInFooter", true)},
        put_document_and_old_output, R"(
        fails: length C:\in\letter.doc
            raise -2147467008 from Foliant: File C:\in\letter.doc does not exist.
        fails: create Word.Application
            raise the failure
        fails: Word.Application.Documents
        fails: Word.Documents.Open("C:\in\letter.doc", PasswordDocument:="", WritePasswordDocument:="")
            Word.Application.Quit()
            release Word.Application
            raise the failure
        fails: Word.Application.DisplayAlerts = Integer(0)
            Word.Document.Close(False)
            release Word.Document
            Word.Application.Quit()
            release Word.Application
            raise the failure
        fails: Word.Document.PageSetup
            go on, but
            - Word.PageSetup.Orientation = Integer(0)
        fails: Word.PageSetup.Orientation = Integer(0)
            go on
        fails: Word.Document.Sections(Integer(1))
        fails: Word.Sections.Footers(Integer(1))
        fails: Word.Footers.PageNumbers
        fails: Word.PageNumbers.Add(PageNumberAlignment:=Integer(1), FirstPage:=False)
        fails: Word.Application.ActivePrinter
        fails: Word.Application.ActivePrinter = "Adobe PDF"
            Word.Document.Close(False)
            release Word.Document
            Word.Application.Quit()
            release Word.Application
            raise the failure
        fails: look for 13387663 in the current folder
        fails: length C:\Temp\13387663.ps
            go on
        fails: Word.Document.PrintOut(Outputfilename:="C:\Temp\13387663.ps")
        fails: sleep 2000 ms
        fails: pump messages
            Word.Document.Close(False)
            release Word.Document
            Word.Application.Quit()
            release Word.Application
            raise the failure
        fails: length C:\Temp\13387663.ps
            go on, but
            + pump messages
            + length C:\Temp\13387663.ps -> 1000
        fails: length C:\Temp\13387663.ps
        fails: sleep 1000 ms
        fails: length C:\Temp\13387663.ps
        fails: Word.Application.ActivePrinter = "Office printer"
        fails: Word.Application.DisplayAlerts = Integer(-1)
        fails: Word.Document.Close(False)
            Word.Document.Close(False)
            release Word.Document
            Word.Application.Quit()
            release Word.Application
            raise the failure
        fails: Word.Application.Quit()
            Word.Application.Quit()
            release Word.Application
            raise the failure
        fails: length C:\out\letter.pdf
            go on, but
            - delete C:\out\letter.pdf
        fails: delete C:\out\letter.pdf
        fails: create Distiller
            raise the failure
        fails: listen to Distiller
            release Distiller
            raise the failure
        fails: Distiller.bShowWindow = False
        fails: Distiller.bSpoolJobs = False
        fails: Distiller.FileToPDF("C:\Temp\13387663.ps", "C:\out\letter.pdf", "")
            stop listening to Distiller
            release Distiller
            raise the failure
        fails: delete C:\Temp\13387663.ps
            raise the failure
    )");
}

FaultScene create_pdf_from_word_with_security() {
    return scene_of_member("CreatePDFfromWordWithSecurity", "CreatePDFfromWord",
                           {"C:\\out\\letter.pdf", "C:\\in\\letter.doc", named("blnApplySecurity", true)},
                           put_document_and_old_output, R"(
        fails: length C:\in\letter.doc
            raise -2147467008 from Foliant: File C:\in\letter.doc does not exist.
        fails: create Word.Application
            raise the failure
        fails: Word.Application.Documents
        fails: Word.Documents.Open("C:\in\letter.doc", PasswordDocument:="", WritePasswordDocument:="")
            Word.Application.Quit()
            release Word.Application
            raise the failure
        fails: Word.Application.DisplayAlerts = Integer(0)
            Word.Document.Close(False)
            release Word.Document
            Word.Application.Quit()
            release Word.Application
            raise the failure
        fails: Word.Document.PageSetup
            go on, but
            - Word.PageSetup.Orientation = Integer(0)
        fails: Word.PageSetup.Orientation = Integer(0)
            go on
        fails: Word.Application.ActivePrinter
        fails: Word.Application.ActivePrinter = "Adobe PDF"
            Word.Document.Close(False)
            release Word.Document
            Word.Application.Quit()
            release Word.Application
            raise the failure
        fails: look for 13387663 in the current folder
        fails: length C:\Temp\13387663.ps
            go on
        fails: Word.Document.PrintOut(Outputfilename:="C:\Temp\13387663.ps")
        fails: sleep 2000 ms
        fails: pump messages
            Word.Document.Close(False)
            release Word.Document
            Word.Application.Quit()
            release Word.Application
            raise the failure
        fails: length C:\Temp\13387663.ps
            go on, but
            + pump messages
            + length C:\Temp\13387663.ps -> 1000
        fails: length C:\Temp\13387663.ps
        fails: sleep 1000 ms
        fails: length C:\Temp\13387663.ps
        fails: Word.Application.ActivePrinter = "Office printer"
        fails: Word.Application.DisplayAlerts = Integer(-1)
        fails: Word.Document.Close(False)
            Word.Document.Close(False)
            release Word.Document
            Word.Application.Quit()
            release Word.Application
            raise the failure
        fails: Word.Application.Quit()
            Word.Application.Quit()
            release Word.Application
            raise the failure
        fails: length C:\out\letter.pdf
            go on, but
            - delete C:\out\letter.pdf
        fails: delete C:\out\letter.pdf
        fails: create SecureDistiller
            raise the failure
        fails: SecureDistiller.bShowWindow = False
        fails: SecureDistiller.bSpoolJobs = False
        fails: SecureDistiller.FileToPDF2("C:\Temp\13387663.ps", "C:\out\letter.pdf", "", True)
            release SecureDistiller
            raise the failure
        fails: delete C:\Temp\13387663.ps
            raise the failure
    )");
}

// A sender that does not seem to exist is told in a message box.
FaultScene create_pdf_from_word2() {
    return scene_of_member(
        "CreatePDFfromWord2", "CreatePDFfromWord2",
        {"C:\\out\\letter.pdf", "C:\\in\\letter.doc", named("blnPageNumberInHeader", true),
         named("blnCloseAcrobat", true)},
        [](Stage& stage) {
            put_document_and_old_output(stage);
            have_the_printer_write_the_pdf(stage);
        },
        R"(
        fails: length C:\in\letter.doc
            raise -2147467008 from Foliant: File C:\in\letter.doc does not exist.
        fails: create Word.Application
            raise the failure
        fails: Word.Application.Documents
        fails: Word.Documents.Open("C:\in\letter.doc", PasswordDocument:="", WritePasswordDocument:="")
            Word.Application.Quit()
            release Word.Application
            raise the failure
        fails: Word.Application.DisplayAlerts = Integer(0)
            Word.Document.Close(False)
            release Word.Document
            Word.Application.Quit()
            release Word.Application
            raise the failure
        fails: Word.Document.PageSetup
            go on, but
            - Word.PageSetup.Orientation = Integer(0)
        fails: Word.PageSetup.Orientation = Integer(0)
            go on
        fails: Word.Document.Sections(Integer(1))
        fails: Word.Sections.Headers(Integer(1))
        fails: Word.Headers.PageNumbers
        fails: Word.PageNumbers.Add(PageNumberAlignment:=Integer(1), FirstPage:=False)
        fails: Word.Application.ActivePrinter
        fails: Word.Application.ActivePrinter = "Adobe PDF"
            Word.Document.Close(False)
            release Word.Document
            Word.Application.Quit()
            release Word.Application
            raise the failure
        fails: length C:\out\letter.pdf
            go on, but
            - delete C:\out\letter.pdf
        fails: delete C:\out\letter.pdf
            Word.Document.Close(False)
            release Word.Document
            Word.Application.Quit()
            release Word.Application
            raise the failure
        fails: special folder 37 (owner 100)
            go on, but
            - length C:\WINDOWS\system32\quorixsend.exe -> 1000
            - start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\letter.pdf~0~0~
            - start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe pdf - security~Button~~0~0~
            + length \quorixsend.exe -> not found
            + length C:\Temp\quorixsend.exe -> not found
            + message box "Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as QUORIX.OCX or into your Window's System Directory.", title "File QUORIXSEND.EXE not found", style 4144
        fails: length C:\WINDOWS\system32\quorixsend.exe
            go on, but
            - start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\letter.pdf~0~0~
            - start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe pdf - security~Button~~0~0~
            + length C:\Temp\quorixsend.exe -> not found
            + message box "Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as QUORIX.OCX or into your Window's System Directory.", title "File QUORIXSEND.EXE not found", style 4144
        fails: start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\letter.pdf~0~0~
        fails: start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe pdf - security~Button~~0~0~
        fails: Word.Document.PrintOut()
        fails: sleep 2000 ms
        fails: pump messages
            Word.Document.Close(False)
            release Word.Document
            Word.Application.Quit()
            release Word.Application
            raise the failure
        fails: length C:\out\letter.pdf
            go on, but
            + pump messages
            + length C:\out\letter.pdf -> 1000
        fails: length C:\out\letter.pdf
        fails: sleep 1000 ms
        fails: length C:\out\letter.pdf
        fails: pump messages
        fails: find window "adobe acrobat - [letter.pdf]"
        fails: find window "adobe acrobat professional - [letter.pdf]"
        fails: send WM_CLOSE (0, "0") to "Adobe Acrobat Professional - [letter.pdf]"
        fails: Word.Application.ActivePrinter = "Office printer"
        fails: Word.Application.DisplayAlerts = Integer(-1)
        fails: Word.Document.Close(False)
            Word.Document.Close(False)
            release Word.Document
            Word.Application.Quit()
            release Word.Application
            raise the failure
        fails: Word.Application.Quit()
            Word.Application.Quit()
            release Word.Application
            raise the failure
    )");
}

FaultScene create_ps_from_word() {
    return scene_of_member("CreatePSfromWord", "CreatePSfromWord",
                           {"C:\\out\\letter.ps", "C:\\in\\letter.doc", named("strPages", "2")},
                           put_document_and_old_output, R"(
        fails: length C:\in\letter.doc
            raise -2147467008 from Foliant: File C:\in\letter.doc does not exist.
        fails: create Word.Application
            raise the failure
        fails: Word.Application.Documents
        fails: Word.Documents.Open("C:\in\letter.doc", PasswordDocument:="", WritePasswordDocument:="")
            Word.Application.Quit()
            release Word.Application
            raise the failure
        fails: Word.Application.DisplayAlerts = Integer(0)
            Word.Document.Close(False)
            release Word.Document
            Word.Application.Quit()
            release Word.Application
            raise the failure
        fails: Word.Document.PageSetup
            go on, but
            - Word.PageSetup.Orientation = Integer(0)
        fails: Word.PageSetup.Orientation = Integer(0)
            go on
        fails: Word.Application.ActivePrinter
        fails: Word.Application.ActivePrinter = "Adobe PDF"
            Word.Document.Close(False)
            release Word.Document
            Word.Application.Quit()
            release Word.Application
            raise the failure
        fails: length C:\out\letter.ps
            go on
        fails: Word.Document.PrintOut(Outputfilename:="C:\out\letter.ps", Range:=Integer(4), Pages:="2")
        fails: sleep 2000 ms
        fails: pump messages
            Word.Document.Close(False)
            release Word.Document
            Word.Application.Quit()
            release Word.Application
            raise the failure
        fails: length C:\out\letter.ps
            go on, but
            + pump messages
            + length C:\out\letter.ps -> 1000
        fails: length C:\out\letter.ps
        fails: sleep 1000 ms
        fails: length C:\out\letter.ps
        fails: Word.Application.ActivePrinter = "Office printer"
        fails: Word.Application.DisplayAlerts = Integer(-1)
        fails: Word.Document.Close(False)
            Word.Document.Close(False)
            release Word.Document
            Word.Application.Quit()
            release Word.Application
            raise the failure
        fails: Word.Application.Quit()
            Word.Application.Quit()
            release Word.Application
            raise the failure
    )");
}

}  // namespace

std::vector<FaultScene> word_scenes() {
    return {create_pdf_from_word(), create_pdf_from_word_with_security(), create_pdf_from_word2(),
            create_ps_from_word()};
}

}  // namespace foliant::converters
