#include "hosts/web/capture.h"

#include <cstdlib>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/web/browser.h"
#include "hosts/web/capture_error.h"
#include "hosts/web/page_server.h"
#include "support/scratch_folder.h"

namespace foliant::hosts::web {
namespace {

using std::chrono::milliseconds;

#define REQUIRE_BROWSER()                                                                          \
    if (!find_browser()) {                                                                         \
        const char* const no_browser = "Chromium is not installed. Install the package chromium."; \
        if (std::getenv("FOLIANT_REQUIRE_ENGINES") != nullptr) FAIL() << no_browser;               \
        GTEST_SKIP() << no_browser;                                                                \
    }

class Capture : public testing::Test {
  protected:
    /// What is wrong with a page; "" when it was captured.
    std::string capture(const std::string& address, milliseconds load = milliseconds(60'000)) {
        try {
            missing =
                capture_page(address, pdf, folder.path(), {.load = load, .all = load + milliseconds(30'000)});
            return "";
        } catch (const CaptureError& error) {
            return error.what();
        }
    }

    std::string output_of(const std::string& command) const {
        const std::string said = (folder / "said").string();
        if (std::system((command + " > '" + said + "'").c_str()) != 0) return "failed: " + command;
        return tests::read_file(said);
    }
    std::string text() const { return output_of("pdftotext '" + pdf.string() + "' -"); }

    std::string missing;  ///< what a page was captured without
    const tests::ScratchFolder folder;
    const std::filesystem::path pdf = folder / "page.pdf";
};

TEST_F(Capture, PagesComeByHttpAndFromFilesAndThroughRedirections) {
    REQUIRE_BROWSER();
    const PageServer server;
    for (const std::string page : {"/page", "/moved", "/goes-on"}) {
        EXPECT_EQ(capture(server.address(page)), "");
        EXPECT_EQ(text(), "arrived\n\n\f") << page;
    }
    EXPECT_EQ(capture(folder.write("my page.html", "<h1>from a file</h1>").string()), "");
    EXPECT_EQ(text(), "from a file\n\n\f");
}

TEST_F(Capture, APageFromADiskShowsWhatLiesBesideItAndNoOtherFile) {
    REQUIRE_BROWSER();
    const std::filesystem::path site = folder / "site";
    std::filesystem::create_directories(site / "parts");
    tests::write_file(site / "parts" / "near.html", "beside");
    folder.write("far.html", "elsewhere");
    tests::write_file(site / "page.html",
                      "<iframe src='parts/near.html'></iframe><iframe src='../far.html'></iframe>");
    EXPECT_EQ(capture((site / "page.html").string()), "");
    EXPECT_NE(text().find("beside"), std::string::npos);
    EXPECT_EQ(text().find("elsewhere"), std::string::npos) << text();
}

TEST_F(Capture, NothingOfTheBrowserIsLeft) {
    REQUIRE_BROWSER();
    EXPECT_EQ(capture(folder.write("a.html", "<h1>a</h1>").string()), "");
    EXPECT_EQ(tests::names_in(folder.path()), (tests::Names{"a.html", "page.pdf"}));
}

TEST_F(Capture, ThePaperIsThePagesOwnElseLetter) {
    REQUIRE_BROWSER();
    const PageServer server;
    const std::string size = "pdfinfo '" + pdf.string() + "' | grep 'Page size'";
    EXPECT_EQ(capture(server.address("/page")), "");
    EXPECT_NE(output_of(size).find("612 x 792"), std::string::npos);
    EXPECT_EQ(capture(server.address("/small")), "");
    EXPECT_NE(output_of(size).find("300 x 400"), std::string::npos);
}

TEST_F(Capture, BackgroundsArePrinted) {
    REQUIRE_BROWSER();
    const PageServer server;
    EXPECT_EQ(capture(server.address("/coloured")), "");
    const std::string pixels = output_of("pdftoppm -r 10 -x 40 -y 40 -W 1 -H 1 '" + pdf.string() + "'");
    EXPECT_EQ(pixels.substr(pixels.size() - 3), std::string("\xFF\0\0", 3));
}

TEST_F(Capture, AQuestionThatNobodyAnswersDoesNotStopIt) {
    REQUIRE_BROWSER();
    const PageServer server;
    EXPECT_EQ(capture(server.address("/asks")), "");
    EXPECT_EQ(text(), "answered\n\n\f");
}

TEST_F(Capture, APageThatNeverFinishesIsCapturedAsFarAsItCame) {
    REQUIRE_BROWSER();
    const PageServer server;
    EXPECT_EQ(capture(server.address("/half"), milliseconds(6'000)), "");
    EXPECT_EQ(text(), "half\n\n\f");
    EXPECT_EQ(missing, "as far as it had come in time");
}

TEST_F(Capture, PartsThatDoNotComeAreToldAsFarAsTheyWouldShow) {
    REQUIRE_BROWSER();
    const PageServer server;
    EXPECT_EQ(capture(server.address("/poor")), "");
    EXPECT_EQ(text(), "poor\n\n\f");
    // Whichever comes first.
    EXPECT_THAT(missing,
                testing::AnyOf("without " + server.address("/none.css") + " (404) and 1 other part",
                               "without " + server.address("/none.png") + " (404) and 1 other part"));
    EXPECT_EQ(capture(server.address("/page")), "");
    EXPECT_EQ(missing, "");
}

/// An authority that nobody knows, a certificate of it for this machine, and a home whose user may come to trust it.
class SecureCapture : public Capture {
  protected:
    SecureCapture() {
        run("openssl req -x509 -newkey rsa:2048 -nodes -days 2 -subj '/CN=Authority' -keyout ca.key -out ca.pem");
        run("openssl req -newkey rsa:2048 -nodes -subj '/CN=here' -keyout here.key -out here.request");
        folder.write("here.names", "subjectAltName=IP:127.0.0.1\n");
        run("openssl x509 -req -in here.request -CA ca.pem -CAkey ca.key -CAcreateserial -days 2 "
            "-extfile here.names -out here.pem");
        run("cat here.key >> here.pem");
        ::setenv("HOME", folder.path().c_str(), 1);
    }
    ~SecureCapture() override { ::setenv("HOME", home_.c_str(), 1); }

    /// Whether a command in the folder went well.
    bool run(const std::string& command) const {
        return std::system(
                   ("cd '" + folder.path().string() + "' && { " + command + "; } 2>>errors").c_str()) == 0;
    }

  private:
    std::string home_ = std::getenv("HOME");
};

TEST_F(SecureCapture, APageOfAServerThatNobodyVouchesForIsNotCaptured) {
    REQUIRE_BROWSER();
    const PageServer server((folder / "here.pem").string());
    EXPECT_EQ(capture(server.address("/page")),
              "its server's certificate is not trusted (net::ERR_CERT_AUTHORITY_INVALID)");
    EXPECT_FALSE(std::filesystem::exists(pdf));
}

TEST_F(SecureCapture, APageOfAServerThatTheUserTrustsIs) {
    REQUIRE_BROWSER();
    if (!run("mkdir -p .pki/nssdb && certutil -d sql:.pki/nssdb -N --empty-password && "
             "certutil -d sql:.pki/nssdb -A -t C,, -n authority -i ca.pem"))
        GTEST_SKIP() << "certutil is not installed. Install the package libnss3-tools.";
    const PageServer server((folder / "here.pem").string());
    EXPECT_EQ(capture(server.address("/moved")), "");
    EXPECT_EQ(text(), "arrived\n\n\f");
}

TEST_F(Capture, APageThatDoesNotComeIsToldApart) {
    REQUIRE_BROWSER();
    const PageServer server;
    EXPECT_EQ(capture(server.address("/none")), "the server answers with 404");
    EXPECT_EQ(capture(server.address("/never"), milliseconds(4'000)), "it has not come in time");
    EXPECT_EQ(capture("http://127.0.0.1:9/"), "the page cannot be had (net::ERR_UNSAFE_PORT)");
    EXPECT_EQ(capture("/no/such/page.html"), "the page cannot be had (net::ERR_FILE_NOT_FOUND)");
    EXPECT_FALSE(std::filesystem::exists(pdf));
}

}  // namespace
}  // namespace foliant::hosts::web
