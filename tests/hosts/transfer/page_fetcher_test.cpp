#include "hosts/transfer/page_fetcher.h"

#include <cstdlib>
#include <gtest/gtest.h>

#include "automation/coerce.h"
#include "hosts/transfer/bare_machine.h"
#include "hosts/web/page_server.h"
#include "support/error_of.h"

namespace foliant::hosts::transfer {
namespace {

using automation::Value;
using std::chrono::milliseconds;
using web::PageServer;

class Fetching : public testing::Test {
  protected:
    /// What the page comes without, or why there is none.
    std::string fetch(const std::string& address, milliseconds patience = milliseconds(20'000)) {
        const Value fetcher = make_page_fetcher(machine, patience);
        try {
            return automation::to_text(fetcher.call("Fetch", {address, file}));
        } catch (const automation::Error& refused) {
            return "no page: " + refused.description();
        }
    }
    bool run(const std::string& command) const {
        return std::system(
                   ("cd '" + folder.path().string() + "' && { " + command + "; } 2>errors").c_str()) == 0;
    }

    tests::ScratchFolder folder;
    const std::string file = folder / "page.html";
    BareMachine machine;
};

TEST_F(Fetching, FollowsRedirectionsToAPage) {
    const PageServer server;
    EXPECT_EQ(fetch(server.address("/moved")), "");
    EXPECT_NE(tests::read_file(file).find("arrived"), std::string::npos);
}

TEST_F(Fetching, WaitsNoLongerThanItHasPatience) {
    const PageServer server;
    EXPECT_EQ(fetch(server.address("/never"), milliseconds(300)), "no page: it has not come in time");
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(Fetching, TakesAPageAsFarAsItHasCome) {
    const PageServer server;
    EXPECT_EQ(fetch(server.address("/stalls"), milliseconds(1'000)), "as far as it had come in time");
    EXPECT_NE(tests::read_file(file).find("begun"), std::string::npos);
}

TEST_F(Fetching, RefusesAServerWhoseCertificateNobodyVouchesFor) {
    if (!run("openssl req -x509 -newkey rsa:2048 -nodes -keyout key.pem -out cert.pem -subj /CN=here -addext "
             "subjectAltName=IP:127.0.0.1 -days 2 && cat cert.pem key.pem > here.pem"))
        GTEST_SKIP() << "openssl is not installed. Install the package openssl.";
    const PageServer server(folder / "here.pem");
    EXPECT_EQ(fetch(server.address("/page")),
              "no page: its server's certificate is not trusted (self-signed certificate)");
    EXPECT_FALSE(std::filesystem::exists(file));
}

}  // namespace
}  // namespace foliant::hosts::transfer
