#include <algorithm>
#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "automation/describe.h"
#include "cli/exit_codes.h"
#include "cli/request.h"
#include "core/members.h"
#include "core/parameter_help.h"

namespace foliant::cli {
namespace {

std::string typed_password(const std::string& prompt, const Deadline&) {
    return "typed at " + prompt;
}

Parsed parse_words(const std::vector<std::string>& words) {
    return parse(words, typed_password);
}

/// What a command line came to, in one line.
std::string outcome_of(const std::vector<std::string>& words) {
    const Parsed parsed = parse_words(words);
    if (!parsed.request) return std::to_string(parsed.exit_code) + " " + parsed.error;
    const char* action = parsed.request->action == Request::Action::rehearse ? "rehearse " : "";
    return action + std::string(parsed.request->member->name) + "(" +
           automation::describe(parsed.request->arguments) + ")";
}

class PasswordFile {
  public:
    explicit PasswordFile(const std::string& content) {
        path_ = testing::TempDir() + "foliant-password-" + std::to_string(getpid());
        std::ofstream(path_) << content;
    }
    ~PasswordFile() { std::remove(path_.c_str()); }
    const std::string& path() const { return path_; }

  private:
    std::string path_;
};

TEST(CommandLine, RequiredParametersStandInOrderAndOptionsFollow) {
    EXPECT_EQ(
        outcome_of({"CreatePDFfromWord", "letter.pdf", "letter.docx", "--landscape", "--pages", "1-3"}),
        "CreatePDFfromWord(strPDFFile:=\"letter.pdf\", strWordDocument:=\"letter.docx\", strPages:=\"1-3\", "
        "blnLandscape:=True)");
}

TEST(CommandLine, ExactNamesWorkTooInAnyCaseAndOrder) {
    EXPECT_EQ(
        outcome_of({"createpdfFROMps", "--strPSFile", "a.ps", "--STRPDFFILE", "b.pdf", "--blnspooljobs"}),
        "CreatePDFfromPS(strPDFFile:=\"b.pdf\", strPSFile:=\"a.ps\", blnSpoolJobs:=True)");
}

TEST(CommandLine, AFileMayBeCalledWhatAToolIsCalled) {
    for (const char* const name : {"hosts", "registry", "rehearse", "man", "help", "completion"})
        EXPECT_EQ(outcome_of({"GetNumPagesPDF", name}),
                  "GetNumPagesPDF(strPDFFile:=\"" + std::string(name) + "\")");
}

TEST(CommandLine, FlagsTakeAValueBehindAnEqualsSign) {
    EXPECT_EQ(outcome_of({"CreatePDFfromPS", "b.pdf", "a.ps", "--show-window=false", "--spool-jobs=True"}),
              "CreatePDFfromPS(strPDFFile:=\"b.pdf\", strPSFile:=\"a.ps\", blnShowWindow:=False, "
              "blnSpoolJobs:=True)");
}

TEST(CommandLine, AlignmentsHaveNamesAndNumbers) {
    for (const auto& [word, number] : std::vector<std::pair<std::string, std::string>>{{"left", "0"},
                                                                                       {"Center", "1"},
                                                                                       {"centre", "1"},
                                                                                       {"right", "2"},
                                                                                       {"qrxAlignRight", "2"},
                                                                                       {"7", "7"}}) {
        EXPECT_EQ(
            outcome_of({"CreatePDFfromWord", "a", "b", "--page-number-alignment", word}),
            "CreatePDFfromWord(strPDFFile:=\"a\", strWordDocument:=\"b\", lngPageNumberAlignment:=Long(" +
                number + "))");
    }
}

TEST(CommandLine, ListsTakeAllThatIsLeft) {
    EXPECT_EQ(outcome_of({"CreatePDFfromMultiPS", "book.pdf", "a.ps", "b c.ps", "--show-window"}),
              "CreatePDFfromMultiPS(strPDFFile:=\"book.pdf\", varPSFiles:=(0 To 1){\"a.ps\", \"b c.ps\"}, "
              "blnShowWindow:=True)");
}

TEST(CommandLine, ListsThatRunBesideAnotherAreAsLongAndFlagsInThemAreWords) {
    const std::vector<std::string> two_sheets{"CreatePDFfromMultiExcel2",
                                              "a.pdf",
                                              "b.xlsx",
                                              "--excel-worksheets",
                                              "Sum",
                                              "2",
                                              "--ranges",
                                              "A:C",
                                              "A1:B2"};
    const auto outcome_with = [&](std::vector<std::string> more) {
        more.insert(more.begin(), two_sheets.begin(), two_sheets.end());
        return outcome_of(more);
    };
    const std::string where = "\nSee 'foliant CreatePDFfromMultiExcel2 --help'.\n";

    EXPECT_EQ(outcome_with({"--landscape", "yes", "False"}),
              "CreatePDFfromMultiExcel2(strPDFFile:=\"a.pdf\", strExcelWorkbook:=\"b.xlsx\", "
              "varExcelWorksheets:=(0 To 1){\"Sum\", \"2\"}, varRanges:=(0 To 1){\"A:C\", \"A1:B2\"}, "
              "varLandscape:=(0 To 1){True, False})");
    EXPECT_EQ(outcome_with({}),
              "2 foliant: --landscape: needs a value for each of --excel-worksheets: 2, and 0 given" + where);
    EXPECT_EQ(outcome_with({"--landscape", "no", "no", "--first-page-number", "7"}),
              "2 foliant: --first-page-number: needs a value for each of --excel-worksheets: 2, and 1 given" +
                  where);
    EXPECT_EQ(outcome_with({"--landscape", "no", "sideways"}),
              "2 foliant: --landscape: 'sideways' is not true or false" + where);
}

TEST(CommandLine, NamesThatBeginWithADashStandBehindTwoDashes) {
    EXPECT_EQ(outcome_of({"CreatePDFfromPS", "--", "-a.pdf", "-b.ps"}),
              "CreatePDFfromPS(strPDFFile:=\"-a.pdf\", strPSFile:=\"-b.ps\")");
}

TEST(CommandLine, PasswordsComeFromAFileTheTerminalOrTheLine) {
    const PasswordFile file("secret\r\nsecond line\n");
    EXPECT_EQ(outcome_of({"CreatePSfromWord", "a.ps", "b.doc", "--password-file", file.path(),
                          "--write-password-ask"}),
              "CreatePSfromWord(strPSFile:=\"a.ps\", strWordDocument:=\"b.doc\", strPassword:=\"secret\", "
              "strWritePassword:=\"typed at write-password: \")");
    EXPECT_EQ(outcome_of({"CreatePSfromWord", "a.ps", "b.doc", "--password", "x"}),
              "CreatePSfromWord(strPSFile:=\"a.ps\", strWordDocument:=\"b.doc\", strPassword:=\"x\")");
}

TEST(CommandLine, TwoSourcesForOnePasswordAreRefused) {
    EXPECT_EQ(outcome_of({"CreatePSfromWord", "a", "b", "--password", "x", "--password-ask"}),
              "2 foliant: --password excludes --password-ask\nSee 'foliant CreatePSfromWord --help'.\n");
}

TEST(CommandLine, RequiredPasswordsMayComeFromAFileAsWell) {
    const PasswordFile file("secret\n");
    EXPECT_EQ(outcome_of({"SetOpenPassword", "a.pdf", "--open-password-file", file.path()}),
              "SetOpenPassword(strPDFFile:=\"a.pdf\", strOpenPassword:=\"secret\")");
    EXPECT_EQ(
        outcome_of({"SetOpenPassword", "a.pdf"}),
        "2 foliant: OPEN_PASSWORD is required\nThe order is: foliant SetOpenPassword PDF_FILE --open-password "
        "OPEN_PASSWORD\nSee 'foliant SetOpenPassword --help'.\n");
}

TEST(CommandLine, TheMarkInFrontOfAPasswordFileIsNoneOfThePassword) {
    const PasswordFile file("\xEF\xBB\xBFsecret\n");
    EXPECT_EQ(outcome_of({"GetNumPagesPDF", "a.pdf", "--open-password-file", file.path()}),
              "GetNumPagesPDF(strPDFFile:=\"a.pdf\", strOpenPassword:=\"secret\")");
}

TEST(CommandLine, ANewPasswordIsRefusedThatWouldOpenNothing) {
    const std::string advice = "\nSee 'foliant SetOpenPassword --help'.\n";
    for (const char* blank : {"", " ", "   "})
        EXPECT_EQ(
            outcome_of({"SetOpenPassword", "a.pdf", blank}),
            "2 foliant: --open-password: the new password is empty or blank, which protects nothing. Nothing was "
            "done" +
                advice);
    const std::string longest = std::string(125, 'q') + "ß";
    EXPECT_EQ(parse_words({"SetOpenPassword", "a.pdf", longest}).exit_code, exit_success);
    EXPECT_EQ(
        outcome_of({"SetOpenPassword", "a.pdf", "q" + longest}),
        "2 foliant: --open-password: the new password has 128 bytes in UTF-8; a PDF takes at most 127. Nothing was "
        "done" +
            advice);
    const PasswordFile file(" \n");
    EXPECT_EQ(parse_words({"SetOpenPassword", "a.pdf", "--open-password-file", file.path()}).exit_code,
              exit_usage);
}

TEST(CommandLine, APasswordThatOpensAFileMayBeBlankOrLong) {
    EXPECT_EQ(parse_words({"GetNumPagesPDF", "a.pdf", "--open-password", " "}).exit_code, exit_success);
    EXPECT_EQ(parse_words({"GetNumPagesPDF", "a.pdf", "--open-password", std::string(200, 'q')}).exit_code,
              exit_success);
}

TEST(CommandLine, UnreadablePasswordFilesAreNamed) {
    EXPECT_EQ(outcome_of({"CreatePSfromWord", "a", "b", "--password-file", "/nowhere/x"}),
              "2 foliant: cannot read the password file '/nowhere/x' (No such file or directory)\nSee "
              "'foliant CreatePSfromWord --help'.\n");
}

TEST(CommandLine, WrongUseSaysWhatIsWrongAndWhereToLook) {
    EXPECT_EQ(outcome_of({"CreatePDFfromPS", "a.pdf"}),
              "2 foliant: --ps-file is required\nThe order is: foliant CreatePDFfromPS PDF_FILE PS_FILE\n"
              "See 'foliant CreatePDFfromPS --help'.\n");
    EXPECT_EQ(outcome_of({"CreatePDFfromWord", "a", "b", "--page-number-alignment", "upwards"}),
              "2 foliant: --page-number-alignment: 'upwards' is not left, center, right or a number\n"
              "See 'foliant CreatePDFfromWord --help'.\n");
    EXPECT_EQ(outcome_of({}), "2 foliant: name a member to call, or a tool\nSee 'foliant --help'.\n");
    EXPECT_EQ(parse_words({"CreatePDFfromNowhere", "a"}).exit_code, exit_usage);
    EXPECT_EQ(parse_words({"CreatePDFfromPS", "a", "b", "c"}).exit_code, exit_usage);
    EXPECT_EQ(parse_words({"CreatePDFfromPS", "a", "b", "--no-such-option"}).exit_code, exit_usage);
    EXPECT_EQ(parse_words({"completion", "tcsh"}).exit_code, exit_usage);
}

TEST(CommandLine, WhatIsMistypedIsAskedFor) {
    const auto told = [](const std::vector<std::string>& words) {
        const std::string error = parse_words(words).error;
        return error.substr(0, error.find('\n'));
    };
    EXPECT_EQ(told({"CreatePDFfromWrod", "a", "b"}),
              "foliant: there is no member or tool 'CreatePDFfromWrod'. Did you mean CreatePDFfromWord or "
              "CreatePDFfromWord2?");
    EXPECT_EQ(told({"--timeout", "5", "hots"}),
              "foliant: there is no member or tool 'hots'. Did you mean hosts?");
    EXPECT_EQ(told({"frobnicate"}), "foliant: there is no member or tool 'frobnicate'.");
    EXPECT_EQ(told({"registry", "gte"}), "foliant: foliant registry has no 'gte'. Did you mean get or set?");
    EXPECT_EQ(told({"CreatePDFfromPS", "a", "b", "--landscap"}), "foliant: there is no option --landscap.");
    EXPECT_EQ(told({"CreatePDFfromWord", "a", "b", "--landscap=true"}),
              "foliant: there is no option --landscap. Did you mean --landscape?");
    EXPECT_EQ(told({"CreatePDFfromPS", "a", "b", "c"}),
              "foliant: The following argument was not expected: c");
}

TEST(CommandLine, AWordTooManyIsNotRepeatedWhereItMayBeAPassword) {
    const std::string error = parse_words({"GetNumPagesPDF", "a.pdf", "opensesame"}).error;
    EXPECT_TRUE(error.starts_with("foliant: there are too many words; ")) << error;
    EXPECT_EQ(error.find("opensesame"), std::string::npos) << error;
    EXPECT_NE(error.find("The order is: foliant GetNumPagesPDF"), std::string::npos) << error;
}

TEST(CommandLine, NamesThatBeginWithADashAreExplained) {
    for (const char* name : {"-x.pdf", "-quarterly.pdf"}) {
        const std::string error = parse_words({"CreatePDFfromPS", name, "a.ps"}).error;
        EXPECT_TRUE(
            error.starts_with("foliant: '" + std::string(name) +
                              "' is taken for an option. A name that begins with a dash is written ./" +
                              name + ", or stands behind --.\n"))
            << error;
    }
}

TEST(CommandLine, HelpAndVersionGoByTheirUsualNames) {
    EXPECT_EQ(parse_words({"help"}).output, parse_words({"--help"}).output);
    EXPECT_EQ(parse_words({"help", "CreatePDFfromWord"}).output,
              parse_words({"CreatePDFfromWord", "--help"}).output);
    EXPECT_EQ(parse_words({"-v"}).output, parse_words({"--version"}).output);
    EXPECT_TRUE(parse_words({"CreatePDFfromPS", "a", "b", "-v"}).request->options.verbose);
}

TEST(CommandLine, CommonOptionsMayFollowTheMember) {
    const Parsed parsed =
        parse_words({"CreatePDFfromPS", "a", "b", "--json", "-q", "--timeout", "2.5", "--temp-path", "t"});
    ASSERT_TRUE(parsed.request.has_value()) << parsed.error;
    EXPECT_TRUE(parsed.request->options.json);
    EXPECT_TRUE(parsed.request->options.quiet);
    EXPECT_EQ(parsed.request->options.timeout_seconds, 2.5);
    EXPECT_EQ(parsed.request->options.temp_path, "t");
}

TEST(CommandLine, TimesAndSizesAreWrittenAsPeopleDo) {
    const auto parsed = parse_words({"CreatePDFfromPS", "a", "b", "--timeout", "2m", "--memory", "1.5G"});
    ASSERT_TRUE(parsed.request.has_value()) << parsed.error;
    EXPECT_EQ(parsed.request->options.timeout_seconds, 120);
    EXPECT_EQ(parsed.request->options.memory_bytes, 3ULL << 29U);
    EXPECT_FALSE(parse_words({"PrinterName", "--timeout", "none"}).request->options.deadline.has_value());
    EXPECT_FALSE(parse_words({"PrinterName", "--timeout", "1e99"}).request->options.deadline.has_value());
    for (const char* time : {"nan", "-1", "inf", "soon", "5x", ""}) {
        EXPECT_EQ(
            outcome_of({"PrinterName", "--timeout", time}),
            "2 foliant: --timeout: '" + std::string(time) +
                "' is not a time such as 30, 2.5s, 5m or 1h, or none\nSee 'foliant PrinterName --help'.\n");
    }
    EXPECT_EQ(outcome_of({"PrinterName", "--memory", "-2G"}),
              "2 foliant: --memory: '-2G' is not a size such as 512M, 2G or 1.5G, or none\n"
              "See 'foliant PrinterName --help'.\n");
}

TEST(CommandLine, APasswordFileThatNeverEndsIsNotReadForEver) {
    EXPECT_EQ(
        outcome_of({"CreatePSfromWord", "a", "b", "--password-file", "/dev/zero"}),
        "2 foliant: the password file '/dev/zero' has no end of line within its first 4096 bytes, so that "
        "it holds no password; is it the right file?\nSee 'foliant CreatePSfromWord --help'.\n");
    const std::string pipe = testing::TempDir() + "foliant-pipe-" + std::to_string(getpid());
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(outcome_of({"CreatePSfromWord", "a", "b", "--password-file", pipe, "--timeout", "100ms"}),
              "124 foliant: The time limit was over while the password file '" + pipe + "' was read.\n");
    std::remove(pipe.c_str());
}

TEST(CommandLine, WrongUseIsToldInJsonToo) {
    const Parsed parsed = parse_words({"CreatePDFfromPS", "a", "--json"});
    EXPECT_NE(parsed.output.find("\"description\": \"--ps-file is required\""), std::string::npos)
        << parsed.output;
    EXPECT_NE(parsed.output.find("\"exitCode\": 2"), std::string::npos);
    EXPECT_EQ(parse_words({"CreatePDFfromPS", "a", "--", "--json", "b", "c"}).output, "");
}

TEST(CommandLine, TheTextOfASettingComesFromOnePlace) {
    const PasswordFile file("secret\n");
    const auto words_of = [](const std::vector<std::string>& more) {
        std::vector<std::string> words{"registry", "set", "HKCU\\X", "OwnerPassword"};
        words.insert(words.end(), more.begin(), more.end());
        const Parsed parsed = parse_words(words);
        return parsed.request ? parsed.request->words.back()
                              : parsed.error.substr(0, parsed.error.find('\n'));
    };
    EXPECT_EQ(words_of({"text"}), "text");
    EXPECT_EQ(words_of({"--from-file", file.path()}), "secret");
    EXPECT_EQ(words_of({"--ask"}), "typed at OwnerPassword: ");
    EXPECT_EQ(words_of({}), "foliant: TEXT is required, or --from-file, or --ask");
    EXPECT_EQ(words_of({"text", "--ask"}), "foliant: the text is given twice");
}

TEST(CommandLine, RehearseTakesTheSameArguments) {
    EXPECT_EQ(outcome_of({"rehearse", "CreatePDFfromPS", "a", "b", "--apply-security"}),
              "rehearse CreatePDFfromPS(strPDFFile:=\"a\", strPSFile:=\"b\", blnApplySecurity:=True)");
}

TEST(CommandLine, ToolsTakeTheirWords) {
    const Parsed set = parse_words({"registry", "set", "HKEY_CURRENT_USER\\Software\\X", "Name", "text"});
    ASSERT_TRUE(set.request.has_value()) << set.error;
    EXPECT_EQ(set.request->action, Request::Action::registry_set);
    EXPECT_EQ(set.request->words,
              (std::vector<std::string>{"HKEY_CURRENT_USER\\Software\\X", "Name", "text"}));
    EXPECT_EQ(parse_words({"registry", "list"}).request->action, Request::Action::registry_list);
    EXPECT_EQ(parse_words({"registry", "get", "K", ""}).request->words, (std::vector<std::string>{"K", ""}));
    EXPECT_EQ(parse_words({"hosts"}).request->action, Request::Action::hosts);
    EXPECT_EQ(parse_words({"man"}).request->action, Request::Action::manual);
    EXPECT_EQ(parse_words({"completion", "zsh"}).request->words.front(), "zsh");
}

TEST(CommandLine, HelpOpensWithExamplesAndNamesEveryMemberAndExitCode) {
    const Parsed parsed = parse_words({"--help"});
    EXPECT_EQ(parsed.exit_code, 0);
    EXPECT_TRUE(parsed.output.starts_with("Examples:\n  foliant CreatePDFfromWord letter.pdf letter.docx\n"))
        << parsed.output;
    for (const core::Member& member : core::members) {
        EXPECT_NE(parsed.output.find("  " + std::string(member.name)), std::string::npos) << member.name;
    }
    for (const auto& row : exit_code_table)
        EXPECT_NE(parsed.output.find(row.meaning), std::string::npos);
}

TEST(CommandLine, HelpShowsTheMembersByFamily) {
    const std::string help = parse_words({"--help"}).output;
    for (const core::Member& member : core::members) {
        const auto family = std::find_if(core::families.begin(), core::families.end(),
                                         [&](const auto& row) { return row.family == member.family; });
        const std::size_t begin = help.find("\n" + std::string(family->heading) + ":\n");
        ASSERT_NE(begin, std::string::npos) << family->heading;
        const std::string group = help.substr(begin, help.find("\n\n", begin) - begin);
        EXPECT_NE(group.find("  " + std::string(member.name) + " "), std::string::npos) << group;
    }
}

TEST(CommandLine, HelpOfAMemberShowsItsParametersWithTheirDefaults) {
    const std::string help = parse_words({"CreatePDFfromWord", "--help"}).output;
    EXPECT_NE(help.find("--landscape,--blnLandscape"), std::string::npos) << help;
    EXPECT_NE(help.find("left, center or right [center]"), std::string::npos) << help;
    EXPECT_NE(parse_words({"--version"}).output.find("foliant "), std::string::npos);
}

TEST(CommandLine, EveryMemberHasASubCommandThatParsesItsRequiredParameters) {
    for (const core::Member& member : core::members) {
        if (member.kind != core::MemberKind::method) continue;
        std::vector<std::string> words{std::string(member.name)};
        for (const core::Parameter& parameter : member.parameters()) {
            const bool flags = core::parameter_role(member, parameter) == core::ParameterRole::parallel_flags;
            if (flags || (!parameter.optional && parameter.type != core::ValueType::object)) {
                words.push_back("--" + std::string(parameter.name));
                words.push_back(flags ? "yes" : "value");
            }
        }
        const Parsed parsed = parse_words(words);
        ASSERT_TRUE(parsed.request.has_value()) << member.name << ": " << parsed.error;
        EXPECT_EQ(parsed.request->member->name, member.name);
    }
}

}  // namespace
}  // namespace foliant::cli
