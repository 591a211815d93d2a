#include <gmock/gmock.h>

#include "hosts/acrobat/fixture.h"
#include "hosts/acrobat/structure/name_tree.h"

namespace foliant::hosts::acrobat {
namespace {

using automation::Value;
using test::AcrobatTest;
using test::bookmarks;
using test::pages;
using test::PdfText;
using test::texts;
using test::with_bookmarks;
using testing::ElementsAre;
using tests::failure;
using Handle = QPDFObjectHandle;

class Inserting : public AcrobatTest {
  protected:
    static Value insert(const Value& target, int after, const Value& source, int first, int count,
                        bool bookmarks = true) {
        return target.call("InsertPages", {std::int32_t{after}, source, std::int32_t{first},
                                           std::int32_t{count}, bookmarks});
    }
};

TEST_F(Inserting, PutsThePagesBehindTheOneThatIsNamed) {
    const Value target = merged({pages(3, "a").file()});
    const Value source = document_on(pages(3, "b").file());
    EXPECT_EQ(insert(target, 0, source, 1, 2), Value(true));
    EXPECT_EQ(insert(target, -1, source, 0, 1), Value(true));
    EXPECT_EQ(target.call("GetNumPages"), Value(std::int32_t{6}));
    EXPECT_THAT(texts(*saved(target)), ElementsAre("b 1", "a 1", "b 2", "b 3", "a 2", "a 3"));
}

TEST_F(Inserting, IntoAnOpenDocumentKeepsWhatItInherits) {
    PdfText inheriting = pages(1, "base");
    inheriting.set(10, "<< /Type /Page /Parent 2 0 R /Contents 11 0 R >>");
    inheriting.set(2, "<< /Type /Pages /Kids [10 0 R] /Count 1 /MediaBox [0 0 100 200] /Rotate 90 >>");
    const Value target = new_document();
    target.call("Open", {write("target.pdf", inheriting.file())});
    insert(target, 0, document_on(inheriting.file()), 0, 1);
    const auto pdf = saved(target);
    for (const structure::Page& page : pdf->pages()) {
        EXPECT_EQ(page.value("/MediaBox").unparse(), "[ 0 0 100 200 ]");
        EXPECT_EQ(page.value("/Rotate").unparse(), "90");
    }
}

TEST_F(Inserting, TellsHowManyPagesOfADamagedFileAreMissing) {
    PdfText damaged = pages(2, "a");
    damaged.set(2, "<< /Type /Pages /Kids [10 0 R 99 0 R 20 0 R] /Count 3 >>");
    const std::string file = damaged.file();
    const Value document = merged({pages(1, "b").file(), file, file});
    EXPECT_EQ(document.call("GetNumPages"), Value(std::int32_t{5}));
    EXPECT_THAT(
        machine.failures,
        testing::Each(testing::EndsWith(" is damaged: a page of it is missing. The others were taken.")));
    EXPECT_EQ(machine.failures.size(), 2U);
}

TEST_F(Inserting, RefusesPagesThatAreNotThere) {
    const Value target = merged({pages(1).file()});
    const Value source = document_on(pages(2).file());
    for (const auto& [after, first, count] : {std::array{1, 0, 1}, std::array{-2, 0, 1}, std::array{0, 1, 2},
                                              std::array{0, -1, 1}, std::array{0, 0, -1}}) {
        EXPECT_EQ(failure([&] { insert(target, after, source, first, count); }),
                  "5 There are no such pages to insert, or to insert them after.");
    }
    EXPECT_EQ(target.call("GetNumPages"), Value(std::int32_t{1}));
}

TEST_F(Inserting, TheSameFileTenTimesGivesItsPagesTenTimes) {
    const auto pdf = saved(merged(std::vector<std::string>(10, pages(2).file())));
    EXPECT_EQ(texts(*pdf).size(), 20U);
    EXPECT_EQ(texts(*pdf).back(), "page 2");
}

TEST_F(Inserting, CopiesAStreamThatNobodyCanUnpackAsItIs) {
    const std::string broken = "x\x9c no deflated data";
    PdfText pdf = pages(1);
    pdf.set_stream(11, broken, "/Filter [/FlateDecode]");
    const auto copied = saved(merged({pdf.file()}));
    const auto data = copied->pages()[0].object.getKey("/Contents").getRawStreamData();
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(data->getBuffer()), data->getSize()), broken);
}

