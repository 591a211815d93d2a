// Lists of every kind that clients pass, and variables that a call fills in.

#include <gtest/gtest.h>
#include <vector>

#include "windows/clients/client_run.h"
#include "windows/clients/installed_component.h"

namespace foliant::tests::clients {
namespace {

using servers::Ending;
using servers::Kind;

/// What a client calls it, see calls/ and the clients.
struct Given {
    Client client;
    const char* what;
};

constexpr Given lists[]{
    {Client::vbscript, "AllFiles()"},
    {Client::vbscript, "Array(files(0), files(1), files(2), files(3))"},
    {Client::vbscript, "files"},
    {Client::vbscript, "declared"},
    {Client::jscript, "files"},
    {Client::late_bound, "strings from 0"},
    {Client::late_bound, "strings from 1"},
    {Client::late_bound, "strings from -3"},
    {Client::late_bound, "variants from 0"},
    {Client::late_bound, "variants from -3"},
    {Client::late_bound, "strings from 1, array by reference"},
    {Client::late_bound, "variants from 0, array by reference"},
    {Client::late_bound, "strings from -3, variant by reference"},
    {Client::late_bound, "variants from 0, variant by reference"},
    {Client::early_bound, "variants from 0"},
};

class Arguments : public testing::TestWithParam<Kind> {
  protected:
    InstalledComponent component_{GetParam()};
};

TEST_P(Arguments, ListsOfEveryKindReachDistillerInTheirOrder) {
    std::vector<ClientRun> runs;
    const CallFile call = call_file("shapes/list");
    for (const Given& list : lists) {
        const std::string folder = "list " + std::to_string(runs.size());
        for (const char* file : {"a.ps", "b.ps", "c.ps"})
            ClientRun::prepare(folder, file, "%!PS\r\n");
        runs.emplace_back(list.client, with(call, "LIST", list.what), folder);
    }
    for (std::size_t i = 0; i < runs.size(); ++i) {
        const auto& [client, what] = lists[i];
        EXPECT_EQ(runs[i].result(), expected_of(client, call)) << name_of(client) << ": " << what;
        EXPECT_TRUE(runs[i].has(L"out.pdf"));
        EXPECT_FALSE(runs[i].has(L"out.ps")) << "the list that Distiller ran";
    }
}

TEST_P(Arguments, ABlankPrinterIsFilledInAlsoWhenTheJobFails) {
    constexpr Given variables[]{{Client::vbscript, "printer"},
                                {Client::vbscript, "=unset"},
                                {Client::late_bound, "printer"},
                                {Client::late_bound, "=variant variable"},
                                {Client::early_bound, "printer"}};
    constexpr int conversion = 5;
    for (const Given& variable : variables) {
        for (const int failing : {0, conversion}) {
            const std::string said =
                ClientRun(variable.client, with(call_file("distiller"), "printer", variable.what), "printer",
                          failing)
                    .result();
            EXPECT_TRUE(said.ends_with("\nprinter \"Adobe PDF\"\n")) << said;
            EXPECT_EQ(said.find("\nno error\n") == std::string::npos, failing != 0) << said;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Hosts, Arguments, testing::Values(Kind::in_process, Kind::local),
                         [](const auto& kind) {
                             return kind.param == Kind::local ? "InAProcessOfTheirOwn"
                                                              : "InTheClientsProcess";
                         });

}  // namespace
}  // namespace foliant::tests::clients
