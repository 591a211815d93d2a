#include "hosts/acrobat/fixture.h"
#include "hosts/acrobat/pd_bookmark.h"

namespace foliant::hosts::acrobat {
namespace {

using automation::Value;
using test::AcrobatTest;
using test::pages;
using tests::failure;
using tests::Names;

class Viewing : public AcrobatTest {
  protected:
    Value open_five_pages() {
        const Value viewer = new_viewer();
        viewer.call("Open", {write("report.pdf", pages(5).file()), ""});
        return viewer;
    }
};

TEST_F(Viewing, WhatIsOnTheScreenStaysThereUntilItIsClosed) {
    EXPECT_EQ(application.call("Show"), Value(true));
    const Value viewer = open_five_pages();
    viewer.call("Close", {true});
    EXPECT_EQ(machine.notes, (Names{"nothing on the screen", "page 1 of report.pdf on the screen",
                                    "nothing on the screen"}));
}

TEST_F(Viewing, AnAcrobatThatIsNotShownLeavesNothingOpen) {
    open_five_pages();
    EXPECT_EQ(machine.notes, Names{});
}

TEST_F(Viewing, GoToPageBringsThePageIntoViewThatIsEntered) {
    application.call("Show");
    open_five_pages();
    machine.answers = {"4"};
    EXPECT_EQ(application.call("MenuItemExecute", {"GoToPage"}), Value(true));
    EXPECT_EQ(machine.notes, (Names{"nothing on the screen", "page 1 of report.pdf on the screen",
                                    "dialog Go To Page", "page 4 of report.pdf on the screen"}));
    machine.answers = {"cancel"};
    EXPECT_EQ(application.call("MenuItemExecute", {"GoToPage"}), Value(false));
}

TEST_F(Viewing, APageThatIsNotThereIsNotGoneTo) {
    open_five_pages();
    for (const std::string entry : {"6", "0", "-1", "four", "2x", ""}) {
        machine.answers = {entry};
        EXPECT_EQ(failure([&] { application.call("MenuItemExecute", {"GoToPage"}); }),
                  "5 There is no page \"" + entry + "\" in report.pdf: it has 5 pages.");
    }
}

TEST_F(Viewing, ThePageInViewIsReadAloud) {
    application.call("Show");
    open_five_pages();
    machine.answers = {"2"};
    application.call("MenuItemExecute", {"GoToPage"});
    EXPECT_EQ(application.call("MenuItemExecute", {"ADBE:ReadAloudStart"}), Value(true));
    EXPECT_EQ(machine.read_aloud, "page 2\r\n");
    EXPECT_EQ(machine.notes.back(), "page 2 of report.pdf on the screen");
}

TEST_F(Viewing, ADocumentIsReadAloudFromThePageInView) {
    application.call("Show");
    open_five_pages();
    machine.answers = {"3"};
    application.call("MenuItemExecute", {"GoToPage"});
    EXPECT_EQ(application.call("MenuItemExecute", {"ADBE:ReadAloudToEnd"}), Value(true));
    EXPECT_EQ(machine.read_aloud, "page 3\r\npage 4\r\npage 5\r\n");
}

TEST_F(Viewing, ABookmarkBringsItsPageIntoView) {
    application.call("Show");
    test::PdfText pdf = pages(5);
    pdf.add_to_catalogue(
        "/Outlines 4 0 R /Dests << /Fourth [40 0 R /Fit] >> /Names << /Dests << /Names [(fifth) << /D "
        "[50 0 R /Fit] >>] >> >>");
    pdf.set(4, "<< /First 5 0 R /Last 9 0 R /Count 5 >>");
    const auto bookmark = [](const std::string& title, const std::string& entries) {
        return "<< /Parent 4 0 R /Title (" + title + ") " + entries + " >>";
    };
    pdf.set(5, bookmark("Straight", "/Next 6 0 R /Dest [20 0 R /XYZ 0 700 0]"));
    pdf.set(6, bookmark("Action", "/Next 7 0 R /A << /S /GoTo /D [30 0 R /Fit] >>"));
    pdf.set(7, bookmark("Name", "/Next 8 0 R /Dest /Fourth"));
    pdf.set(8, bookmark("Text", "/Next 9 0 R /Dest (fifth)"));
    pdf.set(9, bookmark("Elsewhere", "/A << /S /URI /URI (http://example.org) >>"));
    const Value viewer = new_viewer();
    viewer.call("Open", {write("report.pdf", pdf.file()), ""});
    const Value mark = automation::ObjectPtr(std::make_shared<PdBookmark>());
    const auto performed = [&](const char* title) {
        machine.notes.clear();
        mark.call("GetByTitle", {viewer.call("GetPDDoc"), title});
        const bool done = mark.call("Perform", {viewer}) == Value(true);
        return done ? machine.notes.back() : "";
    };
    EXPECT_EQ(performed("Straight"), "page 2 of report.pdf on the screen");
    EXPECT_EQ(performed("Action"), "page 3 of report.pdf on the screen");
    EXPECT_EQ(performed("Name"), "page 4 of report.pdf on the screen");
    EXPECT_EQ(performed("Text"), "page 5 of report.pdf on the screen");
    EXPECT_EQ(performed("Elsewhere"), "");
    EXPECT_EQ(performed("Nowhere"), "");
}

TEST_F(Viewing, WithoutADocumentNothingIsGoneToOrReadAloud) {
    EXPECT_EQ(failure([&] { application.call("MenuItemExecute", {"GoToPage"}); }),
              "91 There is no document to go to a page of.");
    EXPECT_EQ(failure([&] { application.call("MenuItemExecute", {"ADBE:ReadAloudStart"}); }),
              "91 There is no document to read aloud.");
}

}  // namespace
}  // namespace foliant::hosts::acrobat
