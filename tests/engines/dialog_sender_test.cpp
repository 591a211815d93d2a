#include "engines/dialog_sender.h"

#include <gtest/gtest.h>

#include "support/staged_session.h"

namespace foliant::engines {
namespace {

class DialogSender : public tests::StagedSession {
  protected:
    /// The sender is nowhere until a test puts it somewhere.
    DialogSender() { stage.files.clear(); }

    void put_sender_in(const std::string& folder) {
        stage.put_file(folder + "\\quorixsend.exe");
        stage.programs.insert(folder + "\\quorixsend.exe");
    }
};

TEST_F(DialogSender, IsTakenFromTheSystemFolderWithoutAskingForTheOther) {
    put_sender_in("C:\\WINDOWS\\system32");
    EXPECT_EQ(locate_sender(session()), "C:\\WINDOWS\\system32");
    expect_journal(R"(
        special folder 37 (owner 100)
        length C:\WINDOWS\system32\quorixsend.exe -> 1000
    )");
}

TEST_F(DialogSender, InBothFoldersIsTakenFromTheSystemFolder) {
    put_sender_in("C:\\Program Files\\Foliant");
    put_sender_in("C:\\WINDOWS\\system32");
    EXPECT_EQ(locate_sender(session()), "C:\\WINDOWS\\system32");
}

TEST_F(DialogSender, IsLookedForBesideTheLibraryNext) {
    put_sender_in("C:\\Program Files\\Foliant");
    EXPECT_EQ(locate_sender(session()), "C:\\Program Files\\Foliant");
    expect_journal(R"(
        special folder 37 (owner 100)
        length C:\WINDOWS\system32\quorixsend.exe -> not found
        length C:\Program Files\Foliant\quorixsend.exe -> 1000
    )");
}

TEST_F(DialogSender, InNeitherFolderIsMissing) {
    EXPECT_EQ(locate_sender(session()), std::nullopt);
}

TEST_F(DialogSender, ASystemFolderThatIsKnownIsNotLookedUpAgain) {
    put_sender_in("C:\\Program Files\\Foliant");
    EXPECT_EQ(locate_sender(session(), "D:\\system"), "C:\\Program Files\\Foliant");
    EXPECT_EQ(require_sender(session(), "D:\\system"), "C:\\Program Files\\Foliant");
    expect_journal(R"(
        length D:\system\quorixsend.exe -> not found
        length C:\Program Files\Foliant\quorixsend.exe -> 1000
        length D:\system\quorixsend.exe -> not found
        length C:\Program Files\Foliant\quorixsend.exe -> 1000
    )");
}

TEST_F(DialogSender, WhoRequiresItIsToldTheFolderThatItIsIn) {
    put_sender_in("C:\\Program Files\\Foliant");
    EXPECT_EQ(require_sender(session()), "C:\\Program Files\\Foliant");
    expect_journal(R"(
        special folder 37 (owner 100)
        length C:\WINDOWS\system32\quorixsend.exe -> not found
        length C:\Program Files\Foliant\quorixsend.exe -> 1000
    )");
}

TEST_F(DialogSender, WhoRequiresItInVainRaisesTheComponentsError) {
    run([&] { require_sender(session()); });
    expect_journal(
        "special folder 37 (owner 100)\n"
        "length C:\\WINDOWS\\system32\\quorixsend.exe -> not found\n"
        "length C:\\Program Files\\Foliant\\quorixsend.exe -> not found\n"
        "raise -2147467008 from Foliant: Error! Can't find file QUORIXSEND.EXE. Please copy this file into "
        "the same path as QUORIX.OCX or into your Window's System Directory.\n");
}

TEST_F(DialogSender, IsStartedHiddenAndItsFieldsEachEndInATilde) {
    put_sender_in("C:\\WINDOWS\\system32");
    start_sender(session(), "C:\\WINDOWS\\system32", {"open", "Edit", "C:\\Docs\\report.pdf"});
    expect_journal(R"(
        start (hidden) C:\WINDOWS\system32\quorixsend.exe open~Edit~C:\Docs\report.pdf~0~0~
    )");
}

TEST_F(DialogSender, GetsEveryCommandOfTheLibraryAsItStands) {
    put_sender_in("C:\\s");
    const SenderCommand commands[] = {
        {"open", "Edit", "C:\\Docs\\report.pdf"},
        {"password", "Edit", "secret"},
        {"go to page", "RichEdit20W", "12"},
        {"go to page", "Edit", "12"},
        {"save pdf file as", "Edit", "C:\\out\\report.pdf"},
        {"adobe pdf - security", "Button", ""},
        {"create pdf from web page", "Edit", "http://www.example.com/", '0', '1'},
        {"error: nothing done", "Button", "", '0', '1'},
        {"there were errors", "Button", "", '0', '1'},
        {"create web links", "Button", ""},
        {"adobe acrobat", "Button", ""},
        {"password security - settings", "Button", "{LM}", '0', '1'},
        {"password security - settings", "Edit", "secret^1", '0', '1'},
        {"adobe acrobat - confirm open document password", "Edit", "secret", '0', '1'},
        {"adobe acrobat", "Button", "{LME}", '0', '1'},
    };
    for (const SenderCommand& command : commands)
        start_sender(session(), "C:\\s", command);
    expect_journal(R"(
        start (hidden) C:\s\quorixsend.exe open~Edit~C:\Docs\report.pdf~0~0~
        start (hidden) C:\s\quorixsend.exe password~Edit~secret~0~0~
        start (hidden) C:\s\quorixsend.exe go to page~RichEdit20W~12~0~0~
        start (hidden) C:\s\quorixsend.exe go to page~Edit~12~0~0~
        start (hidden) C:\s\quorixsend.exe save pdf file as~Edit~C:\out\report.pdf~0~0~
        start (hidden) C:\s\quorixsend.exe adobe pdf - security~Button~~0~0~
        start (hidden) C:\s\quorixsend.exe create pdf from web page~Edit~http://www.example.com/~0~1~
        start (hidden) C:\s\quorixsend.exe error: nothing done~Button~~0~1~
        start (hidden) C:\s\quorixsend.exe there were errors~Button~~0~1~
        start (hidden) C:\s\quorixsend.exe create web links~Button~~0~0~
        start (hidden) C:\s\quorixsend.exe adobe acrobat~Button~~0~0~
        start (hidden) C:\s\quorixsend.exe password security - settings~Button~{LM}~0~1~
        start (hidden) C:\s\quorixsend.exe password security - settings~Edit~secret^1~0~1~
        start (hidden) C:\s\quorixsend.exe adobe acrobat - confirm open document password~Edit~secret~0~1~
        start (hidden) C:\s\quorixsend.exe adobe acrobat~Button~{LME}~0~1~
    )");
}

TEST_F(DialogSender, NothingInACommandIsQuotedOrEscaped) {
    put_sender_in("C:\\My Programs");
    start_sender(session(), "C:\\My Programs", {"open", "Edit", "C:\\My Files\\a~b\".pdf"});
    expect_journal(R"(
        start (hidden) C:\My Programs\quorixsend.exe open~Edit~C:\My Files\a~b".pdf~0~0~
    )");
}

TEST_F(DialogSender, ADriveRootDoublesTheSeparator) {
    stage.library_folder = "C:\\";
    put_sender_in("C:\\");
    const auto folder = locate_sender(session());
    ASSERT_TRUE(folder.has_value());
    start_sender(session(), *folder, {"open", "Edit", "a.pdf"});
    expect_journal(R"(
        special folder 37 (owner 100)
        length C:\WINDOWS\system32\quorixsend.exe -> not found
        length C:\\quorixsend.exe -> 1000
        start (hidden) C:\\quorixsend.exe open~Edit~a.pdf~0~0~
    )");
}

TEST_F(DialogSender, OneThatIsNotWhereItIsStartedFromIsFileNotFound) {
    run([&] { start_sender(session(), "C:\\s", {"open", "Edit", "a.pdf"}); });
    expect_journal(R"(
        start (hidden) C:\s\quorixsend.exe open~Edit~a.pdf~0~0~
        raise 53 from : File not found
    )");
}

TEST_F(DialogSender, TheTextThatItIsMissingIsTheSameEverywhere) {
    EXPECT_EQ(sender_missing_text,
              "Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as QUORIX.OCX "
              "or into your Window's System Directory.");
}

}  // namespace
}  // namespace foliant::engines
