#include "acrobat/active_document.h"

#include <gtest/gtest.h>

#include "support/fault_cases.h"
#include "support/staged_session.h"

namespace foliant::acrobat {
namespace {

using platform::stage::Stage;
using session::Session;

void show_a_document(Stage& stage) {
    stage.answer_object("AcroExch.App.GetActiveDoc", "AcroExch.ActiveDoc");
    stage.answer("AcroExch.ActiveDoc.IsValid", true);
    stage.answer_object("AcroExch.ActiveDoc.GetPDDoc", "AcroExch.PDDoc");
    stage.windows["Adobe Acrobat Professional"] = 0;
}

class ActiveDocument : public tests::StagedSession {
  protected:
    ActiveDocument() { show_a_document(stage); }

    void save() {
        session();
        run([&] {
            Acrobat acrobat;
            acrobat.application = new_application(session());
            save_active_document_and_exit(session(), acrobat, "C:\\out\\page.pdf");
        });
    }
};

TEST_F(ActiveDocument, IsSavedAndClosedAndAcrobatAndItsWindowsAreGone) {
    save();
    expect_journal(R"(
        create AcroExch.App
        create AcroExch.AVDoc
        AcroExch.App.GetActiveDoc()
        release AcroExch.AVDoc
        AcroExch.ActiveDoc.IsValid()
        AcroExch.ActiveDoc.GetPDDoc()
        AcroExch.PDDoc.Save(Integer(37), "C:\out\page.pdf")
        AcroExch.PDDoc.Close()
        AcroExch.ActiveDoc.Close(True)
        AcroExch.App.Exit()
        find window "adobe acrobat" -> none
        find window "adobe acrobat professional" -> found
        send WM_CLOSE (0, "0") to "Adobe Acrobat Professional"
        release AcroExch.PDDoc
        release AcroExch.ActiveDoc
        release AcroExch.App
    )");
}

TEST_F(ActiveDocument, ThatIsNotValidIsClosedAndNotSaved) {
    stage.answer("AcroExch.ActiveDoc.IsValid", false);
    save();
    expect_journal(R"(
        create AcroExch.App
        create AcroExch.AVDoc
        AcroExch.App.GetActiveDoc()
        release AcroExch.AVDoc
        AcroExch.ActiveDoc.IsValid()
        AcroExch.ActiveDoc.Close(True)
        AcroExch.App.Exit()
        find window "adobe acrobat" -> none
        find window "adobe acrobat professional" -> found
        send WM_CLOSE (0, "0") to "Adobe Acrobat Professional"
        release AcroExch.ActiveDoc
        release AcroExch.App
    )");
}

TEST_F(ActiveDocument, WhetherSavingSucceededIsNotLookedAt) {
    stage.answer("AcroExch.PDDoc.Save", false);
    save();
    EXPECT_EQ(last_line(), "release AcroExch.App");
}

TEST_F(ActiveDocument, AcrobatIsGivenTheSecondsToFinish) {
    let_acrobat_finish(session(), 2);
    let_acrobat_finish(session(), 0);
    let_acrobat_finish(session(), 32);
    expect_journal(R"(
        sleep 2000 ms
        sleep 0 ms
        sleep 32000 ms
    )");
}

TEST_F(ActiveDocument, MoreThanThirtyTwoSecondsAreAnOverflow) {
    run([&] { let_acrobat_finish(session(), 33); });
    run([&] { let_acrobat_finish(session(), 32767); });
    run([&] { let_acrobat_finish(session(), -33); });
    expect_journal(R"(
        raise 6 from : Overflow
        raise 6 from : Overflow
        raise 6 from : Overflow
    )");
}

TEST_F(ActiveDocument, ANegativeNumberOfSecondsIsNoTime) {
    let_acrobat_finish(session(), -1);
    expect_journal("sleep 0 ms");
}

// The error traps of these members close nothing: whoever looks at Acrobat sees how far it came.

const tests::ServiceFaults saving("SavingTheActiveDocument", show_a_document,
                                  [](const Session& session) {
                                      Acrobat acrobat;
                                      acrobat.application = new_application(session);
                                      save_active_document_and_exit(session, acrobat, "C:\\out\\page.pdf");
                                  },
                                  {.report = R"(
    fails: create AcroExch.App
        raise the failure
    fails: create AcroExch.AVDoc
        release AcroExch.App
        raise the failure
    fails: AcroExch.App.GetActiveDoc()
        release AcroExch.AVDoc
        release AcroExch.App
        raise the failure
    fails: AcroExch.ActiveDoc.IsValid()
    fails: AcroExch.ActiveDoc.GetPDDoc()
        release AcroExch.ActiveDoc
        release AcroExch.App
        raise the failure
    fails: AcroExch.PDDoc.Save(Integer(37), "C:\out\page.pdf")
    fails: AcroExch.PDDoc.Close()
    fails: AcroExch.ActiveDoc.Close(True)
    fails: AcroExch.App.Exit()
    fails: find window "adobe acrobat"
    fails: find window "adobe acrobat professional"
    fails: send WM_CLOSE (0, "0") to "Adobe Acrobat Professional"
        release AcroExch.PDDoc
        release AcroExch.ActiveDoc
        release AcroExch.App
        raise the failure
)"});

}  // namespace
}  // namespace foliant::acrobat
