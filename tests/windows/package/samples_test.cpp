// The samples as users start them, against recording servers in place of Word and Distiller.

#include <fstream>
#include <iterator>
#include <optional>

#include "windows/package/package.h"
#include "windows/servers/installation.h"

namespace foliant::tests::package {
namespace {

namespace fs = std::filesystem;

class Samples : public Package, public testing::WithParamInterface<const char*> {
  protected:
    void SetUp() override {
        Package::SetUp();
        ASSERT_EQ(run("register-machine.cmd").code, 0);
        fs::create_directory(documents());
        for (const char* name : {"letter.docx", "cover.ps", "chapter.ps"})
            std::ofstream(documents() / name) << "content";
    }

    void TearDown() override { run("unregister-machine.cmd"); }

    static fs::path documents() { return folder() / "My Documents"; }
    static std::string path(const char* name) { return (documents() / name).string(); }
    static bool has_pdf() {
        std::ifstream file(documents() / "out.pdf");
        return std::string(std::istreambuf_iterator<char>(file), {}) == "%made";
    }

    /// Runs a sample of the language under test in the folder of the documents.
    Outcome sample(const std::string& name, const std::string& arguments) {
        const bool visual_basic = std::string(GetParam()) == "VBScript";
        const std::string script = (visual_basic ? "samples\\vbscript\\" : "samples\\jscript\\") + name +
                                   (visual_basic ? ".vbs" : ".js");
        return run("cd \"My Documents\" && cscript //nologo ..\\" + script + " " + arguments);
    }

    /// JScript's errors have no source.
    static std::string error(const std::string& number, const std::string& description) {
        const bool visual_basic = std::string(GetParam()) == "VBScript";
        return "Error " + number + (visual_basic ? " from Foliant: " : ": ") + description + "\n";
    }

    bool recorded(const std::string& text) const {
        return servers_->record().find(text) != std::string::npos;
    }

    void install_hosts() { servers_.emplace(servers::Kind::in_process, true); }

  private:
    std::optional<servers::Installation> servers_;
};

TEST_P(Samples, WordDocumentToPdf) {
    install_hosts();
    const Outcome outcome = sample("word-to-pdf", "letter.docx out.pdf 1-2");
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.output, "Wrote " + path("out.pdf") + "\n");
    EXPECT_TRUE(has_pdf());
    EXPECT_TRUE(recorded("Word.Documents.Open(BSTR \"" + path("letter.docx") + "\""));
    EXPECT_TRUE(recorded("Range:=I2 4, Pages:=BSTR \"1-2\")"));
}

TEST_P(Samples, OnePostscriptFileToPdf) {
    install_hosts();
    const Outcome outcome = sample("postscript-to-pdf", "out.pdf cover.ps");
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.output, "Wrote " + path("out.pdf") + "\n");
    EXPECT_TRUE(has_pdf());
    EXPECT_TRUE(recorded("Distiller.FileToPDF(BSTR \"" + path("cover.ps") + "\", BSTR \"" + path("out.pdf") +
                         "\", BSTR \"\") METHOD|GET"));
}

TEST_P(Samples, SeveralPostscriptFilesToOnePdf) {
    install_hosts();
    const Outcome outcome = sample("postscript-to-pdf", "out.pdf cover.ps chapter.ps");
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.output, "Wrote " + path("out.pdf") + "\n");
    EXPECT_TRUE(has_pdf());
}

TEST_P(Samples, SeveralPdfsToOne) {
    install_hosts();
    const Outcome outcome = sample("merge-pdfs", "out.pdf cover.ps chapter.ps");
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.output, "Wrote " + path("out.pdf") + "\n");
    EXPECT_TRUE(has_pdf());
    EXPECT_TRUE(recorded("AcroExch.PDDoc.Open(BSTR \"" + path("chapter.ps") + "\") METHOD|GET"));
    EXPECT_TRUE(recorded("AcroExch.PDDoc.InsertPages(I2 0, DISPATCH, I2 0, I2 1, BOOL True) METHOD|GET"));
}

TEST_P(Samples, TextOfAPdf) {
    install_hosts();
    const Outcome outcome = sample("pdf-to-text", "cover.ps out.txt");
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.output, "Wrote " + path("out.txt") + " from 1 page(s)\n");
    std::ifstream text(documents() / "out.txt");
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(text), {}), "words\n");
}

TEST_P(Samples, MissingDocumentIsAnErrorWithNumberAndText) {
    const Outcome outcome = sample("word-to-pdf", "no.docx out.pdf");
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.output, error("-2147467008", "File " + path("no.docx") + " does not exist."));
}

TEST_P(Samples, MissingHostIsError429) {
    const Outcome outcome = sample("word-to-pdf", "letter.docx out.pdf");
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.output, error(std::string(GetParam()) == "VBScript" ? "429" : "-2146827859",
                                    "ActiveX component can't create object"));
}

TEST_P(Samples, MissingPostscriptIsNamed) {
    const Outcome outcome = sample("postscript-to-pdf", "out.pdf cover.ps no.ps");
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.output, "There is no file " + path("no.ps") + "\n");
}

TEST_P(Samples, TooFewArgumentsPrintTheUsage) {
    for (const char* name : {"word-to-pdf", "postscript-to-pdf", "merge-pdfs", "pdf-to-text"}) {
        const Outcome outcome = sample(name, "one");
        EXPECT_EQ(outcome.code, 2);
        EXPECT_EQ(outcome.output.find("Usage: cscript //nologo " + std::string(name)), 0u) << outcome.output;
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, Samples, testing::Values("VBScript", "JScript"),
                         [](const auto& language) { return language.param; });

}  // namespace
}  // namespace foliant::tests::package
