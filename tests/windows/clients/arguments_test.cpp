// Lists of every kind that clients pass, and variables that a call fills in.

#include <gtest/gtest.h>
#include <vector>

#include "windows/clients/client_run.h"
#include "windows/clients/installed_component.h"

namespace foliant::tests::clients {
namespace {

using servers::Ending;
using servers::Kind;

struct Given {
    Client client;
    const char* how;
};

constexpr Given lists[]{
    {Client::vbscript, "the result of Array"},
    {Client::vbscript, "an array in a variable"},
    {Client::vbscript, "an array with declared bounds"},
    {Client::jscript, "an array"},
    {Client::late_bound, "strings from 0"},
    {Client::late_bound, "strings from 1"},
    {Client::late_bound, "strings from -3"},
    {Client::late_bound, "variants from 0"},
    {Client::late_bound, "variants from -3"},
    {Client::late_bound, "strings from 1, array by reference"},
    {Client::late_bound, "variants from 0, array by reference"},
    {Client::late_bound, "strings from -3, variant by reference"},
    {Client::late_bound, "variants from 0, variant by reference"},
    {Client::early_bound, "an array"},
};

class Arguments : public testing::TestWithParam<Kind> {
  protected:
    InstalledComponent component_{GetParam()};
};

TEST_P(Arguments, ListsOfEveryKindReachDistillerInTheirOrder) {
    std::vector<ClientRun> runs;
    for (const Given& list : lists) {
        const std::string folder = name_of(list.client) + " " + list.how;
        for (const char* file : {"a.ps", "b.ps", "c.ps"})
            ClientRun::prepare(folder, file, "%!PS\r\n");
        runs.emplace_back(list.client, std::string("CreatePDFfromMultiPS, ") + list.how, folder);
    }
    for (std::size_t i = 0; i < runs.size(); ++i) {
        std::string text = expected("CreatePDFfromMultiPS.txt");
        const Client client = lists[i].client;
        if (client != Client::late_bound) text = without(text, "window ");
        if (client == Client::vbscript || client == Client::jscript) text = without(text, "event ");
        if (client == Client::jscript) text = without(text, "printer ");
        EXPECT_EQ(runs[i].result(), text) << name_of(client) << ": " << lists[i].how;
        EXPECT_TRUE(runs[i].has(L"out.pdf"));
        EXPECT_FALSE(runs[i].has(L"out.ps")) << "the list that Distiller ran";
    }
}

TEST_P(Arguments, ABlankPrinterIsFilledInAlsoWhenTheJobFails) {
    constexpr Given variables[]{{Client::vbscript, "CreatePDFfromPS"},
                                {Client::vbscript, "CreatePDFfromPS, a variable without a value"},
                                {Client::late_bound, "CreatePDFfromPS"},
                                {Client::late_bound, "CreatePDFfromPS, a variant variable"},
                                {Client::early_bound, "CreatePDFfromPS"}};
    constexpr int conversion = 5;
    for (const Given& variable : variables) {
        for (const int failing : {0, conversion}) {
            const std::string said = ClientRun(variable.client, variable.how, "printer", failing).result();
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
