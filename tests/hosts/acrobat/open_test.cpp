#include "hosts/acrobat/fixture.h"

namespace foliant::hosts::acrobat {
namespace {

using automation::Value;
using test::AcrobatTest;
using test::pages;
using tests::failure;

class Opening : public AcrobatTest {};

TEST_F(Opening, ADocumentTellsItsPages) {
    const Value document = new_document();
    EXPECT_EQ(document.call("Open", {write("a.pdf", pages(3).file())}), Value(true));
    EXPECT_EQ(document.call("GetNumPages"), Value(std::int32_t{3}));
    EXPECT_EQ(document.call("Close"), Value(true));
    EXPECT_EQ(document.call("Close"), Value(false));
}

TEST_F(Opening, AViewerShowsTheDocumentUntilItIsClosed) {
    const Value viewer = new_viewer();
    EXPECT_EQ(viewer.call("IsValid"), Value(false));
    EXPECT_EQ(viewer.call("Open", {write("a.pdf", pages(2).file()), ""}), Value(true));
    EXPECT_EQ(viewer.call("IsValid"), Value(true));
    EXPECT_EQ(viewer.call("GetPDDoc").call("GetNumPages"), Value(std::int32_t{2}));
    EXPECT_EQ(application.call("GetActiveDoc").call("GetPDDoc").call("GetNumPages"), Value(std::int32_t{2}));
    EXPECT_EQ(viewer.call("Close", {true}), Value(true));
    EXPECT_EQ(viewer.call("Close", {true}), Value(false));
    EXPECT_EQ(application.call("GetActiveDoc").call("IsValid"), Value(false));
}

TEST_F(Opening, ADocumentThatIsOpenGetsAWindow) {
    const Value document = document_on(pages(1).file());
    const Value viewer = document.call("OpenAVDoc", {""});
    EXPECT_EQ(viewer.call("IsValid"), Value(true));
    EXPECT_EQ(application.call("GetActiveDoc").call("IsValid"), Value(true));
    EXPECT_EQ(application.call("Exit"), Value(true));
    EXPECT_EQ(viewer.call("IsValid"), Value(false));
}

TEST_F(Opening, WhatCannotBeOpenedIsToldByTheNextCallThatNeedsIt) {
    const std::string path = write("letter.pdf", "Dear Sir");
    const Value document = new_document();
    EXPECT_EQ(document.call("Open", {path}), Value(false));
    EXPECT_EQ(failure([&] { document.call("GetNumPages"); }),
              "-2147467259 " + path + " cannot be opened: it is no PDF file.");
    const Value viewer = new_viewer();
    EXPECT_EQ(viewer.call("Open", {path, ""}), Value(false));
    EXPECT_EQ(failure([&] { viewer.call("GetPDDoc"); }),
              "-2147467259 " + path + " cannot be opened: it is no PDF file.");
}

TEST_F(Opening, AnEmptyFileAFolderAndNothingAreToldApart) {
    const auto told = [&](const std::string& path) {
        const Value document = new_document();
        document.call("Open", {path});
        return failure([&] { document.call("GetNumPages"); });
    };
    const std::string empty = write("empty.pdf", "");
    const std::string none = (folder / "none.pdf").string();
    EXPECT_EQ(told(empty), "-2147467259 " + empty + " cannot be opened: it is empty.");
    EXPECT_EQ(told(folder.path().string()),
              "75 " + folder.path().string() + " cannot be opened: it is a folder.");
    EXPECT_EQ(told(none), "53 " + none + " cannot be opened: there is no such file.");
}

TEST_F(Opening, WithoutADocumentEveryMemberSaysSo) {
    EXPECT_EQ(failure([&] { new_document().call("GetNumPages"); }), "91 No document is open.");
    EXPECT_EQ(failure([&] { new_viewer().call("GetPDDoc"); }), "91 No document is open in this window.");
}

TEST_F(Opening, AMenuItemThatIsNotKnownRaises) {
    EXPECT_EQ(failure([&] { application.call("MenuItemExecute", {"Quit"}); }),
              "445 There is no menu item \"Quit\" here.");
}

}  // namespace
}  // namespace foliant::hosts::acrobat
