#include <gtest/gtest.h>

#include "end_to_end/command.h"

namespace foliant::end_to_end {
namespace {

constexpr const char* secret = "Xq7~qqq\"k";

/// Every way out that there is, of a call that was given a password.
void expect_no_secret(const Workshop& shop, const std::vector<std::string>& words,
                      const std::string& what_is_shown) {
    const Finished call = shop.foliant(words);
    const std::string all = call.output + call.errors;
    EXPECT_EQ(all.find("qqq"), std::string::npos) << all;
    EXPECT_NE(all.find(what_is_shown), std::string::npos) << all;
}

TEST(Passwords, AreInNoRehearsal) {
    const Workshop shop;
    shop.write("x.pdf", "%PDF-1.4");
    const std::vector<std::string> words{"rehearse", "GetNumPagesPDF", "x.pdf", "--open-password", secret};
    expect_no_secret(shop, words, "quorixsend.exe password~Edit~***~0~0~\n");
    std::vector<std::string> as_json = words;
    as_json.emplace_back("--json");
    expect_no_secret(shop, as_json, "quorixsend.exe password~Edit~***~0~0~\"");
}

TEST(Passwords, AreInNoReportOfWrongUse) {
    const Workshop shop;
    for (const char* option : {"--open-pasword=", "--open-password="}) {
        for (const char* form : {"--quiet", "--json"}) {
            const Finished call =
                shop.foliant({"GetNumPagesPDF", "x.pdf", option + std::string(secret), "--nonsense", form});
            EXPECT_EQ(call.exit_code, 2);
            EXPECT_EQ((call.output + call.errors).find("qqq"), std::string::npos)
                << call.output << call.errors;
        }
    }
}

TEST(Passwords, AreNotInTheListOfProcesses) {
    const Workshop shop;
    // The second password is waited for, so the list is looked at while the command runs.
    const std::string script = std::string("mkfifo pipe; ") + FOLIANT_COMMAND +
                               " rehearse CreatePDFfromWord a.pdf a.docx --password SECRET "
                               "--write-password-file pipe >out 2>&1 & "
                               "exec 3>pipe; tr '\\0' ' ' </proc/$!/cmdline; echo other >&3; wait";
    const std::string listed = shop.run({"sh", "-c", script}).output;
    EXPECT_NE(listed.find("rehearse CreatePDFfromWord a.pdf a.docx --password *** "), std::string::npos)
        << listed;
    EXPECT_EQ(listed.find("SECRET"), std::string::npos) << listed;
}

TEST(Passwords, InAnAddressAreNotInTheListOfProcessesEither) {
    const Workshop shop;
    const std::string script = std::string("mkfifo pipe; ") + FOLIANT_COMMAND +
                               " UploadFile anna:SECRET@127.0.0.1:1 / a.txt a.txt "
                               "--user-password-file pipe >out 2>&1 & "
                               "exec 3>pipe; tr '\\0' ' ' </proc/$!/cmdline; echo other >&3; wait";
    const std::string listed = shop.run({"sh", "-c", script}).output;
    EXPECT_NE(listed.find(" UploadFile anna:******@127.0.0.1:1 / "), std::string::npos) << listed;
}

}  // namespace
}  // namespace foliant::end_to_end
