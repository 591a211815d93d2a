#include <cstdlib>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "end_to_end/command.h"

namespace foliant::end_to_end {
namespace {

const std::string version_key = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Classes\\AcroExch.App\\AcrobatVersion";

TEST(Settings, LookLikeAcrobat6AndCanBeSet) {
    const Workshop shop;
    EXPECT_EQ(shop.foliant({"AcrobatVersion"}).output, "6.0\n");
    EXPECT_EQ(shop.foliant({"PrinterName"}).output, "Adobe PDF\n");
    EXPECT_EQ(shop.foliant({"registry", "set", version_key, "", "7.0"}).exit_code, 0);
    EXPECT_EQ(shop.foliant({"AcrobatVersion"}).output, "7.0\n");
    EXPECT_EQ(
        shop.foliant({"registry", "get", "HKLM\\software\\classes\\acroexch.app\\acrobatversion", ""}).output,
        "7.0\n");
    EXPECT_NE(shop.foliant({"registry", "list"}).output.find(version_key), std::string::npos);
    EXPECT_EQ(shop.foliant({"registry", "remove", version_key, ""}).exit_code, 0);
    EXPECT_EQ(shop.foliant({"AcrobatVersion"}).output, "\n");
}

TEST(Settings, TempFilePathIsAPrivateFolderUnlessOneIsGiven) {
    const Workshop shop;
    const std::string folder = shop.foliant({"TempFilePath"}).output;
    EXPECT_TRUE(folder.ends_with("/\n")) << folder;
    EXPECT_TRUE(shop.is_clean_soon()) << shop.leftovers();
    EXPECT_EQ(shop.foliant({"TempFilePath", "--temp-path", shop.path("t")}).output,
              shop.path("t").string() + "/\n");
    EXPECT_EQ(shop.files(), (std::set<std::string>{"t"}));
}

TEST(Settings, ABrokenStoreIsNamedAndKept) {
    const Workshop shop;
    ASSERT_EQ(shop.foliant({"registry", "set", version_key, "", "7.0"}).exit_code, 0);
    const Finished find = shop.run({"sh", "-c", "echo broken > \"$HOME/.config/foliant/registry.json\""});
    ASSERT_EQ(find.exit_code, 0) << find.errors;
    const Finished call = shop.foliant({"registry", "set", version_key, "", "8.0"});
    EXPECT_EQ(call.exit_code, 1);
    EXPECT_NE(call.errors.find("registry.json"), std::string::npos) << call.errors;
    EXPECT_EQ(shop.run({"sh", "-c", "cat \"$HOME/.config/foliant/registry.json\""}).output, "broken\n");
}

TEST(Settings, PasswordsAreWrittenFromAFileAndNeverShown) {
    const Workshop shop;
    shop.write("secret", "a good one\n");
    const std::string key = "HKCU\\Software\\Adobe\\Acrobat Distiller\\6.0\\Security";
    ASSERT_EQ(shop.foliant({"registry", "set", key, "OwnerPassword", "--from-file", "secret"}).exit_code, 0);
    EXPECT_EQ(shop.foliant({"registry", "get", key, "OwnerPassword"}).output, "***\n");
    for (const std::vector<std::string>& words :
         std::vector<std::vector<std::string>>{{"registry", "list"},
                                               {"registry", "list", "--json"},
                                               {"registry", "get", key, "OwnerPassword", "--json"}}) {
        const std::string output = shop.foliant(words).output;
        EXPECT_NE(output.find("OwnerPassword"), std::string::npos) << output;
        EXPECT_EQ(output.find("good one"), std::string::npos) << output;
    }
    EXPECT_NE(shop.run({"sh", "-c", "cat \"$HOME/.config/foliant/registry.json\""}).output.find("a good one"),
              std::string::npos);
}

TEST(StandardOutput, ThatCannotBeWrittenToIsNoSuccess) {
    const Workshop shop;
    for (const char* words :
         {" AcrobatVersion", " --help", " man", " completion bash", " registry list", " hosts"})
        for (const char* output : {" >&-", " >/dev/full"}) {
            const Finished call = shop.run({"sh", "-c", std::string(FOLIANT_COMMAND) + words + output});
            EXPECT_EQ(call.exit_code, 1) << words << output;
            EXPECT_EQ(call.errors, "foliant: the result could not be written to standard output\n")
                << words << output;
        }
}

TEST(Settings, WhatIsBuiltInCanBeBroughtBack) {
    const Workshop shop;
    const Finished removed = shop.foliant({"registry", "remove", version_key, ""});
    EXPECT_EQ(
        removed.errors,
        "Removed. The built-in value was \"6.0\"; \"foliant registry reset\" with the same words brings it "
        "back.\n");
    EXPECT_EQ(shop.foliant({"AcrobatVersion"}).output, "\n");
    EXPECT_EQ(shop.foliant({"registry", "reset", version_key, ""}).exit_code, 0);
    EXPECT_EQ(shop.foliant({"AcrobatVersion"}).output, "6.0\n");
    const Finished missing = shop.foliant({"registry", "get", version_key, "none"});
    EXPECT_EQ(missing.exit_code, 1);
    EXPECT_TRUE(missing.errors.starts_with("foliant: There is no value \"none\" in the key"))
        << missing.errors;
}

TEST(Settings, TheListSaysWhereTheyAreKept) {
    const Workshop shop;
    const std::string list = shop.foliant({"registry", "list"}).output;
    EXPECT_TRUE(list.starts_with("Settings file: ")) << list;
    EXPECT_NE(list.find("/.config/foliant/registry.json\n"), std::string::npos) << list;
}

TEST(Hosts, SayWhatContainsThem) {
    const std::string output = Workshop().foliant({"hosts"}).output;
    EXPECT_NE(output.find("\nWhat reads documents is contained by: "), std::string::npos) << output;
}

TEST(Hosts, SayWhichPartOfOneIsMissing) {
    REQUIRE_HOST("Acrobat");
    const Workshop shop;
    const std::string command = shop.command_without("acrobat-text.so");
    const auto acrobat = nlohmann::json::parse(shop.run({command, "hosts", "--json"}).output)["hosts"][2];
    EXPECT_EQ(acrobat["name"], "Acrobat");
    EXPECT_NE(acrobat["version"], "");
    const std::string problem = acrobat["problem"];
    EXPECT_TRUE(problem.starts_with("poppler cannot be used: ")) << problem;
    EXPECT_TRUE(problem.ends_with(" Install or reinstall the package libpoppler126.")) << problem;
    EXPECT_NE(shop.run({command, "hosts"}).output.find("; " + problem), std::string::npos);
}

TEST(Json, IsPrintedByToolsToo) {
    const Workshop shop;
    shop.write("a.ps", "%!PS");
    const auto json = [&](const std::vector<std::string>& words) {
        return nlohmann::json::parse(shop.foliant(words).output);
    };
    EXPECT_EQ(json({"hosts", "--json"})["hosts"][0]["name"], "Acrobat Distiller");
    EXPECT_NE(json({"hosts", "--json"})["containment"], "");
    EXPECT_EQ(json({"registry", "list", "--json"})["values"].size(), 2U);
    EXPECT_EQ(json({"registry", "get", "HKCU\\None", "x", "--json"})["exitCode"], 1);
    const auto rehearsal = json({"rehearse", "CreatePDFfromPS", "a.pdf", "a.ps", "--json"});
    EXPECT_EQ(rehearsal["exitCode"], 0);
    EXPECT_GT(rehearsal["steps"].size(), 3U);
    EXPECT_EQ(json({"CreatePDFfromPS", "--json"})["exitCode"], 2);
}

TEST(Settings, ThoseThatCannotBeReadFailTheMembersThatAreAboutThem) {
    const Workshop shop;
    shop.run(
        {"sh", "-c", "mkdir -p \"$HOME/.config/foliant\"; echo x > \"$HOME/.config/foliant/registry.json\""});
    for (const std::vector<std::string>& words : std::vector<std::vector<std::string>>{
             {"AcrobatVersion"}, {"PrinterName"}, {"SetDefPrinter", "Adobe PDF"}}) {
        const Finished call = shop.foliant(words);
        EXPECT_EQ(call.exit_code, 1) << words.front();
        EXPECT_EQ(call.output, "");
        EXPECT_NE(call.errors.find("registry.json cannot be understood"), std::string::npos) << call.errors;
    }
}

TEST(Settings, APrinterThatDoesNotExistIsToldWithThoseThatDo) {
    const Workshop shop;
    const Finished call = shop.foliant({"SetDefPrinter", "No such printer"});
    EXPECT_EQ(call.exit_code, 5);
    EXPECT_TRUE(call.errors.starts_with(
        "foliant: There is no printer \"No such printer\". The printers are: \"Adobe PDF\""))
        << call.errors;
    EXPECT_EQ(shop.foliant({"SetDefPrinter", "Adobe PDF"}).exit_code, 0);
}

TEST(Settings, ThoseThatCannotBeSavedAreToldByWhoeverWantedTo) {
    const Workshop shop;
    ASSERT_EQ(shop.run({"sh", "-c", "mkdir -p \"$HOME\"; echo x > \"$HOME/.config\""}).exit_code, 0);
    const Finished set = shop.foliant({"registry", "set", "HKCU\\Software\\X", "Name", "text"});
    EXPECT_EQ(set.exit_code, 1);
    EXPECT_NE(set.errors.find(".config/foliant"), std::string::npos) << set.errors;
    const Finished printer = shop.foliant({"SetDefPrinter", "Acrobat Distiller"});
    EXPECT_EQ(printer.exit_code, 1);
    EXPECT_NE(printer.errors.find(".config/foliant"), std::string::npos) << printer.errors;
}

TEST(Rehearsal, ShowsTheStepsAndTakesNone) {
    const Workshop shop;
    shop.write("letter.docx", "not looked into");
    shop.write("letter.pdf", "%PDF-1.4 old");
    const Finished call = shop.foliant({"rehearse", "CreatePDFfromWord", "letter.pdf", "letter.docx"});
    EXPECT_EQ(call.exit_code, 0) << call.errors;
    EXPECT_NE(call.output.find("Word.Documents.Open(\"letter.docx\""), std::string::npos) << call.output;
    EXPECT_NE(call.output.find("delete letter.pdf\n"), std::string::npos) << call.output;
    EXPECT_EQ(shop.read("letter.pdf"), "%PDF-1.4 old");
    EXPECT_EQ(shop.foliant({"rehearse", "CreatePDFfromWord", "a.pdf", "none.docx"}).exit_code, 3);
    EXPECT_TRUE(shop.is_clean_soon()) << shop.leftovers();
}

TEST(Rehearsal, EndsWhereTheCallWaitsForAcrobatsWindow) {
    const Workshop shop;
    shop.write("letter.docx", "not looked into");
    const Finished call =
        shop.foliant({"rehearse", "CreatePDFfromWord2", "letter.pdf", "letter.docx", "--close-acrobat"});
    EXPECT_EQ(call.exit_code, 0) << call.errors;
    EXPECT_NE(call.output.find("send WM_CLOSE (0, \"0\") to \"Adobe Acrobat Professional - [letter.pdf]\"\n"),
              std::string::npos)
        << call.output;
}

TEST(Command, SaysWhatIsWrongWithItsUse) {
    const Workshop shop;
    const Finished call = shop.foliant({"CreatePDFfromPS"});
    EXPECT_EQ(call.exit_code, 2);
    EXPECT_EQ(call.output, "");
    EXPECT_NE(call.errors.find("See 'foliant CreatePDFfromPS --help'."), std::string::npos) << call.errors;
}

TEST(Command, CompletionScriptsAndManualAreAcceptedByTheirPrograms) {
    const Workshop shop;
    EXPECT_EQ(shop.run({"sh", "-c", FOLIANT_COMMAND " completion bash > c.bash && bash -n c.bash"}).exit_code,
              0);
    const Finished completed = shop.run(
        {"bash", "-c",
         ". ./c.bash; COMP_WORDS=(foliant CreatePDFfromWo); COMP_CWORD=1; _foliant; echo "
         "\"${COMPREPLY[@]}\"; "
         "COMP_WORDS=(foliant CreatePDFfromPS --sh); COMP_CWORD=2; _foliant; echo \"${COMPREPLY[@]}\""});
    EXPECT_EQ(completed.output, "CreatePDFfromWord CreatePDFfromWord2\n--show-window\n") << completed.errors;
}

TEST(Command, CompletionGoesOnBehindValuesAndKnowsThemInAnyCase) {
    const Workshop shop;
    const auto completed = [&](const std::string& words) {
        const std::string script =
            "eval \"$(" FOLIANT_COMMAND " completion bash)\"; COMP_WORDS=(foliant " + words +
            "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _foliant; echo \"${COMPREPLY[@]}\"";
        return shop.run({"bash", "-c", script}).output;
    };
    EXPECT_EQ(completed("--timeout 5 createpdfFROMps"), "CreatePDFfromPS\n");
    EXPECT_EQ(completed("--timeout h"), "\n");
    EXPECT_EQ(completed("CreatePDFfromWord a b --page-number-alignment ''"), "left center right\n");
    EXPECT_EQ(completed("createpdffromword a b --lngPageNumberAlignment R"), "right\n");
    EXPECT_EQ(completed("CreatePDFfromWord a b --page-number-alignment = c"), "center\n");
    EXPECT_EQ(completed("CreatePDFfromWord a b --page-number-alignment right --land"), "--landscape\n");
    EXPECT_EQ(completed("help CreatePDFfromMultiPS"), "CreatePDFfromMultiPS\n");
    EXPECT_EQ(completed("CreatePDFfromExc"), "CreatePDFfromExcel CreatePDFfromExcel2\n");
    EXPECT_EQ(completed("registry re"), "remove reset\n");
}

/// Skips a test of what a shell makes of its completion script, or fails it where everything has to be there.
#define REQUIRE_PROGRAM(name)                                                                \
    if (std::system("command -v " name " >/dev/null") != 0) {                                \
        if (std::getenv("FOLIANT_REQUIRE_ENGINES") != nullptr) FAIL() << name " is missing"; \
        GTEST_SKIP() << "install the package " name;                                         \
    }

TEST(Command, CompletionWorksInZsh) {
    REQUIRE_PROGRAM("zsh");
    const Workshop shop;
    shop.write("_foliant", shop.foliant({"completion", "zsh"}).output);
    const Finished typed =
        shop.run({"python3", "-B", COMPLETE_IN_ZSH, shop.folder().string(), "foliant GetNumP",
                  "foliant getnump", "foliant --timeout 5 GetNumP", "foliant CreatePDFfromPS --sh",
                  "foliant CreatePDFfromWord a b --page-number-alignment R", "foliant registry res",
                  "foliant completion f"});
    EXPECT_EQ(typed.output,
              "foliant GetNumPagesPDF\n"
              "foliant GetNumPagesPDF\n"
              "foliant --timeout 5 GetNumPagesPDF\n"
              "foliant CreatePDFfromPS --show-window\n"
              "foliant CreatePDFfromWord a b --page-number-alignment right\n"
              "foliant registry reset\n"
              "foliant completion fish\n")
        << typed.errors;
}

TEST(Command, CompletionWorksInFish) {
    REQUIRE_PROGRAM("fish");
    const Workshop shop;
    shop.write("foliant.fish", shop.foliant({"completion", "fish"}).output);
    const auto completed = [&](const std::string& line) {
        return shop
            .run({"fish", "--no-config", "-c",
                  "source foliant.fish; complete -C '" + line + "' | string replace -r '\\t.*' ''"})
            .output;
    };
    EXPECT_EQ(completed("foliant CreatePDFfromWo"), "CreatePDFfromWord\nCreatePDFfromWord2\n");
    EXPECT_EQ(completed("foliant --timeout 5 getnump"), "GetNumPagesPDF\n");
    EXPECT_EQ(completed("foliant createpdffromps getnump"), "");
    EXPECT_EQ(completed("foliant CreatePDFfromPS --sh"), "--show-window\n");
    EXPECT_EQ(completed("foliant CreatePDFfromWord a b --page-number-alignment "), "center\nleft\nright\n");
    EXPECT_EQ(completed("foliant registry res"), "reset\n");
}

}  // namespace
}  // namespace foliant::end_to_end
