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

void put_pdf(Stage& stage) {
    stage.put_file("C:\\in\\Report.pdf");
}

const tests::MemberCall usual{.member = "CreateLinksInPDF",
                              .arrange = put_pdf,
                              .arguments = {named("strPDFFile", "C:\\in\\Report.pdf")}};

// The sender is looked for anew before each of its two commands.
const tests::WholeJournal journal(usual, R"(
    length C:\in\Report.pdf -> 1000
    create AcroExch.App
    create AcroExch.PDDoc
    AcroExch.PDDoc.Open("C:\in\Report.pdf")
    AcroExch.PDDoc.OpenAVDoc("Report.pdf")
    special folder 37 (owner 100)
    length C:\WINDOWS\system32\quorixsend.exe -> 1000
    start (hidden) C:\WINDOWS\system32\quorixsend.exe create web links~Button~~0~0~
    special folder 37 (owner 100)
    length C:\WINDOWS\system32\quorixsend.exe -> 1000
    start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe acrobat~Button~~0~0~
    AcroExch.App.MenuItemExecute("Weblink:CreateURLs")
    AcroExch.PDDoc.Save(Integer(0), "C:\in\Report.pdf")
    AcroExch.AVDoc.Close(True)
    AcroExch.PDDoc.Close()
    AcroExch.App.Exit()
    release AcroExch.AVDoc
    release AcroExch.PDDoc
    release AcroExch.App
)");

const tests::MemberCall with_password{
    .member = "CreateLinksInPDF",
    .of = "WithPassword",
    .arrange = put_pdf,
    .arguments = {named("strPDFFile", "C:\\in\\Report.pdf"), named("strOpenPassword", "open sesame")}};

const tests::WholeJournal journal_with_password(with_password, R"(
    length C:\in\Report.pdf -> 1000
    create AcroExch.App
    create AcroExch.PDDoc
    special folder 37 (owner 100)
    length C:\WINDOWS\system32\quorixsend.exe -> 1000
    start (hidden) C:\WINDOWS\system32\quorixsend.exe open~Edit~C:\in\Report.pdf~0~0~
    start (hidden) C:\WINDOWS\system32\quorixsend.exe password~Edit~open sesame~0~0~
    AcroExch.App.MenuItemExecute("Open")
    create AcroExch.AVDoc
    AcroExch.AVDoc.Open("C:\in\Report.pdf", "")
    AcroExch.App.GetActiveDoc()
    release AcroExch.AVDoc
    AcroExch.AVDoc.GetPDDoc()
    release AcroExch.PDDoc
    special folder 37 (owner 100)
    length C:\WINDOWS\system32\quorixsend.exe -> 1000
    start (hidden) C:\WINDOWS\system32\quorixsend.exe create web links~Button~~0~0~
    special folder 37 (owner 100)
    length C:\WINDOWS\system32\quorixsend.exe -> 1000
    start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe acrobat~Button~~0~0~
    AcroExch.App.MenuItemExecute("Weblink:CreateURLs")
    AcroExch.PDDoc.Save(Integer(0), "C:\in\Report.pdf")
    AcroExch.AVDoc.Close(True)
    AcroExch.PDDoc.Close()
    AcroExch.App.Exit()
    release AcroExch.AVDoc
    release AcroExch.PDDoc
    release AcroExch.App
)");

const tests::ParameterProbe parameters(with_password,
                                       {.lines_with = {"open~", "password~", "Save"}, .expected = R"(
    start (hidden) C:\WINDOWS\system32\quorixsend.exe open~Edit~C:\in\Report.pdf~0~0~
    start (hidden) C:\WINDOWS\system32\quorixsend.exe password~Edit~open sesame~0~0~
    AcroExch.PDDoc.Save(Integer(0), "C:\in\Report.pdf")
)"});

const tests::MemberFaults faults(usual, {.endings = {release_acrobat}, .report = R"(
    fails: length C:\in\Report.pdf
        raise -2147467008 from Foliant: File C:\in\Report.pdf does not exist.
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
    fails: special folder 37 (owner 100)
        length \quorixsend.exe -> not found
        length C:\Program Files\Foliant\quorixsend.exe -> not found
        release Acrobat
        raise -2147467008 from Foliant: Can't open file C:\in\Report.pdf.
    fails: length C:\WINDOWS\system32\quorixsend.exe
        length C:\Program Files\Foliant\quorixsend.exe -> not found
        release Acrobat
        raise -2147467008 from Foliant: Can't open file C:\in\Report.pdf.
    fails: start (hidden) C:\WINDOWS\system32\quorixsend.exe create web links~Button~~0~0~
        release Acrobat
        raise -2147467008 from Foliant: Can't open file C:\in\Report.pdf.
    fails: special folder 37 (owner 100)
        length \quorixsend.exe -> not found
        length C:\Program Files\Foliant\quorixsend.exe -> not found
        release Acrobat
        raise -2147467008 from Foliant: Can't open file C:\in\Report.pdf.
    fails: length C:\WINDOWS\system32\quorixsend.exe
        length C:\Program Files\Foliant\quorixsend.exe -> not found
        release Acrobat
        raise -2147467008 from Foliant: Can't open file C:\in\Report.pdf.
    fails: start (hidden) C:\WINDOWS\system32\quorixsend.exe adobe acrobat~Button~~0~0~
    fails: AcroExch.App.MenuItemExecute("Weblink:CreateURLs")
    fails: AcroExch.PDDoc.Save(Integer(0), "C:\in\Report.pdf")
    fails: AcroExch.AVDoc.Close(True)
    fails: AcroExch.PDDoc.Close()
    fails: AcroExch.App.Exit()
        release Acrobat
        raise -2147467008 from Foliant: Can't open file C:\in\Report.pdf.
)"});

class CreateLinksInPDF : public tests::MemberTest {
  protected:
    CreateLinksInPDF() : MemberTest(usual) {}
};

TEST_F(CreateLinksInPDF, WithoutASenderCannotOpenTheFileAndRunsNoCommand) {
    stage.files.erase("C:\\WINDOWS\\system32\\quorixsend.exe");
    call();
    tests::expect_text(journal_from("special folder"), R"(
        special folder 37 (owner 100)
        length C:\WINDOWS\system32\quorixsend.exe -> not found
        length C:\Program Files\Foliant\quorixsend.exe -> not found
        release AcroExch.AVDoc
        release AcroExch.PDDoc
        release AcroExch.App
        raise -2147467008 from Foliant: Can't open file C:\in\Report.pdf.
    )");
}

TEST_F(CreateLinksInPDF, TitlesTheWindowOnlyInAcrobatSixPointNought) {
    register_acrobat("6.0.1");
    call();
    EXPECT_EQ(line_with("OpenAVDoc"), R"(AcroExch.PDDoc.OpenAVDoc(""))");
}

TEST_F(CreateLinksInPDF, AMissingFileStartsNothing) {
    stage.files.erase("C:\\in\\Report.pdf");
    call();
    expect_journal(R"(
        length C:\in\Report.pdf -> not found
        raise -2147467008 from Foliant: File C:\in\Report.pdf does not exist.
    )");
}

}  // namespace
}  // namespace foliant::members
