#include <gtest/gtest.h>

#include "end_to_end/command.h"

namespace foliant::end_to_end {
namespace {

/// Chromium is large, and nothing else here needs it.
#define REQUIRE_BROWSER()                                                                            \
    if (Workshop().foliant({"hosts"}).output.find("Chromium is not installed") != std::string::npos) \
        GTEST_SKIP() << "Chromium is not installed. Install the package chromium.";

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

}  // namespace
}  // namespace foliant::end_to_end
