#include "hosts/acrobat/splice/spliced_document.h"

#include <gmock/gmock.h>
#include <qpdf/QPDFNameTreeObjectHelper.hh>
#include <qpdf/QPDFWriter.hh>
#include <regex>

#include "hosts/acrobat/fixture.h"
#include "hosts/acrobat/structure/name_tree.h"

namespace foliant::hosts::acrobat::splice {
namespace {

using automation::Value;
using glance::Doubt;
using test::bookmarks;
using test::pages;
using test::PdfText;
using test::texts;
using test::with_bookmarks;
using testing::ElementsAre;
using Handle = QPDFObjectHandle;

std::unique_ptr<PlainDocument> opened(const std::string& content) {
    const auto bytes = std::make_shared<const std::string>(content);
    return std::make_unique<PlainDocument>(FileBytes{*bytes, bytes});
}

std::string written(const SplicedDocument& document) {
    std::string file;
    document.write([&](std::string_view bytes) { file += bytes; });
    return file;
}

class Splicing : public test::AcrobatTest {
  protected:
    /// A document that begins as the first of these, and to which the others are appended.
    static SplicedDocument spliced(const std::vector<std::string>& contents) {
        SplicedDocument document(*opened(contents.front()));
        for (std::size_t i = 1; i < contents.size(); ++i)
            document.append(*opened(contents[i]), true);
        return document;
    }

    std::shared_ptr<structure::Pdf> read(const SplicedDocument& document) const {
        auto pdf = test::read_pdf(write("spliced.pdf", written(document)));
        EXPECT_FALSE(pdf->qpdf().anyWarnings());
        return pdf;
    }
    std::shared_ptr<structure::Pdf> result(const std::vector<std::string>& contents) const {
        return read(spliced(contents));
    }
};

TEST_F(Splicing, PutsThePagesBehindEachOther) {
    const auto pdf = result({pages(2, "a").file(), pages(1, "b").file(), pages(2, "c").file()});
    EXPECT_THAT(texts(*pdf), ElementsAre("a 1", "a 2", "b 1", "c 1", "c 2"));
}

TEST_F(Splicing, BeginsWithNoPagesAtAll) {
    SplicedDocument document;
    EXPECT_EQ(read(document)->page_count(), 0);
    document.append(*opened(pages(2, "a").file()), true);
    const auto pdf = read(document);
    EXPECT_THAT(texts(*pdf), ElementsAre("a 1", "a 2"));
    Handle information = pdf->qpdf().getTrailer().getKey("/Info");
    EXPECT_EQ(information.getKey("/Producer").getUTF8Value(), "Foliant");
    EXPECT_TRUE(information.getKey("/CreationDate").getUTF8Value().starts_with("D:20"));
}

TEST_F(Splicing, ATreeOfManyPagesHasTheirNumberInEveryNode) {
    const auto pdf = result({pages(1100, "a").file(), pages(33, "b").file()});
    EXPECT_EQ(pdf->page_count(), 1133) << "the claim, which the children agree with";
    ASSERT_EQ(texts(*pdf).size(), 1133U);
    EXPECT_EQ(texts(*pdf).back(), "b 33");
    EXPECT_EQ(pdf->qpdf().getAllPages().size(), 1133U);
}

TEST_F(Splicing, KeepsBookmarksWithTheirPlacesAndWhetherTheyAreOpen) {
    const auto pdf = result({with_bookmarks("a").file(), with_bookmarks("b").file()});
    EXPECT_THAT(bookmarks(*pdf), ElementsAre("a 1 -> a 1", "  in it -> a 2", "end -> null", "b 1 -> b 1",
                                             "  in it -> b 2", "end -> null"));
    Handle outlines = pdf->qpdf().getRoot().getKey("/Outlines");
    EXPECT_EQ(outlines.getKey("/Count").getIntValue(), 6);
    EXPECT_EQ(outlines.getKey("/Last").getKey("/Prev").getKey("/Title").getUTF8Value(), "b");
    EXPECT_TRUE(outlines.getKey("/Last").getKey("/Parent").isSameObjectAs(outlines));
}

TEST_F(Splicing, LeavesBookmarksWhereTheyAreIfToldTo) {
    SplicedDocument document;
    document.append(*opened(with_bookmarks("a").file()), false);
    EXPECT_TRUE(bookmarks(*read(document)).empty());
}

TEST_F(Splicing, LinksLeadToThePagesOfTheirFile) {
    PdfText source = pages(2, "a", "/Annots [5 0 R]");
    source.set(5, "<< /Type /Annot /Subtype /Link /Rect [0 0 9 9] /Dest[20 0 R/Fit]/Of(20 0 R) >>");
    const auto pdf = result({source.file(), source.file()});
    for (const std::size_t page : {1U, 3U}) {
        const Handle link = pdf->pages()[page].object.getKey("/Annots").getArrayItem(0);
        EXPECT_TRUE(Handle(link).getKey("/Dest").getArrayItem(0).isSameObjectAs(pdf->pages()[page].object));
        EXPECT_EQ(Handle(link).getKey("/Of").getStringValue(), "20 0 R") << "a text is no reference";
    }
}

TEST_F(Splicing, PagesOwnWhatTheyInherited) {
    PdfText inheriting = pages(1, "a");
    inheriting.set(10, "<< /Type /Page /Parent 4 0 R /Contents 11 0 R /CropBox [1 2 3 4] >>");
    inheriting.set(4,
                   "<< /Type /Pages /Parent 2 0 R /Kids [10 0 R] /Count 1 /Rotate 90 /CropBox [5 6 7 8] >>");
    inheriting.set(2, "<< /Type /Pages /Kids [4 0 R] /Count 1 /MediaBox [0 0 100 200] /Rotate 180 >>");
    const auto pdf = result({inheriting.file(), inheriting.file()});
    ASSERT_EQ(pdf->pages().size(), 2U);
    for (const structure::Page& page : pdf->pages()) {
        EXPECT_EQ(Handle(page.object).getKey("/MediaBox").unparse(), "[ 0 0 100 200 ]");
        EXPECT_EQ(Handle(page.object).getKey("/Rotate").unparse(), "90");
        EXPECT_EQ(Handle(page.object).getKey("/CropBox").unparse(), "[ 1 2 3 4 ]");
    }
}

TEST_F(Splicing, PacksStreamsThatAreNotAndLeavesOthersAsTheyAre) {
    const std::string broken = "x\x9c no deflated data";
    const std::string content = "(a line) Tj " + std::string(5000, ' ');
    PdfText pdf = pages(2);
    pdf.set_stream(11, content).set_stream(21, broken, "/Filter [/FlateDecode]");
    const std::string file = written(spliced({pdf.file(), pdf.file()}));
    EXPECT_LT(file.size(), 4000U);
    const auto read = test::read_pdf(write("spliced.pdf", file));
    const auto packed = read->pages()[2].object.getKey("/Contents").getStreamData();
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(packed->getBuffer()), packed->getSize()), content);
    const auto raw = read->pages()[3].object.getKey("/Contents").getRawStreamData();
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(raw->getBuffer()), raw->getSize()), broken);
}

