#include "platform/local/host_modules.h"

#include <algorithm>
#include <gtest/gtest.h>

#include "hosts/module_part.h"
#include "platform/local/local_machine.h"
#include "registered/classes.h"
#include "support/error_of.h"
#include "support/scratch_folder.h"

namespace foliant::platform::local::test {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view distiller = registered::event_bound_distiller;
constexpr std::string_view secure_distiller = registered::security_capable_distiller;
const fs::path module_folder = FOLIANT_TEST_HOSTS;

using tests::failure;

class HostModulesTest : public testing::Test {
  protected:
    tests::ScratchFolder folder;
    LocalMachine machine{{.temporary_folder = folder.path(),
                          .configuration_folder = folder.path(),
                          .hosts_folder = module_folder}};
    Servers& servers = machine.platform().servers;
};

TEST_F(HostModulesTest, CreatesAClassFromItsModuleByAnySpelling) {
    const automation::Value object = servers.create("{1cd675b2-ecd1-11d1-b976-00600802db86}");
    EXPECT_EQ(object.get("ClassName"), automation::Value(distiller));
}

TEST_F(HostModulesTest, ErrorsOfAHostArriveAsTheyAre) {
    const automation::Value object = servers.create(distiller);
    EXPECT_EQ(failure([&] { object.call("NoSuchMember"); }),
              "438 Object doesn't support this property or method");
}

TEST_F(HostModulesTest, WhateverAModuleRaisesWhenItCreatesIs429WithItsReason) {
    EXPECT_EQ(failure([&] { servers.create(secure_distiller); }),
              "429 ActiveX component can't create object: Acrobat Distiller. The engine's profile does not "
              "fit on the "
              "disk.");
}

TEST_F(HostModulesTest, NamesTheEngineAndThePackageWhenTheModuleDoesNotLoad) {
    const std::string told = failure([&] { servers.create("Word.Application"); });
    EXPECT_TRUE(told.starts_with(
        "429 ActiveX component can't create object: Word. LibreOffice Writer is not installed ("))
        << told;
    EXPECT_NE(told.find("function_of_an_engine_that_is_not_installed"), std::string::npos) << told;
    EXPECT_TRUE(told.ends_with("Install the package libreoffice-writer-nogui to have it.")) << told;
}

/// Each process of a host has a folder in the private one.
std::ptrdiff_t processes(const LocalMachine& machine) {
    return std::ranges::count_if(fs::directory_iterator(machine.private_folder()), [](const auto& entry) {
        return entry.path().filename().string().starts_with("host-");
    });
}

TEST_F(HostModulesTest, AHostThatWasStartedAheadIsTheOneThatIsUsed) {
    machine.start_ahead("Word.Application");
    EXPECT_EQ(processes(machine), 1);
    EXPECT_TRUE(failure([&] { servers.create("Word.Application"); }).starts_with("429 "));
    EXPECT_EQ(processes(machine), 1);
}

TEST_F(HostModulesTest, NothingIsStartedAheadForAHostWithoutAProcess) {
    for (const std::string_view other :
         {distiller, std::string_view("crystal.crpe.application"), std::string_view("x")})
        machine.start_ahead(other);
    EXPECT_EQ(processes(machine), 0);
}

TEST_F(HostModulesTest, WhatCouldNotBeStartedNeedNotBeDismissed) {
    LocalMachine without_room{{.temporary_folder = folder / "missing",
                               .configuration_folder = folder.path(),
                               .hosts_folder = module_folder}};
    without_room.start_ahead("Word.Application");
    EXPECT_TRUE(failure([&] {
                    without_room.platform().servers.create("Word.Application");
                }).starts_with("76 Path not found: cannot make a temporary folder in "));
    without_room.dismiss_hosts();
}

TEST_F(HostModulesTest, SaysWhatToDoInsteadOfAHostThatNoEngineStandsInFor) {
    EXPECT_EQ(failure([&] { servers.create("crystal.crpe.application"); }),
              "429 ActiveX component can't create object: Crystal Reports. There is no engine that stands in "
              "for it. Have Crystal Reports itself export the report: as a PDF, or as a Word document, which "
              "CreatePDFfromWord converts, or as a workbook, which CreatePDFfromExcel does.");
}

TEST_F(HostModulesTest, SaysThatNoHostHasTheClass) {
    EXPECT_EQ(failure([&] { servers.create("Scripting.FileSystemObject"); }),
              "429 ActiveX component can't create object: Scripting.FileSystemObject. No host on this "
              "machine has such "
              "a class.");
}

TEST_F(HostModulesTest, SaysThatAModuleIsMissing) {
    HostModules modules({folder.path()}, {}, machine);
    EXPECT_EQ(failure([&] { modules.create(distiller); }),
              "429 ActiveX component can't create object: Acrobat Distiller. Its module hosts/distiller.so "
              "is not there: "
              "this installation was built without Ghostscript.");
}

TEST_F(HostModulesTest, SaysThatAFileIsNoModule) {
    fs::copy(module_folder / "no_host.so", folder.path() / "distiller.so");
    HostModules modules({folder.path()}, {}, machine);
    EXPECT_EQ(failure([&] { modules.create(distiller); }),
              "429 ActiveX component can't create object: Acrobat Distiller. " +
                  (folder / "distiller.so").string() + " is no host module.");
    tests::write_file(folder / "office.so", "text");
    EXPECT_TRUE(failure([&] { modules.create("Word.Application"); }).starts_with("429 "));
}

TEST_F(HostModulesTest, TakesTheFirstFolderThatHasTheModule) {
    HostModules modules({folder.path(), module_folder}, {}, machine);
    EXPECT_NE(modules.create(distiller), nullptr);
}

TEST_F(HostModulesTest, ListsEveryHostWithItsVersionOrWhatIsMissing) {
    const auto states = machine.host_states();
    const auto state = [&](const std::string& name) {
        const auto found =
            std::find_if(states.begin(), states.end(), [&](const HostStatus& s) { return s.name == name; });
        return found == states.end() ? HostStatus{} : *found;
    };
    EXPECT_EQ(states.size(), hosts::catalogue().size());
    EXPECT_EQ(state("Acrobat Distiller").version, "10.00.0");
    EXPECT_EQ(state("Acrobat Distiller").problem, "");
    EXPECT_EQ(state("Acrobat Distiller").package, "libgs10");
    EXPECT_EQ(state("Word").version, "");
    EXPECT_TRUE(state("Word").problem.starts_with("LibreOffice Writer is not installed ("))
        << state("Word").problem;
    EXPECT_TRUE(
        state("Crystal Reports").problem.starts_with("There is no engine that stands in for it. Have "))
        << state("Crystal Reports").problem;
}

TEST(HostModules, LieBesideTheProgramOrInItsLibraryFolder) {
    const auto folders = hosts::hosts_folders("/usr/bin/foliant");
    EXPECT_EQ(folders, (std::vector<fs::path>{"/usr/bin/hosts", "/usr/lib/foliant/hosts"}));
}

}  // namespace
}  // namespace foliant::platform::local::test
