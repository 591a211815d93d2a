// The usual machine: its hosts do on stage what the real ones would, so that the members find what they wait
// for.

#include "platform/stage/cast/cast.h"

#include <gtest/gtest.h>

#include "platform/stage/stage_object.h"
#include "support/staged_session.h"

namespace foliant::platform::stage {
namespace {

using automation::named;
using automation::Value;

class Cast : public testing::Test {
  protected:
    Cast() { cast_usual_machine(stage); }

    bool exists(const std::string& path) {
        try {
            return world.files.length(path) >= 0;
        } catch (const automation::Error&) {
            return false;
        }
    }

    Value open_document() {
        return Value(world.servers.create("Word.Application")).get("Documents").call("Open", {"a.doc"});
    }

    void start_sender(const std::string& command) {
        world.programs.start(stage.system_folder + "\\quorixsend.exe " + command, WindowStyle::hidden);
    }

    Stage stage;
    Platform world = stage.platform();
};

TEST_F(Cast, WordPrintsToTheFileThatItIsGiven) {
    open_document().call("PrintOut", {named("Outputfilename", "C:\\out\\a.ps")});
    EXPECT_TRUE(exists("C:\\out\\a.ps"));
}

TEST_F(Cast, WordPrintsToTheFileThatTheSenderTypedIntoTheSaveDialog) {
    start_sender("save pdf file as~Edit~C:\\out\\a.pdf~0~0~");
    start_sender("adobe pdf - security~Button~~0~0~");
    EXPECT_FALSE(exists("C:\\out\\a.pdf"));
    open_document().call("PrintOut");
    EXPECT_TRUE(exists("C:\\out\\a.pdf"));
}

TEST_F(Cast, ExcelPrintsARangeOfAnySheetToTheFileThatItIsGiven) {
    const Value excel = world.servers.create("Excel.Application");
    const Value sheet = excel.get("Workbooks").call("Open", {"a.xls"}).get("Worksheets", {"Any"});
    EXPECT_EQ(excel.call("InchesToPoints", {0.5}), Value(36.0));
    sheet.get("Range", {"A1"}).call("PrintOut", {named("PrToFilename", "C:\\out\\a.ps")});
    EXPECT_TRUE(exists("C:\\out\\a.ps"));
}

TEST_F(Cast, PowerPointPrintsToTheFileThatItIsGiven) {
    const Value powerpoint = world.servers.create("Powerpoint.Application");
    const Value presentation = powerpoint.get("Presentations").call("Open", {"a.ppt"});
    EXPECT_EQ(presentation.get("PrintOptions").get("ActivePrinter"), Value("Office printer"));
    presentation.call("PrintOut", {named("PrintToFile", "C:\\out\\a.ps")});
    EXPECT_TRUE(exists("C:\\out\\a.ps"));
}

TEST_F(Cast, EveryHostThatPrintsUsesTheOnePdfPrinter) {
    const auto prints = [&](const std::string& target, const auto& print) {
        start_sender("save pdf file as~Edit~" + target + "~0~0~");
        EXPECT_FALSE(exists(target));
        print();
        return exists(target);
    };
    const auto open = [&](const char* application, const char* documents) {
        return Value(world.servers.create(application)).get(documents).call("Open", {"a"});
    };
    EXPECT_TRUE(prints("C:\\excel.pdf", [&] {
        open("Excel.Application", "Workbooks")
            .get("Worksheets", {"Any"})
            .get("Range", {"A1"})
            .call("PrintOut");
    }));
    EXPECT_TRUE(prints("C:\\powerpoint.pdf",
                       [&] { open("Powerpoint.Application", "Presentations").call("PrintOut"); }));
    EXPECT_TRUE(prints("C:\\visio.pdf", [&] { open("Visio.Application", "Documents").call("Print"); }));
    EXPECT_TRUE(prints("C:\\autocad.pdf", [&] {
        open("AutoCAD.Application", "Documents").get("Plot").call("PlotToDevice", {"Adobe PDF"});
    }));
}

TEST_F(Cast, ThePrinterWritesNothingUntilItsDialogIsAnswered) {
    const auto files = stage.files.size();
    open_document().call("PrintOut");
    EXPECT_EQ(stage.files.size(), files);
}

TEST_F(Cast, AcrobatShowsWhatThePrinterMade) {
    start_sender("save pdf file as~Edit~C:\\out\\a.pdf~0~0~");
    EXPECT_EQ(world.windows.find_window("adobe acrobat professional - [a.pdf]"), 0);
    open_document().call("PrintOut");
    EXPECT_NE(world.windows.find_window("adobe acrobat professional - [a.pdf]"), 0);
}

TEST_F(Cast, AcrobatOpensADocumentOfThreePagesInEveryWay) {
    const Value application = world.servers.create("AcroExch.App");
    const Value document = world.servers.create("AcroExch.PDDoc");
    EXPECT_EQ(document.call("Open", {"a.pdf"}), Value(true));
    EXPECT_EQ(document.call("GetNumPages"), Value(std::int32_t{3}));
    const Value viewer = document.call("OpenAVDoc", {""});
    EXPECT_EQ(viewer.call("IsValid"), Value(true));
    EXPECT_EQ(viewer.call("GetPDDoc").call("GetNumPages"), Value(std::int32_t{3}));
    EXPECT_EQ(application.call("GetActiveDoc").call("GetPDDoc").call("GetNumPages"), Value(std::int32_t{3}));
}

TEST_F(Cast, AcrobatWritesWhatItSaves) {
    const Value document = world.servers.create("AcroExch.PDDoc");
    EXPECT_EQ(document.call("Create"), Value(true));
    EXPECT_EQ(document.call("Save", {std::int16_t{1}, "C:\\out\\a.pdf"}), Value(true));
    EXPECT_TRUE(exists("C:\\out\\a.pdf"));
}

TEST_F(Cast, AcrobatReadsTwoWordsOnALetterPage) {
    const Value document = world.servers.create("AcroExch.PDDoc");
    const Value size = document.call("AcquirePage", {std::int32_t{0}}).call("GetSize");
    EXPECT_EQ(size.get("x"), Value(std::int16_t{612}));
    EXPECT_EQ(size.get("y"), Value(std::int16_t{792}));
    const Value rectangle = world.servers.create("AcroExch.Rect");
    const Value text = document.call("CreateTextSelect", {std::int32_t{0}, rectangle});
    ASSERT_EQ(text.call("GetNumText"), Value(std::int32_t{2}));
    EXPECT_EQ(text.call("GetText", {std::int32_t{0}}), Value("two "));
    EXPECT_EQ(text.call("GetText", {std::int32_t{1}}), Value("words\r\n"));
}

TEST_F(Cast, AcrobatShowsTheWebPageWhoseAddressTheSenderTyped) {
    start_sender("create pdf from web page~Edit~http://here~0~1~");
    EXPECT_EQ(world.windows.find_window("adobe acrobat professional - [http://here/]"), 0);
    Value(world.servers.create("AcroExch.App")).call("MenuItemExecute", {"Web2PDF:OpnURL"});
    EXPECT_NE(world.windows.find_window("adobe acrobat professional - [http://here/]"), 0);
}

TEST_F(Cast, AcrobatTakesTheAddressOfAWebPageFromTheKeysThatWait) {
    world.windows.type_text("http://here");
    world.windows.press_enter();
    Value(world.servers.create("AcroExch.App")).call("MenuItemExecute", {"Web2PDF:OpnURL"});
    EXPECT_NE(world.windows.find_window("adobe acrobat professional - [http://here/]"), 0);
    EXPECT_EQ(stage.typed, "");
}

TEST_F(Cast, AcrobatsDocumentsGrowByTheirInsertedPages) {
    const Value source = world.servers.create("AcroExch.PDDoc");
    const Value target = world.servers.create("AcroExch.PDDoc");
    target.call("Create");
    EXPECT_EQ(target.call("GetNumPages"), Value(std::int32_t{0}));
    target.call("InsertPages", {std::int16_t{-1}, source, std::int16_t{0}, std::int16_t{3}, true});
    EXPECT_EQ(target.call("GetNumPages"), Value(std::int32_t{3}));
    EXPECT_EQ(source.call("GetNumPages"), Value(std::int32_t{3}));
}

TEST_F(Cast, HostsHearOfTheSameSenders) {
    start_sender("create pdf from web page~Edit~http://here~0~1~");
    start_sender("save pdf file as~Edit~C:\\out\\a.pdf~0~0~");
    Value(world.servers.create("AcroExch.App")).call("MenuItemExecute", {"Web2PDF:OpnURL"});
    open_document().call("PrintOut");
    EXPECT_NE(world.windows.find_window("adobe acrobat professional - [http://here/]"), 0);
    EXPECT_TRUE(exists("C:\\out\\a.pdf"));
}

TEST_F(Cast, BothDistillersWriteThePdfAndAnnounceTheirWork) {
    tests::EventsInJournal heard(stage);
    for (const auto& [class_id, method] :
         {std::pair("{1CD675B2-ECD1-11D1-B976-00600802DB86}", "FileToPDF"),
          std::pair("{FC403250-51F5-4E1B-AC8C-ED9C5E551B9B}", "FileToPDF2")}) {
        const Value distiller = world.servers.create(class_id);
        const auto subscription = distiller.object().subscribe(heard);
        distiller.call(method, {"a.ps", std::string(method) + ".pdf", "", true});
        EXPECT_TRUE(exists(std::string(method) + ".pdf"));
    }
    const std::string journal = stage.journal();
    EXPECT_NE(journal.find("event OnJobStart(\"a.ps\", \"FileToPDF.pdf\")\n"
                           "event OnPercentDone(Long(100))\n"
                           "event OnPageNumber(Long(1))\n"
                           "event OnJobDone(\"a.ps\", \"FileToPDF.pdf\")\n"),
              std::string::npos)
        << journal;
}

}  // namespace
}  // namespace foliant::platform::stage