TEST_F(Splicing, ReadsObjectsOutOfStreamsOfObjects) {
    const auto pdf = test::read_pdf(write("plain.pdf", with_bookmarks("a").file()));
    const std::string path = folder / "packed.pdf";  // the writer keeps no copy
    QPDFWriter writer(pdf->qpdf(), path.c_str());
    writer.setObjectStreamMode(qpdf_o_generate);
    writer.write();
    const std::string packed = tests::read_file(path);
    ASSERT_NE(packed.find("/ObjStm"), std::string::npos);
    const auto all = result({packed, packed});
    EXPECT_THAT(texts(*all), ElementsAre("a 1", "a 2", "a 1", "a 2"));
    EXPECT_EQ(bookmarks(*all).size(), 6U);
}

TEST_F(Splicing, TheFileThatItBeginsAsKeepsWhatItSaysOfItself) {
    PdfText first = pages(1);
    first.add_to_catalogue("/Lang (de) /Own << /Page [10 0 R] >> /OpenAction [10 0 R /Fit] /Metadata 6 0 R");
    first.add_to_trailer("/Info 5 0 R /ID [<0102> <0304>] /Own 7 0 R");
    first.set(5, "<< /Title <FEFF00C400410020> /Author (a \\(b\\) \\101) /Producer (me) /Own (\xE4) >>");
    first.set_stream(6, "<x:xmpmeta><rdf:RDF><kept/></rdf:RDF></x:xmpmeta>", "/Type /Metadata /Subtype /XML");
    first.set(7, "(own)");
    const auto pdf = result({first.file(), pages(1).file()});
    Handle catalogue = pdf->qpdf().getRoot();
    EXPECT_EQ(catalogue.getKey("/Lang").getUTF8Value(), "de");
    EXPECT_TRUE(catalogue.getKey("/OpenAction").getArrayItem(0).isSameObjectAs(pdf->pages()[0].object));
    EXPECT_TRUE(
        catalogue.getKey("/Own").getKey("/Page").getArrayItem(0).isSameObjectAs(pdf->pages()[0].object));
    Handle trailer = pdf->qpdf().getTrailer();
    EXPECT_EQ(trailer.getKey("/Own").getUTF8Value(), "own");
    EXPECT_EQ(trailer.getKey("/ID").getArrayItem(0).getStringValue(), "\x01\x02");
    EXPECT_NE(trailer.getKey("/ID").getArrayItem(1).getStringValue(), "\x03\x04");
    Handle information = trailer.getKey("/Info");
    EXPECT_EQ(information.getKey("/Title").getUTF8Value(),
              "\xC3\x84"
              "A ");
    EXPECT_EQ(information.getKey("/Producer").getUTF8Value(), "me");
    EXPECT_EQ(information.getKey("/Own").getStringValue(), "\xE4");
    EXPECT_TRUE(information.getKey("/ModDate").getUTF8Value().starts_with("D:20"));
    const auto data = catalogue.getKey("/Metadata").getStreamData();
    const std::string packet(reinterpret_cast<const char*>(data->getBuffer()), data->getSize());
    EXPECT_THAT(packet, testing::AllOf(testing::HasSubstr("<kept/>"),
                                       testing::HasSubstr("\xC3\x84"
                                                          "A "),
                                       testing::HasSubstr("a (b) A"), testing::HasSubstr("xmp:ModifyDate")));
}

