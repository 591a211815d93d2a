// What the ports of time, windows, programs and folders promise.

#include <gtest/gtest.h>

#include "platform/contract/world.h"

namespace foliant::platform::contract {
namespace {

TEST_P(PortContract, SleepingTakesItsTime) {
    const float before = ports.clock.seconds_since_midnight();
    ports.clock.sleep(30);
    const float passed = ports.clock.seconds_since_midnight() - before;
    // Across midnight the timer has begun anew.
    EXPECT_TRUE(passed >= 0.02F || passed < -80000.0F) << passed;
    EXPECT_GE(before, 0.0F);
    EXPECT_LT(before, 86400.0F);
}

TEST_P(PortContract, TwoSeedsDiffer) {
    EXPECT_NE(ports.clock.random_seed(), ports.clock.random_seed());
}

TEST_P(PortContract, AWindowIsFoundByItsCaptionInAnyCaseAndClosed) {
    world->put_window("Adobe Acrobat - [Report.pdf]");
    EXPECT_EQ(ports.windows.find_window("adobe acrobat - [rep"), 0);
    const WindowHandle window = ports.windows.find_window("adobe acrobat - [report.pdf]");
    ASSERT_NE(window, 0);
    ports.windows.close_window(window, "0");
    EXPECT_EQ(ports.windows.find_window("adobe acrobat - [report.pdf]"), 0);
}

TEST_P(PortContract, KeysArriveInOrderAndEachCharacterStandsForItself) {
    world->await_keys();
    ports.windows.type_text("http://localhost/~a+b%20{c}(d)^[e]");
    ports.windows.type_text("\xC3\xA9\xE2\x82\xAC");
    ports.windows.type_text("");
    ports.windows.press_enter();
    EXPECT_EQ(world->typed(), "http://localhost/~a+b%20{c}(d)^[e]\xC3\xA9\xE2\x82\xAC\n");
}

TEST_P(PortContract, KeysArriveOnce) {
    world->await_keys();
    ports.windows.type_text("a");
    ports.windows.press_enter();
    EXPECT_EQ(world->typed(), "a\n");
    world->await_keys();
    EXPECT_EQ(world->typed(), "");
}

TEST_P(PortContract, TheWindowSenderLiesInTheSystemFolderAndStartsThere) {
    const auto buffer = ports.shell.special_folder(100, 37);
    ASSERT_TRUE(buffer.has_value());
    ASSERT_NE(buffer->find('\0'), std::string::npos);
    const std::string folder = buffer->substr(0, buffer->find('\0'));
    const std::string sender = folder + ports.files.separator() + "quorixsend.exe";
    EXPECT_GT(ports.files.length(sender), 0);
    EXPECT_EQ(
        tests::error_number([&] { ports.programs.start(sender + " open~Edit~x~0~0~", WindowStyle::hidden); }),
        0);
    EXPECT_EQ(tests::error_number(
                  [&] { ports.programs.start(sender + "2 open~Edit~x~0~0~", WindowStyle::hidden); }),
              53);
}

TEST_P(PortContract, AProgramGetsTheRestOfTheLineAsItStands) {
    const std::string program = world->install_program();
    const std::string tail = "/p \"C:\\in\\a  b \xC3\xA9.txt\" 'c' %d% \\\"";
    ports.programs.start(program + " " + tail, WindowStyle::hidden);
    EXPECT_EQ(world->started_with(), tail);
}

TEST_P(PortContract, ThereAreNoOtherFoldersAndPrograms) {
    EXPECT_FALSE(ports.shell.special_folder(100, 9999).has_value());
    for (const char* line : {"nosuch.exe", "nosuch.exe /p \"C:\\in\\a b.txt\""})
        EXPECT_EQ(tests::error_number([&] { ports.programs.start(line, WindowStyle::hidden); }), 53) << line;
}

}  // namespace
}  // namespace foliant::platform::contract
