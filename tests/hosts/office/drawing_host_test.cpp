// PowerPoint's and Visio's stand-ins.

#include <gtest/gtest.h>

#include "automation/object.h"
#include "automation/value.h"
#include "hosts/module.h"
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
using test::PdfReader;

class PowerPointHost : public testing::Test {
  protected:
    Value open(const std::string& name) {
        return powerpoint.get("Presentations").call("Open", {test::document(name).string()});
    }

    /// What the PDF printer makes of those slides.
    PdfReader print(const Value& presentation, std::int32_t from = -1, std::int32_t to = -1) {
        machine.answer = (folder / "out.pdf").string();
        presentation.get("PrintOptions").set("ActivePrinter", "Adobe PDF");
        presentation.call("PrintOut", {named("From", from), named("To", to)});
        return PdfReader(machine.answer);
    }

    tests::ScratchFolder folder;
    NotingMachine machine;
    process::HostProcess host{{"PowerPoint", "LibreOffice Impress", office_module}, machine};
    Value powerpoint = host.create("Powerpoint.Application");
};

TEST_F(PowerPointHost, PrintsToPostScriptInTheOrderOfTheLibrary) {
    powerpoint.set("Visible", std::int16_t{-1});
    powerpoint.set("WindowState", std::int16_t{2});
    const Value presentation = open("slides.fodp");
    presentation.get("PageSetup").set("SlideOrientation", std::int16_t{2});
    EXPECT_EQ(presentation.get("PrintOptions").get("ActivePrinter"), Value("Office"));
    presentation.get("PrintOptions").set("ActivePrinter", "Adobe PDF");
    presentation.call("PrintOut", {named("From", std::int32_t{2}), named("To", std::int32_t{-1}),
                                   named("PrintToFile", (folder / "out.ps").string())});
    presentation.get("PrintOptions").set("ActivePrinter", "Office");
    presentation.call("Close");
    powerpoint.call("Quit");
    const std::string postscript = tests::read_file(folder / "out.ps");
    EXPECT_TRUE(postscript.starts_with("%!PS-Adobe-3.0\n"));
    EXPECT_NE(postscript.find("%%Pages: 3\n"), std::string::npos);
}

TEST_F(PowerPointHost, PrintsToPostScriptThePhotographsThatNothingComesBehind) {
    const Value presentation = open("photographs.fodp");
    presentation.get("PrintOptions").set("ActivePrinter", "Adobe PDF");
    presentation.call("PrintOut", {named("From", std::int32_t{-1}), named("To", std::int32_t{-1}),
                                   named("PrintToFile", (folder / "out.ps").string())});
    const std::string postscript = tests::read_file(folder / "out.ps");
    int photographs = 0;
    for (std::size_t at = 0; (at = postscript.find("/DCTDecode filter", at)) != std::string::npos; ++at)
        ++photographs;
    EXPECT_EQ(photographs, 4);
}

TEST_F(PowerPointHost, PrintsAllSlidesWithTheHiddenOnesAmongThem) {
    const PdfReader pdf = print(open("slides.fodp"));
    ASSERT_EQ(pdf.pages(), 4);
    EXPECT_EQ(pdf.text(3), "This is slide 3.");
}

TEST_F(PowerPointHost, DrawsControlsWholeAndLeavesNothingToFillIn) {
    const PdfReader pdf = print(open("controls.fodp"));
    EXPECT_EQ(pdf.text(1), "✓ Tick");
    const std::string bytes = tests::read_file(folder / "out.pdf");
    EXPECT_EQ(bytes.find("/AcroForm"), std::string::npos);
    EXPECT_EQ(bytes.find("/Widget"), std::string::npos);
}

