#include "hosts/acrobat/outline/bookmarks.h"

#include <qpdf/QPDFOutlineDocumentHelper.hh>
#include <sstream>

#include "hosts/acrobat/fixture.h"
#include "hosts/acrobat/pd_bookmark.h"
#include "hosts/acrobat/written_pages.h"

namespace foliant::hosts::acrobat {
namespace {

using automation::ObjectPtr;
using automation::Value;
using test::AcrobatTest;
using test::line;
using test::PdfText;
using test::written;
using tests::failure;

class Bookmarks : public AcrobatTest {
  protected:
    void open(const PdfText& pdf) {
        document_ = document_on(pdf.file());
        viewer_ = document_.call("OpenAVDoc", {""});
    }

    /// As the members make one.
    bool mark(const char* text, const char* title) {
        if (viewer_.call("FindText", {text, false, false, true}) != Value(true)) return false;
        application.call("MenuItemExecute", {"NewBookmark"});
        bookmark_.call("GetByTitle", {document_, "Untitled"});
        return bookmark_.call("SetTitle", {title}) == Value(true);
    }

    QPDF& pdf() { return program->active_view()->document->pdf().qpdf(); }

    /// Titles with what they lead to, a line each: "one -> 10 0 R /XYZ 72 711".
    std::string outline() {
        std::ostringstream text;
        QPDFOutlineDocumentHelper helper(pdf());
        for (auto& item : helper.getTopLevelOutlines()) {
            QPDFObjectHandle target = item.getDest();
            text << item.getTitle() << " -> ";
            for (int i = 0; target.isArray() && i < target.getArrayNItems(); ++i)
                text << (i > 0 ? " " : "") << part(target.getArrayItem(i));
            text << "\n";
        }
        return text.str();
    }

    static std::string part(QPDFObjectHandle value) {
        if (value.isNumber()) return std::to_string(static_cast<int>(value.getNumericValue()));
        return value.isIndirect() ? std::to_string(value.getObjectID()) + " 0 R" : value.unparse();
    }

