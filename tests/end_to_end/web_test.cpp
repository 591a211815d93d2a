#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>

#include "end_to_end/command.h"
#include "hosts/web/page_server.h"

namespace foliant::end_to_end {
namespace {

#define REQUIRE_BROWSER()                                                                              \
    if (Workshop().foliant({"hosts"}).output.find("Chromium is not installed") != std::string::npos) { \
        const char* const no_browser = "Chromium is not installed. Install the package chromium.";     \
        if (std::getenv("FOLIANT_REQUIRE_ENGINES") != nullptr) FAIL() << no_browser;                   \
        GTEST_SKIP() << no_browser;                                                                    \
    }

TEST(CreatePDFfromWebPage, MakesAPdfOfAPageAndLeavesNothingElse) {
    REQUIRE_HOST("Acrobat");
    REQUIRE_BROWSER();
    const Workshop shop;
    shop.write("page.html", "<h1>from a file</h1>");
    const Finished captured = shop.foliant({"CreatePDFfromWebPage", "page.html", "page.pdf"});
    EXPECT_EQ(captured.exit_code, 0) << captured.errors;
    EXPECT_EQ(shop.text("page.pdf"), "from a file\n\n\f");
    EXPECT_EQ(shop.files(), (std::set<std::string>{"page.html", "page.pdf"}));
    EXPECT_TRUE(shop.is_clean_soon()) << shop.leftovers();
}

TEST(CreatePDFfromWebPage, SaysWhyAPageDoesNotComeAndKeepsTheOldPdf) {
    REQUIRE_HOST("Acrobat");
    REQUIRE_BROWSER();
    const Workshop shop;
    shop.run({"gs", "-q", "-dBATCH", "-dNOPAUSE", "-sDEVICE=pdfwrite", "-o", "page.pdf", "-c", "showpage"});
    const std::string before = shop.read("page.pdf");
    const Finished captured = shop.foliant({"CreatePDFfromWebPage", "ftp://a.example/", "page.pdf"});
    EXPECT_EQ(captured.exit_code, 5);
    EXPECT_EQ(
        captured.errors,
        "foliant: ftp://a.example/ cannot be captured: only http, https and file addresses are captured, not "
        "ftp.\n");
    EXPECT_EQ(shop.read("page.pdf"), before);
}

/// A machine that has no browser, or on which it is hidden from a call.
class WithoutBrowser : public testing::Test {
  protected:
    void SetUp() override {
        REQUIRE_HOST("Acrobat");
        REQUIRE_HOST("Internet Transfer control");
        for (const char* place : {"/usr/bin/chromium", "/usr/bin/chromium-browser", "/usr/bin/google-chrome"})
            if (std::filesystem::exists(place)) hide(place);
        if (!can_hide())
            GTEST_SKIP() << "A browser is installed, and nobody may hide it from a process here.";
    }
    void TearDown() override { EXPECT_TRUE(IsSkipped() || shop.is_clean_soon()) << shop.leftovers(); }

    void hide(const std::string& place, const std::string& nothing = "/dev/null") {
        hiding_ += "mount --bind " + nothing + " " + place + " && ";
    }
    bool can_hide() const { return shop.run(hidden({"true"})).exit_code == 0; }
    Finished capture(const std::string& address, const std::string& pdf) const {
        return shop.run(hidden({FOLIANT_COMMAND, "CreatePDFfromWebPage", address, pdf}));
    }

    const Workshop shop;

  private:
    /// Mounts are for the one process that sees them.
    std::vector<std::string> hidden(std::vector<std::string> words) const {
        if (hiding_.empty()) return words;
        words.insert(words.begin(),
                     {"unshare", "--map-root-user", "--mount", "sh", "-c", hiding_ + "exec \"$@\"", "sh"});
        return words;
    }

    std::string hiding_;
};

TEST_F(WithoutBrowser, LibreOfficeCapturesWhatStandsInThePage) {
    REQUIRE_HOST("Word");
    const hosts::web::PageServer server;
    for (const std::string page : {"/page", "/moved"}) {
        const Finished captured = capture(server.address(page), "page.pdf");
        EXPECT_EQ(captured.exit_code, 0) << captured.errors;
        EXPECT_EQ(shop.text("page.pdf"), "arrived\n\n\f") << page;
    }
    const Finished poor = capture(server.address("/poor"), "poor.pdf");
    EXPECT_EQ(poor.exit_code, 7);
    EXPECT_EQ(poor.errors,
              "foliant: " + server.address("/poor") +
                  " was captured without its pictures, style sheets and scripts, by LibreOffice. Install "
                  "the package chromium to have the page as a browser shows it.\n");
    EXPECT_EQ(shop.text("poor.pdf"), "poor\n\n\f");
    EXPECT_EQ(server.asked_for(), (tests::Names{"/moved", "/page", "/page", "/poor"}));
    EXPECT_EQ(shop.files(), (std::set<std::string>{"page.pdf", "poor.pdf"}));
}

TEST_F(WithoutBrowser, LibreOfficeCapturesAFileWithTheLinksThatItHas) {
    REQUIRE_HOST("Word");
    shop.write("page.html", "<h1>caf\xE9</h1><a href='b.html'>on</a><img src='http://127.0.0.1:9/a.png'>");
    const Finished captured = capture("page.html", "page.pdf");
    EXPECT_EQ(captured.exit_code, 7) << captured.errors;
    EXPECT_EQ(shop.text("page.pdf"), "caf\xC3\xA9\non\n\n\f");
    const std::string link = "file://" + shop.path("b.html").string();
    EXPECT_NE(shop.run({"pdfinfo", "-url", "page.pdf"}).output.find(link), std::string::npos);
}

TEST_F(WithoutBrowser, APageThatDoesNotComeIsTold) {
    REQUIRE_HOST("Word");
    const hosts::web::PageServer server;
    const auto why_not = [&](const std::string& address) {
        const Finished captured = capture(address, "page.pdf");
        EXPECT_EQ(captured.exit_code, 5) << captured.errors;
        return captured.errors;
    };
    EXPECT_EQ(why_not(server.address("/none")),
              "foliant: " + server.address("/none") + " cannot be captured: the server answers with 404.\n");
    EXPECT_EQ(why_not("http://127.0.0.1:9/"),
              "foliant: http://127.0.0.1:9/ cannot be captured: the page cannot be "
              "had (Couldn't connect to server).\n");
    EXPECT_EQ(
        why_not("/no/such.html"),
        "foliant: /no/such.html cannot be captured: the page cannot be had (No such file or directory).\n");
    EXPECT_EQ(shop.files(), (std::set<std::string>{}));
}

TEST_F(WithoutBrowser, WithoutLibreOfficeBothPackagesAreNamed) {
    if (std::filesystem::exists("/usr/lib/libreoffice")) hide("/usr/lib/libreoffice", shop.folder().string());
    if (!can_hide()) GTEST_SKIP() << "LibreOffice is installed, and nobody may hide it from a process here.";
    const Finished captured = capture("http://127.0.0.1:9/", "page.pdf");
    EXPECT_EQ(captured.exit_code, 4);
    EXPECT_EQ(
        captured.errors,
        "foliant: http://127.0.0.1:9/ cannot be captured: there is neither a browser that captures it nor "
        "LibreOffice, which could do so without its pictures. Install the package chromium, or "
        "libreoffice-writer-nogui.\n");
}

}  // namespace
}  // namespace foliant::end_to_end