TEST_F(Splicing, TakesTheHigherVersion) {
    std::string newer = pages(1).file();
    newer.replace(5, 3, "2.0");
    EXPECT_TRUE(written(spliced({pages(1).file(), newer})).starts_with("%PDF-2.0\n"));
    EXPECT_TRUE(written(spliced({newer, pages(1).file()})).starts_with("%PDF-2.0\n"));
}

TEST_F(Splicing, WhatComesWithoutItsTagsHasNoNumbersInThem) {
    PdfText tagged = pages(1, "a", "/StructParents 1 /Annots [<< /StructParent 2 /Rect [0 0 1 1] /Own 3 >>]");
    const auto pdf = result({tagged.file(), tagged.file()});
    EXPECT_EQ(pdf->pages()[0].object.getKey("/StructParents").getIntValue(), 1);
    EXPECT_EQ(pdf->pages()[0].object.getKey("/Annots").getArrayItem(0).getKey("/StructParent").getIntValue(),
              2);
    EXPECT_FALSE(pdf->pages()[1].object.hasKey("/StructParents"));
    Handle annotation = pdf->pages()[1].object.getKey("/Annots").getArrayItem(0);
    EXPECT_FALSE(annotation.hasKey("/StructParent"));
    EXPECT_EQ(annotation.getKey("/Own").getIntValue(), 3);
}

TEST_F(Splicing, WhoRefersToTheTreeOfPagesBringsNoOtherTree) {
    const auto pdf = result({pages(1).file(), pages(1, "a", "/Own 2 0 R").file()});
    EXPECT_TRUE(pdf->pages()[1].object.getKey("/Own").isNull());
    EXPECT_EQ(pdf->pages().size(), 2U);
}

TEST_F(Splicing, WhatTakesTheEngineIsDoubtedAndChangesNothing) {
    SplicedDocument document = spliced({with_bookmarks("a").file()});
    const std::size_t size = written(document).size();
    const auto refused = [&](const PdfText& pdf) {
        EXPECT_THROW(document.append(*opened(pdf.file()), true), Doubt) << pdf.file();
        EXPECT_EQ(document.page_count(), 2U);
        EXPECT_EQ(written(document).size(), size);
    };
    for (const std::string entry :
         {"/AcroForm << >>", "/StructTreeRoot << >>", "/OCProperties << >>", "/Extensions << >>",
          "/Perms << >>", "/Names << /EmbeddedFiles << >> >>",
          "/Names << /Dests << /Names [/a [10 0 R /Fit]] >> >>", "/Names << /Dests << /Names [(a)] >> >>",
          "/Names << /Dests 1 0 R >> /Own << /Names [(a) 3 0 R] >>", "/Names 4 0 R",
          "/Dests << /a#20b [10 0 R /Fit] >>", "/PageLabels << /Nums [0 (a)] >>",
          "/PageLabels << /Nums [-1 << >>] >>"})
        refused(pages(1).add_to_catalogue(entry));
    refused(pages(1, "a", "/Own 99 0 R"));
    refused(pages(1, "a", "/Own 3 1 R"));
    refused(pages(1).set_stream(11, "0", "/F (elsewhere)"));
    refused(with_bookmarks("b").set(6, "<< /Title (a) /Dest [3 0 R /Fit] >>"));
    refused(with_bookmarks("b").set(7, "<< /Title (loop) /Next 5 0 R >>"));
    refused(pages(2).set(2, "<< /Type /Pages /Kids [10 0 R 10 0 R] /Count 2 >>"));
    refused(pages(1).set(2, "<< /Type /Pages /Kids [<< /Type /Page >>] /Count 1 >>"));
    refused(pages(1).set(10, "<< /Type /Template >>"));
}

