#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "end_to_end/command_test.h"

namespace foliant::end_to_end {
namespace {

std::string postscript(const std::vector<std::string>& pages) {
    std::string text = "%!PS-Adobe-3.0\n%%Pages: " + std::to_string(pages.size()) +
                       "\n%%EndComments\n/Times-Roman findfont 24 scalefont setfont\n";
    for (const std::string& page : pages)
        text += "72 700 moveto (" + page + ") show showpage\n";
    return text + "%%EOF\n";
}

class PostScriptToPdf : public CommandTest {
  protected:
    void SetUp() override { REQUIRE_HOST("Acrobat Distiller"); }
};

TEST_F(PostScriptToPdf, OneFile) {
    shop.write("in.ps", postscript({"First page", "Second page"}));
    const Finished call = shop.foliant({"CreatePDFfromPS", "out.pdf", "in.ps"});
    EXPECT_EQ(call.exit_code, 0) << call.errors;
    EXPECT_EQ(call.output, "");
    EXPECT_EQ(call.errors, "");
    EXPECT_EQ(shop.pages("out.pdf"), 2);
    EXPECT_NE(shop.text("out.pdf").find("Second page"), std::string::npos);
    EXPECT_EQ(shop.files(), (std::set<std::string>{"in.ps", "out.pdf"}));
}

TEST_F(PostScriptToPdf, SeveralFilesInOrderWithTheMissingOneSkipped) {
    shop.write("a.ps", postscript({"Alpha"}));
    shop.write("c d.ps", postscript({"Gamma", "Delta"}));
    const Finished call = shop.foliant({"CreatePDFfromMultiPS", "book.pdf", "a.ps", "b.ps", "c d.ps"});
    EXPECT_EQ(call.exit_code, 7) << call.errors;
    EXPECT_EQ(shop.pages("book.pdf"), 3);
    const std::string text = shop.text("book.pdf");
    EXPECT_LT(text.find("Alpha"), text.find("Gamma"));
    EXPECT_LT(text.find("Gamma"), text.find("Delta"));
    EXPECT_EQ(shop.files(), (std::set<std::string>{"a.ps", "c d.ps", "book.pdf"}));
}

TEST_F(PostScriptToPdf, JsonTellsEventsAndTheFilledInPrinter) {
    shop.write("in.ps", postscript({"One", "Two"}));
    const Finished call = shop.foliant({"CreatePDFfromPS", "out.pdf", "in.ps", "--distiller", " ", "--json"});
    const auto report = nlohmann::json::parse(call.output);
    EXPECT_EQ(report["arguments"]["strDistiller"], "Adobe PDF");
    EXPECT_EQ(report["error"], nullptr);
    std::string names;
    for (const auto& event : report["events"]) {
        if (event["name"] != "PercentDone" && event["name"] != "LogMessage") {
            names += event["name"].get<std::string>() + " ";
        }
    }
    EXPECT_EQ(names, "JobStart PageNumber PageNumber JobDone ");
}

TEST_F(PostScriptToPdf, AFailedJobTellsTheInterpretersMessageAndLeavesNoPdf) {
    shop.write("bad.ps", "%!PS\nno_such_operator\n");
    const Finished call = shop.foliant({"CreatePDFfromPS", "bad.pdf", "bad.ps"});
    EXPECT_EQ(call.exit_code, 5);
    EXPECT_NE(call.errors.find("undefined"), std::string::npos) << call.errors;
    EXPECT_NE(call.errors.find("no_such_operator"), std::string::npos) << call.errors;
    EXPECT_EQ(shop.files(), (std::set<std::string>{"bad.ps"}));
}

TEST_F(PostScriptToPdf, AMissingInputIsToldAndTheOldPdfStays) {
    shop.write("out.pdf", "%PDF-1.4 old");
    const Finished call = shop.foliant({"CreatePDFfromPS", "out.pdf", "none.ps"});
    EXPECT_EQ(call.exit_code, 3);
    EXPECT_EQ(call.errors, "foliant: File none.ps does not exist.\n");
    EXPECT_EQ(shop.read("out.pdf"), "%PDF-1.4 old");
}

TEST_F(PostScriptToPdf, SecurityReallyProtects) {
    shop.write("in.ps", postscript({"Secret"}));
    EXPECT_EQ(shop.foliant({"CreatePDFfromPS", "out.pdf", "in.ps", "--apply-security"}).exit_code, 0);
    const std::string encryption = shop.run({"qpdf", "--show-encryption", "out.pdf"}).output;
    EXPECT_NE(encryption.find("file encryption method: AESv3"), std::string::npos) << encryption;
    EXPECT_NE(encryption.find("modify anything: not allowed"), std::string::npos) << encryption;
}

TEST_F(PostScriptToPdf, SecurityThatAnOlderAcrobatWouldLeaveOutIsRefused) {
    const std::string key = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Classes\\AcroExch.App\\AcrobatVersion";
    shop.write("in.ps", postscript({"Open"}));
    ASSERT_EQ(shop.foliant({"registry", "set", key, "", "5.0"}).exit_code, 0);
    const Finished call = shop.foliant({"CreatePDFfromPS", "out.pdf", "in.ps", "--apply-security"});
    EXPECT_EQ(call.exit_code, 5);
    EXPECT_NE(call.errors.find("The PDF would not be protected: that takes an Acrobat above 5.0, and the "
                               "settings name 5.0."),
              std::string::npos)
        << call.errors;
    ASSERT_EQ(shop.foliant({"registry", "remove", key, ""}).exit_code, 0);
    EXPECT_EQ(shop.foliant({"CreatePDFfromPS", "out.pdf", "in.ps", "--apply-security"}).exit_code, 5);
    EXPECT_EQ(shop.files(), (std::set<std::string>{"in.ps"}));
    EXPECT_EQ(shop.foliant({"CreatePDFfromPS", "out.pdf", "in.ps"}).exit_code, 0);
}

TEST_F(PostScriptToPdf, SecurityWithSettingsThatCannotBeReadIsRefused) {
    shop.write("in.ps", postscript({"Open"}));
    for (const char* damage : {"echo broken > registry.json", "rm -f registry.json; mkdir registry.json",
                               "rm -rf registry.json; ln -s registry.json registry.json"}) {
        const std::string command =
            "mkdir -p \"$HOME/.config/foliant\" && cd \"$HOME/.config/foliant\" && " + std::string(damage);
        ASSERT_EQ(shop.run({"sh", "-c", command}).exit_code, 0);
        const Finished call = shop.foliant({"CreatePDFfromPS", "out.pdf", "in.ps", "--apply-security"});
        EXPECT_EQ(call.exit_code, 5) << damage;
        EXPECT_NE(call.errors.find("registry.json"), std::string::npos) << call.errors;
        EXPECT_EQ(shop.files(), (std::set<std::string>{"in.ps"})) << damage;
    }
}

TEST_F(PostScriptToPdf, InputsThatDoNotExistAreToldAndHaveACodeOfTheirOwn) {
    shop.write("a.ps", postscript({"Alpha"}));
    const Finished call =
        shop.foliant({"CreatePDFfromMultiPS", "book.pdf", "none.ps", "a.ps", ".", "--json"});
    EXPECT_EQ(call.exit_code, 7);
    EXPECT_EQ(call.errors,
              "foliant: none.ps does not exist, and was left out.\n"
              "foliant: . is a folder, and was left out.\n");
    EXPECT_NE(call.output.find("\"exitCode\": 7"), std::string::npos) << call.output;
    EXPECT_EQ(shop.pages("book.pdf"), 1);
    const Finished nothing = shop.foliant({"CreatePDFfromMultiPS", "new.pdf", "none.ps", "nor.ps"});
    EXPECT_EQ(nothing.exit_code, 3);
    EXPECT_EQ(nothing.errors, "foliant: Nothing is there to convert: none.ps does not exist.\n");
}

TEST_F(PostScriptToPdf, WhatIsInAListAndNoFileIsCalledWhatItIs) {
    shop.write("a.ps", postscript({"Alpha"}));
    ASSERT_EQ(shop.run({"mkfifo", "pipe.ps"}).exit_code, 0);
    const Finished call =
        shop.foliant({"CreatePDFfromMultiPS", "book.pdf", "pipe.ps", "", "/dev/null", "a.ps", "a.ps/b.ps"});
    EXPECT_EQ(call.exit_code, 7);
    EXPECT_EQ(call.errors,
              "foliant: pipe.ps is a pipe, and was left out.\n"
              "foliant: A file with an empty name does not exist, and was left out.\n"
              "foliant: /dev/null is a device, and was left out.\n"
              "foliant: a.ps/b.ps does not exist, and was left out.\n");
    expect_failure({"CreatePDFfromMultiPS", "new.pdf", "pipe.ps"},
                   {"Nothing is there to convert: pipe.ps is a pipe."}, 1);
    expect_failure({"CreatePDFfromMultiPS", "new.pdf", "pipe.ps", "none.ps"},
                   {"Nothing is there to convert: none.ps does not exist."}, 3);
}

TEST_F(PostScriptToPdf, AnInputThatIsNoFileIsCalledWhatItIs) {
    ASSERT_EQ(shop.run({"mkfifo", "pipe.ps"}).exit_code, 0);
    expect_failure({"CreatePDFfromPS", "new.pdf", "pipe.ps"}, {"foliant: pipe.ps is a pipe.\n"}, 1);
    expect_failure({"CreatePDFfromPS", "new.pdf", std::string(300, 'a')},
                   {" cannot be looked at: File name too long.\n"}, 1);
    expect_failure({"CreatePDFfromPS", "new.pdf", ""},
                   {"foliant: A file with an empty name does not exist.\n"}, 3);
}

TEST_F(PostScriptToPdf, NothingThatADocumentPrintsActsOnATerminal) {
    const std::string name = "a\x1B[31m\r.ps";
    shop.write(name, "%!PS\n(\\033]0;owned\\007\\015\\233) print flush (\\033[2J) cvn load\n");
    const Finished call = shop.foliant({"CreatePDFfromPS", "out.pdf", name});
    EXPECT_EQ(call.exit_code, 5);
    for (const char c : call.errors) {
        EXPECT_TRUE(c == '\n' || (static_cast<unsigned char>(c) >= 0x20 && c != '\x7F')) << call.errors;
    }
    EXPECT_NE(call.errors.find("owned"), std::string::npos) << call.errors;
    EXPECT_EQ(shop.foliant({"rehearse", "CreatePDFfromPS", "out.pdf", name}).output.find('\x1B'),
              std::string::npos);
}

TEST_F(PostScriptToPdf, TheReportTellsPagesAndSize) {
    shop.write("a.ps", postscript({"Alpha", "Beta"}));
    for (const char* option : {"--apply-security", "--spool-jobs"}) {
        const Finished call = shop.foliant({"CreatePDFfromPS", "out.pdf", "a.ps", "--json", option});
        EXPECT_NE(call.output.find("\"file\": \"out.pdf\",\n    \"pages\": 2,\n    \"bytes\": " +
                                   std::to_string(shop.read("out.pdf").size())),
                  std::string::npos)
            << call.output;
    }
}

TEST_F(PostScriptToPdf, JobOptionsChangeTheOutput) {
    shop.write("in.ps", postscript({"Text"}));
    shop.write("old.joboptions", "<< /CompatibilityLevel 1.3 >> setdistillerparams\n");
    EXPECT_EQ(shop.foliant({"CreatePDFfromPS", "out.pdf", "in.ps", "--job-options-file", "old.joboptions"})
                  .exit_code,
              0);
    EXPECT_EQ(shop.read("out.pdf").substr(0, 8), "%PDF-1.3");
}

TEST_F(PostScriptToPdf, AMissingOutputFolderIsToldWithTheRemedy) {
    shop.write("in.ps", postscript({"Text"}));
    const Finished call = shop.foliant({"CreatePDFfromPS", "none/out.pdf", "in.ps"});
    EXPECT_EQ(call.exit_code, 2);
    EXPECT_NE(call.errors.find("none"), std::string::npos) << call.errors;
    EXPECT_NE(call.errors.find("folder"), std::string::npos) << call.errors;
}

/// The command as it is where Ghostscript's library is not installed: its program ends as the loader ends it.
TEST_F(PostScriptToPdf, WithoutItsEngineIsSaidToLackIt) {
    const std::filesystem::path command = shop.command_without("distiller/ghostscript-engine");
    const std::filesystem::path engine = command.parent_path() / "hosts/distiller/ghostscript-engine";
    tests::write_file(engine, "#!/bin/sh\nexit 127\n");
    std::filesystem::permissions(engine, std::filesystem::perms::owner_all);
    shop.write("a.ps", postscript({"one"}));
    const Finished call = shop.run({command, "CreatePDFfromPS", "a.pdf", "a.ps"});
    EXPECT_EQ(call.exit_code, 4);
    EXPECT_EQ(
        call.errors,
        "foliant: Ghostscript cannot be used: its library could not be loaded. Install or reinstall the package "
        "libgs10.\n");
    EXPECT_EQ(shop.files(), std::set<std::string>{"a.ps"});
}

}  // namespace
}  // namespace foliant::end_to_end
