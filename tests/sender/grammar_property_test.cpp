#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#include "sender/grammar_properties.h"

namespace foliant::sender::test {
namespace {

/// Makes the same inputs in every run.
class Inputs {
  public:
    std::size_t below(std::size_t bound) { return static_cast<std::size_t>(random_() % bound); }

    std::string bytes(std::size_t longest) {
        std::string text(below(longest + 1), '\0');
        for (char& c : text)
            c = static_cast<char>(below(256));
        return text;
    }

    /// Pieces that mean something to the grammar, in any order.
    std::string pieces(std::size_t most) {
        static const std::vector<std::string> all{
            "~",    "~~", "0~", "1~",    "0~0~",  "Edit~",       "Button~", "x~",
            " ",    "^1", "\"", "{LM}~", "{LME}", "quorixsend",  ".exe",    "\\",
            "\xC3", "/",  "\r", "open",  "0~1~",  "RichEdit20W~"};
        std::string text;
        for (std::size_t n = below(most + 1); n > 0; --n)
            text += all[below(all.size())];
        return text;
    }

  private:
    std::mt19937 random_{20031};
};

TEST(GrammarProperty, RandomBytesAreRefusedOrReadTheSameAgain) {
    Inputs inputs;
    for (int i = 0; i < 50000; ++i) {
        const std::string input = inputs.bytes(60);
        ASSERT_TRUE(grammar_holds(input)) << testing::PrintToString(input);
    }
}

TEST(GrammarProperty, JumbledPiecesAreRefusedOrReadTheSameAgain) {
    Inputs inputs;
    int accepted = 0;
    for (int i = 0; i < 50000; ++i) {
        const std::string input =
            i % 2 ? inputs.pieces(14) : "open~Edit~" + inputs.pieces(6) + "~0~0~" + inputs.pieces(2);
        ASSERT_TRUE(grammar_holds(input)) << testing::PrintToString(input);
        try {
            parse(input);
            ++accepted;
        } catch (const CommandError&) {
        }
    }
    EXPECT_GT(accepted, 10000);
}

TEST(GrammarProperty, EveryCommandKeepsItsFields) {
    Inputs inputs;
    for (int i = 0; i < 20000; ++i) {
        Command command;
        command.caption = "caption " + std::to_string(i);
        command.control = static_cast<ControlClass>(inputs.below(3));
        command.stay_until_closed = inputs.below(2) == 1;
        const std::vector<std::string> actions{"", "{LM}", "{LME}"};
        command.text = command.control == ControlClass::button ? actions[inputs.below(3)]
                                                               : inputs.bytes(10) + inputs.pieces(5);
        ASSERT_EQ(parse(written(command)), command) << testing::PrintToString(written(command));
        const std::string line = R"(C:\My Tools~1\quorixsend.exe )" + written(command);
        ASSERT_EQ(command_tail(line), written(command)) << testing::PrintToString(line);
    }
}

TEST(GrammarProperty, EveryCutOfACommandIsRefused) {
    const std::string whole = R"(save pdf file as~Edit~C:\My Files\a.pdf~0~1~)";
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_THROW(parse(whole.substr(0, length)), CommandError) << whole.substr(0, length);
    EXPECT_NO_THROW(parse(whole));
}

}  // namespace
}  // namespace foliant::sender::test
