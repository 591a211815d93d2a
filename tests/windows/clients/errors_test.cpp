// How a host's failure reads in each kind of client.

#include <gtest/gtest.h>
#include <optional>
#include <vector>

#include "windows/clients/client_run.h"
#include "windows/clients/installed_component.h"

namespace foliant::tests::clients {
namespace {

using servers::Ending;
using servers::Kind;

/// What every client says of a call of CreatePDFfromPS whose conversion, the fifth action, ends so.
std::string what_clients_say(const std::string& title, std::optional<Ending> ending) {
    std::string text = "--- " + title + "\n";
    std::vector<std::pair<Client, ClientRun>> runs;
    for (const Client client : all_clients) {
        runs.emplace_back(client, ClientRun(client, call_file("distiller"), "error " + name_of(client),
                                            ending ? 5 : 0, ending.value_or(Ending::good)));
        // A host that serves them all takes the others' calls with it when it dies.
        if (ending == Ending::death) runs.back().second.result();
    }
    for (auto& [client, run] : runs) {
        const std::string result = run.result();
        const auto error = result.rfind("error ");
        text += name_of(client) + ": " + (error == std::string::npos ? result : result.substr(error));
    }
    return text;
}

TEST(Errors, ReachEveryClientWithNumberSourceAndDescription) {
    std::string text;
    {
        const InstalledComponent component(Kind::in_process);
        text += what_clients_say("a host raises an error", Ending::raised);
        text += what_clients_say("a host returns a bare result", Ending::bare_result);
    }
    {
        const InstalledComponent component(Kind::local);
        text += what_clients_say("a host's process ends during the call", Ending::death);
        text += what_clients_say("a host in another process raises an error", Ending::raised);
    }
    const RegisteredComponent component;
    text += what_clients_say("no host is registered", std::nullopt);
    EXPECT_EQ(text, expected("errors.txt"));
}

}  // namespace
}  // namespace foliant::tests::clients
