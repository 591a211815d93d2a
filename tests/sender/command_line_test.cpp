#include <gtest/gtest.h>
#include <string>

#include "sender/command.h"

namespace foliant::sender {
namespace {

TEST(CommandTail, IsAllThatFollowsTheBlankBehindTheProgram) {
    EXPECT_EQ(command_tail(R"(C:\WINDOWS\system32\quorixsend.exe open~Edit~C:\Docs\report.pdf~0~0~)"),
              R"(open~Edit~C:\Docs\report.pdf~0~0~)");
    EXPECT_EQ(command_tail("/usr/lib/foliant/quorixsend.exe adobe pdf - security~Button~~0~0~"),
              "adobe pdf - security~Button~~0~0~");
    EXPECT_EQ(command_tail("quorixsend open~Edit~x~0~0~"), "open~Edit~x~0~0~");
}

TEST(CommandTail, FollowsAnUnquotedPathWithBlanks) {
    EXPECT_EQ(command_tail(R"(C:\My Tools\quorixsend.exe open~Edit~C:\My Files\a.pdf~0~0~)"),
              R"(open~Edit~C:\My Files\a.pdf~0~0~)");
}

TEST(CommandTail, FollowsAQuotedPath) {
    EXPECT_EQ(command_tail(R"("C:\My Tools\quorixsend.exe" open~Edit~x~0~0~)"), "open~Edit~x~0~0~");
    EXPECT_EQ(command_tail(R"("C:\My Tools\renamed.exe" open~Edit~"x"~0~0~)"), R"(open~Edit~"x"~0~0~)");
}

TEST(CommandTail, FollowsShortNamesAndDoubledSeparators) {
    EXPECT_EQ(command_tail(R"(C:\PROGRA~1\FOLIANT\QUORIXSEND.EXE open~Edit~x~0~0~)"), "open~Edit~x~0~0~");
    EXPECT_EQ(command_tail(R"(C:\\quorixsend.exe open~Edit~x~0~0~)"), "open~Edit~x~0~0~");
}

TEST(CommandTail, IsNotMisledByTheNameInTheText) {
    EXPECT_EQ(command_tail(R"(C:\t\quorixsend.exe open~Edit~C:\quorixsend.exe files\a.pdf~0~0~)"),
              R"(open~Edit~C:\quorixsend.exe files\a.pdf~0~0~)");
}

TEST(CommandTail, IsNotMisledByTheNameInTheFolder) {
    EXPECT_EQ(command_tail(R"(C:\quorixsend files\quorixsend.exe open~Edit~x~0~0~)"), "open~Edit~x~0~0~");
    EXPECT_EQ(command_tail(R"(C:\quorixsend 2\my quorixsend\quorixsend.exe open~Edit~x~0~0~)"),
              "open~Edit~x~0~0~");
    EXPECT_EQ(command_tail(R"(C:\old-quorixsend.exe x\quorixsend.exe open~Edit~x~0~0~)"), "open~Edit~x~0~0~");
}

TEST(CommandTail, IsNotMisledByTheNameInTheCaption) {
    EXPECT_EQ(command_tail(R"(C:\t\quorixsend.exe about quorixsend now~Button~~0~0~)"),
              "about quorixsend now~Button~~0~0~");
}

TEST(CommandTail, FollowsTheFirstBlankWhenTheProgramWasRenamed) {
    EXPECT_EQ(command_tail(R"(C:\t\QUORIX~1.EXE open~Edit~x~0~0~)"), "open~Edit~x~0~0~");
}

TEST(CommandTail, IsEmptyWithoutACommand) {
    EXPECT_EQ(command_tail(""), "");
    EXPECT_EQ(command_tail("   "), "");
    EXPECT_EQ(command_tail(R"(C:\My Tools\quorixsend.exe)"), "");
    EXPECT_EQ(command_tail("/x/quorixsend.exe "), "");
    EXPECT_EQ(command_tail(R"("C:\My Tools\quorixsend.exe")"), "");
    EXPECT_EQ(command_tail(R"("C:\never closed quorixsend.exe open~Edit~x~0~0~)"), "");
    EXPECT_EQ(command_tail("renamed"), "");
}

}  // namespace
}  // namespace foliant::sender
