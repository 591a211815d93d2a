#include "acrobat/open_document.h"

#include <gtest/gtest.h>

#include "session/errors.h"
#include "support/fault_cases.h"
#include "support/staged_session.h"

namespace foliant::acrobat {
namespace {

using platform::stage::Stage;
using session::Session;

const PdfFile plain{.path = "C:\\in\\Report.pdf"};
const PdfFile secret{.path = "C:\\in\\Report.pdf", .password = " open me"};

/// The document that is active after the dialogs has a name of its own in the journal.
void name_what_the_dialogs_opened(Stage& stage) {
    stage.answer_object("AcroExch.App.GetActiveDoc", "AcroExch.ActiveDoc");
    stage.answer_object("AcroExch.ActiveDoc.GetPDDoc", "AcroExch.ActivePDDoc");
}

class OpenDocument : public tests::StagedSession {
  protected:
    OpenDocument() { name_what_the_dialogs_opened(stage); }

    /// Opens a file as a member does, with objects that were there before, and ends without closing.
    void open(const std::function<void(Acrobat&)>& opening) {
        session();
        run([&] {
            Acrobat acrobat{stage.make_object("AcroExch.App"), stage.make_object("AcroExch.AVDoc"),
                            stage.make_object("AcroExch.PDDoc")};
            opening(acrobat);
            stage.note("opened");
            acrobat.release();
        });
    }

    void open_with_two_objects(const std::function<void(Acrobat&)>& opening) {
        open([&](Acrobat& acrobat) {
            acrobat.viewer = {};
            stage.clear_journal();
            opening(acrobat);
        });
    }

