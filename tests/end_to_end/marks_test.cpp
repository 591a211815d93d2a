// What a PDF holds besides its pages' drawing comes out of Distiller as out of the printer.

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "end_to_end/command_test.h"

namespace foliant::end_to_end {
namespace {

using nlohmann::json;

/// A PDF's objects, as qpdf reads them.
class Objects {
  public:
    explicit Objects(const Finished& qpdf) : report_(json::parse(qpdf.output)) {
        for (const json& page : report_["pages"])
            pages_.push_back(page["object"]);
    }

    /// Page, rectangle, text and target of every link, in order.
    std::vector<std::string> links() const {
        std::vector<std::string> found;
        for (std::size_t page = 0; page < pages_.size(); ++page) {
            for (const json& annotation : of(of(pages_[page]).value("/Annots", json::array()))) {
                const json link = of(annotation);
                if (link["/Subtype"] != "/Link") continue;
                found.push_back("page " + std::to_string(page + 1) + place_of(link) + " " +
                                link.value("/Contents", "") + " -> " + target_of(link));
            }
        }
        return found;
    }

    std::string outline() const { return outline(report_["outlines"]); }
    json root() const { return of(report_["objects"]["trailer"]["/Root"]); }
    json information() const { return of(report_["objects"]["trailer"]["/Info"]); }

  private:
    /// What a reference stands for; anything else itself.
    json of(const json& value) const {
        if (!value.is_string() || !value.get<std::string>().ends_with(" R")) return value;
        return report_["objects"][value.get<std::string>()];
    }

    std::string place_of(const json& link) const {
        std::string place;
        for (const json& number : of(link["/Rect"]))
            place += " " + std::to_string(std::lround(number.get<double>()));
        return place;
    }

    std::string target_of(const json& link) const {
        if (link.contains("/A")) return of(link["/A"]).value("/URI", "no address");
        json place = of(link["/Dest"]);
        for (std::size_t page = 0; page < pages_.size(); ++page)
            if (place[0] == pages_[page]) place[0] = "page " + std::to_string(page + 1);
        return place.dump();
    }

    std::string outline(const json& items) const {
        std::string text;
        for (const json& item : items) {
            json place = item["dest"];
            place.erase(0);
            text += item["title"].get<std::string>() + (item["open"] ? " open" : " closed") + " page " +
                    item["destpageposfrom1"].dump() + place.dump() + "(" + outline(item["kids"]) + ")\n";
        }
        return text;
    }

    json report_;
    std::vector<json> pages_;
};

const std::string head =
    R"(<?xml version="1.0" encoding="UTF-8"?><office:document )"
    R"(xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0" )"
    R"(xmlns:style="urn:oasis:names:tc:opendocument:xmlns:style:1.0" )"
    R"(xmlns:fo="urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0" )"
    R"(xmlns:meta="urn:oasis:names:tc:opendocument:xmlns:meta:1.0" )"
    R"(xmlns:dc="http://purl.org/dc/elements/1.1/" xmlns:xlink="http://www.w3.org/1999/xlink" )"
    R"(xmlns:table="urn:oasis:names:tc:opendocument:xmlns:table:1.0" )"
    R"(xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0" )"
    R"(xmlns:draw="urn:oasis:names:tc:opendocument:xmlns:drawing:1.0" )"
    R"(xmlns:svg="urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0" office:version="1.2" )";

const std::string information =
    "<office:meta><dc:title>Größe (a) \\ Ελλάδα</dc:title><meta:initial-creator>Jörg Ελ"
    "</meta:initial-creator><dc:creator>Jörg Ελ</dc:creator><dc:subject>Subject</dc:subject>"
    "<meta:keyword>one</meta:keyword></office:meta>";

std::string document(const std::string& kind, const std::string& styles, const std::string& body) {
    return head + R"(office:mimetype="application/vnd.oasis.opendocument.)" + kind + "\">" + information +
           styles + "<office:body>" + body + "</office:body></office:document>";
}

std::string link(const std::string& address, const std::string& words) {
    return R"(<text:a xlink:type="simple" xlink:href=")" + address + "\">" + words + "</text:a>";
}

/// Two pages of different sizes, the second one landscape.
std::string text_document() {
    const auto layout = [](const std::string& name, const std::string& width, const std::string& height) {
        return R"(<style:page-layout style:name=")" + name +
               R"("><style:page-layout-properties fo:page-width=")" + width + R"(" fo:page-height=")" +
               height + R"(" fo:margin="1in"/></style:page-layout>)";
    };
    const std::string styles =
        "<office:automatic-styles>" + layout("p", "8.5in", "11in") + layout("l", "297mm", "210mm") +
        R"(<style:style style:name="turn" style:family="paragraph" style:parent-style-name="Heading_20_1" )"
        R"(style:master-page-name="Landscape"/></office:automatic-styles><office:master-styles>)"
        R"(<style:master-page style:name="Standard" style:page-layout-name="p"/>)"
        R"(<style:master-page style:name="Landscape" style:page-layout-name="l"/></office:master-styles>)";
    return document(
        "text", styles,
        R"(<office:text><text:h text:outline-level="1">First (</text:h>)"
        R"(<text:h text:outline-level="2">Below</text:h><text:p>)" +
            link("https://example.org/?q=(a)%5C&amp;b", "away") + " " + link("#place", "down") +
            R"(</text:p><text:h text:outline-level="1" text:style-name="turn">Second Ж</text:h><text:p>)" +
            link("mailto:a@example.org", "mail") +
            R"( <text:bookmark text:name="place"/>here</text:p></office:text>)");
}