TEST_F(Inserting, KeepsBookmarksWithTheirPlacesAndWhetherTheyAreOpen) {
    const auto pdf = saved(merged({with_bookmarks("a").file(), with_bookmarks("b").file()}));
    EXPECT_THAT(bookmarks(*pdf), ElementsAre("a 1 -> a 1", "  in it -> a 2", "end -> null", "b 1 -> b 1",
                                             "  in it -> b 2", "end -> null"));
    EXPECT_EQ(pdf->qpdf().getRoot().getKey("/Outlines").getKey("/Count").getIntValue(), 6);
}

TEST_F(Inserting, LeavesBookmarksWhereTheyAreIfToldTo) {
    const Value target = merged({});
    insert(target, -1, document_on(with_bookmarks("a").file()), 0, 2, false);
    EXPECT_TRUE(bookmarks(*saved(target)).empty());
}

TEST_F(Inserting, SomePagesBringTheBookmarksThatLeadToThem) {
    const Value target = merged({});
    insert(target, -1, document_on(with_bookmarks("a").file()), 1, 1);
    EXPECT_THAT(bookmarks(*saved(target)), ElementsAre("a 1 -> null", "  in it -> a 2", "end -> null"));
}

TEST_F(Inserting, BookmarksInALoopEnd) {
    PdfText pdf = with_bookmarks("a");
    pdf.set(7, "<< /Title (end) /Parent 4 0 R /Next 5 0 R /First 4 0 R /Dest [20 0 R /Fit] >>");
    EXPECT_EQ(bookmarks(*saved(merged({pdf.file()}))).size(), 4U);
}

TEST_F(Inserting, KeepsLinksBetweenInsertedPages) {
    PdfText source = pages(2, "a", "/Annots [5 0 R]");
    source.set(5, "<< /Type /Annot /Subtype /Link /Rect [0 0 9 9] /Dest [20 0 R /Fit] >>");
    const auto pdf = saved(merged({pages(1).file(), source.file()}));
    const Handle link = pdf->pages()[1].object.getKey("/Annots").getArrayItem(0);
    EXPECT_TRUE(Handle(link).getKey("/Dest").getArrayItem(0).isSameObjectAs(pdf->pages()[2].object));
}

TEST_F(Inserting, ALinkToAPageThatIsNotInsertedLeadsNowhereAndBringsNothing) {
    PdfText source = pages(2, "a", "/Annots [5 0 R]");
    source.set(5, "<< /Type /Annot /Subtype /Link /Rect [0 0 9 9] /Dest [20 0 R /Fit] >>");
    const Value target = merged({});
    insert(target, -1, document_on(source.file()), 0, 1);
    const auto pdf = saved(target);
    EXPECT_EQ(texts(*pdf).size(), 1U);
    const Handle link = pdf->pages()[0].object.getKey("/Annots").getArrayItem(0);
    EXPECT_TRUE(Handle(link).getKey("/Dest").getArrayItem(0).isNull());
}

PdfText with_destination(const std::string& label) {
    PdfText pdf = pages(1, label, "/Annots [5 0 R 6 0 R]");
    pdf.add_to_catalogue("/Names << /Dests << /Names [(start) [10 0 R /Fit]] >> >>");
    pdf.add_to_catalogue("/Dests << /old [10 0 R /XYZ 1 2 3] >>");
    pdf.set(5, "<< /Type /Annot /Subtype /Link /Rect [0 0 9 9] /Dest (start) >>");
    pdf.set(6, "<< /Type /Annot /Subtype /Link /Rect [0 0 9 9] /A << /S /GoTo /D /old >> >>");
    return pdf;
}

