#include <gtest/gtest.h>

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

const tests::MemberCall usual{
    .member = "CreatePDFfromWebPage",
    .arrange = [](Stage& stage) { stage.put_file("C:\\out\\page.pdf"); },
    .arguments = {named("strURL", "http://www.example.org"), named("strPDFFile", "C:\\out\\page.pdf")}};

// The senders stand ready and the old output is gone before the capture starts.
const tests::WholeJournal journal(usual, R"(
    create AcroExch.App
    AcroExch.App.Show()
    special folder 37 (owner 100)
    length C:\WINDOWS\system32\quorixsend.exe -> 1000
    start (hidden) C:\WINDOWS\system32\quorixsend.exe create pdf from web page~Edit~http://www.example.org~0~1~
    start (hidden) C:\WINDOWS\system32\quorixsend.exe error: nothing done~Button~~0~1~
    start (hidden) C:\WINDOWS\system32\quorixsend.exe there were errors~Button~~0~1~
    length C:\out\page.pdf -> 1000
    delete C:\out\page.pdf
    AcroExch.App.MenuItemExecute("Web2PDF:OpnURL")
    pump messages
    find window "adobe acrobat - [http://www.example.org/]" -> none
    find window "Adobe Acrobat Professional - [http://www.example.org/]" -> found
    sleep 2000 ms
    create AcroExch.AVDoc
    AcroExch.App.GetActiveDoc()
    release AcroExch.AVDoc
    AcroExch.AVDoc.IsValid()
    AcroExch.AVDoc.GetPDDoc()
    AcroExch.PDDoc.Save(Integer(37), "C:\out\page.pdf")
    AcroExch.PDDoc.Close()
    AcroExch.AVDoc.Close(True)
    AcroExch.App.Exit()
    find window "adobe acrobat" -> none
    find window "adobe acrobat professional" -> none
    release AcroExch.PDDoc
    release AcroExch.AVDoc
    release AcroExch.App
)");

// Without a sender the address and Enter are typed for whatever dialog comes.
const tests::WholeJournal journal_without_sender({.member = "CreatePDFfromWebPage",
                                                  .of = "WithoutSender",
                                                  .arrange =
                                                      [](Stage& stage) {
                                                          stage.files.clear();
                                                          stage.windows["Adobe Acrobat - [a{b}+~^%/]"] = 0;
                                                          stage.windows["Adobe Acrobat"] = 0;
                                                          stage.windows["Adobe Acrobat Professional"] = 0;
                                                      },
                                                  .arguments = {named("strURL", "a{b}+~^%"),
                                                                named("strPDFFile", "C:\\out\\page.pdf")}},
                                                 R"(
    create AcroExch.App
    AcroExch.App.Show()
    special folder 37 (owner 100)
    length C:\WINDOWS\system32\quorixsend.exe -> not found
    length C:\Program Files\Foliant\quorixsend.exe -> not found
    type "a{b}+~^%"
    press Enter
    length C:\out\page.pdf -> not found
    AcroExch.App.MenuItemExecute("Web2PDF:OpnURL")
    pump messages
    find window "adobe acrobat - [a{b}+~^%/]" -> found
    sleep 2000 ms
    create AcroExch.AVDoc
    AcroExch.App.GetActiveDoc()
    release AcroExch.AVDoc
    AcroExch.AVDoc.IsValid()
    AcroExch.AVDoc.GetPDDoc()
    AcroExch.PDDoc.Save(Integer(37), "C:\out\page.pdf")
    AcroExch.PDDoc.Close()
    AcroExch.AVDoc.Close(True)
    AcroExch.App.Exit()
    find window "adobe acrobat" -> found
    send WM_CLOSE (0, "0") to "Adobe Acrobat"
    find window "adobe acrobat professional" -> found
    send WM_CLOSE (0, "0") to "Adobe Acrobat Professional"
    release AcroExch.PDDoc
    release AcroExch.AVDoc
    release AcroExch.App
)");

