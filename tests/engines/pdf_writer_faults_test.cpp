// What comes of each failure in the steps that the members share which print through PDFWriter.

#include "engines/acrobat_windows.h"
#include "engines/printer_job.h"
#include "support/fault_cases.h"
#include "support/staged_session.h"

namespace foliant::engines {
namespace {

using platform::stage::Stage;
using session::Session;

constexpr const char* target = "C:\\out\\plan.pdf";

void have_the_printer_write_the_pdf(Stage& stage) {
    stage.put_file(target);
    stage.windows["Adobe Acrobat - [plan.pdf]"] = 0;
}

// Passed over by rule: whatever the registry refuses.
const tests::ServiceFaults up_to_acrobat5(
    "PdfWriterUpToAcrobat5", [](Stage& stage) { tests::register_acrobat(stage, "5.0"); },
    [](const Session& session) {
        std::string writer = "Acrobat PDFWriter";
        choose_pdf_writer(session, writer, target);
    },
    {.report = R"(
    fails: open key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter (access 2000F)
        go on
    fails: open key HKEY_CURRENT_USER (access 2000F)
        go on, but
        - create key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter (access F003F)
        - close key HKEY_CURRENT_USER
        - open key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter (access 2000F)
        - write value "PDFFilename" of HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter: type 1 C:\out\plan.pdf\0
        - close key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter
        + open key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter (access 2000F) -> not found
        + close key (no key)
    fails: create key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter (access F003F)
        go on, but
        - open key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter (access 2000F)
        - write value "PDFFilename" of HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter: type 1 C:\out\plan.pdf\0
        - close key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter
        + open key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter (access 2000F) -> not found
        + close key (no key)
    fails: close key HKEY_CURRENT_USER
        go on
    fails: open key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter (access 2000F)
        go on, but
        - write value "PDFFilename" of HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter: type 1 C:\out\plan.pdf\0
        - close key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter
        + close key (no key)
    fails: write value "PDFFilename" of HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter: type 1 C:\out\plan.pdf\0
        go on
    fails: close key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter
        go on, but
        + close key HKEY_CURRENT_USER\Software\Adobe\Acrobat PDFWriter
)"});

// Passed over by rule: the existence tests. A sender that does not seem to exist is a failure.
const tests::ServiceFaults from_acrobat6_on("PdfWriterFromAcrobat6On", have_the_printer_write_the_pdf,
                                            [](const Session& session) {
                                                answer_save_dialog(session, target);
                                                wait_for_file(session, target);
                                                close_acrobat_window(session, target);
                                            },
                                            {.report = R"(
    fails: special folder 37 (owner 100)
        length \quorixsend.exe -> not found
        length C:\Program Files\Foliant\quorixsend.exe -> not found
        raise -2147467008 from Foliant: Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as QUORIX.OCX or into your Window's System Directory.
    fails: length C:\WINDOWS\system32\quorixsend.exe
        length C:\Program Files\Foliant\quorixsend.exe -> not found
        raise -2147467008 from Foliant: Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as QUORIX.OCX or into your Window's System Directory.
    fails: start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\plan.pdf~0~0~
    fails: sleep 2000 ms
    fails: pump messages
        raise the failure
    fails: length C:\out\plan.pdf
        go on, but
        + pump messages
        + length C:\out\plan.pdf -> 1000
    fails: length C:\out\plan.pdf
    fails: sleep 1000 ms
    fails: length C:\out\plan.pdf
    fails: pump messages
    fails: find window "adobe acrobat - [plan.pdf]"
    fails: send WM_CLOSE (0, "0") to "Adobe Acrobat - [plan.pdf]"
        raise the failure
)"});

}  // namespace
}  // namespace foliant::engines
