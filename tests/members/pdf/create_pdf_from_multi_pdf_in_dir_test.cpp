#include <gtest/gtest.h>

#include "members/pdf/acrobat_endings.h"
#include "members/pdf/lists_of_files.h"
#include "platform/stage/stage_object.h"
#include "support/fault_cases.h"
#include "support/member_cases.h"
#include "support/member_test.h"

namespace foliant::members {
namespace {

using automation::Arguments;
using automation::named;
using automation::Value;
using platform::stage::Stage;
using platform::stage::StageObject;

const tests::MemberCall usual{
    .member = "CreatePDFfromMultiPDFinDir",
    .arrange =
        [](Stage& stage) {
            put_files(stage, {"C:\\in\\b.pdf", "C:\\in\\a.pdf", "C:\\in\\notes.txt", "C:\\in\\c.pdf",
                              "C:\\out\\book.pdf"});
        },
    .arguments = {named("strPDFFile", "C:\\out\\book.pdf"), named("strDirectory", "C:\\in")}};

// The first match is the base of the result. The old output is deleted after the second match was asked for.
const tests::WholeJournal journal(usual, R"(
    create AcroExch.PDDoc
    list C:\in\*.pdf
    next file -> a.pdf
    AcroExch.PDDoc.Open("C:\in\a.pdf")
    next file -> b.pdf
    length C:\out\book.pdf -> 1000
    delete C:\out\book.pdf
    AcroExch.PDDoc.GetNumPages()
    create AcroExch.PDDoc
    AcroExch.PDDoc.Open("C:\in\b.pdf")
    AcroExch.PDDoc.GetNumPages()
    AcroExch.PDDoc.InsertPages(Integer(2), <object>, Integer(0), Integer(3), True)
    AcroExch.PDDoc.Close()
    next file -> c.pdf
    AcroExch.PDDoc.GetNumPages()
    create AcroExch.PDDoc
    release AcroExch.PDDoc
    AcroExch.PDDoc.Open("C:\in\c.pdf")
    AcroExch.PDDoc.GetNumPages()
    AcroExch.PDDoc.InsertPages(Integer(5), <object>, Integer(0), Integer(3), True)
    AcroExch.PDDoc.Close()
    next file -> none
    AcroExch.PDDoc.Save(Integer(1), "C:\out\book.pdf")
    AcroExch.PDDoc.Close()
    release AcroExch.PDDoc
    release AcroExch.PDDoc
)");

const tests::ParameterProbe parameters({.member = "CreatePDFfromMultiPDFinDir",
                                        .arrange = usual.arrange,
                                        .arguments = {named("strPDFFile", "C:\\out\\book.pdf"),
                                                      named("strDirectory", "C:\\in\\"),
                                                      named("strFiles", "n*.txt")}},
                                       {.lines_with = {"list", "Open", "Save"}, .expected = R"(
    list C:\in\n*.txt
    AcroExch.PDDoc.Open("C:\in\notes.txt")
    AcroExch.PDDoc.Save(Integer(1), "C:\out\book.pdf")
)"});

const tests::MemberFaults faults(
    {.member = "CreatePDFfromMultiPDFinDir",
     .arrange =
         [](Stage& stage) {
             put_files(stage, {"C:\\in\\a.pdf", "C:\\in\\b.pdf", "C:\\out\\book.pdf"});
         },
     .arguments = {"C:\\out\\book.pdf", "C:\\in"}},
    {.endings = {release_both_documents}, .report = R"(
    fails: create AcroExch.PDDoc
        raise the failure
    fails: list C:\in\*.pdf
    fails: next file
    fails: AcroExch.PDDoc.Open("C:\in\a.pdf")
    fails: next file
        release AcroExch.PDDoc
        raise the failure
    fails: length C:\out\book.pdf
        go on, but
        - delete C:\out\book.pdf
    fails: delete C:\out\book.pdf
    fails: AcroExch.PDDoc.GetNumPages()
    fails: create AcroExch.PDDoc
        release AcroExch.PDDoc
        raise the failure
    fails: AcroExch.PDDoc.Open("C:\in\b.pdf")
    fails: AcroExch.PDDoc.GetNumPages()
    fails: AcroExch.PDDoc.InsertPages(Integer(2), <object>, Integer(0), Integer(3), True)
    fails: AcroExch.PDDoc.Close()
    fails: next file
    fails: AcroExch.PDDoc.Save(Integer(1), "C:\out\book.pdf")
    fails: AcroExch.PDDoc.Close()
        release both documents
        raise the failure
)"});

class CreatePDFfromMultiPDFinDir : public tests::MemberTest {
  protected:
    CreatePDFfromMultiPDFinDir() : MemberTest(usual) {}
};

TEST_F(CreatePDFfromMultiPDFinDir, OfOneMatchMakesACopy) {
    call({named("strFiles", "b*")});
    expect_journal(R"(
        create AcroExch.PDDoc
        list C:\in\b*
        next file -> b.pdf
        AcroExch.PDDoc.Open("C:\in\b.pdf")
        next file -> none
        length C:\out\book.pdf -> 1000
        delete C:\out\book.pdf
        AcroExch.PDDoc.Save(Integer(1), "C:\out\book.pdf")
        AcroExch.PDDoc.Close()
        release AcroExch.PDDoc
    )");
}

TEST_F(CreatePDFfromMultiPDFinDir, InsertsEveryOtherFileIntoTheFirstOne) {
    std::vector<const automation::Object*> opened;
    stage.when("AcroExch.PDDoc.Open", [&](StageObject& self, const Arguments&) {
        opened.push_back(&self);
        return Value(true);
    });
    std::vector<const automation::Object*> counted;
    stage.when("AcroExch.PDDoc.GetNumPages", [&](StageObject& self, const Arguments&) {
        counted.push_back(&self);
        return Value(std::int32_t{3});
    });
    stage.when("AcroExch.PDDoc.InsertPages", [&](StageObject& self, const Arguments& arguments) {
        EXPECT_EQ(&self, opened.front());
        EXPECT_EQ(&arguments.at(1).value.object(), opened.back());
        return Value(true);
    });
    call({named("strFiles", "?.pdf")});
    ASSERT_GE(opened.size(), 2U);
    EXPECT_NE(opened.at(0), opened.at(1));
    ASSERT_GE(counted.size(), 2U);
    EXPECT_EQ(counted.at(0), opened.at(0));
    EXPECT_EQ(counted.at(1), opened.at(1));
}

TEST_F(CreatePDFfromMultiPDFinDir, WithoutAMatchOpensTheFolderAndWritesNothing) {
    call({named("strFiles", "*.doc")});
    expect_journal(R"(
        create AcroExch.PDDoc
        list C:\in\*.doc
        next file -> none
        AcroExch.PDDoc.Open("C:\in\")
        AcroExch.PDDoc.Close()
        release AcroExch.PDDoc
    )");
}

TEST_F(CreatePDFfromMultiPDFinDir, EndsTheFolderInOneSeparator) {
    call({named("strDirectory", "C:\\in\\")});
    EXPECT_EQ(line_with("list"), R"(list C:\in\*.pdf)");
}

TEST_F(CreatePDFfromMultiPDFinDir, MergesAnOutputThatWasListedBeforeItIsDeleted) {
    call({named("strPDFFile", "C:\\in\\b.pdf")});
    tests::expect_text(lines_with({"next", "delete", "Open"}), R"(
        next file -> a.pdf
        AcroExch.PDDoc.Open("C:\in\a.pdf")
        next file -> b.pdf
        delete C:\in\b.pdf
        AcroExch.PDDoc.Open("C:\in\b.pdf")
        next file -> c.pdf
        AcroExch.PDDoc.Open("C:\in\c.pdf")
        next file -> none
    )");
}

TEST_F(CreatePDFfromMultiPDFinDir, AddsToAnOutputThatIsListedFirstAndDeletedWhileItIsOpen) {
    call({named("strPDFFile", "C:\\in\\a.pdf")});
    tests::expect_text(lines_with({"next", "delete", "Open", "Save("}), R"(
        next file -> a.pdf
        AcroExch.PDDoc.Open("C:\in\a.pdf")
        next file -> b.pdf
        delete C:\in\a.pdf
        AcroExch.PDDoc.Open("C:\in\b.pdf")
        next file -> c.pdf
        AcroExch.PDDoc.Open("C:\in\c.pdf")
        next file -> none
        AcroExch.PDDoc.Save(Integer(1), "C:\in\a.pdf")
    )");
}

TEST_F(CreatePDFfromMultiPDFinDir, DoesNotListAnOutputThatIsDeletedBeforeItsTurn) {
    call({named("strPDFFile", "C:\\in\\c.pdf")});
    tests::expect_text(lines_with({"next", "delete"}), R"(
        next file -> a.pdf
        next file -> b.pdf
        delete C:\in\c.pdf
        next file -> none
    )");
}

TEST_F(CreatePDFfromMultiPDFinDir, CountsInSixteenBits) {
    stage.answer("AcroExch.PDDoc.GetNumPages", std::int32_t{32768});
    call();
    tests::expect_text(journal_from("GetNumPages"), R"(
        AcroExch.PDDoc.GetNumPages()
        create AcroExch.PDDoc
        AcroExch.PDDoc.Open("C:\in\b.pdf")
        AcroExch.PDDoc.GetNumPages()
        release AcroExch.PDDoc
        release AcroExch.PDDoc
        raise 6 from Foliant: Overflow
    )");
}

TEST_F(CreatePDFfromMultiPDFinDir, DoesNotLookAtWhetherAcrobatSavedTheFile) {
    stage.answer("AcroExch.PDDoc.Save", false);
    call();
    EXPECT_EQ(last_line(), "release AcroExch.PDDoc");
}

}  // namespace
}  // namespace foliant::members
