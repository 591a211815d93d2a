// Documents that name a file of the user's: nothing of it may arrive in what is made of them.

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "end_to_end/command.h"

namespace foliant::end_to_end {
namespace {

/// A picture that says who it is, so that a leak shows in the PDF's text.
constexpr const char* telling_picture =
    R"(<svg xmlns="http://www.w3.org/2000/svg" width="200" height="100"><text x="10" y="50">LEAKED</text></svg>)";

/// A flat OpenDocument text; `styles` and `body` go into their places.
std::string open_document(const std::string& body, const std::string& styles = "",
                          const std::string& more = "") {
    std::string names;
    for (const auto& [prefix, space] :
         {std::pair("office", "office"), std::pair("text", "text"), std::pair("draw", "drawing"),
          std::pair("style", "style"), std::pair("table", "table")})
        names +=
            std::string(" xmlns:") + prefix + "=\"urn:oasis:names:tc:opendocument:xmlns:" + space + ":1.0\"";
    names +=
        " xmlns:svg=\"urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0\""
        " xmlns:fo=\"urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0\""
        " xmlns:xlink=\"http://www.w3.org/1999/xlink\"";
    return "<office:document" + names +
           " office:version=\"1.2\" office:mimetype=\"application/vnd.oasis.opendocument.text\">" + more +
           "<office:automatic-styles>" + styles + "</office:automatic-styles><office:body><office:text>" +
           body + "</office:text></office:body></office:document>";
}

std::string frame(const std::string& content) {
    return "<text:p><draw:frame text:anchor-type=\"as-char\" svg:width=\"2in\" svg:height=\"2in\">" +
           content + "</draw:frame></text:p>";
}

struct Attempt {
    const char* name;
    std::string file;     ///< what the document is called
    std::string content;  ///< @ stands for the URL of the file that it tries to get
};

std::vector<Attempt> attempts() {
    const std::string image = R"(<draw:image xlink:href="@" xlink:type="simple"/>)";
    const std::string page_style =
        R"(<office:styles/><office:master-styles><style:master-page style:name="Standard" style:page-layout-name="p"/>)"
        R"(</office:master-styles>)";
    return {
        {"frame", "a.fodt", open_document(frame(image))},
        {"group", "a.fodt",
         open_document(
             R"(<text:p><draw:g text:anchor-type="as-char"><draw:frame svg:width="2in" svg:height="2in">)" +
             image + "</draw:frame></draw:g></text:p>")},
        {"section", "a.fodt",
         open_document(R"(<text:section text:name="s"><text:section-source xlink:href="@"/>)"
                       "<text:p>Old</text:p></text:section>")},
        {"paragraph background", "a.fodt",
         open_document(
             R"(<text:p text:style-name="b">Text</text:p>)",
             R"(<style:style style:name="b" style:family="paragraph"><style:paragraph-properties>)"
             R"(<style:background-image xlink:href="@"/></style:paragraph-properties></style:style>)")},
        {"page background", "a.fodt",
         open_document(
             "<text:p>Text</text:p>",
             R"(<style:page-layout style:name="p"><style:page-layout-properties fo:page-width="8in" )"
             R"(fo:page-height="8in"><style:background-image xlink:href="@"/>)"
             "</style:page-layout-properties></style:page-layout>",
             page_style)},
        {"list bullet", "a.fodt",
         open_document(
             R"(<text:list text:style-name="l"><text:list-item><text:p>Text</text:p></text:list-item></text:list>)",
             R"(<text:list-style style:name="l"><text:list-level-style-image text:level="1" xlink:href="@">)"
             R"(<style:list-level-properties fo:width="1in" fo:height="1in"/></text:list-level-style-image>)"
             "</text:list-style>")},
        {"object", "a.fodt", open_document(frame(R"(<draw:object xlink:href="@" xlink:type="simple"/>)"))},
        {"plugin", "a.fodt",
         open_document(frame(R"(<draw:plugin xlink:href="@" draw:mime-type="image/svg+xml"/>)"))},
        {"floating frame", "a.fodt", open_document(frame(R"(<draw:floating-frame xlink:href="@"/>)"))},
        {"INCLUDEPICTURE", "a.rtf",
         R"({\rtf1 Text {\field{\*\fldinst INCLUDEPICTURE "@" \\d}{\fldrslt }}\par})"},
        {"INCLUDETEXT", "a.rtf", R"({\rtf1 Text {\field{\*\fldinst INCLUDETEXT "@"}{\fldrslt }}\par})"},
        {"img", "a.html", "<html><body><img src=\"@\">Text</body></html>"},
        {"body background", "a.html", "<html><body background=\"@\">Text</body></html>"},
        {"style background", "a.html",
         "<html><body><p style=\"background-image:url(@)\">Text</p></body></html>"},
        {"style sheet", "a.html",
         "<html><head><style>body { background-image: url(@) }</style></head><body>Text</body></html>"},
        {"input image", "a.html", "<html><body><input type=\"image\" src=\"@\">Text</body></html>"},
        {"iframe", "a.html", "<html><body><iframe src=\"@\"></iframe>Text</body></html>"},
    };
}

std::string naming(std::string content, const std::string& url) {
    for (auto at = content.find('@'); at != std::string::npos; at = content.find('@', at + url.size()))
        content.replace(at, 1, url);
    return content;
}

class LinkedFiles : public testing::Test {
  protected:
    void SetUp() override { REQUIRE_HOST("Word"); }

    Workshop shop;
    Workshop other;  ///< where the file is that documents try to get
};

TEST_F(LinkedFiles, StayOutOfWhatIsMade) {
    other.write("secret.svg", telling_picture);
    for (const Attempt& attempt : attempts()) {
        for (const std::string& url :
             {"file://" + other.path("secret.svg").string(), other.path("secret.svg").string()}) {
            shop.write(attempt.file, naming(attempt.content, url));
            const Finished call = shop.foliant({"CreatePDFfromWord2", "out.pdf", attempt.file});
            EXPECT_EQ(call.exit_code, 0) << attempt.name << ": " << call.errors;
            EXPECT_EQ(shop.text("out.pdf").find("LEAKED"), std::string::npos) << attempt.name << " " << url;
        }
    }
}

TEST_F(LinkedFiles, ThatArePipesAreNotWaitedFor) {
    ASSERT_EQ(::mkfifo(other.path("pipe").c_str(), 0600), 0);
    for (const Attempt& attempt : attempts()) {
        shop.write(attempt.file, naming(attempt.content, "file://" + other.path("pipe").string()));
        const Finished call =
            shop.foliant({"CreatePDFfromWord2", "out.pdf", attempt.file, "--timeout", "60"});
        EXPECT_EQ(call.exit_code, 0) << attempt.name << ": " << call.errors;
    }
}

}  // namespace
}  // namespace foliant::end_to_end