    void take_the_sender_away() { stage.files.clear(); }
};

// In a viewer.

TEST_F(OpenDocument, InAViewerIsOpenedByTheViewer) {
    open([&](Acrobat& acrobat) { open_in_viewer(session(), acrobat, plain); });
    expect_journal(R"(
        AcroExch.AVDoc.Open("C:\in\Report.pdf", "")
        AcroExch.AVDoc.GetPDDoc()
        release AcroExch.PDDoc
        opened
        release AcroExch.AVDoc
        release AcroExch.PDDoc
        release AcroExch.App
    )");
}

TEST_F(OpenDocument, InAViewerWithAPasswordIsTheOneThatIsActiveAfterTheDialogs) {
    open([&](Acrobat& acrobat) { open_in_viewer(session(), acrobat, secret); });
    expect_journal(R"(
        special folder 37 (owner 100)
        length C:\WINDOWS\system32\quorixsend.exe -> 1000
        start (hidden) C:\WINDOWS\system32\quorixsend.exe open~Edit~C:\in\Report.pdf~0~0~
        start (hidden) C:\WINDOWS\system32\quorixsend.exe password~Edit~ open me~0~0~
        AcroExch.App.MenuItemExecute("Open")
        AcroExch.App.GetActiveDoc()
        release AcroExch.AVDoc
        AcroExch.ActiveDoc.GetPDDoc()
        release AcroExch.PDDoc
        opened
        release AcroExch.ActiveDoc
        release AcroExch.ActivePDDoc
        release AcroExch.App
    )");
}

TEST_F(OpenDocument, WhatOpenAnswersIsNotLookedAt) {
    for (const char* member : {"AcroExch.AVDoc.Open", "AcroExch.PDDoc.Open"})
        stage.answer(member, false);
    open([&](Acrobat& acrobat) {
        open_in_viewer(session(), acrobat, plain);
        open_document(session(), acrobat, plain);
        open_document_and_viewer(session(), acrobat, plain);
    });
    EXPECT_EQ(last_line(), "release AcroExch.App");
}

// The document alone.

TEST_F(OpenDocument, AloneIsOpenedWithoutAWindow) {
    open_with_two_objects([&](Acrobat& acrobat) { open_document(session(), acrobat, plain); });
    expect_journal(R"(
        AcroExch.PDDoc.Open("C:\in\Report.pdf")
        opened
        release AcroExch.PDDoc
        release AcroExch.App
    )");
}

constexpr const char* opened_in_new_viewer = R"(
        special folder 37 (owner 100)
        length C:\WINDOWS\system32\quorixsend.exe -> 1000
        start (hidden) C:\WINDOWS\system32\quorixsend.exe open~Edit~C:\in\Report.pdf~0~0~
        start (hidden) C:\WINDOWS\system32\quorixsend.exe password~Edit~ open me~0~0~
        AcroExch.App.MenuItemExecute("Open")
        create AcroExch.AVDoc
        AcroExch.AVDoc.Open("C:\in\Report.pdf", "")
        AcroExch.App.GetActiveDoc()
        release AcroExch.AVDoc
        AcroExch.ActiveDoc.GetPDDoc()
        release AcroExch.PDDoc
        opened
        release AcroExch.ActiveDoc
        release AcroExch.ActivePDDoc
        release AcroExch.App
)";

TEST_F(OpenDocument, AloneWithAPasswordGetsAViewerAfterTheDialogs) {
    open_with_two_objects([&](Acrobat& acrobat) { open_document(session(), acrobat, secret); });
    expect_journal(opened_in_new_viewer);
}

// The document, and a viewer on it.

TEST_F(OpenDocument, WithAViewerIsOpenedFirstAndTheViewerThenHasTheFileNameAsTitle) {
    open_with_two_objects([&](Acrobat& acrobat) { open_document_and_viewer(session(), acrobat, plain); });
    expect_journal(R"(
        AcroExch.PDDoc.Open("C:\in\Report.pdf")
        AcroExch.PDDoc.OpenAVDoc("Report.pdf")
        opened
        release AcroExch.AVDoc
        release AcroExch.PDDoc
        release AcroExch.App
    )");
}

TEST_F(OpenDocument, WithAViewerOfAnyOtherAcrobatHasNoTitle) {
    register_acrobat("6.0.1");
    open_with_two_objects([&](Acrobat& acrobat) { open_document_and_viewer(session(), acrobat, plain); });
    EXPECT_EQ(line_with("OpenAVDoc"), "AcroExch.PDDoc.OpenAVDoc(\"\")");
}

TEST_F(OpenDocument, TheFileNameIsWhatFollowsTheSeparatorOfThePlatform) {
    stage.separator = '/';
    open_with_two_objects(
        [&](Acrobat& acrobat) { open_document_and_viewer(session(), acrobat, {.path = "/in/a\\b.pdf"}); });
    EXPECT_EQ(line_with("OpenAVDoc"), "AcroExch.PDDoc.OpenAVDoc(\"a\\b.pdf\")");
}

TEST_F(OpenDocument, WithAViewerAndAPasswordGetsTheViewerAfterTheDialogs) {
    open_with_two_objects([&](Acrobat& acrobat) { open_document_and_viewer(session(), acrobat, secret); });
    expect_journal(opened_in_new_viewer);
}

// Passwords and the sender.

TEST_F(OpenDocument, APasswordOfBlanksIsNoneAndNoSenderIsLookedFor) {
    take_the_sender_away();
    const PdfFile blanks{.path = "a.pdf", .password = "   "};
    open([&](Acrobat& acrobat) {
        open_in_viewer(session(), acrobat, blanks);
        open_document(session(), acrobat, blanks);
        open_document_and_viewer(session(), acrobat, blanks);
    });
    expect_journal(R"(
        AcroExch.AVDoc.Open("a.pdf", "")
        AcroExch.AVDoc.GetPDDoc()
        release AcroExch.PDDoc
        AcroExch.PDDoc.Open("a.pdf")
        AcroExch.PDDoc.Open("a.pdf")
        AcroExch.PDDoc.OpenAVDoc("a.pdf")
        release AcroExch.AVDoc
        opened
        release AcroExch.AVDoc
        release AcroExch.PDDoc
        release AcroExch.App
    )");
}

TEST_F(OpenDocument, APasswordWithoutASenderIsTheComponentsErrorBeforeAcrobatIsAsked) {
    take_the_sender_away();
    open([&](Acrobat& acrobat) { open_in_viewer(session(), acrobat, secret); });
    EXPECT_EQ(stage.journal().find("MenuItemExecute"), std::string::npos);
    EXPECT_TRUE(last_line().starts_with("raise -2147467008 from Foliant: Error! Can't find file"));
}

TEST_F(OpenDocument, ASenderBesideTheLibraryIsStartedFromThere) {
    take_the_sender_away();
    const std::string sender = "C:\\Program Files\\Foliant\\quorixsend.exe";
    stage.put_file(sender);
    stage.programs.insert(sender);
    open([&](Acrobat& acrobat) { open_in_viewer(session(), acrobat, secret); });
    tests::expect_text(lines_with({"start"}), R"(
        start (hidden) C:\Program Files\Foliant\quorixsend.exe open~Edit~C:\in\Report.pdf~0~0~
        start (hidden) C:\Program Files\Foliant\quorixsend.exe password~Edit~ open me~0~0~
    )");
}

TEST(CannotOpenFile, NamesThePathAsItStands) {
    EXPECT_EQ(cannot_open_file("C:\\in\\Report.pdf"), "Can't open file C:\\in\\Report.pdf.");
}

// What fails while a document is being opened, in the two kinds of error trap.

constexpr tests::Ending let_acrobat_go{"let Acrobat go", R"(
    AcroExch.AVDoc.Close(True)
    release AcroExch.AVDoc
    release AcroExch.PDDoc
    AcroExch.App.Exit()
    release AcroExch.App
)"};

constexpr tests::Ending say_that_the_sender_is_missing{
    "say that the sender is missing",
    "raise -2147467008 from Foliant: Error! Can't find file QUORIXSEND.EXE. Please copy this file into the "
    "same path as QUORIX.OCX or into your Window's System Directory."};

constexpr tests::Ending say_that_it_cannot_be_opened{
    "say that it cannot be opened", "raise -2147467008 from Foliant: Can't open file C:\\in\\Report.pdf."};

const tests::ServiceFaults in_a_viewer_with_a_password(
    "InAViewerWithAPassword", name_what_the_dialogs_opened,
    [](const Session& session) {
        Acrobat acrobat;
        session::with_error_trap(
            [&] {
                acrobat.application = new_application(session);
                acrobat.viewer = new_viewer(session);
                acrobat.document = new_document(session);
                open_in_viewer(session, acrobat, secret);
                acrobat.close_and_exit();
            },
            [&] { acrobat.let_go(); });
    },
    {.endings = {let_acrobat_go, say_that_the_sender_is_missing}, .report = R"(
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
        say that the sender is missing
    fails: length C:\WINDOWS\system32\quorixsend.exe
        length C:\Program Files\Foliant\quorixsend.exe -> not found
        let Acrobat go
        say that the sender is missing
    fails: start (hidden) C:\WINDOWS\system32\quorixsend.exe open~Edit~C:\in\Report.pdf~0~0~
    fails: start (hidden) C:\WINDOWS\system32\quorixsend.exe password~Edit~ open me~0~0~
    fails: AcroExch.App.MenuItemExecute("Open")
    fails: AcroExch.App.GetActiveDoc()
        let Acrobat go
        raise the failure
    fails: AcroExch.ActiveDoc.GetPDDoc()
        AcroExch.ActiveDoc.Close(True)
        release AcroExch.ActiveDoc
        release AcroExch.PDDoc
        AcroExch.App.Exit()
        release AcroExch.App
        raise the failure
    fails: AcroExch.ActiveDoc.Close(True)
    fails: AcroExch.App.Exit()
        AcroExch.ActiveDoc.Close(True)
        release AcroExch.ActiveDoc
        release AcroExch.ActivePDDoc
        AcroExch.App.Exit()
        release AcroExch.App
        raise the failure
)"});

const tests::ServiceFaults in_a_viewer_of_the_documents_with_a_password(
    "InAViewerOfTheDocumentsWithAPassword", name_what_the_dialogs_opened,
    [](const Session& session) {
        Acrobat acrobat;
        session::with_error_trap(
            [&] {
                acrobat.application = new_application(session);
                acrobat.document = new_document(session);
                open_document(session, acrobat, secret);
                acrobat.document.call("GetNumPages");
            },
            [&] { acrobat.let_go(); });
    },
    {.endings = {let_acrobat_go, say_that_the_sender_is_missing}, .report = R"(
    fails: create AcroExch.App
        raise the failure
    fails: create AcroExch.PDDoc
        AcroExch.App.Exit()
        release AcroExch.App
        raise the failure
    fails: special folder 37 (owner 100)
        length \quorixsend.exe -> not found
        length C:\Program Files\Foliant\quorixsend.exe -> not found
        release AcroExch.PDDoc
        AcroExch.App.Exit()
        release AcroExch.App
        say that the sender is missing
    fails: length C:\WINDOWS\system32\quorixsend.exe
        length C:\Program Files\Foliant\quorixsend.exe -> not found
        release AcroExch.PDDoc
        AcroExch.App.Exit()
        release AcroExch.App
        say that the sender is missing
    fails: start (hidden) C:\WINDOWS\system32\quorixsend.exe open~Edit~C:\in\Report.pdf~0~0~
    fails: start (hidden) C:\WINDOWS\system32\quorixsend.exe password~Edit~ open me~0~0~
    fails: AcroExch.App.MenuItemExecute("Open")
    fails: create AcroExch.AVDoc
        release AcroExch.PDDoc
        AcroExch.App.Exit()
        release AcroExch.App
        raise the failure
    fails: AcroExch.AVDoc.Open("C:\in\Report.pdf", "")
    fails: AcroExch.App.GetActiveDoc()
        let Acrobat go
        raise the failure
    fails: AcroExch.ActiveDoc.GetPDDoc()
        AcroExch.ActiveDoc.Close(True)
        release AcroExch.ActiveDoc
        release AcroExch.PDDoc
        AcroExch.App.Exit()
        release AcroExch.App
        raise the failure
    fails: AcroExch.ActivePDDoc.GetNumPages()
        AcroExch.ActiveDoc.Close(True)
        release AcroExch.ActiveDoc
        release AcroExch.ActivePDDoc
        AcroExch.App.Exit()
        release AcroExch.App
        raise the failure
)"});

const tests::ServiceFaults with_a_viewer("WithAViewer", {},
                                         [](const Session& session) {
                                             Acrobat acrobat;
                                             session::with_error_trap_saying(
                                                 cannot_open_file(plain.path),
                                                 [&] {
                                                     acrobat.application = new_application(session);
                                                     acrobat.document = new_document(session);
                                                     open_document_and_viewer(session, acrobat, plain);
                                                     acrobat.close_both_and_exit();
                                                 },
                                                 [&] { acrobat.release(); });
                                         },
                                         {.endings = {say_that_it_cannot_be_opened}, .report = R"(
    fails: create AcroExch.App
        say that it cannot be opened
    fails: create AcroExch.PDDoc
        release AcroExch.App
        say that it cannot be opened
    fails: AcroExch.PDDoc.Open("C:\in\Report.pdf")
    fails: AcroExch.PDDoc.OpenAVDoc("Report.pdf")
        release AcroExch.PDDoc
        release AcroExch.App
        say that it cannot be opened
    fails: AcroExch.AVDoc.Close(True)
    fails: AcroExch.PDDoc.Close()
    fails: AcroExch.App.Exit()
        release AcroExch.AVDoc
        release AcroExch.PDDoc
        release AcroExch.App
        say that it cannot be opened
)"});

}  // namespace
}  // namespace foliant::acrobat