TEST_F(PowerPointHost, PrintsTheSlidesThatAreAskedFor) {
    const Value presentation = open("slides.fodp");
    const PdfReader two = print(presentation, 2, 3);
    ASSERT_EQ(two.pages(), 2);
    EXPECT_EQ(two.text(1), "This is slide 2.");
    EXPECT_EQ(two.text(2), "This is slide 3.");
    EXPECT_EQ(print(presentation, 3).pages(), 2) << "to the last one";
    EXPECT_EQ(print(presentation, -1, 3).pages(), 3) << "from the first one";
}

TEST_F(PowerPointHost, SaysWhichSlidesThereAre) {
    const Value presentation = open("slides.fodp");
    for (const auto& [from, to] : {std::pair(5, -1), std::pair(1, 5), std::pair(0, 2), std::pair(-2, 2),
                                   std::pair(3, 2), std::pair(70000, 70000)}) {
        const auto error = tests::error_of([&, from = from, to = to] { print(presentation, from, to); });
        EXPECT_EQ(error.number(), -2147188160) << from;
        EXPECT_NE(error.description().find("slides.fodp has slides 1 to 4, "), std::string::npos)
            << error.description();
    }
    EXPECT_FALSE(std::filesystem::exists(folder / "out.pdf"));
}

TEST_F(PowerPointHost, TurnsSlidesAndFitsWhatIsOnThem) {
    const Value presentation = open("slides.fodp");
    EXPECT_EQ(presentation.get("PageSetup").get("SlideOrientation"), Value(std::int32_t{1}));
    const PdfReader lying = print(presentation);
    presentation.get("PageSetup").set("SlideOrientation", std::int16_t{2});
    EXPECT_EQ(presentation.get("PageSetup").get("SlideOrientation"), Value(std::int32_t{2}));
    const PdfReader standing = print(presentation);
    EXPECT_EQ(lying.size(1), "794 x 446");
    EXPECT_EQ(standing.size(1), "446 x 794");
    // 446 of 794 points: everything is 0.5625 of its size, and in the middle from top to bottom.
    const auto before = lying.place(1, "This is");
    const auto after = standing.place(1, "This is");
    EXPECT_NEAR(after.left, before.left * 0.5625, 3);
    EXPECT_NEAR(after.top, before.top * 0.5625 + (794 - 446 * 0.5625) / 2, 8);
    EXPECT_EQ(tests::error_of([&] { presentation.get("PageSetup").set("SlideOrientation", 3); }).number(),
              -2147188160);
}

TEST_F(PowerPointHost, RefusesWhatIsNoPresentation) {
    for (const auto& [name, reason] :
         {std::pair("none.ppt", "does not exist"), std::pair("prose.pptx", "it holds plain text"),
          std::pair("noise.ppt", "of no known kind"), std::pair("one.docx", "without a PowerPoint"),
          std::pair("encrypted.ppt", "is encrypted, and PowerPoint is given no passwords"),
          std::pair("cut.vsdx", "breaks off")}) {
        const auto error = tests::error_of([&, name = name] { open(name); });
        EXPECT_EQ(error.number(), -2147467259);
        EXPECT_EQ(error.source(), "Microsoft PowerPoint");
        EXPECT_NE(error.description().find(reason), std::string::npos) << error.description();
    }
}

TEST_F(PowerPointHost, KnowsNoPrinterThatTheMachineHasNot) {
    const Value options = open("slides.fodp").get("PrintOptions");
    const auto error = tests::error_of([&] { options.set("ActivePrinter", "Lost printer"); });
    EXPECT_NE(error.description().find("Lost printer"), std::string::npos);
    EXPECT_EQ(options.get("ActivePrinter"), Value("Office"));
}

TEST_F(PowerPointHost, ClosesItsPresentationsWhenItQuits) {
    const Value presentation = open("slides.fodp");
    EXPECT_EQ(powerpoint.get("Presentations").get("Count"), Value(std::int32_t{1}));
    powerpoint.call("Quit");
    EXPECT_NE(tests::error_of([&] { presentation.call("PrintOut"); }).number(), 0);
    EXPECT_EQ(tests::error_of([&] { powerpoint.get("Presentations"); }).number(), 462);
    EXPECT_NO_THROW(powerpoint.call("Quit"));
}

