#include "acrobat/acrobat.h"

#include <gtest/gtest.h>

#include "support/staged_session.h"

namespace foliant::acrobat {
namespace {

class TheAcrobatOfACall : public tests::StagedSession {
  protected:
    TheAcrobatOfACall() {
        session();
        acrobat = {new_application(session()), new_viewer(session()), new_document(session())};
        stage.clear_journal();
    }

    Acrobat acrobat;
};

TEST_F(TheAcrobatOfACall, IsClosedWithoutSavingExitedAndOnlyThenReleased) {
    acrobat.close_and_exit();
    expect_journal(R"(
        AcroExch.AVDoc.Close(True)
        AcroExch.App.Exit()
        release AcroExch.AVDoc
        release AcroExch.PDDoc
        release AcroExch.App
    )");
}

TEST_F(TheAcrobatOfACall, WhereTheDocumentWasOpenedByItselfThatIsClosedToo) {
    acrobat.close_both_and_exit();
    expect_journal(R"(
        AcroExch.AVDoc.Close(True)
        AcroExch.PDDoc.Close()
        AcroExch.App.Exit()
        release AcroExch.AVDoc
        release AcroExch.PDDoc
        release AcroExch.App
    )");
}

TEST_F(TheAcrobatOfACall, IsLeftToTheUserByReleasingIt) {
    acrobat.release();
    expect_journal(R"(
        release AcroExch.AVDoc
        release AcroExch.PDDoc
        release AcroExch.App
    )");
}

TEST_F(TheAcrobatOfACall, IsLetGoObjectByObject) {
    acrobat.let_go();
    expect_journal(R"(
        AcroExch.AVDoc.Close(True)
        release AcroExch.AVDoc
        release AcroExch.PDDoc
        AcroExch.App.Exit()
        release AcroExch.App
    )");
}

TEST_F(TheAcrobatOfACall, IsLetGoWithItsDocumentClosedAsWell) {
    acrobat.let_both_go();
    expect_journal(R"(
        AcroExch.AVDoc.Close(True)
        release AcroExch.AVDoc
        AcroExch.PDDoc.Close()
        release AcroExch.PDDoc
        AcroExch.App.Exit()
        release AcroExch.App
    )");
}

TEST_F(TheAcrobatOfACall, WithoutAnApplicationOfItsOwnIsLetGoWithoutExiting) {
    acrobat.application = {};
    stage.clear_journal();
    acrobat.let_go();
    expect_journal(R"(
        AcroExch.AVDoc.Close(True)
        release AcroExch.AVDoc
        release AcroExch.PDDoc
    )");
}

TEST_F(TheAcrobatOfACall, ThatHoldsNothingHasNothingToLetGo) {
    acrobat.release();
    stage.clear_journal();
    acrobat.let_go();
    acrobat.release();
    EXPECT_EQ(stage.journal(), "");
}

TEST_F(TheAcrobatOfACall, WhereItIsNotInstalledCannotBeCreated) {
    stage.missing_classes = {"AcroExch.App", "AcroExch.AVDoc", "AcroExch.PDDoc"};
    run([&] { new_application(session()); });
    run([&] { new_viewer(session()); });
    run([&] { new_document(session()); });
    expect_journal(R"(
        create AcroExch.App
        raise 429 from : ActiveX component can't create object
        create AcroExch.AVDoc
        raise 429 from : ActiveX component can't create object
        create AcroExch.PDDoc
        raise 429 from : ActiveX component can't create object
    )");
}

}  // namespace
}  // namespace foliant::acrobat
