#include <gtest/gtest.h>

#include "automation/array_bounds.h"
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

void put_inputs_and_old_output(Stage& stage) {
    put_files(stage, {"C:\\in\\a.pdf", "C:\\My Files\\b.pdf", "C:\\out\\book.pdf"});
}

const tests::MemberCall usual{
    .member = "CreatePDFfromMultiPDF",
    .arrange = put_inputs_and_old_output,
    .arguments = {named("strPDFFile", "C:\\out\\book.pdf"),
                  named("varPDFFiles", list_of({"C:\\in\\a.pdf", "C:\\gone.pdf", "C:\\My Files\\b.pdf"}))}};

// What is new is created first; the pages of every input go behind the last page that there is.
const tests::WholeJournal journal(usual, R"(
    create AcroExch.PDDoc
    create AcroExch.PDDoc
    AcroExch.PDDoc.Create()
    length C:\out\book.pdf -> 1000
    delete C:\out\book.pdf
    pump messages
    length C:\in\a.pdf -> 1000
    AcroExch.PDDoc.Open("C:\in\a.pdf")
    AcroExch.PDDoc.GetNumPages()
    AcroExch.PDDoc.GetNumPages()
    AcroExch.PDDoc.InsertPages(Integer(-1), <object>, Integer(0), Integer(3), True)
    AcroExch.PDDoc.Close()
    pump messages
    length C:\gone.pdf -> not found
    pump messages
    length C:\My Files\b.pdf -> 1000
    AcroExch.PDDoc.Open("C:\My Files\b.pdf")
    AcroExch.PDDoc.GetNumPages()
    AcroExch.PDDoc.GetNumPages()
    AcroExch.PDDoc.InsertPages(Integer(2), <object>, Integer(0), Integer(3), True)
    AcroExch.PDDoc.Close()
    AcroExch.PDDoc.Save(Integer(5), "C:\out\book.pdf")
    AcroExch.PDDoc.Close()
    release AcroExch.PDDoc
    release AcroExch.PDDoc
)");

