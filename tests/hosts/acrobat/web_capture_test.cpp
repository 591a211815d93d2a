#include "hosts/acrobat/fixture.h"

namespace foliant::hosts::acrobat {
namespace {

using automation::Value;
using test::AcrobatTest;
using test::pages;
using tests::failure;
using tests::Names;

class WebCapture : public AcrobatTest {
  protected:
    Value capture() { return application.call("MenuItemExecute", {"Web2PDF:OpnURL"}); }
};

TEST_F(WebCapture, ThePageIsShownUnderItsAddress) {
    machine.web_page = write("captured.pdf", pages(3).file());
    machine.answers = {"www.example.org"};
    EXPECT_EQ(capture(), Value(true));
    EXPECT_EQ(machine.notes, (Names{"dialog Create PDF from Web Page", "capture www.example.org",
                                    "window Adobe Acrobat - [www.example.org/]"}));
    const Value viewer = application.call("GetActiveDoc");
    EXPECT_EQ(viewer.call("GetPDDoc").call("GetNumPages"), Value(std::int32_t{3}));
}

TEST_F(WebCapture, APageThatIsNotWholeIsShownAndSaysSo) {
    machine.web_page = write("captured.pdf", pages(1).file());
    machine.web_page_errors = "www.example.org was captured without a picture.";
    machine.answers = {"www.example.org", "dismissed"};
    EXPECT_EQ(capture(), Value(true));
    EXPECT_EQ(machine.notes,
              (Names{"dialog Create PDF from Web Page", "capture www.example.org", "dialog There were errors",
                     "window Adobe Acrobat - [www.example.org/]"}));
    EXPECT_EQ(machine.failures, Names{"www.example.org was captured without a picture."});
}

TEST_F(WebCapture, ACancelledDialogCapturesNothing) {
    machine.answers = {"cancel"};
    EXPECT_EQ(capture(), Value(false));
    EXPECT_EQ(machine.notes, Names{"dialog Create PDF from Web Page"});
}

TEST_F(WebCapture, WhatWentWrongIsShownAndRaised) {
    machine.answers = {"www.example.org", "dismissed"};
    EXPECT_EQ(failure([&] { capture(); }), "5 www.example.org cannot be captured: there is none.");
    EXPECT_EQ(machine.notes, (Names{"dialog Create PDF from Web Page", "capture www.example.org",
                                    "dialog Error: Nothing Done"}));
    EXPECT_EQ(application.call("GetActiveDoc").call("IsValid"), Value(false));
}

TEST_F(WebCapture, WithoutAnAddressSaysThatThereIsNone) {
    for (const char* address : {"", "  "}) {
        machine.answers = {address};
        EXPECT_EQ(
            failure([&] { capture(); }),
            "-2147467259 There is no page to capture: its address is empty. Give one, such as www.example.org.");
    }
}

TEST_F(WebCapture, NobodyHasToDismissTheErrorForItToBeRaised) {
    machine.answers = {"www.example.org"};
    EXPECT_EQ(failure([&] { capture(); }), "5 www.example.org cannot be captured: there is none.");
}

}  // namespace
}  // namespace foliant::hosts::acrobat