std::string presentation() {
    const auto page = [](const std::string& name, const std::string& text) {
        return R"(<draw:page draw:name=")" + name +
               R"("><draw:frame svg:x="2cm" svg:y="2cm" svg:width="10cm" svg:height="2cm"><draw:text-box>)"
               "<text:p>" +
               text + "</text:p></draw:text-box></draw:frame></draw:page>";
    };
    return document("presentation", "",
                    "<office:presentation>" + page("Opening", link("#Close", "to the end")) +
                        page("Close", link("https://example.org/", "away")) + "</office:presentation>");
}

std::string workbook() {
    return document("spreadsheet", "",
                    R"(<office:spreadsheet><table:table table:name="Prices"><table:table-row>)"
                    R"(<table:table-cell office:value-type="string"><text:p>)" +
                        link("https://example.org/prices", "prices") +
                        "</text:p></table:table-cell></table:table-row></table:table></office:spreadsheet>");
}

class Marks : public CommandTest {
  protected:
    void SetUp() override {
        for (const char* host : {"Word", "Acrobat Distiller"})
            REQUIRE_HOST(host);
    }

    Objects objects(const std::string& pdf) { return Objects(shop.run({"qpdf", "--json=1", pdf})); }

    void expect_the_same_both_ways(std::vector<std::string> words, std::size_t links) {
        words.insert(words.begin() + 1, "distilled.pdf");
        expect_success(words);
        words[0] += "2";
        words[1] = "printed.pdf";
        expect_success(words);
        const Objects distilled = objects("distilled.pdf");
        const Objects printed = objects("printed.pdf");
        EXPECT_EQ(distilled.links(), printed.links());
        EXPECT_EQ(distilled.links().size(), links);
        EXPECT_EQ(distilled.outline(), printed.outline());
        EXPECT_EQ(distilled.root().value("/Lang", ""), printed.root().value("/Lang", "none"));
        for (const char* key : {"/Title", "/Author", "/Subject", "/Keywords", "/Creator"})
            EXPECT_EQ(distilled.information().value(key, ""), printed.information().value(key, "none"))
                << key;
    }
};

TEST_F(Marks, OfATextAreTheSameBothWays) {
    shop.write("text.fodt", text_document());
    expect_the_same_both_ways({"CreatePDFfromWord", "text.fodt"}, 3);
    EXPECT_EQ(objects("distilled.pdf").information()["/Title"], "Größe (a) \\ Ελλάδα");
    EXPECT_NE(objects("distilled.pdf").outline().find("Second Ж open page 2"), std::string::npos);
}

TEST_F(Marks, OfATextOnTurnedPagesAreTheSameBothWays) {
    shop.write("text.fodt", text_document());
    expect_the_same_both_ways({"CreatePDFfromWord", "text.fodt", "--landscape"}, 3);
}

TEST_F(Marks, OfSlidesAreTheSameBothWays) {
    shop.write("talk.fodp", presentation());
    expect_the_same_both_ways({"CreatePDFfromPowerPoint", "talk.fodp"}, 2);
}

TEST_F(Marks, OfAWorksheetAreTheSameBothWays) {
    shop.write("book.fods", workbook());
    expect_the_same_both_ways({"CreatePDFfromExcel", "book.fods", "Prices", "A1"}, 1);
}

TEST_F(Marks, OfSeveralFilesLeadToTheirOwnPages) {
    shop.write("text.fodt", text_document());
    expect_success({"CreatePSfromWord", "text.ps", "text.fodt"});
    expect_success({"CreatePDFfromMultiPS", "both.pdf", "text.ps", "text.ps"});
    const Objects both = objects("both.pdf");
    EXPECT_EQ(both.links().size(), 6U);
    for (const char* found : {"down -> [\"page 2\"", "down -> [\"page 4\""}) {
        const auto links = both.links();
        EXPECT_TRUE(std::any_of(links.begin(), links.end(), [&](const std::string& link) {
            return link.find(found) != std::string::npos;
        })) << found;
    }
    EXPECT_NE(both.outline().find("Second Ж open page 4"), std::string::npos) << both.outline();
}

}  // namespace
}  // namespace foliant::end_to_end
