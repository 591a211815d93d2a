// Every command that the library sends, on the dialogs it is made for: what each does, as a transcript.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "sender/desktop.h"

namespace foliant::sender::test {
namespace {

using testing::Each;

/// The transcript of a desktop that shows `first` after 500 ms, with senders for `tails` waiting.
std::string played(const Dialog& first, const std::vector<std::string>& tails) {
    Desktop desktop;
    desktop.show_at(Milliseconds{500}, first);
    std::vector<Sender> senders = senders_for(tails);
    EXPECT_THAT(play(desktop, senders), Each(Progress::acted));
    EXPECT_TRUE(desktop.is_empty());
    return desktop.transcript();
}

TEST(Dialogs, OpenTakesThePathAndEnter) {
    EXPECT_EQ(played(open_dialog(), {R"(open~Edit~C:\My Files\a.pdf~0~0~)"}),
              R"(700  Open: Edit 1 now holds "C:\My Files\a.pdf"
700  Open: Enter
)");
}

TEST(Dialogs, OpenAndPasswordComeInTurn) {
    const Dialog open = open_dialog().then([](Desktop& desktop) { desktop.show(password_dialog()); });
    EXPECT_EQ(played(open, {"open~Edit~/docs/a.pdf~0~0~", "password~Edit~s3cret~0~0~"}),
              R"(700  Open: Edit 1 now holds "/docs/a.pdf"
700  Open: Enter
900  Password: Edit 1 now holds "s3cret"
900  Password: Enter
)");
}

TEST(Dialogs, GoToPageTakesANumberInEitherClass) {
    const auto dialog = [](const std::string& window_class) {
        return Dialog("Go To Page").edit(window_class).default_button("OK");
    };
    const std::string expected = "700  Go To Page: Edit 1 now holds \"12\"\n700  Go To Page: Enter\n";
    EXPECT_EQ(played(dialog("RichEdit20W"), {"go to page~RichEdit20W~12~0~0~"}), expected);
    EXPECT_EQ(played(dialog("Edit"), {"go to page~Edit~12~0~0~"}), expected);
}

TEST(Dialogs, SavePdfFileAsAndItsSecurityNotice) {
    const Dialog save = save_dialog().then([](Desktop& desktop) {
        desktop.show(Dialog("Adobe PDF - Security").button("Help").default_button("OK"));
    });
    EXPECT_EQ(played(save, {"save pdf file as~Edit~/out/a.pdf~0~0~", "adobe pdf - security~Button~~0~0~"}),
              R"(700  Save PDF File As: Edit 1 now holds "/out/a.pdf"
700  Save PDF File As: Enter
900  Adobe PDF - Security: button "OK" is pressed
)");
}

TEST(Dialogs, WebCaptureTakesTheAddress) {
    const Dialog capture = Dialog("Create PDF from Web Page").edit().default_button("Create");
    EXPECT_EQ(played(capture, {"create pdf from web page~Edit~http://localhost/a b~0~1~"}),
              R"(700  Create PDF from Web Page: Edit 1 now holds "http://localhost/a b"
700  Create PDF from Web Page: Enter
)");
}

TEST(Dialogs, WebCaptureErrorsAreDismissed) {
    const Dialog nothing = Dialog("Error: Nothing Done").default_button("OK").then([](Desktop& desktop) {
        desktop.show(Dialog("There were errors").default_button("OK"));
    });
    EXPECT_EQ(played(nothing, {"error: nothing done~Button~~0~1~", "there were errors~Button~~0~1~"}),
              R"(700  Error: Nothing Done: button "OK" is pressed
900  There were errors: button "OK" is pressed
)");
}

TEST(Dialogs, LinksAreMadeAndTheNoticeDismissed) {
    const Dialog links = Dialog("Create Web Links").edit().default_button("OK").then([](Desktop& desktop) {
        desktop.show(notice());
    });
    EXPECT_EQ(played(links, {"create web links~Button~~0~0~", "adobe acrobat~Button~~0~0~"}),
              R"(700  Create Web Links: button "OK" is pressed
900  Adobe Acrobat: button "OK" is pressed
)");
}

std::vector<std::string> security_commands(const std::string& password) {
    return {"password security - settings~Button~{LM}~0~1~",
            "password security - settings~Edit~" + password + "^1~0~1~",
            "adobe acrobat - confirm open document password~Edit~" + password + "~0~1~",
            "adobe acrobat~Button~{LME}~0~1~"};
}

TEST(Dialogs, FourCommandsProtectADocument) {
    EXPECT_EQ(played(security_sequence(), security_commands("abc")),
              R"(700  Password Security - Settings: box "Re&quire a password to open the document" is ticked
700  Password Security - Settings: Edit 1 now holds "abc"
700  Password Security - Settings: Enter
900  Adobe Acrobat - Confirm Open Document Password: Edit 1 now holds "abc"
900  Adobe Acrobat - Confirm Open Document Password: Enter
1100  Adobe Acrobat: button "OK" is pressed
)");
}

TEST(Dialogs, AnOptionThatIsTickedAlreadyStaysTicked) {
    EXPECT_EQ(played(security_sequence(true), security_commands("abc")),
              R"(700  Password Security - Settings: Edit 1 now holds "abc"
700  Password Security - Settings: Enter
900  Adobe Acrobat - Confirm Open Document Password: Edit 1 now holds "abc"
900  Adobe Acrobat - Confirm Open Document Password: Enter
1100  Adobe Acrobat: button "OK" is pressed
)");
}

TEST(Dialogs, SecurityWorksInWhateverOrderItsSendersRun) {
    for (const bool ticked : {false, true}) {
        std::vector<std::string> commands = security_commands("abc");
        const std::string expected = played(security_sequence(ticked), commands);
        std::vector<std::size_t> order{0, 1, 2, 3};
        do {
            Desktop desktop;
            desktop.show(security_sequence(ticked));
            std::vector<std::string> tails;
            for (const std::size_t i : order)
                tails.push_back(commands[i]);
            std::vector<Sender> senders = senders_for(tails);
            EXPECT_THAT(play(desktop, senders), Each(Progress::acted)) << tails[0] << tails[1];
            EXPECT_TRUE(desktop.is_empty());
        } while (std::next_permutation(order.begin(), order.end()));
    }
}

TEST(Dialogs, AnyPasswordReachesBothDialogsAsItIs) {
    for (const std::string password : {"", "^1", "abc^1", "a^1^1", "{LM}", "{LME}", "a~b", "~", "~0~1~",
                                       "a b ", "p\xC3\xA4ssword", "\"quoted\"", "%PATH%"}) {
        SCOPED_TRACE(password);
        EXPECT_EQ(played(security_sequence(true), security_commands(password)),
                  "700  Password Security - Settings: Edit 1 now holds \"" + password +
                      "\"\n"
                      "700  Password Security - Settings: Enter\n"
                      "900  Adobe Acrobat - Confirm Open Document Password: Edit 1 now holds \"" +
                      password +
                      "\"\n"
                      "900  Adobe Acrobat - Confirm Open Document Password: Enter\n"
                      "1100  Adobe Acrobat: button \"OK\" is pressed\n");
    }
}

}  // namespace
}  // namespace foliant::sender::test
