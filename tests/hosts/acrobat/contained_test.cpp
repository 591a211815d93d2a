#include <filesystem>
#include <gtest/gtest.h>

#include "automation/value.h"
#include "hosts/acrobat/front/front_module.h"
#include "hosts/acrobat/noting_machine.h"
#include "hosts/acrobat/pdf_text.h"
#include "hosts/process/host_process.h"
#include "support/error_of.h"
#include "support/scratch_folder.h"

namespace foliant::hosts::acrobat {
namespace {

using automation::Value;

const Module& acrobat_module() {
    return *front::front_module();
}

/// Acrobat as the command has it.
class ContainedAcrobat : public testing::Test {
  protected:
    std::string write(const std::string& name, const std::string& content) const {
        return folder.write(name, content).string();
    }

    tests::ScratchFolder folder;
    test::NotingMachine machine;
    process::HostProcess host{{"Acrobat", "qpdf and poppler", acrobat_module, "Save"}, machine};
};

TEST_F(ContainedAcrobat, CountsThePagesOfADocumentThatWasNamed) {
    const Value document = host.create("AcroExch.PDDoc");
    for (const int count : {3, 1}) {
        EXPECT_EQ(document.call("Open", {write("a.pdf", test::pages(count).file())}), Value(true));
        EXPECT_EQ(document.call("GetNumPages"), Value(std::int32_t{count}));
    }
}

TEST_F(ContainedAcrobat, OpensTheFileWhoseNameIsTypedIntoItsDialog) {
    const Value application = host.create("AcroExch.App");
    machine.answers = {write("a.pdf", test::pages(2).file())};
    EXPECT_EQ(application.call("MenuItemExecute", {"Open"}), Value(true));
    EXPECT_EQ(application.call("GetActiveDoc").call("GetPDDoc").call("GetNumPages"), Value(std::int32_t{2}));
    EXPECT_EQ(machine.notes, std::vector<std::string>{"dialog Open"});
}

/// A page with a line of text.
std::string page_with(const std::string& text) {
    return test::PdfText()
        .set(2, "<< /Type /Pages /Count 1 /Kids [10 0 R] >>")
        .set(3, "<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica >>")
        .set(10,
             "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 612 792] "
             "/Resources << /Font << /F 3 0 R >> >> /Contents 11 0 R >>")
        .set_stream(11, "BT /F 12 Tf 72 700 Td (" + text + ") Tj ET")
        .file();
}

TEST_F(ContainedAcrobat, ReadsAndFindsTextWithinItsBounds) {
    const Value document = host.create("AcroExch.PDDoc");
    const Value rectangle = host.create("AcroExch.Rect");
    document.call("Open", {write("a.pdf", page_with("some text"))});
    rectangle.set("Right", std::int32_t{6120});
    rectangle.set("Top", std::int32_t{7920});
    const Value words = document.call("CreateTextSelect", {std::int32_t{0}, rectangle});
    EXPECT_EQ(words.call("GetNumText"), Value(std::int32_t{2}));
    EXPECT_EQ(words.call("GetText", {std::int32_t{1}}), Value("text\r\n"));
    const Value viewer = document.call("OpenAVDoc", {""});
    EXPECT_EQ(viewer.call("FindText", {"text", false, false, true}), Value(true));
    ASSERT_EQ(machine.places.size(), 1U);
    EXPECT_EQ(machine.places[0].page, 1);
    EXPECT_EQ(machine.places[0].context, "some text");
    EXPECT_NEAR(machine.places[0].bottom, 697, 2);
}

/// A picture of one grey pixel.
std::string tiff_of_one_pixel() {
    using namespace std::string_literals;
    std::string file = "II*\0\10\0\0\0"s + "\7\0"s;
    const auto field = [&](char tag, char value) {
        file += std::string{tag, '\1', 3, 0, 1, 0, 0, 0, value, 0, 0, 0};
    };
    field(0, 1);     // columns
    field(1, 1);     // rows
    field(2, 8);     // bits
    field(6, 1);     // nought is black
    field(0x11, 4);  // where the pixel lies
    field(0x16, 1);  // rows of a strip
    field(0x17, 1);  // bytes of a strip
    return file + "\0\0\0\0"s;
}

TEST_F(ContainedAcrobat, LoadsWhatReadsTIFFsWithinItsBounds) {
    const Value document = host.create("AcroExch.PDDoc");
    document.call("Open", {write("a.tif", tiff_of_one_pixel())});
    EXPECT_EQ(document.call("GetNumPages"), Value(std::int32_t{1}));
}

TEST_F(ContainedAcrobat, ProtectsADocumentInPlace) {
    const std::string path = write("a.pdf", test::pages(2).file());
    const Value application = host.create("AcroExch.App");
    const Value document = host.create("AcroExch.PDDoc");
    document.call("Open", {path});
    document.call("OpenAVDoc", {""});
    machine.answers = {"secret", "secret", ""};
    application.call("MenuItemExecute", {"SecureApplyPwdSecurity"});
    application.call("MenuItemExecute", {"Save"});
    application.call("Exit");
    EXPECT_NE(tests::read_file(path).find("/Encrypt "), std::string::npos);
    machine.answers = {path, "secret"};
    EXPECT_EQ(application.call("MenuItemExecute", {"Open"}), Value(true));
    EXPECT_EQ(application.call("GetActiveDoc").call("GetPDDoc").call("GetNumPages"), Value(std::int32_t{2}));
}

/// A machine whose hosts may allocate little.
class PoorMachine : public test::NotingMachine {
  public:
    std::uint64_t memory_limit_bytes() const override { return std::uint64_t{128} << 20U; }
};

TEST(ContainedAcrobatWithLittleMemory, ReplacesMetadataThatUnpackToMoreThanThereIs) {
    // A run of the byte 0x81 unpacks to 64 times as long a run of the same byte, twice over here.
    const std::string bomb(100'000, '\x81');
    test::PdfText pdf = test::pages(1);
    pdf.add_to_catalogue("/Metadata 5 0 R");
    pdf.set_stream(5, bomb, "/Filter [/RunLengthDecode /RunLengthDecode]");
    const tests::ScratchFolder folder;
    PoorMachine machine;
    process::HostProcess host({"Acrobat", "qpdf and poppler", acrobat_module, "Save"}, machine);
    const Value document = host.create("AcroExch.PDDoc");
    document.call("Open", {folder.write("a.pdf", pdf.file()).string()});
    const std::string path = (folder / "b.pdf").string();
    EXPECT_EQ(document.call("Save", {std::int16_t{1}, path}), Value(true));
    EXPECT_LT(std::filesystem::file_size(path), bomb.size());
    EXPECT_TRUE(host.is_running());
}

TEST_F(ContainedAcrobat, MergesDocumentsThatAreClosedBeforeItSaves) {
    const Value target = host.create("AcroExch.PDDoc");
    target.call("Create");
    for (const int count : {2, 3}) {
        const Value source = host.create("AcroExch.PDDoc");
        source.call("Open", {write("a" + std::to_string(count) + ".pdf", test::pages(count).file())});
        target.call("InsertPages",
                    {std::int32_t{-1}, source, std::int32_t{0}, source.call("GetNumPages"), true});
        source.call("Close");
    }
    const std::string path = (folder / "all.pdf").string();
    EXPECT_EQ(target.call("Save", {std::int16_t{5}, path}), Value(true));
    const Value all = host.create("AcroExch.PDDoc");
    all.call("Open", {path});
    EXPECT_EQ(all.call("GetNumPages"), Value(std::int32_t{5}));
}

TEST(AcrobatModule, KnowsNoOtherClass) {
    test::NotingMachine machine;
    EXPECT_EQ(tests::error_number([&] { acrobat_module().create("Word.Application", machine); }), 429);
}

TEST(AcrobatModule, NamesTheVersionOfItsEngine) {
    EXPECT_TRUE(acrobat_module().engine_version().starts_with("11."));
}

}  // namespace
}  // namespace foliant::hosts::acrobat
