#include <gtest/gtest.h>

#include "members/pdf/acrobat_endings.h"
#include "platform/stage/stage_object.h"
#include "support/fault_cases.h"
#include "support/member_cases.h"
#include "support/member_test.h"

namespace foliant::members {
namespace {

using automation::Arguments;
using automation::named;
using automation::Value;
using platform::stage::Stage;
using platform::stage::StageObject;

const tests::MemberCall usual{.member = "GetNumPagesPDF",
                              .arrange = [](Stage& stage) { stage.put_file("C:\\in\\a.pdf"); },
                              .arguments = {named("strPDFFile", "C:\\in\\a.pdf")}};

const tests::WholeJournal journal(usual, R"(
    length C:\in\a.pdf -> 1000
    create AcroExch.App
    create AcroExch.AVDoc
    create AcroExch.PDDoc
    AcroExch.AVDoc.Open("C:\in\a.pdf", "")
    AcroExch.AVDoc.GetPDDoc()
    release AcroExch.PDDoc
    AcroExch.PDDoc.GetNumPages()
    AcroExch.AVDoc.Close(True)
    AcroExch.App.Exit()
    release AcroExch.AVDoc
    release AcroExch.PDDoc
    release AcroExch.App
)");

const tests::MemberCall with_password{
    .member = "GetNumPagesPDF",
    .of = "WithPassword",
    .arrange = usual.arrange,
    .arguments = {named("strPDFFile", "C:\\in\\a.pdf"), named("strOpenPassword", " open sesame")}};

// The viewer that was created is dropped for the one in which Acrobat's own dialog has opened the file.
const tests::WholeJournal journal_with_password(with_password, R"(
    length C:\in\a.pdf -> 1000
    create AcroExch.App
    create AcroExch.AVDoc
    create AcroExch.PDDoc
    special folder 37 (owner 100)
    length C:\WINDOWS\system32\quorixsend.exe -> 1000
    start (hidden) C:\WINDOWS\system32\quorixsend.exe open~Edit~C:\in\a.pdf~0~0~
    start (hidden) C:\WINDOWS\system32\quorixsend.exe password~Edit~ open sesame~0~0~
    AcroExch.App.MenuItemExecute("Open")
    AcroExch.App.GetActiveDoc()
    release AcroExch.AVDoc
    AcroExch.AVDoc.GetPDDoc()
    release AcroExch.PDDoc
    AcroExch.PDDoc.GetNumPages()
    AcroExch.AVDoc.Close(True)
    AcroExch.App.Exit()
    release AcroExch.AVDoc
    release AcroExch.PDDoc
    release AcroExch.App
)");

const tests::ParameterProbe parameters(with_password, {.lines_with = {"open~", "password~", "Close"},
                                                       .expected = R"(
        start (hidden) C:\WINDOWS\system32\quorixsend.exe open~Edit~C:\in\a.pdf~0~0~
        start (hidden) C:\WINDOWS\system32\quorixsend.exe password~Edit~ open sesame~0~0~
        AcroExch.AVDoc.Close(True)
    )",
                                                       .result = std::int32_t{3}});

const tests::MemberFaults faults(usual, {.endings = {let_acrobat_go}, .report = R"(
    fails: length C:\in\a.pdf
        raise -2147467008 from Foliant: File C:\in\a.pdf does not exist.
    fails: create AcroExch.App
        raise the failure
    fails: create AcroExch.AVDoc
        AcroExch.App.Exit()
        release AcroExch.App
        raise the failure
    fails: create AcroExch.PDDoc
        AcroExch.AVDoc.Close(True)
        release AcroExch.AVDoc
        AcroExch.App.Exit()
        release AcroExch.App
        raise the failure
    fails: AcroExch.AVDoc.Open("C:\in\a.pdf", "")
    fails: AcroExch.AVDoc.GetPDDoc()
    fails: AcroExch.PDDoc.GetNumPages()
    fails: AcroExch.AVDoc.Close(True)
    fails: AcroExch.App.Exit()
        let Acrobat go
        raise the failure
)"});

const tests::MemberFaults faults_with_password(with_password, {.endings = {let_acrobat_go}, .report = R"(
    fails: length C:\in\a.pdf
        raise -2147467008 from Foliant: File C:\in\a.pdf does not exist.
    fails: create AcroExch.App
        raise the failure
    fails: create AcroExch.AVDoc
        AcroExch.App.Exit()
        release AcroExch.App
        raise the failure
    fails: create AcroExch.PDDoc
        AcroExch.AVDoc.Close(True)
        release AcroExch.AVDoc
        AcroExch.App.Exit()
        release AcroExch.App
        raise the failure
    fails: special folder 37 (owner 100)
        length \quorixsend.exe -> not found
        length C:\Program Files\Foliant\quorixsend.exe -> not found
        let Acrobat go
        raise -2147467008 from Foliant: Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as QUORIX.OCX or into your Window's System Directory.
    fails: length C:\WINDOWS\system32\quorixsend.exe
        length C:\Program Files\Foliant\quorixsend.exe -> not found
        let Acrobat go
        raise -2147467008 from Foliant: Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as QUORIX.OCX or into your Window's System Directory.
    fails: start (hidden) C:\WINDOWS\system32\quorixsend.exe open~Edit~C:\in\a.pdf~0~0~
    fails: start (hidden) C:\WINDOWS\system32\quorixsend.exe password~Edit~ open sesame~0~0~
    fails: AcroExch.App.MenuItemExecute("Open")
    fails: AcroExch.App.GetActiveDoc()
    fails: AcroExch.AVDoc.GetPDDoc()
    fails: AcroExch.PDDoc.GetNumPages()
    fails: AcroExch.AVDoc.Close(True)
    fails: AcroExch.App.Exit()
        let Acrobat go
        raise the failure
)"});

class GetNumPagesPDF : public tests::MemberTest {
  protected:
    GetNumPagesPDF() : MemberTest(usual) {}
};

TEST_F(GetNumPagesPDF, TakesAPasswordOfBlanksForNone) {
    call({named("strOpenPassword", "  ")});
    EXPECT_EQ(line_with(".Open"), R"(AcroExch.AVDoc.Open("C:\in\a.pdf", ""))");
    EXPECT_EQ(stage.journal().find("start"), std::string::npos);
}

TEST_F(GetNumPagesPDF, GivesThePagesAsALongWhateverAcrobatCountsThemIn) {
    stage.answer("AcroExch.PDDoc.GetNumPages", std::int16_t{7});
    call();
    EXPECT_EQ(result, Value(std::int32_t{7}));
}

TEST_F(GetNumPagesPDF, DoesNotLookAtWhetherAcrobatOpenedTheFile) {
    stage.answer("AcroExch.AVDoc.Open", false);
    stage.when("AcroExch.AVDoc.GetPDDoc", [](StageObject&, const Arguments&) -> Value {
        throw automation::Error(-2147352567, "Acrobat", "There is no document.");
    });
    call();
    tests::expect_text(journal_from("AcroExch.AVDoc.Open"), R"(
        AcroExch.AVDoc.Open("C:\in\a.pdf", "")
        AcroExch.AVDoc.GetPDDoc()
        AcroExch.AVDoc.Close(True)
        release AcroExch.AVDoc
        release AcroExch.PDDoc
        AcroExch.App.Exit()
        release AcroExch.App
        raise -2147352567 from Foliant: There is no document.
    )");
}

TEST_F(GetNumPagesPDF, WithAPasswordAndNoSenderSaysWhichFileIsMissing) {
    stage.files.erase("C:\\WINDOWS\\system32\\quorixsend.exe");
    call({named("strOpenPassword", "x")});
    tests::expect_text(journal_from("special folder"), R"(
        special folder 37 (owner 100)
        length C:\WINDOWS\system32\quorixsend.exe -> not found
        length C:\Program Files\Foliant\quorixsend.exe -> not found
        AcroExch.AVDoc.Close(True)
        release AcroExch.AVDoc
        release AcroExch.PDDoc
        AcroExch.App.Exit()
        release AcroExch.App
        raise -2147467008 from Foliant: Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as QUORIX.OCX or into your Window's System Directory.
    )");
}

TEST_F(GetNumPagesPDF, AMissingFileStartsNothing) {
    stage.files.erase("C:\\in\\a.pdf");
    call();
    expect_journal(R"(
        length C:\in\a.pdf -> not found
        raise -2147467008 from Foliant: File C:\in\a.pdf does not exist.
    )");
}

}  // namespace
}  // namespace foliant::members