const tests::ParameterProbe parameters(
    {.member = "CreatePDFfromWebPage",
     .arguments = {named("strURL", "http://www.example.org"), named("strPDFFile", "C:\\out\\page.pdf"),
                   named("blnHideAcrobat", true), named("intSecsToWaitForPDF", std::int16_t{7})}},
    {.lines_with = {"AcroExch.App.", "web page~", "sleep", "Save"}, .expected = R"(
    start (hidden) C:\WINDOWS\system32\quorixsend.exe create pdf from web page~Edit~http://www.example.org~0~1~
    AcroExch.App.MenuItemExecute("Web2PDF:OpnURL")
    sleep 7000 ms
    AcroExch.App.GetActiveDoc()
    AcroExch.PDDoc.Save(Integer(37), "C:\out\page.pdf")
    AcroExch.App.Exit()
)"});

// The trap closes nothing and exits nobody.
const tests::MemberFaults faults(usual, {.endings = {{"release all three", R"(
        release AcroExch.AVDoc
        release AcroExch.PDDoc
        release AcroExch.App
    )"}},
                                         .report = R"(
    fails: create AcroExch.App
        raise the failure
    fails: AcroExch.App.Show()
        release AcroExch.App
        raise the failure
    fails: special folder 37 (owner 100)
        go on, but
        - length C:\WINDOWS\system32\quorixsend.exe -> 1000
        - start (hidden) C:\WINDOWS\system32\quorixsend.exe create pdf from web page~Edit~http://www.example.org~0~1~
        - start (hidden) C:\WINDOWS\system32\quorixsend.exe error: nothing done~Button~~0~1~
        - start (hidden) C:\WINDOWS\system32\quorixsend.exe there were errors~Button~~0~1~
        + length \quorixsend.exe -> not found
        + length C:\Program Files\Foliant\quorixsend.exe -> not found
        + type "http://www.example.org"
        + press Enter
    fails: length C:\WINDOWS\system32\quorixsend.exe
        go on, but
        - start (hidden) C:\WINDOWS\system32\quorixsend.exe create pdf from web page~Edit~http://www.example.org~0~1~
        - start (hidden) C:\WINDOWS\system32\quorixsend.exe error: nothing done~Button~~0~1~
        - start (hidden) C:\WINDOWS\system32\quorixsend.exe there were errors~Button~~0~1~
        + length C:\Program Files\Foliant\quorixsend.exe -> not found
        + type "http://www.example.org"
        + press Enter
    fails: start (hidden) C:\WINDOWS\system32\quorixsend.exe create pdf from web page~Edit~http://www.example.org~0~1~
    fails: start (hidden) C:\WINDOWS\system32\quorixsend.exe error: nothing done~Button~~0~1~
    fails: start (hidden) C:\WINDOWS\system32\quorixsend.exe there were errors~Button~~0~1~
        release AcroExch.App
        raise the failure
    fails: length C:\out\page.pdf
        go on, but
        - delete C:\out\page.pdf
    fails: delete C:\out\page.pdf
    fails: AcroExch.App.MenuItemExecute("Web2PDF:OpnURL")
    fails: pump messages
    fails: find window "adobe acrobat - [http://www.example.org/]"
    fails: find window "Adobe Acrobat Professional - [http://www.example.org/]"
    fails: sleep 2000 ms
    fails: create AcroExch.AVDoc
        release AcroExch.App
        raise the failure
    fails: AcroExch.App.GetActiveDoc()
    fails: AcroExch.AVDoc.IsValid()
    fails: AcroExch.AVDoc.GetPDDoc()
        release AcroExch.AVDoc
        release AcroExch.App
        raise the failure
    fails: AcroExch.PDDoc.Save(Integer(37), "C:\out\page.pdf")
    fails: AcroExch.PDDoc.Close()
    fails: AcroExch.AVDoc.Close(True)
    fails: AcroExch.App.Exit()
    fails: find window "adobe acrobat"
    fails: find window "adobe acrobat professional"
        release all three
        raise the failure
)"});

class CreatePDFfromWebPage : public tests::MemberTest {
  protected:
    CreatePDFfromWebPage() : MemberTest(usual) {}
};

TEST_F(CreatePDFfromWebPage, WithAnAcrobatBeforeSixSaysSoAndStartsNothing) {
    for (const char* version : {"5.0", "5.99", ""}) {
        tests::register_acrobat(stage, version);
        core::BuildPDF object(stage.platform(), events);
        stage.clear_journal();
        Arguments arguments = usual.arguments;
        tests::run_noting_error(stage, [&] { usual.make(object, arguments); });
        expect_journal("raise -2147467008 from Foliant: This function not compatible with Adobe Acrobat " +
                       std::string(version));
    }
}

TEST_F(CreatePDFfromWebPage, PutsASlashBehindAnAddressThatEndsInOne) {
    call({named("strURL", "http://a/")});
    EXPECT_EQ(lines_with({"find window"}).at(0), R"(find window "adobe acrobat - [http://a//]" -> none)");
}

TEST_F(CreatePDFfromWebPage, GivesUpAfterTwoMinutesAndExitsAcrobat) {
    stage.answer("AcroExch.App.MenuItemExecute", true);
    stage.pump_takes = 50000;
    call();
    tests::expect_text(journal_from("MenuItemExecute"), R"(
        AcroExch.App.MenuItemExecute("Web2PDF:OpnURL")
        pump messages
        find window "adobe acrobat - [http://www.example.org/]" -> none
        find window "Adobe Acrobat Professional - [http://www.example.org/]" -> none
        pump messages
        find window "adobe acrobat - [http://www.example.org/]" -> none
        find window "Adobe Acrobat Professional - [http://www.example.org/]" -> none
        pump messages
        find window "adobe acrobat - [http://www.example.org/]" -> none
        find window "Adobe Acrobat Professional - [http://www.example.org/]" -> none
        AcroExch.App.Exit()
        release AcroExch.App
        raise -2147467008 from Foliant: Unable to create PDF from web page.
    )");
}

TEST_F(CreatePDFfromWebPage, LooksForTheWindowForTwoMinutesExactly) {
    stage.answer("AcroExch.App.MenuItemExecute", true);
    stage.pump_takes = 40000;
    call();
    // After 40, 80 and 120 seconds, and once more when the time is over.
    EXPECT_EQ(lines_with({"pump"}).size(), 4U);

    stage.clear_journal();
    stage.pump_takes = 121000;
    call();
    EXPECT_EQ(lines_with({"pump"}).size(), 1U);
}

TEST_F(CreatePDFfromWebPage, CountsNoTimeThatTheCommandOfTheCaptureTakes) {
    stage.when("AcroExch.App.MenuItemExecute", [&](StageObject&, const Arguments&) {
        stage.now += 130000;
        return Value(true);
    });
    stage.pump_takes = 40000;
    call();
    EXPECT_EQ(lines_with({"pump"}).size(), 4U);
}

TEST_F(CreatePDFfromWebPage, TakesANegativeNumberOfSecondsForNoneAndOneThatDoesNotFitForAnOverflow) {
    call({named("intSecsToWaitForPDF", std::int16_t{-1})});
    EXPECT_EQ(line_with("sleep"), "sleep 0 ms");

    stage.windows.clear();
    stage.clear_journal();
    call({named("intSecsToWaitForPDF", std::int16_t{-33})});
    EXPECT_EQ(last_line(), "raise 6 from Foliant: Overflow");
}

TEST_F(CreatePDFfromWebPage, SavesAtOnceWithoutASecondToWait) {
    call({named("intSecsToWaitForPDF", std::int16_t{0})});
    EXPECT_EQ(line_with("sleep"), "sleep 0 ms");
}

TEST_F(CreatePDFfromWebPage, WaitsThirtyTwoSecondsAtMost) {
    call({named("intSecsToWaitForPDF", std::int16_t{32})});
    EXPECT_EQ(line_with("sleep"), "sleep 32000 ms");

    stage.windows.clear();
    stage.clear_journal();
    call({named("intSecsToWaitForPDF", std::int16_t{33})});
    tests::expect_text(journal_from("Professional"), R"(
        find window "Adobe Acrobat Professional - [http://www.example.org/]" -> found
        release AcroExch.App
        raise 6 from Foliant: Overflow
    )");
}

TEST_F(CreatePDFfromWebPage, OfAPageThatMakesNoDocumentMakesNoPdfAndNoError) {
    stage.answer("AcroExch.AVDoc.IsValid", false);
    call();
    tests::expect_text(journal_from("IsValid"), R"(
        AcroExch.AVDoc.IsValid()
        AcroExch.AVDoc.Close(True)
        AcroExch.App.Exit()
        find window "adobe acrobat" -> none
        find window "adobe acrobat professional" -> none
        release AcroExch.AVDoc
        release AcroExch.App
    )");
}

TEST_F(CreatePDFfromWebPage, DoesNotLookAtWhetherAcrobatSavedTheFile) {
    stage.answer("AcroExch.PDDoc.Save", false);
    call();
    EXPECT_EQ(last_line(), "release AcroExch.App");
}

}  // namespace
}  // namespace foliant::members