TEST_F(Splicing, AnInformationThatOnlyTheEngineCanReadIsDoubted) {
    PdfText first = pages(1).add_to_trailer("/Info 5 0 R");
    first.set(5, "<< /Title (\xE4) >>");
    EXPECT_THROW(SplicedDocument(*opened(first.file())), Doubt);
}

TEST_F(Splicing, AFirstFileWithAFormOrACertificationIsDoubted) {
    for (const std::string entry : {"/AcroForm << >>", "/Perms << >>"})
        EXPECT_THROW(SplicedDocument(*opened(pages(1).add_to_catalogue(entry).file())), Doubt) << entry;
}

/// Two pages, and links to the second by a name of each kind, in each way to spell one; bookmarks, too.
PdfText with_names(const std::string& label) {
    PdfText pdf = pages(2, label, "/Annots [5 0 R 6 0 R 7 0 R]");
    pdf.add_to_catalogue(
        "/Names 8 0 R /Dests << /old [20 0 R /XYZ 1 2 3] /start [20 0 R /Fit] /gone [8 0 R] >>");
    pdf.add_to_catalogue("/Outlines << /First 12 0 R /Last 12 0 R /Count 1 >>");
    pdf.set(5, "<< /Subtype /Link /Rect [0 0 9 9] /Dest (start) >>");
    pdf.set(6, "<< /Subtype /Link /A << /S /GoTo /D /old >> /Other [<< /S /D /St 1 /D (start) >>] >>");
    pdf.set(7, "<< /Subtype /Link /A << /D <6e65773a21> /S /GoTo /Next << /S /GoTo /D 13 0 R >> >> >>");
    pdf.set(
        8, "<< /Dests << /Kids [9 0 R << /Names [(start) 14 0 R (start_2) [10 0 R /Fit]] >>] >> /Own (x) >>");
    pdf.set(9, "<< /Limits [(a) (z)] /Names [(new:!) << /D [20 0 R /Fit] >> (none) [7 /Fit]] >>");
    pdf.set(12, "<< /Title (by name) /Dest (start) >>");
    pdf.set(13, "(start)");
    pdf.set(14, "[20 0 R /FitH 700]");
    return pdf;
}

/// What names and labels a document has, and where everything in it leads by a name.
std::vector<std::string> names_and_labels(structure::Pdf& pdf) {
    std::vector<std::string> lines;
    Handle catalogue = pdf.qpdf().getRoot();
    const auto show = [&](const std::string& text, Handle place) {
        if (place.isDictionary()) place = place.getKey("/D");
        lines.push_back(text + " -> ");
        for (std::size_t page = 0; page < pdf.pages().size() && place.isArray(); ++page)
            if (place.getArrayItem(0).isSameObjectAs(pdf.pages()[page].object))
                lines.back() += "page " + std::to_string(page) + " " + place.getArrayItem(1).unparse();
    };
    if (catalogue.hasKey("/Names"))
        for (const auto& [name, place] :
             structure::read_name_tree(catalogue.getKey("/Names").getKey("/Dests")))
            show(name, place);
    if (catalogue.hasKey("/Dests"))
        for (const auto& [name, place] : catalogue.getKey("/Dests").getDictAsMap())
            show(name, place);
    for (const structure::Page& page : pdf.pages())
        for (Handle annotation : Handle(page.object).getKey("/Annots").aitems())
            lines.push_back(annotation.getKey("/Dest").unparseResolved() +
                            annotation.getKey("/A").unparseResolved() +
                            annotation.getKey("/Other").unparseResolved());
    for (Handle mark = catalogue.getKey("/Outlines").getKey("/First"); mark.isDictionary();
         mark = mark.getKey("/Next"))
        lines.push_back(mark.getKey("/Dest").unparseResolved());
    for (const auto& [page, range] : structure::read_number_tree(catalogue.getKey("/PageLabels")))
        lines.push_back(std::to_string(page) + " " + Handle(range).unparseResolved());
    static const std::regex number("[0-9]+ 0 R");
    for (std::string& line : lines)
        line = std::regex_replace(line, number, "an object");
    return lines;
}

PdfText with_labels(const std::string& ranges, int count = 3) {
    return pages(count).add_to_catalogue("/PageLabels << /Nums [" + ranges + "] >>").set(5, "<< /S /R >>");
}

