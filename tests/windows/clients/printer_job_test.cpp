// What surrounds printing to a PDF printer, through the registered component and on real windows: the message
// when there is no sender, and the Acrobat window that is to be closed.

#include <gtest/gtest.h>

#include "platform/win32/listening_window.h"
#include "platform/win32/text.h"
#include "windows/clients/client_run.h"
#include "windows/clients/installed_component.h"
#include "windows/sender/sender_process.h"

namespace foliant::tests::clients {
namespace {

using platform::win32::to_utf8;
using platform::win32::test::ListeningWindow;
using sender::win32::test::SenderProcess;
using servers::Kind;

/// The call, by a client whose window does not call back.
CallFile printing() {
    CallFile call = call_file("word-and-printer");
    call.window.clear();
    call.expected = without(call.expected, "window ");
    return call;
}

CallFile closing() {
    return with(printing(), "strDistiller=printer", "strDistiller=printer; blnCloseAcrobat=True");
}

class ClosingAcrobat : public testing::Test {
  protected:
    static void make(const CallFile& call) {
        EXPECT_EQ(ClientRun(Client::late_bound, call, "acrobat").result(), call.expected);
    }

    InstalledComponent component_{Kind::in_process};
};

TEST_F(ClosingAcrobat, ClosesTheWindowThatShowsTheNewPdf) {
    const ListeningWindow other(L"Adobe Acrobat - [other.pdf]");
    const ListeningWindow acrobat(L"Adobe Acrobat - [OUT.pdf]");
    make(closing());
    EXPECT_EQ(acrobat.heard(), "close;");
    EXPECT_EQ(other.heard(), "");
}

TEST_F(ClosingAcrobat, ClosesTheWindowOfAcrobatProfessional) {
    const ListeningWindow acrobat(L"Adobe Acrobat Professional - [out.pdf]");
    make(closing());
    EXPECT_EQ(acrobat.heard(), "close;");
}

TEST_F(ClosingAcrobat, IsNotDoneUnlessAskedFor) {
    const ListeningWindow acrobat(L"Adobe Acrobat - [out.pdf]");
    make(printing());
    EXPECT_EQ(acrobat.heard(), "");
}

/// The command lines of this job name the system's folder, wherever else a sender may lie.
TEST(WithoutSenderInTheSystemFolder, TheOneBesideTheLibraryIsNotStarted) {
    const InstalledComponent component(Kind::in_process, Sender::beside_library);
    const std::string result = ClientRun(Client::late_bound, printing(), "beside").result();
    EXPECT_NE(result.find("error 800A0035 Foliant: Cannot start a program: File not found.\n"),
              std::string::npos)
        << result;
    EXPECT_EQ(result.find("PrintOut"), std::string::npos) << result;
    EXPECT_NE(
        result.find("release Word.Document\nWord.Application.Quit() METHOD|GET\nrelease Word.Application\n"),
        std::string::npos)
        << result;
}

BOOL CALLBACK add_text(HWND window, LPARAM texts) {
    wchar_t text[400]{};
    GetWindowTextW(window, text, 400);
    if (text[0] != 0) *reinterpret_cast<std::string*>(texts) += to_utf8(std::wstring_view(text)) + "\n";
    return TRUE;
}

/// The texts of a window and of what is in it, a line each.
std::string texts_of(HWND window) {
    std::string texts;
    add_text(window, reinterpret_cast<LPARAM>(&texts));
    EnumChildWindows(window, add_text, reinterpret_cast<LPARAM>(&texts));
    return texts;
}

/// A message box is shown once all that is in it has been made.
HWND wait_until_shown(const wchar_t* caption) {
    constexpr int rounds = 600;
    constexpr DWORD pause_ms = 50;
    for (int i = 0; i < rounds; ++i) {
        const HWND window = FindWindowW(nullptr, caption);
        if (window != nullptr && IsWindowVisible(window) != FALSE) return window;
        Sleep(pause_ms);
    }
    return nullptr;
}

/// Senders of the test's own stand for the person who reads the message and answers the dialogs.
TEST(WithoutAnySender, AMessageSaysSoAndTheDialogsWaitForAPerson) {
    const InstalledComponent component(Kind::in_process, Sender::nowhere);
    ClientRun run(Client::late_bound, printing(), "nowhere");
    const HWND message = wait_until_shown(L"File QUORIXSEND.EXE not found");
    ASSERT_NE(message, nullptr);
    EXPECT_EQ(
        texts_of(message),
        "File QUORIXSEND.EXE not found\n"
        "OK\n"
        "Error! Can't find file QUORIXSEND.EXE. Please copy this file into the same path as QUORIX.OCX or "
        "into your Window's System Directory.\n");
    EXPECT_NE(GetWindowLongPtrW(message, GWL_EXSTYLE) & WS_EX_TOPMOST, 0) << "for the whole system";
    SenderProcess reads("file quorixsend.exe not found~Button~~0~0~");
    EXPECT_EQ(reads.wait(), 0);
    SenderProcess names_the_file("save pdf file as~Edit~" + to_utf8(ClientRun::folder_of("nowhere")) +
                                 "out.pdf~0~0~");
    SenderProcess reads_the_notice("adobe pdf - security~Button~~0~0~");
    EXPECT_EQ(run.result(), printing().expected);
    EXPECT_EQ(names_the_file.wait(), 0);
    EXPECT_EQ(reads_the_notice.wait(), 0);
    EXPECT_TRUE(run.has(L"out.pdf"));
}

}  // namespace
}  // namespace foliant::tests::clients
