#include "hosts/distiller/driver_file.h"

#include <gtest/gtest.h>

#include "hosts/distiller/distill_error.h"

namespace foliant::hosts::distiller {
namespace {

using Lines = std::vector<std::string>;

Lines driver(const Lines& run_lines) {
    Lines lines = {"/prun { /mysave save def", "dup = flush", "RunFile", "clear cleardictstack",
                   "mysave restore",           "} def",       ""};
    lines.insert(lines.end(), run_lines.begin(), run_lines.end());
    return lines;
}

TEST(DriverFile, NamesItsFilesInOrder) {
    EXPECT_EQ(files_of_driver(driver({"(/in/a.ps) prun", "(/in/b.ps) prun"})),
              (Lines{"/in/a.ps", "/in/b.ps"}));
}

TEST(DriverFile, MayNameNothing) {
    EXPECT_EQ(files_of_driver(driver({})), Lines{});
}

TEST(DriverFile, NamesOneFileALineWhateverIsInTheName) {
    for (const char* name : {"C:/My Files/\xC3\xA9t\xC3\xA9 (2).ps", "a)b.ps", "(((", "a\\141.ps", "100%d.ps",
                             "a.ps) prun\r\n(/etc/passwd", "a.ps) prun (/etc/passwd", "\n", "<2f>", "% x"}) {
        EXPECT_EQ(files_of_driver(driver({"(" + std::string(name) + ") prun"})), Lines{name}) << name;
    }
}

TEST(DriverFile, IsTheDefinitionOfPrunAndLinesThatRunAFileAndNothingElse) {
    EXPECT_THROW(files_of_driver({}), DistillError);
    EXPECT_THROW(files_of_driver({"%!", "(/in/a.ps) prun"}), DistillError);
    EXPECT_THROW(files_of_driver(driver({"(/in/a.ps) prun", "showpage"})), DistillError);
    EXPECT_THROW(files_of_driver(driver({"", "(/in/a.ps) prun"})), DistillError);
    EXPECT_THROW(files_of_driver(driver({" (/in/a.ps) prun"})), DistillError);
    EXPECT_THROW(files_of_driver(driver({"() prun"})), DistillError);
}

TEST(DriverProgram, HoldsNoCharacterOfAPath) {
    EXPECT_EQ(
        driver_program({"a)\n.ps", "b"}),
        "/prun { /mysave save def\ndup = flush\nRunFile\nclear cleardictstack\nmysave restore\n} def\n\n"
        "<61290a2e7073> prun\n<62> prun\n");
}

}  // namespace
}  // namespace foliant::hosts::distiller
