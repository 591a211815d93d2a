// Calls whose k-th action on a host fails, for every k: what the component does then, that it lets go of
// every object, and that the hosts' process ends.

#include <deque>
#include <functional>
#include <gtest/gtest.h>

#include "windows/clients/client_run.h"
#include "windows/clients/installed_component.h"
#include "windows/servers/record.h"

namespace foliant::tests::clients {
namespace {

using servers::Ending;
using servers::Kind;

/// A call, and how many actions on hosts it takes. expected/failing/ has what comes of each that fails.
struct Failing {
    std::string call;
    int actions;

    std::string expected() const { return clients::expected("failing/" + call + ".txt"); }
};
const Failing word{"word-and-distiller", 22};
const Failing distiller{"distiller", 5};
const Failing secure_distiller{"secure-distiller", 4};

/// The document is opened by the third; until then a Word in another process does not know whose it is. What
/// follows the seventeenth, which quits Word, is the Distiller's, which learns that with its last.
constexpr int first_known = 3;
constexpr int last_of_word = 17;

ClientRun start(const Failing& failing, int k) {
    return ClientRun(Client::early_bound, call_file(failing.call), failing.call + " " + std::to_string(k), k);
}

/// The part of a result that begins with the action that fails.
std::string since_failure(int k, const std::string& result) {
    const auto fails = result.find(" fails\n");
    const auto line = fails == std::string::npos ? 0 : result.rfind('\n', fails) + 1;
    return "--- " + std::to_string(k) + "\n" + result.substr(line);
}

/// Runs beside each other, some at a time: most of their time they wait.
std::string run_all(const Failing& failing, const std::vector<int>& positions) {
    constexpr std::size_t at_a_time = 12;
    std::deque<std::pair<int, ClientRun>> running;
    std::string text;
    const auto finish_one = [&] {
        text += since_failure(running.front().first, running.front().second.result());
        running.pop_front();
    };
    for (const int k : positions) {
        if (running.size() == at_a_time) finish_one();
        running.emplace_back(k, start(failing, k));
    }
    while (!running.empty())
        finish_one();
    return text;
}

/// Runs one by one, also where a host that does not know its client yet is to fail.
std::string run_in_turn(const Failing& failing, const std::vector<int>& positions,
                        const InstalledComponent& component) {
    std::string text;
    for (const int k : positions) {
        servers::let_fail(servers::record_folder(), k, Ending::raised);
        DeleteFileW(servers::record_path().c_str());
        const std::string said = start(failing, k).result();
        text += since_failure(k, component.record() + said);
    }
    servers::let_fail(servers::record_folder(), 0, Ending::good);
    DeleteFileW(servers::record_path().c_str());
    return text;
}

std::vector<int> range(int first, int last) {
    std::vector<int> numbers;
    for (int k = first; k <= last; ++k)
        numbers.push_back(k);
    return numbers;
}

/// Those sections of an expected text that are about one of the positions.
std::string sections(const std::string& text, const std::vector<int>& positions) {
    std::string found;
    for (const int k : positions) {
        const auto begin = text.find("--- " + std::to_string(k) + "\n");
        const auto end = text.find("--- ", begin + 1);
        if (begin != std::string::npos) found += text.substr(begin, end - begin);
    }
    return found;
}

/// An action that a host refuses, with a number and a text of its own kind.
struct Refused {
    std::string call;
    int action;
};

std::string what_comes_of(const std::vector<Refused>& refused) {
    std::deque<ClientRun> runs;
    for (const auto& [call, action] : refused)
        runs.emplace_back(Client::late_bound, call_file(call), "refused " + call, action);
    std::string text;
    for (std::size_t i = 0; i < runs.size(); ++i) {
        const std::string since = since_failure(refused[i].action, runs[i].result());
        text += "--- " + refused[i].call + since.substr(since.find('\n'));
    }
    return text;
}

TEST(FailingCalls, EndWithTheNumberAndTheTextOfTheHostThatRefuses) {
    const std::vector<Refused> refused{{"powerpoint", 12}, {"visio", 5},   {"autocad", 6},
                                       {"access", 9},      {"crystal", 4}, {"pdfmaker", 2}};
    const std::vector<Refused> by_a_control{{"transfer-up", 6}};
    {
        const InstalledComponent component(Kind::in_process);
        EXPECT_EQ(what_comes_of(refused), expected("failing/other-hosts.txt"));
        EXPECT_EQ(what_comes_of(by_a_control), expected("failing/control.txt"));
    }
    InstalledComponent component(Kind::local);
    EXPECT_EQ(what_comes_of(refused), expected("failing/other-hosts.txt"));
    EXPECT_TRUE(component.hosts_end());
}

TEST(FailingCalls, LetGoOfEverythingInTheClientsProcess) {
    const InstalledComponent component(Kind::in_process);
    for (const Failing& failing : {word, distiller, secure_distiller}) {
        EXPECT_EQ(run_all(failing, range(1, failing.actions)), failing.expected()) << failing.call;
    }
    EXPECT_EQ(component.record(), "");
}

TEST(FailingCalls, LetGoOfEverythingInTheHostsProcess) {
    InstalledComponent component(Kind::local);
    for (const Failing& failing : {distiller, secure_distiller}) {
        const auto all = range(1, failing.actions);
        EXPECT_EQ(run_in_turn(failing, all, component), failing.expected());
    }
    const std::string of_word = word.expected();
    const auto unknown = range(1, first_known - 1);
    EXPECT_EQ(run_in_turn(word, unknown, component), sections(of_word, unknown));
    auto known = range(first_known, last_of_word);
    known.push_back(word.actions);
    EXPECT_EQ(run_all(word, known), sections(of_word, known));
    EXPECT_TRUE(component.hosts_end());
}

}  // namespace
}  // namespace foliant::tests::clients
