// Each parameter of the members, by its name in the interface, reaches its place in what is done outside; and
// which of the caller's variables the members write to.

#include <algorithm>
#include <gtest/gtest.h>

#include "core/build_pdf.h"
#include "core/dispatch.h"
#include "platform/stage/cast/cast.h"
#include "support/staged_session.h"

namespace foliant::converters {
namespace {

using automation::Arguments;
using automation::named;
using automation::Value;

class Parameters : public testing::Test {
  protected:
    Parameters() {
        platform::stage::cast_usual_machine(stage);
        stage.library_folder = "C:\\Temp";
        stage.put_file("C:\\in\\letter.doc");
        stage.put_file("C:\\in\\a.ps");
        object.emplace(stage.platform(), events);
    }

    /// Calls a member; what it did outside is then the journal's.
    void call(std::string_view member, Arguments named_arguments) {
        stage.clear_journal();
        arguments = std::move(named_arguments);
        core::invoke(*object, member, automation::Access::call, arguments);
    }

    /// The lines that contain one of those texts, in order.
    tests::Lines lines_with(const std::vector<std::string_view>& texts) {
        tests::Lines found;
        std::copy_if(stage.lines().begin(), stage.lines().end(), std::back_inserter(found),
                     [&](const std::string& line) {
                         return std::any_of(texts.begin(), texts.end(), [&](std::string_view text) {
                             return line.find(text) != std::string::npos;
                         });
                     });
        return found;
    }

    /// What the caller's variable of that name holds after the call.
    Value variable(std::string_view name) const {
        return std::find_if(arguments.begin(), arguments.end(),
                            [&](const automation::Argument& argument) { return argument.name == name; })
            ->value;
    }

