// Whole calls through the registered component, by clients in processes of their own, to recorded hosts
// inside those processes and in a process of the hosts' own; with the real sender, which the component
// starts.

#include <deque>
#include <gtest/gtest.h>

#include "platform/win32/text.h"
#include "windows/clients/client_run.h"
#include "windows/clients/installed_component.h"

namespace foliant::tests::clients {
namespace {

class Calls : public testing::TestWithParam<servers::Kind> {
  protected:
    ClientRun& start(Client client, const CallFile& call) {
        const std::string name = name_of(client) + " " + call.name;
        return runs_
            .emplace_back(Run{name, expected_of(client, call), call.makes, ClientRun(client, call, name)})
            .run;
    }

    void check_all() {
        for (auto& [name, expected, makes, run] : runs_) {
            EXPECT_EQ(run.result(), expected) << name;
            if (!makes.empty()) {
                EXPECT_TRUE(run.has(platform::win32::to_utf16(makes).c_str())) << name;
            }
        }
    }

    InstalledComponent component_{GetParam()};

  private:
    struct Run {
        std::string name;
        std::string expected;
        std::string makes;
        ClientRun run;
    };
    std::deque<Run> runs_;
};

TEST_P(Calls, ComeToTheSameFromEveryClient) {
    // Two dialogs of the same caption at a time would get each other's senders.
    for (const bool alone : {false, true}) {
        for (const CallFile& call : all_call_files()) {
            if (call.alone != alone) continue;
            if (call.in_process && GetParam() == servers::Kind::local) continue;
            for (const Client client : all_clients) {
                if (client == Client::early_bound && !call.early_bound) continue;
                ClientRun& run = start(client, call);
                if (alone) run.wait_for("\"Adobe PDF - Security\" ends");
            }
        }
    }
    check_all();
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