const tests::ParameterProbe parameters(usual, {.lines_with = {"delete", "Open", "Save"}, .expected = R"(
    delete C:\out\book.pdf
    AcroExch.PDDoc.Open("C:\in\a.pdf")
    AcroExch.PDDoc.Open("C:\My Files\b.pdf")
    AcroExch.PDDoc.Save(Integer(5), "C:\out\book.pdf")
)"});

const tests::MemberFaults faults({.member = "CreatePDFfromMultiPDF",
                                  .arrange = put_inputs_and_old_output,
                                  .arguments = {"C:\\out\\book.pdf", list_of({"C:\\in\\a.pdf"})}},
                                 {.endings = {release_both_documents}, .report = R"(
    fails: create AcroExch.PDDoc
        raise the failure
    fails: create AcroExch.PDDoc
        release AcroExch.PDDoc
        raise the failure
    fails: AcroExch.PDDoc.Create()
        release both documents
        raise the failure
    fails: length C:\out\book.pdf
        go on, but
        - delete C:\out\book.pdf
    fails: delete C:\out\book.pdf
    fails: pump messages
        release both documents
        raise the failure
    fails: length C:\in\a.pdf
        go on, but
        - AcroExch.PDDoc.Open("C:\in\a.pdf")
        - AcroExch.PDDoc.GetNumPages()
        - AcroExch.PDDoc.GetNumPages()
        - AcroExch.PDDoc.InsertPages(Integer(-1), <object>, Integer(0), Integer(3), True)
        - AcroExch.PDDoc.Close()
    fails: AcroExch.PDDoc.Open("C:\in\a.pdf")
    fails: AcroExch.PDDoc.GetNumPages()
    fails: AcroExch.PDDoc.GetNumPages()
    fails: AcroExch.PDDoc.InsertPages(Integer(-1), <object>, Integer(0), Integer(3), True)
    fails: AcroExch.PDDoc.Close()
    fails: AcroExch.PDDoc.Save(Integer(5), "C:\out\book.pdf")
    fails: AcroExch.PDDoc.Close()
        release both documents
        raise the failure
)"});

class CreatePDFfromMultiPDF : public tests::MemberTest {
  protected:
    CreatePDFfromMultiPDF() : MemberTest(usual) {}
};

TEST_F(CreatePDFfromMultiPDF, SavesAnEmptyDocumentWhenNoInputExists) {
    call({named("varPDFFiles", list_of({"C:\\gone.pdf", "C:\\also gone.pdf"}))});
    tests::expect_text(journal_from("delete"), R"(
        delete C:\out\book.pdf
        pump messages
        length C:\gone.pdf -> not found
        pump messages
        length C:\also gone.pdf -> not found
        AcroExch.PDDoc.Save(Integer(5), "C:\out\book.pdf")
        AcroExch.PDDoc.Close()
        release AcroExch.PDDoc
        release AcroExch.PDDoc
    )");
}

TEST_F(CreatePDFfromMultiPDF, WalksTheListFromItsOwnLowerBound) {
    call({named("varPDFFiles", list_of({"C:\\in\\a.pdf", "C:\\My Files\\b.pdf"}, 5))});
    tests::expect_text(lines_with({"Open"}), R"(
        AcroExch.PDDoc.Open("C:\in\a.pdf")
        AcroExch.PDDoc.Open("C:\My Files\b.pdf")
    )");
}

TEST_F(CreatePDFfromMultiPDF, InsertsAFileAsOftenAsTheListNamesIt) {
    call({named("varPDFFiles", list_of({"C:\\in\\a.pdf", "C:\\in\\a.pdf"}))});
    tests::expect_text(lines_with({"InsertPages"}), R"(
        AcroExch.PDDoc.InsertPages(Integer(-1), <object>, Integer(0), Integer(3), True)
        AcroExch.PDDoc.InsertPages(Integer(2), <object>, Integer(0), Integer(3), True)
    )");
}

TEST_F(CreatePDFfromMultiPDF, InsertsWhatItHasOpenedIntoWhatItHasMade) {
    const automation::Object* made = nullptr;
    const automation::Object* opened = nullptr;
    stage.when("AcroExch.PDDoc.Create", [&](StageObject& self, const Arguments&) {
        made = &self;
        return Value(true);
    });
    stage.when("AcroExch.PDDoc.Open", [&](StageObject& self, const Arguments&) {
        opened = &self;
        return Value(true);
    });
    // Of two counts in a row the source's is the first.
    std::vector<const automation::Object*> counted;
    stage.when("AcroExch.PDDoc.GetNumPages", [&](StageObject& self, const Arguments&) {
        counted.push_back(&self);
        return Value(std::int32_t{3});
    });
    int inserted = 0;
    stage.when("AcroExch.PDDoc.InsertPages", [&](StageObject& self, const Arguments& arguments) {
        EXPECT_EQ(&self, made);
        EXPECT_EQ(&arguments.at(1).value.object(), opened);
        ++inserted;
        return Value(true);
    });
    call();
    EXPECT_EQ(inserted, 2);
    EXPECT_NE(opened, made);
    EXPECT_EQ(counted, (std::vector<const automation::Object*>{opened, made, opened, made}));
}

TEST_F(CreatePDFfromMultiPDF, LetsMessagesInBeforeItReadsAnInput) {
    call({named("varPDFFiles", list_of({automation::Null{}}))});
    tests::expect_text(journal_from("delete"), R"(
        delete C:\out\book.pdf
        pump messages
        release AcroExch.PDDoc
        release AcroExch.PDDoc
        raise 94 from Foliant: Invalid use of Null
    )");
}

TEST_F(CreatePDFfromMultiPDF, PassesOverAnElementThatIsEmpty) {
    call({named("varPDFFiles", list_of({Value(), "C:\\in\\a.pdf"}))});
    tests::expect_text(lines_with({"length", "Open"}), R"(
        length C:\out\book.pdf -> 1000
        length  -> not found
        length C:\in\a.pdf -> 1000
        AcroExch.PDDoc.Open("C:\in\a.pdf")
    )");
}

TEST_F(CreatePDFfromMultiPDF, IsNotDisturbedByACallDuringItsPump) {
    int pumps = 0;
    stage.on_pump = [&] {
        if (++pumps != 2) return;
        Arguments other{"C:\\out\\other.pdf", list_of({"C:\\My Files\\b.pdf"})};
        usual.make(object(), other);
    };
    call();
    tests::expect_text(lines_with({"Open", "InsertPages", "Save"}), R"(
        AcroExch.PDDoc.Open("C:\in\a.pdf")
        AcroExch.PDDoc.InsertPages(Integer(-1), <object>, Integer(0), Integer(3), True)
        AcroExch.PDDoc.Open("C:\My Files\b.pdf")
        AcroExch.PDDoc.InsertPages(Integer(-1), <object>, Integer(0), Integer(3), True)
        AcroExch.PDDoc.Save(Integer(5), "C:\out\other.pdf")
        AcroExch.PDDoc.Open("C:\My Files\b.pdf")
        AcroExch.PDDoc.InsertPages(Integer(2), <object>, Integer(0), Integer(3), True)
        AcroExch.PDDoc.Save(Integer(5), "C:\out\book.pdf")
    )");
}

TEST_F(CreatePDFfromMultiPDF, WithoutANewDocumentSaysSoAndDeletesNothing) {
    stage.answer("AcroExch.PDDoc.Create", false);
    call();
    expect_journal(R"(
        create AcroExch.PDDoc
        create AcroExch.PDDoc
        AcroExch.PDDoc.Create()
        release AcroExch.PDDoc
        release AcroExch.PDDoc
        raise -2147467008 from Foliant: Unable to create document object.
    )");
}

TEST_F(CreatePDFfromMultiPDF, CountsInSixteenBits) {
    stage.answer("AcroExch.PDDoc.GetNumPages", std::int32_t{32768});
    call();
    EXPECT_EQ(last_line(), "raise 6 from Foliant: Overflow");
    EXPECT_EQ(stage.journal().find("InsertPages"), std::string::npos);

    stage.clear_journal();
    stage.answer("AcroExch.PDDoc.GetNumPages", std::int32_t{32767});
    call();
    EXPECT_EQ(lines_with({"InsertPages"}).front(),
              "AcroExch.PDDoc.InsertPages(Integer(32766), <object>, Integer(0), Integer(32767), True)");
}

TEST_F(CreatePDFfromMultiPDF, TakesNoMoreInputsThanItsCounterHolds) {
    call({named("varPDFFiles", list_of(std::vector<Value>(40000, "C:\\gone.pdf")))});
    EXPECT_EQ(last_line(), "raise 6 from Foliant: Overflow");
}

TEST_F(CreatePDFfromMultiPDF, TakesNothingButAList) {
    call({named("varPDFFiles", "C:\\in\\a.pdf")});
    EXPECT_EQ(last_line(), "raise 13 from Foliant: Type mismatch");
}

TEST_F(CreatePDFfromMultiPDF, ReadsTheBoundsOfTheListOnceTheOldOutputIsGone) {
    call({named("varPDFFiles", automation::array_without_bounds())});
    tests::expect_text(journal_from("delete"), R"(
        delete C:\out\book.pdf
        release AcroExch.PDDoc
        release AcroExch.PDDoc
        raise 9 from Foliant: Subscript out of range
    )");
}

TEST_F(CreatePDFfromMultiPDF, DoesNotLookAtWhetherAcrobatSavedTheFile) {
    stage.answer("AcroExch.PDDoc.Save", false);
    call();
    EXPECT_EQ(last_line(), "release AcroExch.PDDoc");
}

}  // namespace
}  // namespace foliant::members