    platform::stage::Stage stage;
    tests::EventsInJournal events{stage};
    std::optional<core::BuildPDF> object;
    Arguments arguments;
};

TEST_F(Parameters, OfCreatePDFfromPSReachDistiller) {
    call("CreatePDFfromPS",
         {named("strPDFFile", "C:\\out\\a.pdf"), named("strPSFile", "C:\\in\\a.ps"),
          named("strDistiller", "My printer"), named("blnShowWindow", true), named("blnSpoolJobs", false),
          named("strJobOptionsFile", "C:\\x.joboptions"), named("blnApplySecurity", true)});
    tests::expect_text(lines_with({"SecureDistiller."}), R"(
        SecureDistiller.bShowWindow = True
        SecureDistiller.bSpoolJobs = False
        SecureDistiller.FileToPDF2("C:\in\a.ps", "C:\out\a.pdf", "C:\x.joboptions", True)
    )");
}

TEST_F(Parameters, OfCreatePDFfromMultiPSReachDistiller) {
    automation::Array inputs;
    inputs.items = {"C:\\in\\a.ps"};
    call("CreatePDFfromMultiPS",
         {named("strPDFFile", "C:\\out\\a.pdf"), named("varPSFiles", inputs),
          named("strDistiller", "My printer"), named("blnShowWindow", false), named("blnSpoolJobs", true),
          named("strJobOptionsFile", "C:\\x.joboptions"), named("blnApplySecurity", true)});
    tests::expect_text(lines_with({"prun", "SecureDistiller."}), R"(
        write C:\out\a.ps: /prun { /mysave save def
        write C:\out\a.ps: (C:/in/a.ps) prun
        SecureDistiller.bShowWindow = False
        SecureDistiller.bSpoolJobs = True
        SecureDistiller.FileToPDF2("C:\out\a.ps", "C:\out\a.pdf", "C:\x.joboptions", True)
    )");
}

TEST_F(Parameters, OfCreatePDFfromWordReachWordAndDistiller) {
    call("CreatePDFfromWord",
         {named("strPDFFile", "C:\\out\\letter.pdf"), named("strWordDocument", "C:\\in\\letter.doc"),
          named("strPassword", "open"), named("strWritePassword", "write"), named("strPages", "2-3"),
          named("blnLandscape", true), named("blnPageNumberInFooter", true),
          named("blnPageNumberInHeader", false), named("lngPageNumberAlignment", std::int32_t{2}),
          named("blnFirstPage", true), named("strDistiller", "My printer"), named("blnShowWindow", true),
          named("blnSpoolJobs", false), named("strJobOptionsFile", "C:\\x.joboptions"),
          named("blnApplySecurity", true)});
    tests::expect_text(
        lines_with({"Open", "Orientation", "ers(", ".Add", "ActivePrinter", "PrintOut", "Distiller."}),
        R"(
        Word.Documents.Open("C:\in\letter.doc", PasswordDocument:="open", WritePasswordDocument:="write")
        Word.PageSetup.Orientation = Integer(1)
        Word.Sections.Footers(Integer(1))
        Word.PageNumbers.Add(PageNumberAlignment:=Integer(2), FirstPage:=True)
        Word.Application.ActivePrinter -> "Office printer"
        Word.Application.ActivePrinter = "My printer"
        Word.Document.PrintOut(Outputfilename:="C:\Temp\13387663.ps", Range:=Integer(4), Pages:="2-3")
        Word.Application.ActivePrinter = "Office printer"
        SecureDistiller.bShowWindow = True
        SecureDistiller.bSpoolJobs = False
        SecureDistiller.FileToPDF2("C:\Temp\13387663.ps", "C:\out\letter.pdf", "C:\x.joboptions", True)
    )");
}

TEST_F(Parameters, OfCreatePDFfromWord2ReachWordTheSenderAndAcrobat) {
    stage.windows["Adobe Acrobat - [letter.pdf]"] = 0;
    call("CreatePDFfromWord2",
         {named("strPDFFile", "C:\\out\\letter.pdf"), named("strWordDocument", "C:\\in\\letter.doc"),
          named("strPassword", "open"), named("strWritePassword", "write"), named("strPages", "2-3"),
          named("blnLandscape", false), named("blnPageNumberInFooter", false),
          named("blnPageNumberInHeader", true), named("lngPageNumberAlignment", std::int32_t{0}),
          named("blnFirstPage", false), named("strDistiller", "My printer"), named("blnCloseAcrobat", true)});
    tests::expect_text(lines_with({"Open", "Orientation", "ers(", ".Add", "ActivePrinter", "save pdf",
                                   "PrintOut", "WM_CLOSE"}),
                       R"(
        Word.Documents.Open("C:\in\letter.doc", PasswordDocument:="open", WritePasswordDocument:="write")
        Word.PageSetup.Orientation = Integer(0)
        Word.Sections.Headers(Integer(1))
        Word.PageNumbers.Add(PageNumberAlignment:=Integer(0), FirstPage:=False)
        Word.Application.ActivePrinter -> "Office printer"
        Word.Application.ActivePrinter = "My printer"
        start (hidden) C:\WINDOWS\system32\quorixsend.exe save pdf file as~Edit~C:\out\letter.pdf~0~0~
        Word.Document.PrintOut(Range:=Integer(4), Pages:="2-3")
        send WM_CLOSE (0, "0") to "Adobe Acrobat - [letter.pdf]"
        Word.Application.ActivePrinter = "Office printer"
    )");
}

TEST_F(Parameters, OfCreatePSfromWordReachWord) {
    call("CreatePSfromWord",
         {named("strPSFile", "C:\\out\\letter.ps"), named("strWordDocument", "C:\\in\\letter.doc"),
          named("strPassword", "open"), named("strWritePassword", "write"), named("strPages", "2-3"),
          named("blnLandscape", true), named("blnPageNumberInFooter", true),
          named("blnPageNumberInHeader", false), named("lngPageNumberAlignment", std::int32_t{0}),
          named("blnFirstPage", true), named("strDistiller", "My printer")});
    tests::expect_text(lines_with({"Open", "Orientation", "ers(", ".Add", "ActivePrinter", "PrintOut"}), R"(
        Word.Documents.Open("C:\in\letter.doc", PasswordDocument:="open", WritePasswordDocument:="write")
        Word.PageSetup.Orientation = Integer(1)
        Word.Sections.Footers(Integer(1))
        Word.PageNumbers.Add(PageNumberAlignment:=Integer(0), FirstPage:=True)
        Word.Application.ActivePrinter -> "Office printer"
        Word.Application.ActivePrinter = "My printer"
        Word.Document.PrintOut(Outputfilename:="C:\out\letter.ps", Range:=Integer(4), Pages:="2-3")
        Word.Application.ActivePrinter = "Office printer"
    )");
}

TEST_F(Parameters, ThatAreLeftOutNumberNothingAndPrintAllPagesInPortrait) {
    call("CreatePSfromWord",
         {named("strPSFile", "C:\\out\\letter.ps"), named("strWordDocument", "C:\\in\\letter.doc")});
    tests::expect_text(lines_with({"Open", "Orientation", "ers(", ".Add", "ActivePrinter", "PrintOut"}), R"(
        Word.Documents.Open("C:\in\letter.doc", PasswordDocument:="", WritePasswordDocument:="")
        Word.PageSetup.Orientation = Integer(0)
        Word.Application.ActivePrinter -> "Office printer"
        Word.Application.ActivePrinter = "Adobe PDF"
        Word.Document.PrintOut(Outputfilename:="C:\out\letter.ps")
        Word.Application.ActivePrinter = "Office printer"
    )");
}

TEST_F(Parameters, TheAlignmentOfPageNumbersIsCentredWhenItIsLeftOut) {
    call("CreatePSfromWord",
         {named("strPSFile", "C:\\out\\letter.ps"), named("strWordDocument", "C:\\in\\letter.doc"),
          named("blnPageNumberInFooter", true)});
    tests::expect_text(lines_with({".Add"}),
                       "Word.PageNumbers.Add(PageNumberAlignment:=Integer(1), FirstPage:=False)");
}

TEST_F(Parameters, ABlankPrinterIsFilledInByThePostScriptMembersOnly) {
    const auto printer_after = [&](std::string_view member, std::string_view output, std::string_view input,
                                   const Value& source) {
        call(member, {named(output, "C:\\out\\x.pdf"), named(input, source), named("strDistiller", " ")});
        return variable("strDistiller");
    };
    EXPECT_EQ(printer_after("CreatePDFfromPS", "strPDFFile", "strPSFile", "C:\\in\\a.ps"),
              Value("Adobe PDF"));
    EXPECT_EQ(printer_after("CreatePDFfromMultiPS", "strPDFFile", "varPSFiles", automation::Array()),
              Value("Adobe PDF"));
    for (const char* member : {"CreatePDFfromWord", "CreatePDFfromWord2"}) {
        EXPECT_EQ(printer_after(member, "strPDFFile", "strWordDocument", "C:\\in\\letter.doc"), Value(" "))
            << member;
    }
    EXPECT_EQ(printer_after("CreatePSfromWord", "strPSFile", "strWordDocument", "C:\\in\\letter.doc"),
              Value(" "));
}

}  // namespace
}  // namespace foliant::converters
