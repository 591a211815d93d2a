#include <sstream>

#include "hosts/acrobat/fixture.h"
#include "hosts/acrobat/structure/page_list.h"
#include "hosts/acrobat/written_pages.h"

namespace foliant::hosts::acrobat {
namespace {

using automation::Value;
using test::AcrobatTest;
using test::line;
using test::PdfText;
using test::written;
using tests::failure;

class WebLinks : public AcrobatTest {
  protected:
    void open(const PdfText& pdf) { viewer_ = document_on(pdf.file()).call("OpenAVDoc", {""}); }

    Value create() { return application.call("MenuItemExecute", {"Weblink:CreateURLs"}); }

    /// The links of all pages, a line each: "1: http://example.org [72 697 200 708]".
    std::string links() {
        std::ostringstream text;
        int number = 0;
        for (structure::Page& page : program->active_view()->document->pdf().pages()) {
            ++number;
            QPDFObjectHandle annotations = page.object.getKey("/Annots");
            for (int i = 0; annotations.isArray() && i < annotations.getArrayNItems(); ++i)
                text << number << ": " << described(annotations.getArrayItem(i)) << "\n";
        }
        return text.str();
    }

    static std::string described(QPDFObjectHandle link) {
        std::string text = link.getKey("/A").getKey("/URI").getStringValue() + " [";
        for (int i = 0; i < 4; ++i)
            text += std::to_string(static_cast<int>(link.getKey("/Rect").getArrayItem(i).getNumericValue())) +
                    (i < 3 ? " " : "]");
        return text;
    }

    Value viewer_;
};

using Notes = std::vector<std::string>;

TEST_F(WebLinks, StandWhereTheAddressesAreWritten) {
    open(written({line("see http://a.example, or"), line("mail me@b.example", 500)}));
    machine.answers = {"1", ""};
    EXPECT_EQ(create(), Value(true));
    EXPECT_EQ(links(),
              "1: http://a.example [94 697 180 708]\n"
              "2: mailto:me@b.example [97 497 181 508]\n");
    EXPECT_EQ(machine.notes, (Notes{"dialog Create Web Links", "dialog Adobe Acrobat"}));
}

TEST_F(WebLinks, AreOneForEachLineOfAnAddress) {
    open(written({line("http://a.example/some/") + line("path/x.html", 686)}));
    machine.answers = {"1", ""};
    create();
    EXPECT_EQ(links(),
              "1: http://a.example/some/path/x.html [72 697 193 708]\n"
              "1: http://a.example/some/path/x.html [72 683 130 694]\n");
}

TEST_F(WebLinks, ThatAreThereStayAndGetNoOtherOnTop) {
    open(written({line("http://a.example and http://b.example")},
                 "/Annots [<< /Type /Annot /Subtype /Link /Rect [70 690 170 712] "
                 "/A << /S /URI /URI (http://other.example) >> >>]"));
    machine.answers = {"1", ""};
    create();
    EXPECT_EQ(links(),
              "1: http://other.example [70 690 170 712]\n"
              "1: http://b.example [184 697 269 708]\n");
}

TEST_F(WebLinks, OfOnePageAreNotThoseOfAnotherWithTheSameList) {
    PdfText pdf = written({line("http://a.example"), line("none")}, "/Annots 90 0 R");
    pdf.set(90, "[]");
    open(pdf);
    machine.answers = {"1", ""};
    create();
    EXPECT_EQ(links(), "1: http://a.example [72 697 157 708]\n");
}

TEST_F(WebLinks, AreNotMadeWhenTheDialogIsCancelled) {
    open(written({line("http://a.example")}));
    machine.answers = {"cancel"};
    EXPECT_EQ(create(), Value(false));
    EXPECT_EQ(links(), "");
    EXPECT_FALSE(program->active_view()->document->is_changed());
}

TEST_F(WebLinks, AreRefusedWhereNobodyAnswersTheDialog) {
    open(written({line("http://a.example")}));
    EXPECT_EQ(failure([&] { create(); }).substr(0, 4), "445 ");
}

TEST_F(WebLinks, LeaveADocumentWithoutAddressesAsItIs) {
    open(written({line("nothing")}));
    machine.answers = {"1", ""};
    EXPECT_EQ(create(), Value(true));
    EXPECT_FALSE(program->active_view()->document->is_changed());
}

TEST_F(WebLinks, NeedAWindow) {
    EXPECT_EQ(create(), Value(false));
}

}  // namespace
}  // namespace foliant::hosts::acrobat