class VisioHost : public testing::Test {
  protected:
    Value open(const std::string& name) {
        return visio.get("Documents").call("Open", {test::document(name).string()});
    }

    tests::ScratchFolder folder;
    NotingMachine machine;
    process::HostProcess host{{"Visio", "LibreOffice Draw", office_module}, machine};
    Value visio = host.create("Visio.Application");
};

TEST_F(VisioHost, PrintsEveryPageInTheOrderOfTheLibrary) {
    const Value drawing = open("plan.vsdx");
    drawing.set("Printer", "Adobe PDF");
    machine.answer = (folder / "out.pdf").string();
    drawing.call("Print");
    drawing.call("Close");
    visio.call("Quit");
    const PdfReader pdf(machine.answer);
    ASSERT_EQ(pdf.pages(), 2);
    EXPECT_EQ(pdf.text(1), "drawn on 1");
    EXPECT_EQ(pdf.text(2), "drawn on 2");
}

TEST_F(VisioHost, GivesEachPageItsOwnSize) {
    const Value drawing = open("plan.vsdx");
    drawing.set("Printer", "Adobe PDF");
    machine.answer = (folder / "out.pdf").string();
    drawing.call("Print");
    const PdfReader pdf(machine.answer);
    EXPECT_EQ(pdf.size(1), "612 x 792");
    EXPECT_EQ(pdf.size(2), "720 x 360");
    // Two inches above the lower edge of both, and as far from the left.
    EXPECT_NEAR(pdf.place(1, "drawn").top, 792 - 144, 30);
    EXPECT_NEAR(pdf.place(2, "drawn").top, 360 - 144, 30);
    EXPECT_NEAR(pdf.place(2, "drawn").left, pdf.place(1, "drawn").left, 1);
}

TEST_F(VisioHost, PrintsTemplatesAndRefusesStencilsThatHaveNoPage) {
    open("plan.vstx").call("Print");
    EXPECT_EQ(machine.notes, (std::vector<std::string>{"print plan.vstx on Office, pages 2"}));
    const Value stencil = open("shapes.vssx");
    const auto error = tests::error_of([&] { stencil.call("Print"); });
    EXPECT_EQ(error.source(), "Microsoft Visio");
    EXPECT_NE(error.description().find("shapes.vssx has no pages: it holds shapes for other drawings"),
              std::string::npos)
        << error.description();
}

TEST_F(VisioHost, PrintsOnItsOwnPrinterUntilItIsToldAnother) {
    const Value drawing = open("plan.vsdx");
    EXPECT_EQ(drawing.get("Printer"), Value("Office"));
    drawing.call("Print");
    EXPECT_EQ(machine.notes, (std::vector<std::string>{"print plan.vsdx on Office, pages 2"}));
    EXPECT_NE(
        tests::error_of([&] { drawing.set("Printer", "Lost printer"); }).description().find("Lost printer"),
        std::string::npos);
}

TEST_F(VisioHost, RefusesWhatIsNoDrawing) {
    for (const auto& [name, reason] :
         {std::pair("none.vsd", "does not exist"), std::pair("prose.vsd", "it holds plain text"),
          std::pair("noise.vsd", "of no known kind"), std::pair("one.docx", "without a Visio"),
          std::pair("cut.vsdx", "breaks off"), std::pair("cut.vdx", "breaks off")}) {
        const auto error = tests::error_of([&, name = name] { open(name); });
        EXPECT_EQ(error.source(), "Microsoft Visio");
        EXPECT_NE(error.description().find(reason), std::string::npos) << error.description();
    }
}

TEST_F(VisioHost, IsGoneOnceItHasQuit) {
    visio.call("Quit");
    EXPECT_EQ(tests::error_of([&] { visio.get("Documents"); }).number(), 462);
}

}  // namespace
}  // namespace foliant::hosts::office