TEST_F(Splicing, NamesPlacesAndLabelsPagesAsTheEngineDoes) {
    const std::vector<std::string> files{
        with_names("a").file(),
        with_names("b").file(),
        pages(2, "c").file(),
        with_labels("0 5 0 R 2 << /S /D /St 7 >>").file(),
        with_labels("1 << /P (A-) >> 9 << /S /a >>").file(),
        with_names("d").file(),
    };
    SplicedDocument document;
    for (const std::string& file : files)
        document.append(*opened(file), true);
    const std::vector<std::string> lines = names_and_labels(*read(document));
    EXPECT_EQ(lines, names_and_labels(*saved(merged(files))));
    EXPECT_THAT(lines, testing::IsSupersetOf({"new:! -> page 1 /Fit", "new:!_3 -> page 3 /Fit",
                                              "old_3 -> page 3 /XYZ", "start -> page 1 /FitH",
                                              "start_3 -> page 3 /FitH", "start_2_3 -> page 2 /Fit",
                                              "(start_3)nullnull", "8 << /S /D /St 7 >>", "9 << /S /D >>",
                                              "10 << /P (A-) >>", "12 << /S /D >>"}));
}

TEST_F(Splicing, TheNamesOfTheFileThatItBeginsAsStayAndOthersGiveWay) {
    const std::vector<std::string> files{with_names("a").file(), with_names("b").file()};
    const auto pdf = result(files);
    const Value first = document_on(files[0]);
    first.call("InsertPages",
               {std::int32_t{1}, document_on(files[1]), std::int32_t{0}, std::int32_t{2}, true});
    EXPECT_EQ(names_and_labels(*pdf), names_and_labels(*saved(first)));
    Handle catalogue = pdf->qpdf().getRoot();
    EXPECT_EQ(catalogue.getKey("/Names").getKey("/Own").getStringValue(), "x");
    EXPECT_TRUE(catalogue.getKey("/Dests").hasKey("/old"));
}

TEST_F(Splicing, AThousandNamesOfEachFileAreFoundInOneTree) {
    const auto many = [](const std::string& label) {
        std::string names;
        for (int i = 1000; i < 2000; ++i)
            names += " (" + label + std::to_string(i) + ") [10 0 R /Fit]";
        return pages(1, label).add_to_catalogue("/Names << /Dests << /Names [" + names + "] >> >>").file();
    };
    const auto pdf = result({many("b"), many("a")});
    Handle root = pdf->qpdf().getRoot().getKey("/Names").getKey("/Dests");
    QPDFNameTreeObjectHelper tree(root, pdf->qpdf(), false);
    Handle place;
    ASSERT_TRUE(tree.findObject("a1500", place));
    EXPECT_TRUE(place.getArrayItem(0).isSameObjectAs(pdf->pages()[1].object));
    ASSERT_TRUE(tree.findObject("b1999", place));
    EXPECT_TRUE(place.getArrayItem(0).isSameObjectAs(pdf->pages()[0].object));
    EXPECT_EQ(structure::read_name_tree(root).size(), 2000U);
    EXPECT_LE(root.getKey("/Kids").getArrayNItems(), 64);
}

TEST_F(Splicing, AChainOfAHundredThousandReferencesTakesNoStack) {
    constexpr int length = 100'000;
    PdfText source = pages(1, "a", "/Chain 1000 0 R");
    for (int i = 0; i < length; ++i)
        source.set(1000 + i, "<< /Next " + std::to_string(1001 + i) + " 0 R >>");
    source.set(1000 + length, "<< /Next 1000 0 R >>");
    EXPECT_EQ(result({pages(1).file(), source.file()})->page_count(), 2);
}

std::string said(const std::string& text) {
    return text_of(glance::Cursor(text).value());
}

TEST(TextOfAString, IsReadInAllItsSpellings) {
    EXPECT_EQ(said("(a\\n(b\\)) \\60\\0611 )"), "a\n(b)) 011 ");
    EXPECT_EQ(said("<61 6 2 7>"), "abp");
    EXPECT_EQ(said("<FEFF00E4 20AC D83D DE00>"), "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80");
    EXPECT_EQ(said("(\xFE\xFF\\000A)"), "A");
    EXPECT_EQ(said("()"), "");
    for (const char* other : {"(\xE4)", "<FEFFD83D>", "<FEFFDE00>", "<FEFF41>", "/a", "true", "(a\\\nb)"})
        EXPECT_THROW(said(other), Doubt) << other;
}

}  // namespace
}  // namespace foliant::hosts::acrobat::splice
