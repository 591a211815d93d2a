#include "hosts/transfer/inet_control.h"

#include <string>
#include <utility>

#include "automation/error.h"
#include "hosts/transfer/bare_machine.h"
#include "support/scratch_folder.h"

namespace foliant::hosts::transfer {
namespace {

using automation::Value;

/// A control that is never connected: what it refuses, it refuses before that.
class InetControl : public testing::Test {
  protected:
    InetControl() { control.set("URL", "127.0.0.1:1"); }

    /// Why the command is refused, "" when it is begun.
    std::string refused(const std::string& command) {
        try {
            control.call("Execute", {"", command});
            return "";
        } catch (const automation::Error& error) {
            return error.description();
        }
    }

    BareMachine machine;
    const Value control = make_inet_control(machine);
    const tests::ScratchFolder folder;
    const std::string get = "GET a.txt " + (folder / "a.txt").string();
};

TEST_F(InetControl, NothingThatIsSentToTheServerHoldsLineEnds) {
    using namespace std::string_literals;
    for (const std::string& odd : {"x\r\nDELE victim.txt"s, "x\n"s, "\rx"s, "x\0y"s}) {
        EXPECT_EQ(refused("CD " + odd), "A name must not hold line ends.");
        for (const auto& [property, refusal] :
             {std::pair("UserName", "A user name must not hold line ends."),
              std::pair("Password", "A password must not hold line ends.")}) {
            control.set(property, odd);
            EXPECT_EQ(refused(get), refusal);
            control.set(property, "");
        }
        control.set("URL", odd);
        EXPECT_NE(refused(get).find(" is no name of a server."), std::string::npos);
        control.set("URL", "127.0.0.1:1");
    }
    EXPECT_EQ(refused(get), "");
}

TEST_F(InetControl, FilesThatCannotBeToldApartAreNeitherSentNorMade) {
    const std::string unclear =
        "Which two files are meant cannot be told: put both names in quotation marks.";
    const std::string file = folder.write("report", "public").string();
    folder.write("report old", "secret");
    EXPECT_EQ(refused("GET report.txt my file.txt"), unclear);
    EXPECT_EQ(refused("PUT " + file + " old copy.txt"), unclear);
    EXPECT_EQ(refused("PUT \"" + file + "\" \"old copy.txt\""), "");
}

}  // namespace
}  // namespace foliant::hosts::transfer
