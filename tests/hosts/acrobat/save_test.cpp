#include <chrono>
#include <cstdlib>
#include <gmock/gmock.h>
#include <qpdf/QPDFWriter.hh>
#include <thread>

#include "hosts/acrobat/fixture.h"
#include "hosts/acrobat/splice/xmp.h"
#include "hosts/acrobat/structure/information.h"
#include "hosts/acrobat/structure/write_pdf.h"

namespace foliant::hosts::acrobat {
namespace {

using automation::Value;
using test::AcrobatTest;
using test::pages;
using test::PdfText;
using test::texts;
using testing::HasSubstr;
using testing::Not;
using tests::failure;
using tests::read_file;

class Saving : public AcrobatTest {};

std::string packet(structure::Pdf& pdf) {
    const auto data = pdf.qpdf().getRoot().getKey("/Metadata").getStreamData();
    return {reinterpret_cast<const char*>(data->getBuffer()), data->getSize()};
}

TEST_F(Saving, ADocumentWithoutPagesIsOne) {
    const Value document = new_document();
    EXPECT_EQ(document.call("Create"), Value(true));
    EXPECT_EQ(saved(document)->page_count(), 0);
}

TEST_F(Saving, OverTheOpenFileReplacesItWhole) {
    const std::string path = write("a.pdf", pages(2, "old").file());
    const Value document = new_document();
    document.call("Open", {path});
    document.call("InsertPages", {std::int32_t{1}, document_on(pages(1, "new").file()), std::int32_t{0},
                                  std::int32_t{1}, true});
    EXPECT_EQ(document.call("Save", {std::int16_t{1}, path}), Value(true));
    EXPECT_EQ(document.call("GetNumPages"), Value(std::int32_t{3}));
    EXPECT_THAT(texts(*test::read_pdf(path)), testing::ElementsAre("old 1", "old 2", "new 1"));
    EXPECT_EQ(document.call("Save", {std::int16_t{5}, path}), Value(true));
    EXPECT_EQ(test::read_pdf(path)->page_count(), 3);
}

PdfText with_signature() {
    PdfText pdf = pages(1);
    pdf.add_to_catalogue("/AcroForm << /SigFlags 3 /Fields [4 0 R] >>");
    pdf.set(4, "<< /Type /Annot /Subtype /Widget /Rect [0 0 0 0] /FT /Sig /T (s) /V 5 0 R >>");
    pdf.set(5, "<< /Type /Sig /Filter /Adobe.PPKLite /ByteRange [0 1 2 3] >>");
    return pdf;
}

TEST_F(Saving, InFullSaysThatSignaturesDoNotHoldAnyMore) {
    PdfText pdf = with_signature();
    const Value signed_document = document_on(pdf.file());
    saved(signed_document, 0);
    EXPECT_EQ(machine.failures, tests::Names{});
    const std::string path = (folder / "document.pdf").string();
    EXPECT_EQ(signed_document.call("Save", {std::int16_t{1}, path}), Value(true));
    const tests::Names told{
        "The signatures in document.pdf do not hold any more: all of the file had to be written "
        "anew. Sign it again."};
    EXPECT_EQ(machine.failures, told);
    pdf.set(4, "<< /Type /Annot /Subtype /Widget /Rect [0 0 0 0] /FT /Sig /T (s) >>");
    saved(document_on(pdf.file()), 1);
    EXPECT_EQ(machine.failures, told);
}

TEST_F(Saving, UnderAnotherNameSaysWhoseTheSignaturesAre) {
    saved(document_on(with_signature().file()), 1);
    EXPECT_EQ(machine.failures,
              tests::Names{
                  "The signatures in saved.pdf do not hold: they are those of document.pdf, of which it was "
                  "made."});
}

TEST_F(Saving, WithFourIsLinearised) {
    const Value document = document_on(pages(3).file());
    EXPECT_TRUE(saved(document, 5)->qpdf().isLinearized());
    EXPECT_FALSE(saved(document, 1)->qpdf().isLinearized());
}

TEST_F(Saving, ADocumentTooOddToBeLinearisedIsSavedAllTheSame) {
    const Value document = document_on(pages(1).add_to_catalogue("/Odd 10 0 R").file());
    const auto pdf = saved(document, 5);
    EXPECT_FALSE(pdf->qpdf().isLinearized());
    EXPECT_EQ(pdf->page_count(), 1);
}

/// An output on a disk that is full.
class FullDisk : public OutputFile {
  public:
    void write(std::string_view) override {
        throw std::filesystem::filesystem_error("", std::make_error_code(std::errc::no_space_on_device));
    }
    void commit() override {}
    int descriptor() const noexcept override { return -1; }
};

TEST_F(Saving, OnAFullDiskFailsHoweverTheDocumentIsWritten) {
    const auto pdf = test::read_pdf(write("a.pdf", pages(2).file()));
    FullDisk output;
    EXPECT_THROW(structure::write_pdf(*pdf, {}, output), std::filesystem::filesystem_error);
    EXPECT_THROW(structure::write_pdf(*pdf, {.is_linearised = true}, output),
                 std::filesystem::filesystem_error);
    pdf->protect({"sesame"});
    EXPECT_THROW(structure::write_pdf(*pdf, {}, output), std::filesystem::filesystem_error);
}

TEST_F(Saving, AndInsertingTellPeopleWhoWait) {
    std::this_thread::sleep_for(std::chrono::milliseconds(250));
    const Value document = merged({pages(1).file(), pages(1).file()});
    EXPECT_THAT(machine.work_done, testing::ElementsAre("Inserting document.pdf"));  // once in a while
    std::this_thread::sleep_for(std::chrono::milliseconds(250));
    saved(document);
    EXPECT_EQ(machine.work_done.size(), 2U);
    EXPECT_TRUE(machine.work_done.back().starts_with("Saving")) << machine.work_done.back();
}

class SavingChanges : public Saving {
  protected:
    /// Adds a bookmark, and saves with flag 0 over the file; what the file was before.
    std::string change(const std::string& path) {
        const std::string before = read_file(path);
        const Value document = new_document();
        document.call("Open", {path});
        const Value viewer = document.call("OpenAVDoc", {""});
        application.call("MenuItemExecute", {"NewBookmark"});
        document.call("SetInfo", {"Title", "Über"});
        EXPECT_EQ(document.call("Save", {std::int16_t{0}, path}), Value(true));
        viewer.call("Close", {true});
        return before;
    }

