// Whole calls through the registered component, by clients in processes of their own, to recorded hosts
// inside those processes and in a process of the hosts' own; with the real sender, which the component
// starts.

#include <algorithm>
#include <deque>
#include <gtest/gtest.h>
#include <iterator>

#include "platform/win32/text.h"
#include "windows/clients/client_run.h"
#include "windows/clients/installed_component.h"
#include "windows/servers/record.h"

namespace foliant::tests::clients {
namespace {

bool makes(Client client, const CallFile& call) {
    if (client == Client::early_bound && !call.early_bound) return false;
    return call.client.empty() || call.client == name_of(client);
}

/// A call, and the process that makes it.
struct MadeCall {
    MadeCall(Client client, const CallFile& call)
        : name(name_of(client) + " " + call.name),
          expected(expected_of(client, call)),
          file(platform::win32::to_utf16(call.makes)),
          process(client, call, name) {}

    void check() {
        EXPECT_EQ(process.result(), expected) << name;
        if (!file.empty()) {
            EXPECT_TRUE(process.has(file.c_str())) << name;
        }
    }

    std::string name;
    std::string expected;
    std::wstring file;
    ClientRun process;
};

class Calls : public testing::TestWithParam<servers::Kind> {
  protected:
    bool is_local() const { return GetParam() == servers::Kind::local; }

    /// Those whose hosts tell their clients apart, beside each other.
    void make_together(bool alone) {
        for (const CallFile& call : all_call_files()) {
            if (call.alone.empty() == alone || (call.apart && is_local())) continue;
            for (const Client client : all_clients) {
                if (!makes(client, call)) continue;
                runs_.emplace_back(client, call);
                if (alone) runs_.back().process.wait_for(call.alone);
            }
        }
    }

    /// The others, each by one client, which may be any: to a host in another process they are all the same.
    static void make_apart() {
        for (const CallFile& call : all_call_files()) {
            if (!call.apart) continue;
            const auto* client =
                std::find_if(std::begin(all_clients), std::end(all_clients), [&](Client one) {
                    return makes(one, call) && (!call.client.empty() || one == Client::late_bound);
                });
            servers::serve_only(ClientRun::folder_of(name_of(*client) + " " + call.name));
            MadeCall(*client, call).check();
        }
        servers::serve_only(L"");
    }

    void check_all() {
        for (MadeCall& run : runs_)
            run.check();
    }

    InstalledComponent component_{GetParam()};

  private:
    std::deque<MadeCall> runs_;
};

TEST_P(Calls, ComeToTheSameFromEveryClient) {
    make_together(false);
    // Two dialogs of the same caption at a time would get each other's senders.
    make_together(true);
    check_all();
    if (is_local()) make_apart();
    EXPECT_TRUE(senders_end());
    EXPECT_EQ(component_.record(), "");
    EXPECT_TRUE(component_.hosts_end());
    EXPECT_EQ(servers::default_printer(), "Office printer") << "as before";
}

INSTANTIATE_TEST_SUITE_P(Hosts, Calls, testing::Values(servers::Kind::in_process, servers::Kind::local),
                         [](const auto& kind) {
                             return kind.param == servers::Kind::local ? "InAProcessOfTheirOwn"
                                                                       : "InTheClientsProcess";
                         });

}  // namespace
}  // namespace foliant::tests::clients
