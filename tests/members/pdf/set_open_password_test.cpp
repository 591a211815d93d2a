#include <gtest/gtest.h>

#include "members/pdf/acrobat_endings.h"
#include "platform/stage/stage_object.h"
#include "support/fault_cases.h"
#include "support/member_cases.h"
#include "support/member_test.h"

namespace foliant::members {
namespace {

using automation::named;
using platform::stage::Stage;

const tests::MemberCall usual{
    .member = "SetOpenPassword",
    .arrange = [](Stage& stage) { stage.put_file("C:\\in\\Report.pdf"); },
    .arguments = {named("strPDFFile", "C:\\in\\Report.pdf"), named("strOpenPassword", "open sesame")}};

// The system folder is looked up before there is an Acrobat, the sender in it once the document is open.
const tests::WholeJournal journal(usual, R"(
    length C:\in\Report.pdf -> 1000
    special folder 37 (owner 100)
    create AcroExch.App
    create AcroExch.PDDoc
    AcroExch.PDDoc.Open("C:\in\Report.pdf")
    AcroExch.PDDoc.OpenAVDoc("Report.pdf")
    length C:\WINDOWS\system32\quorixsend.exe -> 1000
    start (hidden) C:\WINDOWS\system32\quorixsend.exe password security - settings~Button~{LM}~0~1~
    start (hidden) C:\WINDOWS\system32\quorixsend.exe password security - settings~Edit~open sesame^1~0~1~
    start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe acrobat - confirm open document password~Edit~open sesame~0~1~
    start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe acrobat~Button~{LME}~0~1~
    AcroExch.App.MenuItemExecute("SecureApplyPwdSecurity")
    AcroExch.App.MenuItemExecute("Save")
    AcroExch.AVDoc.Close(True)
    AcroExch.PDDoc.Close()
    AcroExch.App.Exit()
    release AcroExch.AVDoc
    release AcroExch.PDDoc
    release AcroExch.App
)");

const tests::ParameterProbe parameters(usual, {.lines_with = {"PDDoc.Open(", "Edit"}, .expected = R"(
    AcroExch.PDDoc.Open("C:\in\Report.pdf")
    start (hidden) C:\WINDOWS\system32\quorixsend.exe password security - settings~Edit~open sesame^1~0~1~
    start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe acrobat - confirm open document password~Edit~open sesame~0~1~
)"});

const tests::MemberFaults faults(usual, {.endings = {release_acrobat}, .report = R"(
    fails: length C:\in\Report.pdf
        raise -2147467008 from Foliant: File C:\in\Report.pdf does not exist.
    fails: special folder 37 (owner 100)
        create AcroExch.App
        create AcroExch.PDDoc
        AcroExch.PDDoc.Open("C:\in\Report.pdf")
        AcroExch.PDDoc.OpenAVDoc("Report.pdf")
        length \quorixsend.exe -> not found
        length C:\Program Files\Foliant\quorixsend.exe -> not found
        release Acrobat
        raise -2147467008 from Foliant: Can't open file C:\in\Report.pdf.
    fails: create AcroExch.App
        raise -2147467008 from Foliant: Can't open file C:\in\Report.pdf.
    fails: create AcroExch.PDDoc
        release AcroExch.App
        raise -2147467008 from Foliant: Can't open file C:\in\Report.pdf.
    fails: AcroExch.PDDoc.Open("C:\in\Report.pdf")
    fails: AcroExch.PDDoc.OpenAVDoc("Report.pdf")
        release AcroExch.PDDoc
        release AcroExch.App
        raise -2147467008 from Foliant: Can't open file C:\in\Report.pdf.
    fails: length C:\WINDOWS\system32\quorixsend.exe
        length C:\Program Files\Foliant\quorixsend.exe -> not found
        release Acrobat
        raise -2147467008 from Foliant: Can't open file C:\in\Report.pdf.
    fails: start (hidden) C:\WINDOWS\system32\quorixsend.exe password security - settings~Button~{LM}~0~1~
    fails: start (hidden) C:\WINDOWS\system32\quorixsend.exe password security - settings~Edit~open sesame^1~0~1~
    fails: start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe acrobat - confirm open document password~Edit~open sesame~0~1~
    fails: start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe acrobat~Button~{LME}~0~1~
    fails: AcroExch.App.MenuItemExecute("SecureApplyPwdSecurity")
    fails: AcroExch.App.MenuItemExecute("Save")
    fails: AcroExch.AVDoc.Close(True)
    fails: AcroExch.PDDoc.Close()
    fails: AcroExch.App.Exit()
        release Acrobat
        raise -2147467008 from Foliant: Can't open file C:\in\Report.pdf.
)"});

class SetOpenPassword : public tests::MemberTest {
  protected:
    SetOpenPassword() : MemberTest(usual) {}
};

TEST_F(SetOpenPassword, SendsAnEmptyPasswordLikeAnyOther) {
    call({named("strOpenPassword", "")});
    tests::expect_text(lines_with({"Edit"}), R"(
        start (hidden) C:\WINDOWS\system32\quorixsend.exe password security - settings~Edit~^1~0~1~
        start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe acrobat - confirm open document password~Edit~~0~1~
    )");
}

TEST_F(SetOpenPassword, SendsAPasswordAsItStandsAlsoWhenItTakesTheCommandApart) {
    call({named("strOpenPassword", " a~b ")});
    tests::expect_text(lines_with({"Edit"}), R"(
        start (hidden) C:\WINDOWS\system32\quorixsend.exe password security - settings~Edit~ a~b ^1~0~1~
        start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe acrobat - confirm open document password~Edit~ a~b ~0~1~
    )");
}

TEST_F(SetOpenPassword, TakesTheSenderBesideTheLibraryWhenTheSystemHasNone) {
    stage.files.erase("C:\\WINDOWS\\system32\\quorixsend.exe");
    stage.put_file("C:\\Program Files\\Foliant\\quorixsend.exe");
    stage.programs.insert("C:\\Program Files\\Foliant\\quorixsend.exe");
    call();
    EXPECT_EQ(line_with("{LME}"),
              R"(start (hidden) C:\Program Files\Foliant\quorixsend.exe adobe acrobat~Button~{LME}~0~1~)");
}

TEST_F(SetOpenPassword, WithoutASenderCannotOpenTheFileAndRunsNoCommand) {
    stage.files.erase("C:\\WINDOWS\\system32\\quorixsend.exe");
    call();
    tests::expect_text(journal_from("OpenAVDoc"), R"(
        AcroExch.PDDoc.OpenAVDoc("Report.pdf")
        length C:\WINDOWS\system32\quorixsend.exe -> not found
        length C:\Program Files\Foliant\quorixsend.exe -> not found
        release AcroExch.AVDoc
        release AcroExch.PDDoc
        release AcroExch.App
        raise -2147467008 from Foliant: Can't open file C:\in\Report.pdf.
    )");
}

TEST_F(SetOpenPassword, TitlesTheWindowOnlyInAcrobatSixPointNought) {
    register_acrobat("6.01");
    call();
    EXPECT_EQ(line_with("OpenAVDoc"), R"(AcroExch.PDDoc.OpenAVDoc(""))");
}

TEST_F(SetOpenPassword, AMissingFileStartsNothing) {
    stage.files.erase("C:\\in\\Report.pdf");
    call();
    expect_journal(R"(
        length C:\in\Report.pdf -> not found
        raise -2147467008 from Foliant: File C:\in\Report.pdf does not exist.
    )");
}

}  // namespace
}  // namespace foliant::members