    /// What a tool says of a file when it fails; "" for a sound one.
    std::string complaint(const std::string& command, const std::string& path) const {
        const std::string said = (folder / "said").string();
        const int code = std::system((command + " '" + path + "' > '" + said + "' 2>&1").c_str());
        return code == 0 ? "" : read_file(said);
    }

    void expect_appended(const std::string& path, const std::string& before) const {
        EXPECT_TRUE(read_file(path).starts_with(before));
        EXPECT_LT(read_file(path).size(), before.size() + 6000);
        EXPECT_EQ(complaint("qpdf --check", path), "");
        EXPECT_EQ(complaint("pdfinfo -struct-text", path), "");
        EXPECT_EQ(complaint("gs -q -dBATCH -dNOPAUSE -sDEVICE=nullpage -dPDFSTOPONERROR", path), "");
        const auto pdf = test::read_pdf(path);
        EXPECT_FALSE(pdf->qpdf().anyWarnings());
        EXPECT_THAT(texts(*pdf), testing::ElementsAre("page 1", "page 2"));
        EXPECT_EQ(pdf->qpdf().getRoot().getKey("/Outlines").getKey("/First").getKey("/Title").getUTF8Value(),
                  "Untitled");
        EXPECT_EQ(structure::information(*pdf, "Title"), "Über");
    }
};

TEST_F(SavingChanges, LeavesWhatWasThereAsItIs) {
    const std::string path = write("a.pdf", pages(2).file());
    expect_appended(path, change(path));
}

TEST_F(SavingChanges, GoesWithATableOfTheKindThatTheFileHas) {
    const std::string path = (folder / "streams.pdf").string();
    const auto pdf = test::read_pdf(write("a.pdf", pages(2).file()));
    QPDFWriter writer(pdf->qpdf(), path.c_str());
    writer.setObjectStreamMode(qpdf_o_generate);
    writer.write();
    expect_appended(path, change(path));
    const std::string file = read_file(path);
    EXPECT_EQ(file.find("trailer"), std::string::npos);
}

TEST_F(SavingChanges, CanBeRepeated) {
    const std::string path = write("a.pdf", pages(2).file());
    change(path);
    const std::string before = change(path);
    EXPECT_TRUE(read_file(path).starts_with(before));
    EXPECT_EQ(complaint("qpdf --check", path), "");
}

TEST_F(SavingChanges, WritesAFileThatHadToBeMendedAnew) {
    std::string content = pages(2).file();
    content.replace(content.rfind("startxref"), 9, "startxxxx");
    const std::string path = write("a.pdf", content);
    change(path);
    EXPECT_FALSE(read_file(path).starts_with(content));
    EXPECT_EQ(complaint("qpdf --check", path), "");
}

TEST_F(Saving, LikeSearchingTellsPeopleWhoWait) {
    std::this_thread::sleep_for(std::chrono::milliseconds(250));
    const Value viewer = document_on(pages(3).file()).call("OpenAVDoc", {""});
    viewer.call("FindText", {"no such words", false, false, true});
    EXPECT_THAT(machine.work_done, testing::ElementsAre("Searching document.pdf"));
}

TEST_F(Saving, WhereNothingCanBeWrittenFailsWithTheReason) {
    const std::string path = (folder / "none" / "a.pdf").string();
    EXPECT_EQ(failure([&] {
                  document_on(pages(1).file()).call("Save", {std::int16_t{1}, path});
              }),
              "76 Cannot write " + path + ": the folder " + (folder / "none").string() +
                  " does not exist. Create it, or choose another one.");
}

TEST_F(Saving, InformationIsKeptInAnyScriptAndInXmpToo) {
    const Value document = document_on(pages(1).file());
    for (const auto& [key, text] : std::map<std::string, std::string>{{"Title", "Größe & <Maß> 日本"},
                                                                      {"Author", "Ivana Č"},
                                                                      {"Subject", "s"},
                                                                      {"Keywords", "a, b"}}) {
        EXPECT_EQ(document.call("SetInfo", {key, text}), Value(true));
        EXPECT_EQ(document.call("GetInfo", {key}), Value(text));
    }
    const auto pdf = saved(document, 37);
    EXPECT_EQ(structure::information(*pdf, "Title"), "Größe & <Maß> 日本");
    EXPECT_EQ(structure::information(*pdf, "Author"), "Ivana Č");
    const std::string xmp = packet(*pdf);
    EXPECT_THAT(xmp, HasSubstr("<rdf:li xml:lang=\"x-default\">Größe &amp; &lt;Maß&gt; 日本</rdf:li>"));
    EXPECT_THAT(xmp, HasSubstr("<dc:creator><rdf:Seq><rdf:li>Ivana Č</rdf:li></rdf:Seq></dc:creator>"));
    EXPECT_THAT(xmp, HasSubstr("<pdf:Keywords>a, b</pdf:Keywords>"));
}

TEST(Xmp, TakesNewPropertiesAndKeepsTheOthers) {
    const std::string old =
        "<x:xmpmeta><rdf:RDF><rdf:Description rdf:about='uuid:1' pdf:Keywords=\"old\" pdf:Trapped=\"False\">"
        "<dc:title><rdf:Alt><rdf:li>old</rdf:li></rdf:Alt></dc:title><dc:titles>kept</dc:titles>"
        "</rdf:Description></rdf:RDF></x:xmpmeta>";
    const std::string xmp = splice::with_properties(
        old, {{"Title", "new"}, {"Keywords", "k"}, {"ModDate", "D:20260131120000+01'00'"}});
    EXPECT_THAT(xmp, Not(HasSubstr("old")));
    EXPECT_THAT(xmp, HasSubstr("<dc:titles>kept</dc:titles>"));
    EXPECT_THAT(xmp, HasSubstr("pdf:Trapped=\"False\""));
    EXPECT_THAT(xmp, HasSubstr("<rdf:Description rdf:about='uuid:1' xmlns:dc"));
    EXPECT_THAT(xmp, HasSubstr("<xmp:ModifyDate>2026-01-31T12:00:00+01:00</xmp:ModifyDate>"));
}

TEST(Xmp, ThatCannotBeUnderstoodIsReplaced) {
    for (const char* old : {"", "no xml", "<rdf:RDF><dc:title>"}) {
        const std::string xmp = splice::with_properties(old, {{"Title", "new"}});
        EXPECT_TRUE(xmp.starts_with("<?xpacket begin=")) << xmp;
        EXPECT_THAT(xmp, HasSubstr("new"));
    }
}

}  // namespace
}  // namespace foliant::hosts::acrobat