TEST_F(Inserting, NamedDestinationsThatClashGetAnotherNameAndLinksFollow) {
    const auto pdf = saved(merged({with_destination("a").file(), with_destination("b").file()}));
    structure::Names names =
        structure::read_name_tree(pdf->qpdf().getRoot().getKey("/Names").getKey("/Dests"));
    const auto is_page = [&](const std::string& name, std::size_t page) {
        return names.at(name).getArrayItem(0).isSameObjectAs(pdf->pages()[page].object);
    };
    EXPECT_EQ(names.size(), 4U);
    EXPECT_TRUE(is_page("start", 0));
    EXPECT_TRUE(is_page("start_3", 1) || is_page("start_2", 1));
    const auto link = [&](std::size_t page, int number) {
        return pdf->pages()[page].object.getKey("/Annots").getArrayItem(number);
    };
    EXPECT_EQ(link(0, 0).getKey("/Dest").getStringValue(), "start");
    EXPECT_TRUE(is_page(link(1, 0).getKey("/Dest").getStringValue(), 1));
    EXPECT_TRUE(is_page(link(0, 1).getKey("/A").getKey("/D").getStringValue(), 0));
    EXPECT_TRUE(is_page(link(1, 1).getKey("/A").getKey("/D").getStringValue(), 1));
}

PdfText with_field(const std::string& value, const std::string& font) {
    PdfText pdf = pages(1, "form", "/Annots [5 0 R]");
    pdf.add_to_catalogue(
        "/AcroForm << /Fields [5 0 R] /DA (/F1 12 Tf 0 g) /NeedAppearances true "
        "/DR << /Font << /F1 6 0 R >> >> >>");
    pdf.set(5, "<< /Type /Annot /Subtype /Widget /FT /Tx /T (name) /V (" + value +
                   ") /Rect [0 0 99 20] /P 10 0 R >>");
    pdf.set(6, "<< /Type /Font /Subtype /Type1 /BaseFont /" + font + " >>");
    return pdf;
}

TEST_F(Inserting, FormFieldsOfTheSameNameStayTwoFields) {
    const auto pdf = saved(merged({with_field("one", "Courier").file(), with_field("two", "Helvetica").file(),
                                   with_field("three", "Courier").file()}));
    Handle form = pdf->qpdf().getRoot().getKey("/AcroForm");
    std::vector<std::string> fields;
    for (Handle field : form.getKey("/Fields").getArrayAsVector()) {
        const std::string look = field.getKey("/DA").getStringValue();
        const std::string font = look.substr(0, look.find(' '));
        fields.push_back(field.getKey("/T").getUTF8Value() + " = " + field.getKey("/V").getUTF8Value() +
                         " in " +
                         form.getKey("/DR").getKey("/Font").getKey(font).getKey("/BaseFont").getName());
    }
    EXPECT_THAT(fields, ElementsAre("name = one in /Courier", "name_3 = two in /Helvetica",
                                    "name_4 = three in /Courier"));
    EXPECT_TRUE(form.getKey("/NeedAppearances").getBoolValue());
    const Handle widget = pdf->pages()[1].object.getKey("/Annots").getArrayItem(0);
    EXPECT_TRUE(widget.isSameObjectAs(form.getKey("/Fields").getArrayItem(1)));
}

std::vector<std::string> labels(structure::Pdf& pdf) {
    std::vector<std::string> lines;
    for (const auto& [page, range] : structure::read_number_tree(pdf.qpdf().getRoot().getKey("/PageLabels")))
        lines.push_back(std::to_string(page) + ": " + Handle(range).unparse());
    return lines;
}

TEST_F(Inserting, PagesKeepTheirLabels) {
    const std::string roman = pages(3).add_to_catalogue("/PageLabels << /Nums [0 << /S /r >>] >>").file();
    const Value target = merged({roman});
    insert(target, 0, document_on(pages(2).file()), 0, 2);
    EXPECT_THAT(labels(*saved(target)),
                ElementsAre("0: << /S /r >>", "1: << /S /D >>", "3: << /S /r /St 2 >>"));
}

TEST_F(Inserting, PagesWithoutLabelsAnywhereGetNone) {
    EXPECT_TRUE(labels(*saved(merged({pages(1).file(), pages(1).file()}))).empty());
}

PdfText with_layers(const std::string& name, const std::string& state) {
    return pages(1)
        .add_to_catalogue("/OCProperties << /OCGs [5 0 R] /D << /Order [5 0 R] " + state + " >> >>")
        .set(5, "<< /Type /OCG /Name (" + name + ") >>");
}

