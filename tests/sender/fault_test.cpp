// Whatever happens at whichever moment: for each command and each call a sender makes, the dialog vanishes
// before that call, that call fails, or another sender runs within it.

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "sender/desktop.h"

namespace foliant::sender::test {
namespace {

using testing::Each;
using namespace std::chrono_literals;

struct Row {
    std::string tail;
    Dialog (*dialog)();
    std::string deeds;  ///< All that is to be done to one dialog, in the end.
};

const std::vector<Row>& rows() {
    static const std::vector<Row> all{
        {"save pdf file as~Edit~a~0~0~", save_dialog,
         "Save PDF File As: Edit 1 now holds \"a\"\nSave PDF File As: Enter\n"},
        {"adobe acrobat - confirm open document password~Edit~a~0~1~", confirm_password,
         "Adobe Acrobat - Confirm Open Document Password: Edit 1 now holds \"a\"\n"
         "Adobe Acrobat - Confirm Open Document Password: Enter\n"},
        {"adobe acrobat~Button~~0~0~", notice, "Adobe Acrobat: button \"OK\" is pressed\n"},
        {"adobe acrobat~Button~{LME}~0~1~", notice, "Adobe Acrobat: button \"OK\" is pressed\n"},
        {"password security - settings~Button~{LM}~0~1~", [] { return password_settings(); },
         "Password Security - Settings: box \"Re&quire a password to open the document\" is ticked\n"},
        {"password security - settings~Edit~a^1~0~1~", [] { return password_settings(true); },
         "Password Security - Settings: Edit 1 now holds \"a\"\nPassword Security - Settings: Enter\n"},
    };
    return all;
}

/// Runs `trouble` at call number 1, 2, ... in turn, each on a fresh desktop, until a run ends before that
/// call comes. Each run must end with the command carried out.
void trouble_at_every_call(const Row& row, const std::function<bool(Desktop&)>& trouble,
                           const std::function<void(const Desktop&)>& check) {
    bool reached = true;
    for (int k = 1; reached; ++k) {
        SCOPED_TRACE(row.tail + ", call " + std::to_string(k));
        reached = false;
        Desktop desktop;
        desktop.show(row.dialog());
        Sender sender(parse(row.tail));
        desktop.before_call = [&](int call) {
            if (call != k) return false;
            reached = true;
            return trouble(desktop);
        };
        EXPECT_EQ(sender.run(desktop), ExitCode::acted);
        check(desktop);
        ASSERT_LT(k, 1000);
    }
}

TEST(SenderFaults, ADialogThatVanishesIsForgottenAndTheNextOneAnswered) {
    for (const Row& row : rows()) {
        const auto vanish = [&](Desktop& desktop) {
            desktop.cancel_all();
            desktop.show_at(desktop.now() + 1s, row.dialog());
            return false;
        };
        trouble_at_every_call(row, vanish, [&](const Desktop& desktop) {
            const std::string deeds = desktop.deeds();
            const std::size_t cancelled = deeds.find("is cancelled\n");
            const std::string since = cancelled == std::string::npos ? deeds : deeds.substr(cancelled + 13);
            // Answered after the new one came, or all was done before the old one went.
            EXPECT_TRUE(since == row.deeds || (since.empty() && deeds.starts_with(row.deeds))) << deeds;
        });
    }
}

TEST(SenderFaults, ACallThatFailsIsMadeAgain) {
    for (const Row& row : rows())
        trouble_at_every_call(
            row, [](Desktop&) { return true; },
            [&](const Desktop& desktop) { EXPECT_THAT(desktop.deeds(), testing::EndsWith(row.deeds)); });
}

TEST(SenderFaults, TwoSendersOfOneCommandAnswerOneDialogEach) {
    for (const Row& row : rows()) {
        if (parse(row.tail).action() == Action::tick_option) continue;
        bool reached = true;
        for (int k = 1; reached; ++k) {
            SCOPED_TRACE(row.tail + ", call " + std::to_string(k));
            reached = false;
            Desktop desktop;
            desktop.show(
                row.dialog().closing_takes(1s).then([&](Desktop& next) { next.show(row.dialog()); }));
            std::vector<Sender> senders = senders_for({row.tail, row.tail});
            desktop.before_call = [&](int call) {
                if (call != k) return false;
                reached = true;
                senders[1].step(desktop);
                return false;
            };
            EXPECT_THAT(play(desktop, senders), Each(Progress::acted));
            const std::string caption = row.deeds.substr(0, row.deeds.find(": "));
            EXPECT_EQ(desktop.deeds(), row.deeds + caption + ": has closed\n" + row.deeds);
            ASSERT_LT(k, 1000);
        }
    }
}

TEST(SenderFaults, TickAndPasswordDoNotMissEachOther) {
    for (const bool ticked : {false, true}) {
        for (const std::size_t inner : {0U, 1U}) {
            bool reached = true;
            for (int k = 1; reached; ++k) {
                SCOPED_TRACE("call " + std::to_string(k) + ", within it sender " + std::to_string(inner));
                reached = false;
                Desktop desktop;
                desktop.show(password_settings(ticked));
                std::vector<Sender> senders = senders_for({rows()[4].tail, rows()[5].tail});
                desktop.before_call = [&](int call) {
                    if (call != k) return false;
                    reached = true;
                    senders[inner].step(desktop);
                    return false;
                };
                EXPECT_THAT(play(desktop, senders), Each(Progress::acted));
                EXPECT_EQ(desktop.deeds(), (ticked ? "" : rows()[4].deeds) + rows()[5].deeds);
                ASSERT_LT(k, 1000);
            }
        }
    }
}

}  // namespace
}  // namespace foliant::sender::test
