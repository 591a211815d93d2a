#include <gtest/gtest.h>

#include "automation/object.h"
#include "automation/value.h"
#include "hosts/office/noting_machine.h"
#include "hosts/office/office_module.h"
#include "hosts/office/pdf_reader.h"
#include "hosts/office/scratch.h"
#include "hosts/process/host_process.h"
#include "support/error_of.h"
#include "support/scratch_folder.h"

namespace foliant::hosts::office {
namespace {

using automation::named;
using automation::Value;

using test::NotingMachine;
using test::office_module;

class WordHost : public testing::Test {
  protected:
    Value open(const std::string& name) {
        return word.get("Documents")
            .call("Open", {test::document(name).string(), named("PasswordDocument", ""),
                           named("WritePasswordDocument", "")});
    }

    tests::ScratchFolder folder;
    NotingMachine machine;
    process::HostProcess host{{"Word", "LibreOffice Writer", office_module}, machine};
    Value word = host.create("Word.Application");
};

TEST(WordModule, NamesTheVersionOfItsEngine) {
    const std::string version = office_module().engine_version();
    EXPECT_TRUE(test::is_version(version)) << version;
}

TEST(WordModule, KnowsNoOtherClass) {
    NotingMachine machine;
    EXPECT_EQ(tests::error_of([&] { office_module().create("Access.Application", machine); }).number(), 429);
}

TEST_F(WordHost, TellsHowFarItIsWithPrinting) {
    const Value document = open("fifty.docx");
    document.call("PrintOut", {named("OutputFileName", (folder / "out.ps").string())});
    ASSERT_FALSE(machine.progress.empty());
    for (const std::string& told : machine.progress)
        EXPECT_TRUE(told.starts_with("Opening ") || told.starts_with("Printing ")) << told;
    EXPECT_TRUE(machine.progress.back().starts_with("Printing ")) << machine.progress.back();
}

TEST_F(WordHost, PrintsToPostScriptInTheOrderOfTheLibrary) {
    const Value document = open("five.docx");
    word.set("DisplayAlerts", std::int16_t{0});
    document.get("PageSetup").set("Orientation", std::int16_t{1});
    document.get("Sections", {std::int16_t{1}})
        .get("Footers", {std::int16_t{1}})
        .get("PageNumbers")
        .call("Add", {named("PageNumberAlignment", std::int16_t{1}), named("FirstPage", true)});
    EXPECT_EQ(word.get("ActivePrinter"), Value("Office"));
    word.set("ActivePrinter", "Adobe PDF");
    document.call("PrintOut", {named("Outputfilename", (folder / "out.ps").string()),
                               named("Range", std::int16_t{4}), named("Pages", "2-3")});
    word.set("ActivePrinter", "Office");
    word.set("DisplayAlerts", std::int16_t{-1});
    document.call("Close", {false});
    word.call("Quit");
    const std::string postscript = tests::read_file(folder / "out.ps");
    EXPECT_TRUE(postscript.starts_with("%!PS-Adobe-3.0\n"));
    EXPECT_NE(postscript.find("%%Pages: 2\n"), std::string::npos);
    EXPECT_NE(postscript.find("792 612 pdfSetupPaper"), std::string::npos);
    EXPECT_EQ(machine.notes, std::vector<std::string>());
}

TEST_F(WordHost, PrintsToTheFileThatThePrintersDialogIsAnsweredWith) {
    machine.answer = (folder / "out.pdf").string();
    word.set("ActivePrinter", "Adobe PDF");
    open("five.docx").call("PrintOut", {named("Range", std::int16_t{4}), named("Pages", "2-3")});
    EXPECT_EQ(machine.notes, std::vector<std::string>(
                                 {"dialog Save PDF File As: five.pdf", "window Adobe Acrobat - [out.pdf]"}));
    EXPECT_EQ(test::PdfReader(folder / "out.pdf").pages(), 2);
}

TEST_F(WordHost, SaysThatNothingWasPrintedWhenTheDialogIsCancelled) {
    word.set("ActivePrinter", "Adobe PDF");
    const Value document = open("five.docx");
    EXPECT_EQ(tests::error_of([&] { document.call("PrintOut"); }).description(),
              "five.docx was not printed: the dialog \"Save PDF File As\" was closed without a file name.");
}

TEST_F(WordHost, PrintsOnAQueueOfTheSpooler) {
    open("five.docx")
        .call("PrintOut", {named("Range", std::int16_t{3}), named("From", "2"), named("To", "4")});
    EXPECT_EQ(machine.notes, std::vector<std::string>({"print five.docx on Office, pages 3"}));
}

TEST_F(WordHost, RefusesAPrinterThatIsNotThere) {
    const auto error = tests::error_of([&] { word.set("ActivePrinter", "Nowhere"); });
    EXPECT_EQ(error.number(), 5216);
    EXPECT_NE(error.description().find("\"Nowhere\""), std::string::npos) << error.description();
    EXPECT_EQ(word.get("ActivePrinter"), Value("Office"));
}

TEST_F(WordHost, TellsTheOrientation) {
    const Value setup = open("landscape.docx").get("PageSetup");
    EXPECT_EQ(setup.get("Orientation"), Value(std::int32_t{1}));
    setup.set("Orientation", std::int16_t{0});
    EXPECT_EQ(setup.get("Orientation"), Value(std::int32_t{0}));
    EXPECT_EQ(tests::error_of([&] { setup.set("Orientation", std::int16_t{2}); }).number(), 4608);
}

TEST_F(WordHost, ReachesTheFirstSectionAndItsPrimaryHeaderOnly) {
    const Value document = open("sections.docx");
    EXPECT_EQ(tests::error_of([&] { document.get("Sections", {std::int16_t{2}}); }).number(), 5941);
    const Value section = document.get("Sections", {std::int16_t{1}});
    EXPECT_EQ(tests::error_of([&] { section.get("Headers", {std::int16_t{2}}); }).number(), 5941);
    EXPECT_EQ(tests::error_of([&] { section.get("Headers"); }).number(), 449);
}

TEST_F(WordHost, RefusesAnAlignmentThatPageNumbersDoNotHave) {
    const Value numbers = open("five.docx")
                              .get("Sections", {std::int16_t{1}})
                              .get("Headers", {std::int16_t{1}})
                              .get("PageNumbers");
    EXPECT_EQ(tests::error_of([&] { numbers.call("Add", {std::int16_t{7}}); }).number(), 4608);
}

TEST_F(WordHost, RaisesTheErrorsOfItsDocuments) {
    EXPECT_EQ(tests::error_of([&] { open("missing.docx"); }).number(), 5174);
    EXPECT_EQ(tests::error_of([&] { open("truncated.docx"); }).number(), 5792);
    const Value document = open("five.docx");
    EXPECT_EQ(tests::error_of([&] {
                  document.call("PrintOut", {named("Outputfilename", (folder / "out.ps").string()),
                                             named("Range", std::int16_t{4}), named("Pages", "9")});
              }).number(),
              4608);
    EXPECT_EQ(tests::names_in(folder.path()), tests::Names());
}

TEST_F(WordHost, NeverSavesADocument) {
    const Value document = open("five.docx");
    EXPECT_EQ(tests::error_of([&] { document.call("Close", {true}); }).number(), 4198);
    document.call("Close", {std::int16_t{0}});
}

TEST_F(WordHost, IsOfNoUseWhenClosedOrQuit) {
    const Value document = open("five.docx");
    document.call("Close", {false});
    EXPECT_EQ(tests::error_of([&] { document.call("Close", {false}); }).number(), 5825);
    word.call("Quit");
    EXPECT_EQ(tests::error_of([&] { word.get("Documents"); }).number(), 462);
    EXPECT_NO_THROW(word.call("Quit"));
}

TEST_F(WordHost, ClosesItsDocumentsWhenItQuits) {
    const Value document = open("five.docx");
    EXPECT_EQ(word.get("Documents").get("Count"), Value(std::int32_t{1}));
    word.call("Quit");
    EXPECT_EQ(tests::error_of([&] { document.call("PrintOut"); }).number(), 5825);
}

TEST_F(WordHost, IsAnotherWordEachTime) {
    word.call("Quit");
    word = host.create("word.application");
    EXPECT_EQ(word.get("Documents").get("Count"), Value(std::int32_t{0}));
    open("one.docx").call("Close", {false});
}

TEST_F(WordHost, LeavesNoObjectBehind) {
    const long before = automation::Object::live_objects();
    {
        const Value document = open("five.docx");
        document.get("Sections", {std::int16_t{1}}).get("Footers", {std::int16_t{1}}).get("PageNumbers");
        document.call("Close", {false});
    }
    EXPECT_EQ(automation::Object::live_objects(), before);
}

TEST_F(WordHost, SaysWhatItDoesNotKnow) {
    EXPECT_EQ(tests::error_of([&] { word.get("Bookmarks"); }).number(), 438);
}

}  // namespace
}  // namespace foliant::hosts::office