TEST_F(Inserting, LayersStayShownOrHidden) {
    const auto pdf = saved(merged({with_layers("a", "").file(), with_layers("b", "/OFF [5 0 R]").file(),
                                   with_layers("c", "/BaseState /OFF").file()}));
    Handle properties = pdf->qpdf().getRoot().getKey("/OCProperties");
    EXPECT_EQ(properties.getKey("/OCGs").getArrayNItems(), 3);
    EXPECT_EQ(properties.getKey("/D").getKey("/Order").getArrayNItems(), 3);
    std::vector<std::string> hidden;
    for (Handle layer : properties.getKey("/D").getKey("/OFF").getArrayAsVector())
        hidden.push_back(layer.getKey("/Name").getUTF8Value());
    EXPECT_THAT(hidden, ElementsAre("b", "c"));
}

PdfText with_attachment(const std::string& content) {
    return pages(1)
        .add_to_catalogue("/Names << /EmbeddedFiles << /Names [(data.txt) 5 0 R] >> >>")
        .set(5, "<< /Type /Filespec /F (data.txt) /EF << /F 6 0 R >> >>")
        .set_stream(6, content);
}

TEST_F(Inserting, AttachedFilesOfTheSameNameAreAllKept) {
    const auto pdf = saved(merged({with_attachment("one").file(), with_attachment("two").file()}));
    std::vector<std::string> contents;
    for (const auto& [name, file] :
         structure::read_name_tree(pdf->qpdf().getRoot().getKey("/Names").getKey("/EmbeddedFiles"))) {
        const auto data = Handle(file).getKey("/EF").getKey("/F").getStreamData();
        contents.emplace_back(reinterpret_cast<const char*>(data->getBuffer()), data->getSize());
    }
    EXPECT_THAT(contents, ElementsAre("one", "two"));
}

PdfText with_tags(const std::string& title) {
    PdfText pdf = pages(1, title, "/StructParents 0");
    pdf.add_to_catalogue("/StructTreeRoot 5 0 R /MarkInfo << /Marked true >> /Lang (de)");
    pdf.set(5,
            "<< /Type /StructTreeRoot /K 6 0 R /ParentTree << /Nums [0 [6 0 R]] >> /ParentTreeNextKey 1 "
            "/RoleMap << /Title /H1 >> >>");
    pdf.set(6, "<< /Type /StructElem /S /Title /T (" + title + ") /P 5 0 R /Pg 10 0 R /K 0 >>");
    return pdf;
}

TEST_F(Inserting, TagsFindTheirPagesAndPagesTheirTags) {
    const auto pdf = saved(merged({with_tags("a").file(), with_tags("b").file()}));
    Handle root = pdf->qpdf().getRoot().getKey("/StructTreeRoot");
    ASSERT_EQ(root.getKey("/K").getArrayNItems(), 2);
    structure::Numbers parents = structure::read_number_tree(root.getKey("/ParentTree"));
    for (int i = 0; i < 2; ++i) {
        Handle element = root.getKey("/K").getArrayItem(i);
        Handle page = pdf->pages()[static_cast<std::size_t>(i)].object;
        EXPECT_TRUE(element.getKey("/P").isSameObjectAs(root));
        EXPECT_TRUE(element.getKey("/Pg").isSameObjectAs(page));
        EXPECT_TRUE(
            parents.at(page.getKey("/StructParents").getIntValue()).getArrayItem(0).isSameObjectAs(element));
    }
    EXPECT_TRUE(pdf->qpdf().getRoot().getKey("/MarkInfo").getKey("/Marked").getBoolValue());
    EXPECT_EQ(root.getKey("/RoleMap").getKey("/Title").getName(), "/H1");
}

TEST_F(Inserting, AChainOfAHundredThousandReferencesTakesNoStack) {
    constexpr int length = 100'000;
    PdfText source = pages(1, "a", "/Chain 1000 0 R");
    for (int i = 0; i < length; ++i)
        source.set(1000 + i, "<< /Next " + std::to_string(1001 + i) + " 0 R >>");
    source.set(1000 + length, "<< /Next 1000 0 R >>");
    const Value target = merged({source.file()});
    EXPECT_EQ(target.call("GetNumPages"), Value(std::int32_t{1}));
}

TEST_F(Inserting, AnObjectThatIsNoDocumentIsRefused) {
    EXPECT_EQ(failure([&] { insert(merged({}), -1, application, 0, 1); }), "13 Type mismatch");
}

}  // namespace
}  // namespace foliant::hosts::acrobat
