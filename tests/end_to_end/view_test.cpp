#include <chrono>
#include <cstdlib>
#include <gtest/gtest.h>
#include <thread>

#include "end_to_end/command.h"

namespace foliant::end_to_end {
namespace {

/// A machine with a screen, a viewer that writes down how it was called, and a voice that writes down what it
/// says.
class OpenPDF : public testing::Test {
  protected:
    OpenPDF() {
        shop.run(
            {"gs", "-q", "-dBATCH", "-dNOPAUSE", "-sDEVICE=pdfwrite", "-o", "report.pdf", "-c",
             "/Helvetica 20 selectfont 1 1 3 { 72 700 moveto (page ) show 3 string cvs show showpage } for"});
        install("okular", "echo \"$@\" > called; sleep 1; echo later > still-there");
        install("espeak-ng", "cat > spoken");
    }

    void install(const std::string& name, const std::string& script) const {
        shop.run({"sh", "-c",
                  "mkdir -p bin && printf '#!/bin/sh\\n%s\\n' '" + script + "' > bin/" + name +
                      " && chmod +x bin/" + name});
    }

    Finished open(const std::string& options, const std::string& display = ":9") const {
        return shop.run({"sh", "-c",
                         "PATH=$PWD/bin:$PATH DISPLAY=" + display +
                             " WAYLAND_DISPLAY= " FOLIANT_COMMAND " OpenPDF report.pdf " + options});
    }

    std::string read_soon(const std::string& name) const {
        for (int i = 0; i < 500 && shop.read(name).empty(); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        return shop.read(name);
    }

    Workshop shop;
};

TEST_F(OpenPDF, TheViewerShowsThePageAndStaysWhenTheCommandHasEnded) {
    REQUIRE_HOST("Acrobat");
    const Finished opened = open("--go-to-page-no 3");
    EXPECT_EQ(opened.exit_code, 0) << opened.errors;
    EXPECT_EQ(opened.errors, "");
    EXPECT_EQ(read_soon("called"), "--page 3 " + shop.path("report.pdf").string() + "\n");
    EXPECT_EQ(shop.leftovers(), "");
    EXPECT_EQ(read_soon("still-there"), "later\n");
}

TEST_F(OpenPDF, WithoutAScreenItSaysWhatItWouldHaveShown) {
    REQUIRE_HOST("Acrobat");
    const Finished opened = open("--go-to-page-no 2", "");
    EXPECT_EQ(opened.exit_code, 8);
    EXPECT_EQ(opened.errors, "foliant: There is no screen: okular would have shown page 2 of report.pdf.\n");
}

TEST_F(OpenPDF, ThePageIsReadAloud) {
    REQUIRE_HOST("Acrobat");
    EXPECT_EQ(open("--go-to-page-no 2 --read-type page").exit_code, 0);
    EXPECT_EQ(read_soon("spoken").substr(0, 6), "page 2") << shop.read("spoken");
}

TEST_F(OpenPDF, WhatCannotBeOpenedIsNotShown) {
    REQUIRE_HOST("Acrobat");
    shop.write("report.pdf", "no PDF");
    EXPECT_EQ(open("").exit_code, 5);
    EXPECT_EQ(shop.read("called"), "");
}

}  // namespace
}  // namespace foliant::end_to_end
