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

/// What a client's call comes to when all goes well. It is the same for every client, but that one of them
/// alone has a window that calls back, that scripts have no sinks in this system's script host, and JScript
/// no variables that a call could fill in.
std::string expected_of(Client client, const std::string& member) {
    std::string text = expected(member + ".txt");
    if (client != Client::late_bound) text = without(text, "window ");
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
    const auto start = [&](Client client, const std::string& member) -> ClientRun& {
        const std::pair what(client, member);
        return runs.emplace(what, ClientRun(client, member, name_of(client) + " " + member)).first->second;
    };
    for (const Client client : all_clients)
        for (const char* member : {"CreatePDFfromPS", "CreatePDFfromWord", "CreatePSfromWord"})
            start(client, member);
    // Two dialogs of the same caption at a time would get each other's senders.
    for (const Client client : all_clients)
        start(client, "CreatePDFfromWord2").wait_for("\"Adobe PDF - Security\" ends");
    for (auto& [what, run] : runs)
        check(run, what.first, what.second);
    EXPECT_TRUE(senders_end());
    EXPECT_EQ(component_.record(), "");
    EXPECT_TRUE(component_.hosts_end());
}

INSTANTIATE_TEST_SUITE_P(Hosts, Calls, testing::Values(servers::Kind::in_process, servers::Kind::local),
                         [](const auto& kind) {
                             return kind.param == servers::Kind::local ? "InAProcessOfTheirOwn"
                                                                       : "InTheClientsProcess";
                         });

}  // namespace
}  // namespace foliant::tests::clients
