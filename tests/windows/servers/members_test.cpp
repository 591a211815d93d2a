// Members of BuildPDF over the real ports, against recording servers in the caller's process and in one of
// their own: what arrives there, name by name and type by type.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <ole2.h>

#include "automation/describe.h"
#include "core/build_pdf.h"
#include "platform/win32/windows_platform.h"
#include "windows/servers/installation.h"
#include "windows/servers/record.h"

namespace foliant::tests::servers {
namespace {

/// Records the component's events between the calls.
class EventRecorder : public automation::EventSink {
  public:
    void notify(std::string_view event, std::span<const automation::Value> arguments) override {
        std::string line = "event " + std::string(event) + "(";
        for (const automation::Value& argument : arguments)
            line += (line.back() == '(' ? "" : ", ") + automation::describe(argument);
        record(line + ")");
    }
};

struct Setting {
    Kind kind;
    bool event_names;
};

class Members : public testing::TestWithParam<Setting> {
  protected:
    void SetUp() override {
        char folder[MAX_PATH];
        GetTempPathA(MAX_PATH, folder);
        folder_ = std::string(folder) + "foliant members\\";
        CreateDirectoryA(folder_.c_str(), nullptr);
        write("in.ps", {"%!PS", "%log A line of the log"});
        write("in.doc", {"words"});
    }

    void TearDown() override { CoFreeUnusedLibraries(); }

    /// The record, with the folder of the test and the random name of a temporary file left out.
    std::string recorded() const {
        std::string text = installation_.record();
        for (std::size_t at = text.find(folder_); at != std::string::npos; at = text.find(folder_))
            text.replace(at, folder_.size(), "");
        return text;
    }

    void write(const char* name, std::initializer_list<const char*> lines) {
        const auto file = ports_.files.create_text(path(name), platform::TextPurpose::result);
        for (const char* line : lines)
            file->write_line(line);
    }
    std::string path(const char* name) const { return folder_ + name; }
    bool exists(const char* name) const {
        return GetFileAttributesA(path(name).c_str()) != INVALID_FILE_ATTRIBUTES;
    }

    void convert_postscript(bool with_security) {
        std::string pdf = path("out.pdf");
        std::string postscript = path("in.ps");
        std::string options = "Press";
        bool show = true;
        bool spool = false;
        pdf_.CreatePDFfromPS(pdf, postscript, distiller_, show, spool, options, with_security);
    }

    Installation installation_{GetParam().kind, GetParam().event_names};
    platform::win32::WindowsPlatform platform_;
    platform::Platform ports_ = platform_.platform();
    EventRecorder events_;
    core::BuildPDF pdf_{ports_, events_};
    std::string folder_;
    std::string distiller_ = "  ";
};

TEST_P(Members, CreatePDFfromPSDrivesDistillerAndRelaysItsEvents) {
    convert_postscript(false);
    EXPECT_EQ(recorded(),
              "create Distiller\n"
              "listen to Distiller\n"
              "Distiller.bShowWindow(BOOL True) PUT\n"
              "Distiller.bSpoolJobs(BOOL False) PUT\n"
              "Distiller.FileToPDF(BSTR \"in.ps\", BSTR \"out.pdf\", BSTR \"Press\") METHOD|GET\n"
              "event JobStart(\"in.ps\", \"out.pdf\")\n"
              "event LogMessage(\"A line of the log\")\n"
              "event PercentDone(Long(50))\n"
              "event PageNumber(Long(1))\n"
              "event JobDone(\"in.ps\", \"out.pdf\")\n"
              "stop listening to Distiller\n"
              "release Distiller\n");
    EXPECT_EQ(distiller_, "Adobe PDF");
    EXPECT_TRUE(exists("out.pdf"));
}

TEST_P(Members, AJobThatFailsSaysSoInAnEvent) {
    write("in.ps", {"%!PS", "%fail"});
    convert_postscript(false);
    EXPECT_THAT(recorded(), testing::HasSubstr("event PageNumber(Long(1))\n"
                                               "event JobFail(\"in.ps\", \"out.pdf\")\n"
                                               "stop listening to Distiller\n"));
    EXPECT_EQ(distiller_, "Adobe PDF");
}

TEST_P(Members, CreatePDFfromPSWithSecurityUsesTheOtherDistiller) {
    convert_postscript(true);
    EXPECT_EQ(
        recorded(),
        "create SecureDistiller\n"
        "SecureDistiller.bShowWindow(BOOL True) PUT\n"
        "SecureDistiller.bSpoolJobs(BOOL False) PUT\n"
        "SecureDistiller.FileToPDF2(BSTR \"in.ps\", BSTR \"out.pdf\", BSTR \"Press\", BOOL True) METHOD|GET\n"
        "release SecureDistiller\n");
}

TEST_P(Members, CreatePSfromWordDrivesWord) {
    std::string postscript = path("out.ps");
    std::string document = path("in.doc");
    std::string password = "secret";
    std::string write_password;
    std::string pages = "1-2";
    bool landscape = true;
    bool footer = true;
    bool header = false;
    bool first_page = true;
    core::AlignType alignment = core::AlignType::qrxAlignRight;
    pdf_.CreatePSfromWord(postscript, document, password, write_password, pages, landscape, footer, header,
                          alignment, first_page, distiller_);
    EXPECT_EQ(
        recorded(),
        "create Word.Application\n"
        "Word.Application.Documents() METHOD|GET\n"
        "Word.Documents.Open(BSTR \"in.doc\", PasswordDocument:=BSTR \"secret\", WritePasswordDocument:=BSTR "
        "\"\") "
        "METHOD|GET\n"
        "create Word.Document\n"
        "Word.Application.DisplayAlerts(I2 0) PUT\n"
        "Word.Document.PageSetup() METHOD|GET\n"
        "Word.PageSetup.Orientation(I2 1) PUT\n"
        "Word.Document.Sections(I2 1) METHOD|GET\n"
        "Word.Section.Footers(I2 1) METHOD|GET\n"
        "Word.Footer.PageNumbers() METHOD|GET\n"
        "Word.PageNumbers.Add(PageNumberAlignment:=I2 2, FirstPage:=BOOL True) METHOD|GET\n"
        "Word.Application.ActivePrinter() METHOD|GET\n"
        "Word.Application.ActivePrinter(BSTR \"Adobe PDF\") PUT\n"
        "Word.Document.PrintOut(Outputfilename:=BSTR \"out.ps\", Range:=I2 4, Pages:=BSTR \"1-2\") "
        "METHOD|GET\n"
        "Word.Application.ActivePrinter(BSTR \"Office printer\") PUT\n"
        "Word.Application.DisplayAlerts(I2 -1) PUT\n"
        "Word.Document.Close(BOOL False) METHOD|GET\n"
        "release Word.Document\n"
        "Word.Application.Quit() METHOD|GET\n"
        "release Word.Application\n");
    EXPECT_TRUE(exists("out.ps"));
}

INSTANTIATE_TEST_SUITE_P(Servers, Members,
                         testing::Values(Setting{Kind::in_process, false}, Setting{Kind::in_process, true},
                                         Setting{Kind::local, false}, Setting{Kind::local, true}),
                         [](const auto& setting) {
                             return std::string(setting.param.kind == Kind::local ? "Local" : "InProcess") +
                                    (setting.param.event_names ? "WithEventNames" : "WithoutEventNames");
                         });

}  // namespace
}  // namespace foliant::tests::servers

int main(int argc, char** argv) {
    CoInitialize(nullptr);
    testing::InitGoogleTest(&argc, argv);
    const int failed = RUN_ALL_TESTS();
    CoUninitialize();
    return failed;
}
