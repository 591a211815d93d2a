#include "converters/fault_scenes.h"

namespace foliant::converters {

using automation::named;
using automation::Value;
using platform::stage::Stage;
using tests::FaultScene;
using tests::scene_of_member;

namespace {

void put_input_and_old_output(Stage& stage) {
    stage.put_file("C:\\in\\a.ps");
    stage.put_file("C:\\out\\a.pdf");
}

Value one_input() {
    automation::Array inputs;
    inputs.items = {"C:\\in\\a.ps"};
    return inputs;
}

// Passed over by rule: the two existence tests. The first then says that the input is missing, the second
// leaves the old output to Distiller.

FaultScene create_pdf_from_ps() {
    return scene_of_member("CreatePDFfromPS", "CreatePDFfromPS", {"C:\\out\\a.pdf", "C:\\in\\a.ps"},
                           put_input_and_old_output, R"(
        fails: length C:\in\a.ps
            raise -2147467008 from Foliant: File C:\in\a.ps does not exist.
        fails: length C:\out\a.pdf
            go on, but
            - delete C:\out\a.pdf
        fails: delete C:\out\a.pdf
        fails: create Distiller
            raise the failure
        fails: listen to Distiller
            release Distiller
            raise the failure
        fails: Distiller.bShowWindow = False
        fails: Distiller.bSpoolJobs = False
        fails: Distiller.FileToPDF("C:\in\a.ps", "C:\out\a.pdf", "")
            stop listening to Distiller
            release Distiller
            raise the failure
    )");
}

FaultScene create_pdf_from_ps_with_security() {
    return scene_of_member("CreatePDFfromPSWithSecurity", "CreatePDFfromPS",
                           {"C:\\out\\a.pdf", "C:\\in\\a.ps", named("blnApplySecurity", true)},
                           put_input_and_old_output, R"(
        fails: length C:\in\a.ps
            raise -2147467008 from Foliant: File C:\in\a.ps does not exist.
        fails: length C:\out\a.pdf
            go on, but
            - delete C:\out\a.pdf
        fails: delete C:\out\a.pdf
        fails: create SecureDistiller
            raise the failure
        fails: SecureDistiller.bShowWindow = False
        fails: SecureDistiller.bSpoolJobs = False
        fails: SecureDistiller.FileToPDF2("C:\in\a.ps", "C:\out\a.pdf", "", True)
            release SecureDistiller
            raise the failure
    )");
}

// An input that does not seem to exist is skipped. Whoever opened the driver file closes it.
FaultScene create_pdf_from_multi_ps() {
    return scene_of_member("CreatePDFfromMultiPS", "CreatePDFfromMultiPS", {"C:\\out\\a.pdf", one_input()},
                           put_input_and_old_output, R"(
        fails: create text file C:\out\a.ps
            raise the failure
        fails: write C:\out\a.ps: /prun { /mysave save def
        fails: write C:\out\a.ps: dup = flush
        fails: write C:\out\a.ps: RunFile
        fails: write C:\out\a.ps: clear cleardictstack
        fails: write C:\out\a.ps: mysave restore
        fails: write C:\out\a.ps: } def
        fails: write C:\out\a.ps:
        fails: pump messages
            close C:\out\a.ps
            raise the failure
        fails: length C:\in\a.ps
            go on, but
            - write C:\out\a.ps: (C:/in/a.ps) prun
        fails: write C:\out\a.ps: (C:/in/a.ps) prun
        fails: close C:\out\a.ps
            close C:\out\a.ps
            raise the failure
        fails: length C:\out\a.pdf
            go on, but
            - delete C:\out\a.pdf
        fails: delete C:\out\a.pdf
        fails: create Distiller
            raise the failure
        fails: listen to Distiller
            release Distiller
            raise the failure
        fails: Distiller.bShowWindow = False
        fails: Distiller.bSpoolJobs = False
        fails: Distiller.FileToPDF("C:\out\a.ps", "C:\out\a.pdf", "")
            stop listening to Distiller
            release Distiller
            raise the failure
        fails: delete C:\out\a.ps
            raise the failure
    )");
}

}  // namespace

std::vector<FaultScene> postscript_scenes() {
    return {create_pdf_from_ps(), create_pdf_from_ps_with_security(), create_pdf_from_multi_ps()};
}

}  // namespace foliant::converters
