#include "hosts/transfer/plain_page.h"

#include <gtest/gtest.h>

#include "support/error_of.h"

namespace foliant::hosts::transfer {
namespace {

FetchedPage page(std::string body, std::string type = "text/html", std::string charset = "utf-8") {
    return {"http://a.example/b/c.html?d=\"e\"", std::move(type), std::move(charset), std::move(body)};
}

const std::string base = "<base href=\"http://a.example/b/c.html?d=&quot;e&quot;\">";

std::string meta(const std::string& charset) {
    return "<meta http-equiv=\"Content-Type\" content=\"text/html; charset=" + charset + "\">";
}

TEST(PlainPage, TellsItsEncodingAndWhereItsLinksBegin) {
    EXPECT_EQ(stand_alone(page("<p>a", "text/html", "koi8-r")), meta("koi8-r") + base + "<p>a");
    EXPECT_EQ(stand_alone(page("<p>a", "application/xhtml+xml")), meta("utf-8") + base + "<p>a");
}

TEST(PlainPage, GuessesAnEncodingThatNobodyTells) {
    EXPECT_EQ(stand_alone(page("caf\xC3\xA9", "", "")), meta("utf-8") + base + "caf\xC3\xA9");
    EXPECT_EQ(stand_alone(page("caf\xE9", "", "")), meta("windows-1252") + base + "caf\xE9");
    EXPECT_EQ(stand_alone(page("<META Charset=x>", "", "")), base + "<META Charset=x>");
    EXPECT_EQ(stand_alone(page("\xEF\xBB\xBFx", "", "")), "\xEF\xBB\xBF" + base + "x");
    EXPECT_EQ(stand_alone(page("\xFF\xFEx", "", "")), "\xFF\xFEx");
}

TEST(PlainPage, IsMadeOfPlainText) {
    EXPECT_EQ(stand_alone(page("a < b & c\nd", "text/plain")),
              meta("utf-8") + base + "<pre>a &lt; b &amp; c\nd</pre>");
}

TEST(PlainPage, KeepsAPictureAsItIs) {
    EXPECT_EQ(stand_alone(page("GIF89a", "image/gif")), "GIF89a");
    EXPECT_EQ(stand_alone(page(std::string("\x89PNG\0", 5), "")), std::string("\x89PNG\0", 5));
}

TEST(PlainPage, IsNotMadeOfAnythingElse) {
    EXPECT_EQ(tests::error_of([] { stand_alone(page("PK", "application/zip")); }).description(),
              "it is no web page, but application/zip");
}

TEST(PlainPage, SaysWhatBelongsToItAndIsNotInIt) {
    EXPECT_EQ(parts_elsewhere("<h1>a</h1><style>b {}</style><!-- <img src=c> -->"), "");
    EXPECT_EQ(parts_elsewhere("<IMG src='a.png'>"), "its pictures");
    EXPECT_EQ(parts_elsewhere("<img src='data:image/png;base64,AA=='>"), "");
    EXPECT_EQ(parts_elsewhere("<link rel=icon href=a><link rel='StyleSheet' href=b><svg/>"),
              "its pictures and style sheets");
    EXPECT_EQ(parts_elsewhere("<script>document.write('<img src=a>')</script><iframe src=b>"),
              "its frames and scripts");
}

TEST(PlainPage, BreaksOffWhereItLikes) {
    for (const std::string body : {"<", "<!--", "<!-- <img", "<script", "<script>", "<a", "a<"})
        EXPECT_EQ(parts_elsewhere(body), body.starts_with("<script") ? "its scripts" : "") << body;
}

}  // namespace
}  // namespace foliant::hosts::transfer
