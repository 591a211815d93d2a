#include "hosts/distiller/driver_file.h"

#include <gtest/gtest.h>

namespace foliant::hosts::distiller {
namespace {

const std::string prologue =
    "/prun { /mysave save def\r\n"
    "dup = flush\r\n"
    "RunFile\r\n"
    "clear cleardictstack\r\n"
    "mysave restore\r\n"
    "} def\r\n"
    "\r\n";

using Paths = std::vector<std::string>;

TEST(DriverFile, NamesItsFilesInOrder) {
    EXPECT_EQ(files_of_driver(prologue + "(/in/a.ps) prun\r\n(/in/b.ps) prun\r\n"),
              (Paths{"/in/a.ps", "/in/b.ps"}));
}

TEST(DriverFile, MayNameNothing) {
    EXPECT_EQ(files_of_driver(prologue), Paths{});
}

TEST(DriverFile, MayHaveUnixLineEnds) {
    EXPECT_EQ(files_of_driver("/prun { /mysave save def\ndup = flush\nRunFile\nclear cleardictstack\n"
                              "mysave restore\n} def\n\n(a.ps) prun\n"),
              Paths{"a.ps"});
}

TEST(DriverFile, KeepsBlanksAccentsAndBalancedParenthesesOfPaths) {
    EXPECT_EQ(files_of_driver(prologue + "(C:/My Files/\xC3\xA9t\xC3\xA9 (2).ps) prun\r\n"),
              Paths{"C:/My Files/\xC3\xA9t\xC3\xA9 (2).ps"});
}

TEST(DriverFile, IsNoDriverWhenAPathEndsItsStringEarly) {
    EXPECT_FALSE(files_of_driver(prologue + "(/in/a) (/etc/passwd) prun\r\n"));
    EXPECT_FALSE(files_of_driver(prologue + "(/in/a).ps) prun\r\n"));
    EXPECT_FALSE(files_of_driver(prologue + "(/in/(a.ps) prun\r\n"));
}

TEST(DriverFile, IsNoDriverWithAnEscapeInAPath) {
    EXPECT_FALSE(files_of_driver(prologue + "(/in/\\141.ps) prun\r\n"));
}

TEST(DriverFile, IsNoDriverWithAForeignLineAnywhere) {
    EXPECT_FALSE(files_of_driver("%!\r\n" + prologue + "(/in/a.ps) prun\r\n"));
    EXPECT_FALSE(files_of_driver(prologue + "(/in/a.ps) prun\r\nshowpage\r\n"));
    EXPECT_FALSE(files_of_driver(prologue + "\r\n(/in/a.ps) prun\r\n"));
    EXPECT_FALSE(files_of_driver(prologue + "(/in/a.ps) prun (/in/b.ps) prun\r\n"));
    EXPECT_FALSE(files_of_driver(prologue + " (/in/a.ps) prun\r\n"));
}

TEST(DriverFile, IsNoDriverWithAnUnfinishedLastLine) {
    EXPECT_FALSE(files_of_driver(prologue + "(/in/a.ps) prun"));
    EXPECT_FALSE(files_of_driver(prologue.substr(0, prologue.size() - 2)));
}

TEST(DriverFile, IsNoDriverWithAnEmptyPath) {
    EXPECT_FALSE(files_of_driver(prologue + "() prun\r\n"));
}

}  // namespace
}  // namespace foliant::hosts::distiller
