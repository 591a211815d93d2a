// PDFMaker's stand-in.

#include <gtest/gtest.h>

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

using automation::Value;
using test::PdfReader;

/// Notes what Acrobat is to show, and keeps it.
class ShowingMachine : public test::NotingMachine {
  public:
    void show_in_acrobat(const std::filesystem::path& pdf, const std::string& name) override {
        notes.push_back("show " + name);
        std::filesystem::copy_file(pdf, folder_ / "shown.pdf",
                                   std::filesystem::copy_options::overwrite_existing);
    }
    PdfReader shown() const { return PdfReader(folder_ / "shown.pdf"); }

  private:
    tests::ScratchFolder folder_;
};

class PdfMakerHost : public testing::Test {
  protected:
    Value launch(const std::filesystem::path& file) {
        return pdfmaker.call("LaunchDocument", {file.string(), std::int16_t{0}});
    }
    /// The text of the first page of what Acrobat is shown.
    std::string made_of(const std::filesystem::path& file) {
        launch(file);
        return machine.shown().text(1);
    }

    tests::ScratchFolder folder;
    ShowingMachine machine;
    process::HostProcess host{{"PDFMaker", "LibreOffice", test::office_module}, machine};
    Value pdfmaker = host.create("AdobePDFMakerX.Word");
};

TEST_F(PdfMakerHost, HasAcrobatShowWhatItMakesUnderTheNameUpToTheFirstDot) {
    const auto document = folder / "Letter.first.DOCX";
    std::filesystem::copy_file(test::document("one.docx"), document);
    EXPECT_EQ(launch(document), Value(std::int32_t{0}));
    std::filesystem::copy_file(document, folder / "README");
    launch(folder / "README");
    EXPECT_EQ(machine.notes, (std::vector<std::string>{"show Letter.pdf", "show pdf"}));
    EXPECT_EQ(tests::names_in(folder.path()), (tests::Names{"Letter.first.DOCX", "README"}));
}

/// LibreOffice reads how to count so from files that lie outside of its own folders.
TEST_F(PdfMakerHost, CountsInNativeNumbers) {
    folder.write("list.fodt", R"(<?xml version="1.0" encoding="UTF-8"?>
<office:document xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0"
 xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0" xmlns:style="urn:oasis:names:tc:opendocument:xmlns:style:1.0"
 office:version="1.2" office:mimetype="application/vnd.oasis.opendocument.text"><office:automatic-styles>
<text:list-style style:name="L"><text:list-level-style-number text:level="1" style:num-suffix=":"
 style:num-format="一, 二, 三, ..."/></text:list-style></office:automatic-styles><office:body><office:text>
<text:list text:style-name="L"><text:list-item><text:p>one</text:p></text:list-item><text:list-item><text:p>two</text:p>
</text:list-item></text:list></office:text></office:body></office:document>)");
    EXPECT_EQ(made_of(folder / "list.fodt"), "一:one / 二:two");
}

TEST_F(PdfMakerHost, ConvertsDocumentsOfEveryApplication) {
    EXPECT_NE(made_of(test::document("one.docx")), "");
    EXPECT_NE(made_of(test::document("sales.xlsx")), "");
    EXPECT_EQ(made_of(test::document("slides.fodp")), "This is slide 1.");
    EXPECT_EQ(made_of(test::document("plan.vsdx")), "drawn on 1");
    EXPECT_EQ(machine.shown().size(2), "720 x 360") << "of a drawing of pages in several sizes";
}

TEST_F(PdfMakerHost, TellsTextsTablesMarkupAndDrawingsApart) {
    EXPECT_EQ(made_of(folder.write("a.txt", "one,two\nthree\n")), "one,two / three");
    EXPECT_NE(made_of(folder.write("a.csv", "one,two\n")).find("one two"), std::string::npos);
    EXPECT_EQ(made_of(folder.write("a.html", "<html><body><b>bold</b> words</body></html>")), "bold words");
    EXPECT_EQ(made_of(folder.write("a.svg",
                                   "<?xml version='1.0'?><svg xmlns='http://www.w3.org/2000/svg' "
                                   "width='100' height='50'><text x='5' y='30'>drawn</text></svg>")),
              "drawn");
}

TEST_F(PdfMakerHost, SaysWhatItDoesNotConvert) {
    const std::string noise = tests::read_file(test::document("noise.vsd"));
    for (const auto& [file, reason] :
         {std::pair(folder.path() / "none.doc", "does not exist"),
          std::pair(folder.write("a.bin", noise), "of no known kind"),
          std::pair(folder.write("a.pdf", "%PDF-1.4\n"), "it is a PDF already"),
          std::pair(folder.write("empty.doc", ""), "it is empty"),
          std::pair(folder.write("a.docx", "plain"), "of another kind than its name says"),
          std::pair(test::document("encrypted.ppt"), "is encrypted, and PDFMaker takes no passwords"),
          std::pair(test::document("cut.vsdx"), "breaks off"),
          std::pair(test::document("cut.vdx"), "breaks off")}) {
        const auto error = tests::error_of([&, file = file] { launch(file); });
        EXPECT_EQ(error.number(), -2147467259) << file;
        EXPECT_EQ(error.source(), "Acrobat PDFMaker");
        EXPECT_NE(error.description().find(reason), std::string::npos) << error.description();
    }
    EXPECT_EQ(machine.notes, std::vector<std::string>{});
}

}  // namespace
}  // namespace foliant::hosts::office
