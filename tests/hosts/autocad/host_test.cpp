// AutoCAD's stand-in in a process of its own, as the command has it.

#include <gtest/gtest.h>

#include "automation/value.h"
#include "hosts/acrobat/noting_machine.h"
#include "hosts/autocad/dxf_text.h"
#include "hosts/built_module.h"
#include "hosts/office/pdf_reader.h"
#include "hosts/process/host_process.h"
#include "support/error_of.h"
#include "support/scratch_folder.h"

namespace foliant::hosts::autocad {
namespace {

using acrobat::test::NotingMachine;
using automation::Missing;
using automation::Value;
using office::test::PdfReader;
using test::DxfText;

const Module& autocad_module() {
    static const Module& module = tests::built_module(AUTOCAD_MODULE);
    return module;
}

class AutoCADHost : public testing::Test {
  protected:
    Value open(const std::string& name, const std::string& content) {
        return autocad.get("Application")
            .get("Documents")
            .call("Open", {folder.write(name, content).string(), true});
    }
    Value open_house() {
        return open("house.dxf", DxfText{.entities = {"TEXT|8=0|10=0|20=0|40=5|1=the model",
                                                      "TEXT|8=0|67=1|10=0|20=0|40=5|1=the sheet"}}
                                     .text());
    }
    std::string description_of(const std::function<void()>& action) {
        const auto error = tests::error_of(action);
        EXPECT_EQ(error.source(), "AutoCAD");
        return error.description();
    }

    tests::ScratchFolder folder;
    NotingMachine machine;
    process::HostProcess host{{"AutoCAD", "cairo and Pango", autocad_module}, machine};
    Value autocad = host.create("AutoCAD.Application");
};

TEST_F(AutoCADHost, PlotsInTheOrderOfTheLibrary) {
    const Value drawing = open_house();
    machine.answers = {(folder / "out.pdf").string()};
    drawing.set_reference("ActiveLayout", drawing.get("Layouts", {"LAYOUT1"}));
    EXPECT_EQ(drawing.get("Plot").call("PlotToDevice", {"Adobe PDF"}), Value(true));
    drawing.call("Close", {false});
    autocad.call("Quit");
    EXPECT_EQ(PdfReader(folder / "out.pdf").text(1), "the sheet");
    EXPECT_EQ(machine.notes.front(), "dialog Save PDF File As");
}

TEST_F(AutoCADHost, FindsLayoutsByNameAndNumber) {
    const Value drawing = open_house();
    for (const Value& index : {Value("model"), Value(std::int16_t{0}), Value("0"), Value(0.0)})
        EXPECT_EQ(drawing.get("Layouts", {index}).get("Name"), Value("Model"));
    EXPECT_EQ(drawing.get("Layouts", {std::int32_t{1}}).get("Name"), Value("Layout1"));
    EXPECT_EQ(drawing.get("Layouts").get("Count"), Value(std::int32_t{2}));
    EXPECT_EQ(drawing.get("ActiveLayout").get("Name"), Value("Model"));
}

TEST_F(AutoCADHost, SaysWhichLayoutsThereAre) {
    const Value drawing = open_house();
    const std::string known =
        "The layouts of " + (folder / "house.dxf").string() + " are 0 \"Model\", 1 \"Layout1\".";
    EXPECT_EQ(description_of([&] { drawing.get("Layouts", {"Roof"}); }),
              "There is no layout \"Roof\". " + known);
    EXPECT_EQ(description_of([&] { drawing.get("Layouts", {std::int16_t{2}}); }),
              "There is no layout 2. " + known);
    EXPECT_EQ(description_of([&] { drawing.get("Layouts", {Missing()}); }), "No layout is named. " + known);
}

TEST_F(AutoCADHost, RefusesToPlotALayoutWithoutAnythingOnIt) {
    const Value drawing = open("bare.dxf", DxfText{}.text());
    machine.answers = {(folder / "out.pdf").string()};
    const std::string text = description_of([&] { drawing.get("Plot").call("PlotToDevice", {"Adobe PDF"}); });
    EXPECT_NE(text.find("\"Model\" of "), std::string::npos) << text;
    EXPECT_NE(text.find("there is nothing on it that is plotted"), std::string::npos) << text;
    EXPECT_FALSE(std::filesystem::exists(folder / "out.pdf"));
}

TEST_F(AutoCADHost, PrintsOnQueuesAndKnowsNoOtherPrinter) {
    machine.printer = "Plotter";
    const Value plot = open_house().get("Plot");
    plot.call("PlotToDevice", {"Plotter"});
    EXPECT_TRUE(machine.printed.starts_with("%PDF-"));
    EXPECT_NE(description_of([&] { plot.call("PlotToDevice", {"Lost"}); }).find("no printer \"Lost\""),
              std::string::npos);
}

TEST_F(AutoCADHost, SaysWhenTheDialogWasCancelled) {
    const Value plot = open_house().get("Plot");
    machine.answers = {"cancel"};
    machine.answers = {""};
    EXPECT_NE(description_of([&] { plot.call("PlotToDevice", {"Adobe PDF"}); }).find("was not printed"),
              std::string::npos);
}

TEST_F(AutoCADHost, RefusesWhatIsNoDrawing) {
    for (const auto& [name, content, reason] :
         {std::tuple("letter.dxf", "Dear Sir,\n", "does not begin as one"),
          std::tuple("page.dxf", "%PDF-1.4\n", "it is a PDF file"), std::tuple("none.dwg", "", "it is empty"),
          std::tuple("noise.dwg", "\x01\x02\x03\x04\x05\x06\x07\x08", "does not begin as one")}) {
        const std::string text = description_of([&, n = name, c = content] { open(n, c); });
        EXPECT_NE(text.find(reason), std::string::npos) << text;
        EXPECT_NE(text.find(name), std::string::npos) << text;
    }
    EXPECT_EQ(
        tests::error_number([&] { autocad.get("Documents").call("Open", {(folder / "lost.dxf").string()}); }),
        53);
}

TEST_F(AutoCADHost, NeverMakesSomethingOfADamagedDwg) {
    const std::string text = description_of([&] { open("plan.dwg", "AC1032" + std::string(5000, '\x7F')); });
    EXPECT_NE(text.find("save it as DXF"), std::string::npos) << text;
}

TEST_F(AutoCADHost, IsGoneOnceItHasQuit) {
    const Value drawing = open_house();
    EXPECT_EQ(autocad.get("Documents").get("Count"), Value(std::int32_t{1}));
    autocad.call("Quit");
    EXPECT_EQ(tests::error_number([&] { autocad.get("Documents"); }), 462);
    EXPECT_EQ(description_of([&] { drawing.get("Plot"); }), "The drawing is closed.");
    EXPECT_NO_THROW(autocad.call("Quit"));
}

TEST_F(AutoCADHost, TakesNoLayoutOfAnotherDrawing) {
    const Value first = open_house();
    const Value second = open("b.dxf", DxfText{.entities = {"POINT|8=0|10=0|20=0"}}.text());
    EXPECT_NE(description_of([&] {
                  second.set_reference("ActiveLayout", first.get("Layouts", {"Model"}));
              }).find("no layout of b.dxf"),
              std::string::npos);
}

TEST(AutoCADModule, KnowsNoOtherClass) {
    NotingMachine machine;
    EXPECT_EQ(tests::error_number([&] { autocad_module().create("Word.Application", machine); }), 429);
}

TEST(AutoCADModule, NamesTheVersionOfItsEngine) {
    EXPECT_TRUE(autocad_module().engine_version().starts_with("1."));
}

}  // namespace
}  // namespace foliant::hosts::autocad
