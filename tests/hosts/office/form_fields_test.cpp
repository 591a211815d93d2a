#include "hosts/office/print/form_fields.h"

#include <gtest/gtest.h>

#include "hosts/office/pdf_reader.h"
#include "hosts/office/support.h"
#include "support/scratch_folder.h"

namespace foliant::hosts::office {
namespace {

/// A page, 200 points wide and high, with such annotations; they are objects from 4 on.
std::string page_with(const std::vector<std::string>& annotations) {
    std::string objects;
    std::string numbers;
    for (std::size_t i = 0; i < annotations.size(); ++i) {
        const std::string name = std::to_string(i + 4);
        numbers += name + " 0 R ";
        objects += name + " 0 obj " + annotations[i] + " endobj\n";
    }
    return "%PDF-1.4\n"
           "1 0 obj <</Type/Catalog/Pages 2 0 R/AcroForm<</Fields[" +
           numbers +
           "]/NeedAppearances true/DR<</Font<</F<</Type/Font/Subtype/Type1/BaseFont/Helvetica-Bold>>>>>>>>>> "
           "endobj\n"
           "2 0 obj <</Type/Pages/Kids[3 0 R]/Count 1>> endobj\n"
           "3 0 obj <</Type/Page/Parent 2 0 R/MediaBox[0 0 200 200]/Annots[" +
           numbers + "]>> endobj\n" + objects + "trailer <</Root 1 0 R/Size " +
           std::to_string(annotations.size() + 4) + ">>\n%%EOF\n";
}

/// A field at that height, 100 points wide and 20 high, with these entries besides.
std::string field(int height, const std::string& entries) {
    return "<</Type/Annot/Subtype/Widget/F 4/T(a)/DA(0 0 1 rg /F 9 Tf)/Rect[20 " + std::to_string(height) +
           " 120 " + std::to_string(height + 20) + "]" + entries + ">>";
}

/// Draws them, and reads the page; " / " is between its lines.
std::string text_drawn(const std::vector<std::string>& annotations) {
    const tests::ScratchFolder folder;
    const std::string drawn = with_fields_drawn(page_with(annotations));
    EXPECT_EQ(drawn.find("/Widget"), std::string::npos);
    folder.write("drawn.pdf", drawn);
    return test::PdfReader(folder / "drawn.pdf").text(1);
}

TEST(FormFields, BecomePartsOfTheirPagesAndLinksStay) {
    const tests::ScratchFolder folder;
    const std::string look = "BT /F 9 Tf 0 g (tick) Tj ET";
    const std::string drawn = with_fields_drawn(
        page_with({field(20, "/FT/Tx/AP<</N 5 0 R>>"),
                   "<</Type/XObject/Subtype/Form/BBox[0 0 100 20]/Resources<<>>/Length " +
                       std::to_string(look.size()) + ">> stream\n" + look + "\nendstream",
                   "<</Type/Annot/Subtype/Link/Rect[20 80 120 90]/A<</S/URI/URI(http://a.example/)>>>>"}));
    folder.write("drawn.pdf", drawn);
    EXPECT_EQ(test::PdfReader(folder / "drawn.pdf").text(1), "tick") << "in a font of the form's";
    EXPECT_EQ(drawn.find("/Widget"), std::string::npos);
    EXPECT_NE(drawn.find("/Link"), std::string::npos);
}

TEST(FormFields, APdfWithoutAnyStaysAsItIs) {
    const std::string pdf = "%PDF-1.4\n1 0 obj <</Type/Catalog>> endobj\n";
    EXPECT_EQ(with_fields_drawn(pdf), pdf);
}

TEST(FormFields, ShowWhatIsInThemInEveryScript) {
    EXPECT_EQ(text_drawn({field(20, "/FT/Tx/V<feff017d0069017e006b006f0076002c00200448>")}), "Žižkov, ш");
    EXPECT_EQ(text_drawn({field(20, "/Parent<</FT/Tx/V(handed down)>>")}), "handed down");
    EXPECT_EQ(text_drawn({field(20, "/FT/Tx")}), "");
}

TEST(FormFields, OfSeveralLinesBreakTheirTextAndOthersDoNot) {
    const std::string text = "/FT/Tx/V(a text that is longer than its field)";
    EXPECT_EQ(text_drawn({field(100, text)}).find(" / "), std::string::npos);
    EXPECT_EQ(text_drawn({field(100, text + "/Ff 4096")}), "a text that is longer / than its field");
    EXPECT_EQ(text_drawn({field(100, "/FT/Tx/Ff 4096/V(first\nsecond)")}), "first / second");
}

TEST(FormFields, ThatHideTheirTextShowAStarForEachLetter) {
    EXPECT_EQ(text_drawn({field(20, "/FT/Tx/Ff 8192/V<feff017d0069017e>")}), "***");
}

TEST(FormFields, ToChooseFromShowWhatIsChosenOrAll) {
    const std::string options = "/FT/Ch/V(2)/Opt[[(1)(one)][(2)(two)]]";
    EXPECT_EQ(text_drawn({field(20, options + "/Ff 131072")}), "two");
    EXPECT_EQ(text_drawn({field(20, options)}), "one / two");
    EXPECT_EQ(text_drawn({field(20, "/FT/Ch/Ff 131072/V(free)/Opt[(one)(two)]")}), "free");
}

TEST(FormFields, OfATextDocumentKeepTheirText) {
    const tests::ScratchFolder folder;
    folder.write("form.fodt", R"(<?xml version="1.0" encoding="UTF-8"?>
<office:document xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0"
 xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0" xmlns:draw="urn:oasis:names:tc:opendocument:xmlns:drawing:1.0"
 xmlns:form="urn:oasis:names:tc:opendocument:xmlns:form:1.0" xmlns:ooo="http://openoffice.org/2004/office"
 xmlns:svg="urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0" office:version="1.2"
 office:mimetype="application/vnd.oasis.opendocument.text"><office:automatic-styles/><office:body><office:text><office:forms>
<form:form form:name="f" form:control-implementation="ooo:com.sun.star.form.component.Form"><form:text form:name="t"
 form:control-implementation="ooo:com.sun.star.form.component.TextField" xml:id="c" form:id="c"
 form:current-value="Žižkov, шесть"/></form:form></office:forms><text:p>Town:
<draw:control text:anchor-type="paragraph" draw:z-index="0" svg:x="1cm" svg:y="2cm" svg:width="6cm" svg:height="1cm"
 draw:control="c"/></text:p></office:text></office:body></office:document>)");
    test::open(folder / "form.fodt")->export_pdf("", folder / "out.pdf");
    EXPECT_NE(test::PdfReader(folder / "out.pdf").text(1).find("Žižkov, шесть"), std::string::npos);
}

}  // namespace
}  // namespace foliant::hosts::office
