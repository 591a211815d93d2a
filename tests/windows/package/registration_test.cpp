// The registration scripts, for the computer and for one user.

#include <fstream>

#include "windows/package/package.h"

namespace foliant::tests::package {
namespace {

namespace fs = std::filesystem;

constexpr wchar_t classes[] = L"Software\\Classes";

class MachineRegistration : public Package {
  protected:
    void TearDown() override { run("unregister-machine.cmd"); }
};

class UserRegistration : public Package {
  protected:
    void TearDown() override { run("unregister-user.cmd"); }
};

/// The sender of this word size, in the package and where members that print start it.
fs::path own_sender(const fs::path& folder) {
    return folder / (sizeof(void*) == 8 ? "x64" : "x86") / "quorixsend.exe";
}
fs::path installed_sender() {
    return R"(C:\windows\system32\quorixsend.exe)";
}

/// A script that reaches a member of the object, for each script host.
void expect_clients_reach_the_object(const fs::path& folder, const std::vector<std::string>& hosts,
                                     Outcome (*run)(const std::string& command)) {
    const fs::path script = fs::temp_directory_path() / "client.vbs";
    std::ofstream(script) << "Set pdf = CreateObject(\"Foliant.BuildPDF\")\n"
                             "WScript.Echo pdf.TempFilePath\n";
    for (const std::string& host : hosts) {
        const bool own = host == hosts.front();
        const std::string word_size = (sizeof(void*) == 8) == own ? "x64" : "x86";
        EXPECT_EQ(run(host + " \"" + script.string() + "\"").output,
                  folder.string() + "\\" + word_size + "\\\n")
            << host;
    }
}

/// A key that is gone when the computer is switched off, and so takes no lasting key below it.
void make_passing_key(HKEY root) {
    HKEY passing = nullptr;
    ASSERT_EQ(RegCreateKeyExW(root, L"Software\\Classes\\Foliant.BuildPDF", 0, nullptr, REG_OPTION_VOLATILE,
                              KEY_ALL_ACCESS, nullptr, &passing, nullptr),
              ERROR_SUCCESS);
    RegCloseKey(passing);
}

/// What regsvr32 and the user's script leave may differ in: Wine writes the flag that a library on disk has
/// at run time, and keeps type libraries apart for each word size, where Windows does neither.
RegistryTree without_what_wine_adds(const RegistryTree& tree, bool both_word_sizes) {
    RegistryTree kept;
    for (std::wstring line : tree) {
        if (line.ends_with(L"\\flags [] = 8")) line.back() = L'0';
        const bool second_view = line.starts_with(L"wow6432node\\typelib");
        const bool of_last_word_size = both_word_sizes && line.find(L"\\helpdir [") != std::wstring::npos;
        if (!second_view && !of_last_word_size) kept.insert(line);
    }
    return kept;
}

TEST_F(MachineRegistration, LetsClientsOfEachWordSizeCreateTheObject) {
    const Outcome outcome = run("register-machine.cmd");
    EXPECT_EQ(outcome.code, 0) << outcome.output;
    for (const char* word_size : {"x64", "x86"})
        if (fs::exists(folder() / word_size)) {
            EXPECT_NE(outcome.output.find(std::string("Foliant ") + word_size + " is registered"),
                      std::string::npos)
                << outcome.output;
        }
    expect_clients_reach_the_object(folder(), script_hosts(), run);
}

TEST_F(MachineRegistration, RemovalLeavesNothing) {
    const RegistryTree before = machine_classes();
    run("register-machine.cmd");
    EXPECT_NE(text_of(added(before, machine_classes())), "");
    EXPECT_EQ(run("unregister-machine.cmd").code, 0);
    EXPECT_EQ(text_of(added(before, machine_classes())), "");
    EXPECT_EQ(text_of(added(machine_classes(), before)), "");
    EXPECT_EQ(run("unregister-machine.cmd").code, 0) << "a second removal";
}

TEST_F(MachineRegistration, PutsTheWindowSenderWhereMembersStartItAndTakesItAway) {
    ASSERT_FALSE(fs::exists(installed_sender()));
    EXPECT_EQ(run("register-machine.cmd").code, 0);
    EXPECT_EQ(fs::file_size(installed_sender()), fs::file_size(own_sender(folder())));
    EXPECT_EQ(run("unregister-machine.cmd").code, 0);
    EXPECT_FALSE(fs::exists(installed_sender()));
}

TEST_F(MachineRegistration, LeavesTheSenderOfAnotherInstallationAlone) {
    std::ofstream(installed_sender()) << "another";
    EXPECT_EQ(run("register-machine.cmd").code, 0);
    EXPECT_EQ(fs::file_size(installed_sender()), 7U);
    EXPECT_EQ(run("unregister-machine.cmd").code, 0);
    EXPECT_TRUE(fs::exists(installed_sender()));
    fs::remove(installed_sender());
}

TEST_F(MachineRegistration, RemovingOneWordSizeLeavesTheOther) {
    const std::vector<std::string> hosts = script_hosts();
    if (hosts.size() < 2) GTEST_SKIP() << "this Windows or this package has one word size only";
    run("register-machine.cmd");
    EXPECT_EQ(run(R"(C:\windows\syswow64\regsvr32 /s /u x86\Foliant.dll)").code, 0);
    expect_clients_reach_the_object(folder(), {hosts.front()}, run);
}

TEST_F(MachineRegistration, EndsWithFailureWhenTheLibraryCannotBeRegistered) {
    make_passing_key(HKEY_LOCAL_MACHINE);
    const Outcome outcome = run("register-machine.cmd");
    EXPECT_EQ(outcome.code, 1);
    EXPECT_NE(outcome.output.find("could not be registered: regsvr32 ended with 5."), std::string::npos)
        << outcome.output;
    EXPECT_NE(outcome.output.find("as administrator"), std::string::npos) << outcome.output;
}

TEST_F(UserRegistration, LeavesTheKeysThatRegsvr32LeavesForTheComputer) {
    const RegistryTree machine_before = machine_classes();
    ASSERT_EQ(run("register-machine.cmd").code, 0);
    const RegistryTree machine = added(machine_before, machine_classes());
    ASSERT_EQ(run("unregister-machine.cmd").code, 0);

    const RegistryTree user_before = user_classes();
    const Outcome outcome = run("register-user.cmd");
    EXPECT_EQ(outcome.code, 0) << outcome.output;
    const bool both = script_hosts().size() == 2;
    EXPECT_EQ(text_of(without_what_wine_adds(added(user_before, user_classes()), both)),
              text_of(without_what_wine_adds(machine, both)));
}

TEST_F(UserRegistration, LetsClientsOfEachWordSizeCreateTheObject) {
    const RegistryTree before = machine_classes();
    ASSERT_EQ(run("register-user.cmd").code, 0);
    ASSERT_EQ(text_of(added(before, machine_classes())), "") << "the computer's classes are not touched";
    // Windows shows its programs the user's classes over the computer's; Wine the computer's only.
    HKEY user = nullptr;
    HKEY machine = nullptr;
    ASSERT_EQ(RegOpenKeyW(HKEY_CURRENT_USER, classes, &user), ERROR_SUCCESS);
    ASSERT_EQ(RegOpenKeyW(HKEY_LOCAL_MACHINE, classes, &machine), ERROR_SUCCESS);
    EXPECT_EQ(RegCopyTreeW(user, nullptr, machine), ERROR_SUCCESS);
    expect_clients_reach_the_object(folder(), script_hosts(), run);
    RegCloseKey(user);
    RegCloseKey(machine);
    EXPECT_EQ(run("unregister-machine.cmd").code, 0);
}

TEST_F(UserRegistration, RemovalLeavesNothing) {
    const RegistryTree before = user_classes();
    ASSERT_EQ(run("register-user.cmd").code, 0);
    EXPECT_NE(text_of(added(before, user_classes())), "");
    const Outcome outcome = run("unregister-user.cmd");
    EXPECT_EQ(outcome.code, 0) << outcome.output;
    EXPECT_EQ(text_of(added(before, user_classes())), "");
    EXPECT_EQ(text_of(added(user_classes(), before)), "");
    EXPECT_EQ(run("unregister-user.cmd").code, 0) << "a second removal";
}

TEST_F(UserRegistration, AFailingStepLeavesNothing) {
    const RegistryTree before = user_classes();
    make_passing_key(HKEY_CURRENT_USER);
    const Outcome outcome = run("register-user.cmd");
    EXPECT_EQ(outcome.code, 1);
    EXPECT_NE(outcome.output.find("HKCU\\Software\\Classes\\Foliant.BuildPDF\\Clsid cannot be written"),
              std::string::npos)
        << outcome.output;
    EXPECT_EQ(text_of(added(before, user_classes())), "");
}

class Scripts : public Package, public testing::WithParamInterface<const char*> {};

TEST_P(Scripts, SaysThatTheLibraryIsMissing) {
    const RegistryTree before = user_classes();
    fs::remove_all(folder() / "x86");
    fs::remove_all(folder() / "x64");
    const Outcome outcome = run(GetParam());
    EXPECT_EQ(outcome.code, 1);
    EXPECT_NE(outcome.output.find("\\Foliant.dll\" is not there.\nExtract the whole zip"), std::string::npos)
        << outcome.output;
    EXPECT_EQ(text_of(added(before, user_classes())), "");
}

TEST_P(Scripts, RefusesAnUnknownArgument) {
    const Outcome outcome = run(std::string(GetParam()) + " /help");
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.output, "Unknown argument /help. The only one there is: /u\n");
}

INSTANTIATE_TEST_SUITE_P(Registration, Scripts, testing::Values("register-machine.cmd", "register-user.cmd"),
                         [](const auto& script) { return script.index == 0 ? "Machine" : "User"; });

}  // namespace
}  // namespace foliant::tests::package