    Value document_;
    Value viewer_;
    Value bookmark_ = ObjectPtr(std::make_shared<PdBookmark>());
};

TEST_F(Bookmarks, LeadToThePageAndThePlaceOfTheHit) {
    open(written({line("nothing"), line("the needle", 500)}));
    EXPECT_TRUE(mark("needle", "A needle"));
    EXPECT_EQ(outline(), "A needle -> 12 0 R /XYZ 92 508 null\n");
}

TEST_F(Bookmarks, ComeInTheOrderInWhichTheyWereMade) {
    open(written({line("one"), line("two")}));
    EXPECT_TRUE(mark("two", "Second"));
    EXPECT_TRUE(mark("one", "First"));
    EXPECT_EQ(outline(), "Second -> 12 0 R /XYZ 72 708 null\nFirst -> 10 0 R /XYZ 72 708 null\n");
    EXPECT_EQ(pdf().getRoot().getKey("/Outlines").getKey("/Count").getIntValue(), 2);
}

TEST_F(Bookmarks, KeepUnicodeTitles) {
    open(written({line("one")}));
    EXPECT_TRUE(mark("one", "\u00dcbersicht \u4e2d\u6587"));
    EXPECT_EQ(outline(), "\u00dcbersicht \u4e2d\u6587 -> 10 0 R /XYZ 72 708 null\n");
}

PdfText with_outline(const std::string& root, const std::vector<std::string>& items) {
    PdfText pdf = written({line("one")});
    pdf.set(50, root).add_to_catalogue("/Outlines 50 0 R");
    for (std::size_t i = 0; i < items.size(); ++i)
        pdf.set(51 + static_cast<int>(i), items[i]);
    return pdf;
}

TEST_F(Bookmarks, AreAddedBehindThoseThatThereAre) {
    open(with_outline("<< /Type /Outlines /First 51 0 R /Last 51 0 R /Count 1 >>",
                      {"<< /Title (Old) /Parent 50 0 R /Dest [10 0 R /Fit] >>"}));
    EXPECT_TRUE(mark("one", "New"));
    EXPECT_EQ(outline(), "Old -> 10 0 R /Fit\nNew -> 10 0 R /XYZ 72 708 null\n");
}

TEST_F(Bookmarks, OfTheUsersThatAreUntitledKeepTheirTitle) {
    open(with_outline("<< /Type /Outlines /First 51 0 R /Last 51 0 R /Count 1 >>",
                      {"<< /Title (Untitled) /Parent 50 0 R /Dest [10 0 R /Fit] >>"}));
    EXPECT_TRUE(mark("one", "New"));
    EXPECT_EQ(outline(), "Untitled -> 10 0 R /Fit\nNew -> 10 0 R /XYZ 72 708 null\n");
}

TEST_F(Bookmarks, AreFoundByTitleOnEveryLevel) {
    open(with_outline("<< /Type /Outlines /First 51 0 R /Last 53 0 R /Count 3 >>",
                      {"<< /Title (A) /Parent 50 0 R /First 52 0 R /Last 52 0 R /Count 1 /Next 53 0 R >>",
                       "<< /Title (B) /Parent 51 0 R >>", "<< /Title (C) /Parent 50 0 R /Prev 51 0 R >>"}));
    for (const char* title : {"A", "B", "C"})
        EXPECT_EQ(bookmark_.call("GetByTitle", {document_, title}), Value(true)) << title;
    EXPECT_EQ(bookmark_.call("GetByTitle", {document_, "D"}), Value(false));
    EXPECT_EQ(bookmark_.call("SetTitle", {"E"}), Value(false)) << "it is no bookmark any more";
}

TEST_F(Bookmarks, ThatLoopEnd) {
    open(with_outline("<< /Type /Outlines /First 51 0 R /Last 52 0 R /Count 2 >>",
                      {"<< /Title (A) /Parent 50 0 R /First 51 0 R /Next 52 0 R >>",
                       "<< /Title (B) /Parent 50 0 R /First 51 0 R /Next 51 0 R >>"}));
    EXPECT_EQ(bookmark_.call("GetByTitle", {document_, "D"}), Value(false));
    EXPECT_TRUE(mark("one", "New"));
    EXPECT_EQ(bookmark_.call("GetByTitle", {document_, "New"}), Value(true));
}

TEST_F(Bookmarks, AreMadeAlsoWhereTheOutlineMakesNoSense) {
    open(with_outline("[ 1 2 ]", {}));
    EXPECT_TRUE(mark("one", "New"));
    EXPECT_EQ(outline(), "New -> 10 0 R /XYZ 72 708 null\n");
}

TEST_F(Bookmarks, NeedAWindowAndADocument) {
    EXPECT_EQ(application.call("MenuItemExecute", {"NewBookmark"}), Value(false));
    EXPECT_EQ(failure([&] { bookmark_.call("GetByTitle", {"a.pdf", "A"}); }).substr(0, 3), "13 ");
    EXPECT_EQ(failure([&] {
                  bookmark_.call("GetByTitle", {new_document(), "A"});
              }),
              "91 No document is open.");
}

TEST_F(Bookmarks, WithoutASearchLeadToTheFirstPage) {
    open(written({line("one"), line("two")}));
    application.call("MenuItemExecute", {"NewBookmark"});
    EXPECT_EQ(outline(), "Untitled -> 10 0 R /XYZ null null null\n");
}

TEST_F(Bookmarks, LeaveTheTextOfTheDocumentRead) {
    open(written({line("one"), line("two")}));
    EXPECT_TRUE(mark("one", "One"));
    const DocumentText* const text = &program->active_view()->document->text();
    EXPECT_TRUE(mark("two", "Two"));
    EXPECT_EQ(&program->active_view()->document->text(), text);
}

}  // namespace
}  // namespace foliant::hosts::acrobat
