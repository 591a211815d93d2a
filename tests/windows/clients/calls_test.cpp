// Whole calls through the registered component, by clients in processes of their own, to recorded hosts
// inside those processes and in a process of the hosts' own; with the real sender, which the component
// starts.

#include <gtest/gtest.h>
#include <map>

#include "windows/clients/client_run.h"
#include "windows/clients/installed_component.h"

namespace foliant::tests::clients {
namespace {

constexpr Client all_clients[]{Client::vbscript, Client::jscript, Client::late_bound, Client::early_bound};

/// What a client's call comes to when all goes well: the same for every client, but that scripts have no
/// sinks in this system's script host, and JScript no variables that a call could fill in.
std::string expected_of(Client client, const std::string& member) {
    std::string text = expected(member + ".txt");
    if (client == Client::vbscript || client == Client::jscript) text = without(text, "event ");
    if (client == Client::jscript) text = without(text, "printer ");
    return text;
}

class Calls : public testing::TestWithParam<servers::Kind> {
  protected:
    static void check(ClientRun& run, Client client, const std::string& member) {
        EXPECT_EQ(run.result(), expected_of(client, member)) << name_of(client) << " " << member;
        EXPECT_TRUE(run.has(member.starts_with("CreatePS") ? L"out.ps" : L"out.pdf"))
            << name_of(client) << " " << member;
    }

    InstalledComponent component_{GetParam()};
};

TEST_P(Calls, ComeToTheSameFromEveryClient) {
    std::map<std::pair<Client, std::string>, ClientRun> runs;
    for (const Client client : all_clients)
        for (const std::string member : {"CreatePDFfromPS", "CreatePDFfromWord", "CreatePSfromWord"})
            runs.emplace(std::pair(client, member),
                         ClientRun(client, member, name_of(client) + " " + member));
    // Dialogs of the same caption have to come one after the other.
    for (const Client client : all_clients) {
        ClientRun run(client, "CreatePDFfromWord2", name_of(client) + " CreatePDFfromWord2");
        check(run, client, "CreatePDFfromWord2");
        EXPECT_TRUE(senders_end());
    }
    for (auto& [what, run] : runs)
        check(run, what.first, what.second);
    EXPECT_EQ(component_.record(), "");
    EXPECT_TRUE(local_servers_end());
}

INSTANTIATE_TEST_SUITE_P(Hosts, Calls, testing::Values(servers::Kind::in_process, servers::Kind::local),
                         [](const auto& kind) {
                             return kind.param == servers::Kind::local ? "InAProcessOfTheirOwn"
                                                                       : "InTheClientsProcess";
                         });

}  // namespace
}  // namespace foliant::tests::clients
