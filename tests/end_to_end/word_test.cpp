#include <cstdlib>
#include <gtest/gtest.h>

#include "end_to_end/command_test.h"

namespace foliant::end_to_end {
namespace {

const std::string letter = EXAMPLES_FOLDER "/letter.docx";

class WordToPdf : public CommandTest {
  protected:
    void SetUp() override {
        REQUIRE_HOST("Word");
        REQUIRE_HOST("Acrobat Distiller");
    }
};

TEST_F(WordToPdf, ThroughPostScriptTheTextIsStillText) {
    expect_success({"CreatePDFfromWord", "letter.pdf", letter});
    EXPECT_GE(shop.pages("letter.pdf"), 3);
    const std::string text = shop.text("letter.pdf");
    for (const char* word : {"office", "fluent", "naïve", "Größe", "čeština"}) {
        EXPECT_NE(text.find(word), std::string::npos) << word;
    }
    EXPECT_EQ(shop.files(), (std::set<std::string>{"letter.pdf"}));
}

TEST_F(WordToPdf, NamesMayHaveAnyLetterInAnyLocale) {
    const std::string document = "Größe č #1 100%.docx";
    std::filesystem::copy(letter, shop.path(document));
    const std::string former = std::getenv("LC_ALL") != nullptr ? std::getenv("LC_ALL") : "";
    for (const char* locale : {"C", "C.UTF-8", "de_DE.ISO-8859-1", "no_SUCH.UTF-8"}) {
        setenv("LC_ALL", locale, 1);
        expect_success({"CreatePDFfromWord", "Größe č.pdf", document});
        EXPECT_NE(shop.text("Größe č.pdf").find("čeština"), std::string::npos) << locale;
        std::filesystem::remove(shop.path("Größe č.pdf"));
    }
    setenv("LC_ALL", former.c_str(), 1);
}

TEST_F(WordToPdf, ThroughThePrinterTheDialogIsAnswered) {
    expect_success({"CreatePDFfromWord2", "letter.pdf", letter});
    EXPECT_GE(shop.pages("letter.pdf"), 3);
    EXPECT_NE(shop.text("letter.pdf").find("čeština"), std::string::npos);
    EXPECT_EQ(shop.files(), (std::set<std::string>{"letter.pdf"}));
}

/// Width and height of the first page in points.
std::pair<double, double> sides_of(const Workshop& shop, const std::string& pdf) {
    const std::string size = shop.page_size(pdf);
    return {std::stod(size), std::stod(size.substr(size.find('x') + 1))};
}

TEST_F(WordToPdf, BothWaysGiveTheSamePages) {
    expect_success({"CreatePDFfromWord", "a.pdf", letter});
    expect_success({"CreatePDFfromWord2", "b.pdf", letter});
    EXPECT_EQ(shop.pages("a.pdf"), shop.pages("b.pdf"));
    // PostScript knows its media in whole points.
    EXPECT_NEAR(sides_of(shop, "a.pdf").first, sides_of(shop, "b.pdf").first, 0.5);
    EXPECT_NEAR(sides_of(shop, "a.pdf").second, sides_of(shop, "b.pdf").second, 0.5);
}

TEST_F(WordToPdf, OrientationAndPagesAreObeyed) {
    expect_success({"CreatePDFfromWord2", "all.pdf", letter});
    expect_success({"CreatePDFfromWord", "part.pdf", letter, "--landscape", "--pages", "1,3"});
    EXPECT_EQ(shop.pages("part.pdf"), 2);
    EXPECT_GT(sides_of(shop, "part.pdf").first, sides_of(shop, "part.pdf").second);
    EXPECT_LT(sides_of(shop, "all.pdf").first, sides_of(shop, "all.pdf").second);
}

TEST_F(WordToPdf, PostScriptIsTheResultOfItsMember) {
    expect_success({"CreatePSfromWord", "letter.ps", letter});
    EXPECT_EQ(shop.read("letter.ps").substr(0, 4), "%!PS");
    expect_success({"CreatePDFfromPS", "letter.pdf", "letter.ps"});
    EXPECT_GE(shop.pages("letter.pdf"), 3);
}

TEST_F(WordToPdf, AnOldPdfIsReplaced) {
    shop.write("letter.pdf", "%PDF-1.4 old");
    expect_success({"CreatePDFfromWord2", "letter.pdf", letter});
    EXPECT_GE(shop.pages("letter.pdf"), 3);
}

TEST_F(WordToPdf, MissingDocumentsAreTold) {
    expect_failure({"CreatePDFfromWord", "a.pdf", "none.docx"}, {"File none.docx does not exist."}, 3);
}

TEST_F(WordToPdf, EmptyRandomAndTruncatedDocumentsAreTold) {
    shop.write("empty.docx", "");
    expect_failure({"CreatePDFfromWord2", "a.pdf", "empty.docx"}, {"empty.docx"});
    shop.write("random.docx", std::string(100, '\x9d'));
    expect_failure({"CreatePDFfromWord2", "a.pdf", "random.docx"}, {"random.docx"});
    std::string whole = shop.run({"cat", letter}).output;
    shop.write("short.docx", whole.substr(0, whole.size() / 2));
    expect_failure({"CreatePDFfromWord", "a.pdf", "short.docx"}, {"short.docx"});
}

TEST_F(WordToPdf, UnknownPrintersAreTold) {
    expect_failure({"CreatePDFfromWord2", "a.pdf", letter, "--distiller", "No such printer"},
                   {"No such printer"});
}

TEST_F(WordToPdf, UnwritableFoldersAreTold) {
    expect_failure({"CreatePDFfromWord2", "none/a.pdf", letter}, {"none"}, 2);
    expect_failure({"CreatePSfromWord", "none/a.ps", letter}, {"none"}, 2);
    expect_failure({"CreatePDFfromWord2", "/proc/a.pdf", letter}, {"/proc"}, 2);
}

TEST_F(WordToPdf, WhatIsDoneOutsideIsShownAndKeptWithoutPasswords) {
    const Finished call = expect_success(
        {"CreatePDFfromWord2", "a.pdf", letter, "--verbose", "--log", "log.txt", "--password", "hidden one"});
    for (const std::string& text : {call.errors, shop.read("log.txt")}) {
        EXPECT_NE(text.find("PasswordDocument:=\"***\""), std::string::npos) << text;
        EXPECT_NE(text.find("Word.Document.PrintOut()\n"), std::string::npos) << text;
        EXPECT_EQ(text.find("hidden one"), std::string::npos) << text;
    }
    EXPECT_TRUE(shop.read("log.txt").ends_with("exit code 0\n"));
}

TEST_F(WordToPdf, NamesThatAreNoUtf8AreNames) {
    const std::string folder = "d\xE9";
    std::filesystem::create_directory(shop.path(folder));
    std::filesystem::copy_file(letter, shop.path(folder) / "caf\xE9.docx");
    expect_success({"CreatePDFfromWord2", "caf\xE9.pdf", folder + "/caf\xE9.docx"});
    EXPECT_GE(shop.pages("caf\xE9.pdf"), 3);
}

TEST_F(WordToPdf, PostScriptIsNotPrintedAsItsSource) {
    for (const char* name : {"a.ps", "a.doc"}) {
        shop.write(name, "%!PS\nshowpage\n");
        expect_failure({"CreatePDFfromWord2", "a.pdf", name},
                       {"it is a PostScript file, which CreatePDFfromPS converts"});
    }
}

TEST_F(WordToPdf, ALogSpoilsNoDocument) {
    shop.write("a.docx", "PK\x03\x04 not text");
    expect_failure({"CreatePDFfromWord2", "a.pdf", letter, "--log", "a.docx"}, {"a.docx is no text"}, 2);
    EXPECT_EQ(shop.read("a.docx"), "PK\x03\x04 not text");
}

TEST_F(WordToPdf, TooLittleMemoryIsToldByName) {
    expect_failure({"CreatePDFfromWord2", "a.pdf", letter, "--memory", "30M"}, {"30", "--memory"}, 125);
}

TEST_F(WordToPdf, SomethingMovesOnTheTerminalAndTheResultIsTold) {
    const Finished call =
        shop.run({"script", "-qc", FOLIANT_COMMAND " CreatePDFfromWord2 a.pdf " + letter, "/dev/null"});
    EXPECT_NE(call.output.find("\r| Converting letter.docx\x1B[K\r/ Converting"), std::string::npos)
        << call.output;
    EXPECT_NE(call.output.find("\r\x1B[KWrote a.pdf ("), std::string::npos) << call.output;
}

}  // namespace
}  // namespace foliant::end_to_end
