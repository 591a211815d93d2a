#include "sender/command.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

namespace foliant::sender {
namespace {

using Fault = CommandError::Fault;
using testing::HasSubstr;
using testing::Not;

CommandError error_of(const std::string& tail) {
    try {
        parse(tail);
    } catch (const CommandError& error) {
        return error;
    }
    ADD_FAILURE() << "was accepted: " << tail;
    return {Fault::empty, ""};
}

TEST(Command, HasFiveFieldsEachFollowedByATilde) {
    const Command command = parse("password security - settings~Edit~abc^1~0~1~");
    EXPECT_EQ(command.caption, "password security - settings");
    EXPECT_EQ(command.control, ControlClass::edit);
    EXPECT_EQ(command.text, "abc^1");
    EXPECT_TRUE(command.stay_until_closed);
}

TEST(Command, KeepsBlanksInsideAPath) {
    EXPECT_EQ(parse(R"(open~Edit~C:\My Files\a b.pdf ~0~0~)").text, R"(C:\My Files\a b.pdf )");
}

TEST(Command, KeepsTildesOfATextWhole) {
    EXPECT_EQ(parse("password~Edit~a~b~0~0~").text, "a~b");
    EXPECT_EQ(parse("password~Edit~~~0~0~").text, "~");
    EXPECT_EQ(parse("password~Edit~a~0~1~~0~0~").text, "a~0~1~");
    EXPECT_EQ(parse(R"(open~Edit~C:\PROGRA~1\a.pdf~0~0~)").text, R"(C:\PROGRA~1\a.pdf)");
}

TEST(Command, TakesAnEmptyText) {
    const Command command = parse("adobe acrobat - confirm open document password~Edit~~0~1~");
    EXPECT_EQ(command.text, "");
    EXPECT_EQ(command.entry(), "");
}

TEST(Command, PassesOverBlanksBeforeItAndWhiteSpaceBehindIt) {
    EXPECT_EQ(parse("  open~Edit~x~0~0~ \r\n"), parse("open~Edit~x~0~0~"));
}

TEST(Command, ReadsClassesInAnyCase) {
    EXPECT_EQ(parse("go to page~RICHEDIT20W~3~0~0~").control, ControlClass::rich_edit);
    EXPECT_EQ(parse("adobe acrobat~button~~0~0~").control, ControlClass::button);
    EXPECT_EQ(parse("go to page~edit~3~0~0~").control, ControlClass::edit);
}

TEST(Command, KnowsItsActionFromClassAndText) {
    EXPECT_EQ(parse("open~Edit~x~0~0~").action(), Action::enter_text);
    EXPECT_EQ(parse("go to page~RichEdit20W~3~0~0~").action(), Action::enter_text);
    EXPECT_EQ(parse("adobe acrobat~Button~~0~0~").action(), Action::press_default);
    EXPECT_EQ(parse("password security - settings~Button~{LM}~0~1~").action(), Action::tick_option);
    EXPECT_EQ(parse("password security - settings~Edit~x^1~0~1~").action(), Action::enter_option_text);
    EXPECT_EQ(parse("adobe acrobat~Button~{LME}~0~1~").action(), Action::dismiss_notice);
}

TEST(Command, TakesTheSuffixOffInTheSettingsDialogOnly) {
    EXPECT_EQ(parse("password security - settings~Edit~abc^1~0~1~").entry(), "abc");
    EXPECT_EQ(parse("Password Security - Settings~Edit~^1~0~1~").entry(), "");
    EXPECT_EQ(parse("password security - settings~Edit~abc^1^1~0~1~").entry(), "abc^1");
    EXPECT_EQ(parse("adobe acrobat - confirm open document password~Edit~abc^1~0~1~").entry(), "abc^1");
    EXPECT_EQ(parse("password~Edit~abc^1~0~0~").entry(), "abc^1");
    EXPECT_EQ(parse("create pdf from web page~Edit~http://localhost/2^1~0~1~").entry(),
              "http://localhost/2^1");
}

TEST(Command, TakesTokensInAnEditAsText) {
    const Command command = parse("password~Edit~{LM}~0~0~");
    EXPECT_EQ(command.action(), Action::enter_text);
    EXPECT_EQ(command.entry(), "{LM}");
    EXPECT_EQ(parse("password security - settings~Edit~{LME}^1~0~1~").entry(), "{LME}");
}

TEST(Command, EntersNothingWithAButton) {
    EXPECT_EQ(parse("password security - settings~Button~{LM}~0~1~").entry(), "");
}

TEST(CommandError, SaysWhatIsWrongAndHowACommandLooks) {
    EXPECT_STREQ(error_of("open~Edit~report.pdf~").what(),
                 "quorixsend cannot read its command: it has 3 fields where five are needed.\n"
                 "A command has five fields, each followed by \"~\": caption~class~text~0~B~\n"
                 "For example: open~Edit~C:\\Docs\\report.pdf~0~0~");
}

struct Malformed {
    std::string tail;
    Fault fault;
    std::string says;
};

class MalformedCommand : public testing::TestWithParam<Malformed> {};

TEST_P(MalformedCommand, IsRefusedWithItsReason) {
    const CommandError error = error_of(GetParam().tail);
    EXPECT_EQ(error.fault(), GetParam().fault);
    EXPECT_THAT(error.what(), HasSubstr("command: " + GetParam().says + "\n"));
}

INSTANTIATE_TEST_SUITE_P(
    Command, MalformedCommand,
    testing::Values(
        Malformed{"", Fault::empty, "it is empty."}, Malformed{"  \t", Fault::empty, "it is empty."},
        Malformed{"--help", Fault::not_terminated,
                  R"(it does not end with "~" and may have been cut short.)"},
        Malformed{"open~Edit~x~0~0", Fault::not_terminated,
                  R"(it does not end with "~" and may have been cut short.)"},
        Malformed{"~", Fault::too_few_fields, "it has 1 field where five are needed."},
        Malformed{"open~Edit~0~0~", Fault::too_few_fields, "it has 4 fields where five are needed."},
        Malformed{"~Edit~x~0~0~", Fault::no_caption, "the caption of the dialog is empty."},
        Malformed{"  ~Edit~x~0~0~", Fault::no_caption, "the caption of the dialog is empty."},
        Malformed{
            "open~ListBox~x~0~0~", Fault::unknown_class,
            R"("ListBox" is no control class that can be acted on; these can: Edit, RichEdit20W, Button.)"},
        Malformed{"open~~x~0~0~", Fault::unknown_class,
                  R"("" is no control class that can be acted on; these can: Edit, RichEdit20W, Button.)"},
        Malformed{"adobe acrobat~Button~OK~0~0~", Fault::unknown_action,
                  "a Button takes no text but {LM} or {LME}, or none for the default button."},
        Malformed{"adobe acrobat~Button~{lm}~0~0~", Fault::unknown_action,
                  "a Button takes no text but {LM} or {LME}, or none for the default button."},
        Malformed{"open~Edit~x~1~0~", Fault::bad_flag, "flag A must be 0."},
        Malformed{"open~Edit~x~~0~", Fault::bad_flag, "flag A must be 0."},
        Malformed{"open~Edit~x~0~2~", Fault::bad_flag, "flag B must be 0 or 1."},
        Malformed{"open~Edit~x~0~00~", Fault::bad_flag, "flag B must be 0 or 1."}));

TEST(CommandError, NeverQuotesWhatMayBeAPassword) {
    EXPECT_THAT(error_of("password~Edit~s3cret~0~0").what(), Not(HasSubstr("s3cret")));
    EXPECT_THAT(error_of("password~Edit~s3cret~0~9~").what(), Not(HasSubstr("s3cret")));
    EXPECT_THAT(error_of("password~Edit~a~s3cret~0~").what(), Not(HasSubstr("s3cret")));
    EXPECT_THAT(error_of("password~Edit~a~0~s3cret~").what(), Not(HasSubstr("s3cret")));
    EXPECT_THAT(error_of("password~Button~s3cret~0~0~").what(), Not(HasSubstr("s3cret")));
}

}  // namespace
}  // namespace foliant::sender
