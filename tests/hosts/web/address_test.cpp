#include "hosts/web/address.h"

#include <cstdlib>
#include <gtest/gtest.h>

#include "hosts/web/base64.h"
#include "hosts/web/capture_error.h"

namespace foliant::hosts::web {
namespace {

std::string refusal(const std::string& typed) {
    try {
        return "taken: " + full_address(typed);
    } catch (const CaptureError& error) {
        return error.what();
    }
}

TEST(Address, OneWithASchemeStaysAsItIs) {
    for (const std::string address : {"http://a.example/b?c#d", "https://a.example", "FILE:///x/y.html"})
        EXPECT_EQ(full_address(address), address);
    EXPECT_EQ(full_address("  http://a.example \t"), "http://a.example");
}

TEST(Address, ANameIsTakenForHttpAndAPathForAFile) {
    EXPECT_EQ(full_address("www.example.org/a"), "http://www.example.org/a");
    EXPECT_EQ(full_address("localhost:8080/a"), "http://localhost:8080/a");
    EXPECT_EQ(full_address("/my files/100%/a#1.html"), "file:///my%20files/100%25/a%231.html");
}

TEST(Address, OtherSchemesAreRefused) {
    EXPECT_EQ(refusal("ftp://a.example"), "only http, https and file addresses are captured, not ftp");
    EXPECT_EQ(refusal("mailto:a@b.example"), "only http, https and file addresses are captured, not mailto");
    EXPECT_EQ(refusal("javascript:alert(1)"),
              "only http, https and file addresses are captured, not javascript");
    EXPECT_EQ(refusal(" "), "there is no address");
}

TEST(Address, OfAFileABrowserMaySeeItsFolderButNoFolderThatHoldsTheHome) {
    using Paths = std::vector<std::filesystem::path>;
    EXPECT_EQ(files_of("http://a.example/x"), Paths());
    EXPECT_EQ(files_of("file:///no/such%20place/a.html?b#c"),
              (Paths{"/no/such place/a.html", "/no/such place"}));
    EXPECT_EQ(files_of("file://localhost/no/a.html"), (Paths{"/no/a.html", "/no"}));
    const std::filesystem::path home = std::getenv("HOME");
    EXPECT_EQ(files_of("file://" + (home / "a.html").string()), (Paths{home / "a.html", home / "a_files"}));
    EXPECT_EQ(files_of("file:///a.html"), (Paths{"/a.html", "/a_files"}));
}

TEST(Base64, StandsForBytes) {
    EXPECT_EQ(decode_base64(""), "");
    EXPECT_EQ(decode_base64("JVBERi0="), "%PDF-");
    EXPECT_EQ(decode_base64("AP/+\nfw=="), std::string("\0\xFF\xFE\x7F", 4));
}

}  // namespace
}  // namespace foliant::hosts::web
