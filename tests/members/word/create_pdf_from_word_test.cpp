#include <gtest/gtest.h>

#include "members/word/word_member.h"

namespace foliant::members {
namespace {

using automation::Arguments;
using automation::Error;
using automation::named;
using automation::RuntimeError;
using automation::Value;
using platform::stage::StageObject;

const tests::MemberCall usual{.member = "CreatePDFfromWord",
                              .arrange = put_document,
                              .arguments = {named("strPDFFile", "C:\\out\\letter.pdf"),
                                            named("strWordDocument", "C:\\in\\letter.doc")}};

const tests::WholeJournal journal(usual, R"(
    length C:\in\letter.doc -> 1000
    create Word.Application
    Word.Application.Documents
    Word.Documents.Open("C:\in\letter.doc", PasswordDocument:="", WritePasswordDocument:="")
    Word.Application.DisplayAlerts = Integer(0)
    Word.Document.PageSetup
    Word.PageSetup.Orientation = Integer(0)
    Word.Application.ActivePrinter -> "Office printer"
    Word.Application.ActivePrinter = "Adobe PDF"
    look for 13387663 in the current folder
    length C:\Temp\13387663.ps -> not found
    Word.Document.PrintOut(Outputfilename:="C:\Temp\13387663.ps")
    sleep 2000 ms
    pump messages
    length C:\Temp\13387663.ps -> 1000
    length C:\Temp\13387663.ps -> 1000
    sleep 1000 ms
    length C:\Temp\13387663.ps -> 1000
    Word.Application.ActivePrinter = "Office printer"
    Word.Application.DisplayAlerts = Integer(-1)
    Word.Document.Close(False)
    release Word.Document
    Word.Application.Quit()
    release Word.Application
    length C:\out\letter.pdf -> not found
    create Distiller
    listen to Distiller
    Distiller.bShowWindow = False
    Distiller.bSpoolJobs = False
    Distiller.FileToPDF("C:\Temp\13387663.ps", "C:\out\letter.pdf", "")
    event JobStart("C:\Temp\13387663.ps", "C:\out\letter.pdf")
    event PercentDone(Long(100))
    event PageNumber(Long(1))
    event JobDone("C:\Temp\13387663.ps", "C:\out\letter.pdf")
    stop listening to Distiller
    release Distiller
    delete C:\Temp\13387663.ps
)");

const tests::ParameterProbe parameters(
    {.member = "CreatePDFfromWord",
     .arrange = put_document,
     .arguments = {named("strPDFFile", "C:\\out\\letter.pdf"), named("strWordDocument", "C:\\in\\letter.doc"),
                   named("strPassword", "open"), named("strWritePassword", "write"), named("strPages", "2-3"),
                   named("blnLandscape", true), named("blnPageNumberInFooter", true),
                   named("blnPageNumberInHeader", false), named("lngPageNumberAlignment", std::int32_t{2}),
                   named("blnFirstPage", true), named("strDistiller", "My printer"),
                   named("blnShowWindow", true), named("blnSpoolJobs", false),
                   named("strJobOptionsFile", "C:\\x.joboptions"), named("blnApplySecurity", true)}},
    {.lines_with = {"Open", "Orientation", "ers(", ".Add", "ActivePrinter", "PrintOut", "Distiller."},
     .expected = R"(
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
    )",
     .flags = R"(
        blnLandscape:
            - Word.PageSetup.Orientation = Integer(1)
            + Word.PageSetup.Orientation = Integer(0)
        blnPageNumberInFooter:
            - Word.Sections.Footers(Integer(1))
            - Word.PageNumbers.Add(PageNumberAlignment:=Integer(2), FirstPage:=True)
        blnPageNumberInHeader:
            + Word.Sections.Headers(Integer(1))
            + Word.PageNumbers.Add(PageNumberAlignment:=Integer(2), FirstPage:=True)
        blnFirstPage:
            - Word.PageNumbers.Add(PageNumberAlignment:=Integer(2), FirstPage:=True)
            + Word.PageNumbers.Add(PageNumberAlignment:=Integer(2), FirstPage:=False)
        blnShowWindow:
            - SecureDistiller.bShowWindow = True
            + SecureDistiller.bShowWindow = False
        blnSpoolJobs:
            - SecureDistiller.bSpoolJobs = False
            + SecureDistiller.bSpoolJobs = True
        blnApplySecurity:
            - SecureDistiller.bShowWindow = True
            - SecureDistiller.bSpoolJobs = False
            - SecureDistiller.FileToPDF2("C:\Temp\13387663.ps", "C:\out\letter.pdf", "C:\x.joboptions", True)
            + Distiller.bShowWindow = True
            + Distiller.bSpoolJobs = False
            + Distiller.FileToPDF("C:\Temp\13387663.ps", "C:\out\letter.pdf", "C:\x.joboptions")
    )"});

class CreatePDFfromWord : public WordMember {
  protected:
    CreatePDFfromWord() : WordMember(usual) {}

    /// What happens from Word's end on.
    tests::Lines after_word() const { return journal_from("release Word.Application"); }
};

TEST_F(CreatePDFfromWord, LeavesABlankPrinterNameToTheCaller) {
    call({named("strDistiller", " ")});
    EXPECT_EQ(variable("strDistiller"), Value(" "));
}

TEST_F(CreatePDFfromWord, PrintsTheRangeOfPagesThatIsNamed) {
    call({named("strPages", "1-3,5")});
    EXPECT_EQ(line_with("PrintOut"),
              "Word.Document.PrintOut(Outputfilename:=\"C:\\Temp\\13387663.ps\", "
              "Range:=Integer(4), Pages:=\"1-3,5\")");
}

TEST_F(CreatePDFfromWord, PassesTheRangeUntrimmedAndTakesBlanksForNone) {
    call({named("strPages", " 2 ")});
    EXPECT_EQ(line_with("PrintOut"),
              "Word.Document.PrintOut(Outputfilename:=\"C:\\Temp\\13387663.ps\", "
              "Range:=Integer(4), Pages:=\" 2 \")");
    stage.clear_journal();
    call({named("strPages", "  ")});
    EXPECT_EQ(line_with("PrintOut"), "Word.Document.PrintOut(Outputfilename:=\"C:\\Temp\\90360397.ps\")");
}

TEST_F(CreatePDFfromWord, DeletesATemporaryFileOfThatNameBeforePrinting) {
    stage.put_file("C:\\Temp\\13387663.ps");
    call();
    tests::expect_text(journal_between("look for", "PrintOut"), R"(
        look for 13387663 in the current folder
        length C:\Temp\13387663.ps -> 1000
        delete C:\Temp\13387663.ps
        Word.Document.PrintOut(Outputfilename:="C:\Temp\13387663.ps")
    )");
}

TEST_F(CreatePDFfromWord, DeletesTheOldPdfOnlyAfterWordWasQuit) {
    stage.put_file("C:\\out\\letter.pdf");
    call();
    tests::expect_text(after_word(), R"(
        release Word.Application
        length C:\out\letter.pdf -> 1000
        delete C:\out\letter.pdf
        create Distiller
        listen to Distiller
        Distiller.bShowWindow = False
        Distiller.bSpoolJobs = False
        Distiller.FileToPDF("C:\Temp\13387663.ps", "C:\out\letter.pdf", "")
        event JobStart("C:\Temp\13387663.ps", "C:\out\letter.pdf")
        event PercentDone(Long(100))
        event PageNumber(Long(1))
        event JobDone("C:\Temp\13387663.ps", "C:\out\letter.pdf")
        stop listening to Distiller
        release Distiller
        delete C:\Temp\13387663.ps
    )");
}

TEST_F(CreatePDFfromWord, TheOldPdfStaysWhenPrintingFails) {
    stage.put_file("C:\\out\\letter.pdf");
    make_word_fail_in("Word.Document.PrintOut");
    call();
    EXPECT_EQ(stage.journal().find("delete"), std::string::npos);
}

TEST_F(CreatePDFfromWord, PassesItsOptionsToDistiller) {
    call({named("blnShowWindow", true), named("blnSpoolJobs", true),
          named("strJobOptionsFile", "C:\\Press.joboptions")});
    tests::expect_text(after_word(), R"(
        release Word.Application
        length C:\out\letter.pdf -> not found
        create Distiller
        listen to Distiller
        Distiller.bShowWindow = True
        Distiller.bSpoolJobs = True
        Distiller.FileToPDF("C:\Temp\13387663.ps", "C:\out\letter.pdf", "C:\Press.joboptions")
        event JobStart("C:\Temp\13387663.ps", "C:\out\letter.pdf")
        event PercentDone(Long(100))
        event PageNumber(Long(1))
        event JobDone("C:\Temp\13387663.ps", "C:\out\letter.pdf")
        stop listening to Distiller
        release Distiller
        delete C:\Temp\13387663.ps
    )");
}

TEST_F(CreatePDFfromWord, WithSecurityAndAcrobatSixUsesTheOtherDistiller) {
    call({named("blnApplySecurity", true)});
    tests::expect_text(after_word(), R"(
        release Word.Application
        length C:\out\letter.pdf -> not found
        create SecureDistiller
        SecureDistiller.bShowWindow = False
        SecureDistiller.bSpoolJobs = False
        SecureDistiller.FileToPDF2("C:\Temp\13387663.ps", "C:\out\letter.pdf", "", True)
        release SecureDistiller
        delete C:\Temp\13387663.ps
    )");
}

TEST_F(CreatePDFfromWord, WithSecurityAndAcrobatFiveConvertsWithoutIt) {
    register_acrobat("5.0");
    call({named("blnApplySecurity", true)});
    EXPECT_EQ(stage.journal().find("SecureDistiller"), std::string::npos);
    EXPECT_NE(stage.journal().find("\nevent JobDone("), std::string::npos);
}

TEST_F(CreatePDFfromWord, ATemporaryFileThatIsGoneAtTheEndIsAFailure) {
    stage.when("Distiller.FileToPDF", [](StageObject& self, const Arguments&) {
        self.stage().files.clear();
        return Value(std::int16_t{1});
    });
    call();
    tests::expect_text(after_word(), R"(
        release Word.Application
        length C:\out\letter.pdf -> not found
        create Distiller
        listen to Distiller
        Distiller.bShowWindow = False
        Distiller.bSpoolJobs = False
        Distiller.FileToPDF("C:\Temp\13387663.ps", "C:\out\letter.pdf", "")
        stop listening to Distiller
        release Distiller
        delete C:\Temp\13387663.ps
        raise 53 from Foliant: File not found
    )");
}

TEST_F(CreatePDFfromWord, TheTemporaryFileStaysWhenDistillerFails) {
    stage.when("Distiller.FileToPDF",
               [](StageObject&, const Arguments&) -> Value { throw Error(RuntimeError::disk_full); });
    call();
    tests::expect_text(after_word(), R"(
        release Word.Application
        length C:\out\letter.pdf -> not found
        create Distiller
        listen to Distiller
        Distiller.bShowWindow = False
        Distiller.bSpoolJobs = False
        Distiller.FileToPDF("C:\Temp\13387663.ps", "C:\out\letter.pdf", "")
        stop listening to Distiller
        release Distiller
        raise 61 from Foliant: Disk full
    )");
}

TEST_F(CreatePDFfromWord, ClosesTheDocumentAndQuitsWordWhenPrintingFails) {
    make_word_fail_in("Word.Document.PrintOut");
    call();
    tests::expect_text(journal_from("PrintOut"), R"(
        Word.Document.PrintOut(Outputfilename:="C:\Temp\13387663.ps")
        Word.Document.Close(False)
        release Word.Document
        Word.Application.Quit()
        release Word.Application
        raise -2147352567 from Foliant: Word cannot do that.
    )");
}

TEST_F(CreatePDFfromWord, WaitsWithoutEndForAFileThatWordNeverWrites) {
    stage.answer("Word.Document.PrintOut", Value());
    int rounds = 0;
    stage.on_pump = [&] {
        if (++rounds == 1000) throw Error(RuntimeError::internal_error, "the test has seen enough");
    };
    call();
    EXPECT_EQ(rounds, 1000);
    EXPECT_EQ(last_line(), "raise 51 from Foliant: the test has seen enough");
}

// Passed over by rule: the orientation, the existence tests (the one that waits for the printed file takes
// another round), the look for a file that is named like the temporary one. A failing Close or Quit is called
// again.

const tests::MemberFaults faults({.member = "CreatePDFfromWord",
                                  .arrange = put_document_and_old_output,
                                  .arguments = {"C:\\out\\letter.pdf", "C:\\in\\letter.doc",
                                                named("blnPageNumberInFooter", true)}},
                                 {.endings = {let_word_go, quit_word, let_distiller_go}, .report = R"(
    fails: length C:\in\letter.doc
        raise -2147467008 from Foliant: File C:\in\letter.doc does not exist.
    fails: create Word.Application
        raise the failure
    fails: Word.Application.Documents
    fails: Word.Documents.Open("C:\in\letter.doc", PasswordDocument:="", WritePasswordDocument:="")
        quit Word
        raise the failure
    fails: Word.Application.DisplayAlerts = Integer(0)
        let Word go
        raise the failure
    fails: Word.Document.PageSetup
        go on, but
        - Word.PageSetup.Orientation = Integer(0)
    fails: Word.PageSetup.Orientation = Integer(0)
        go on
    fails: Word.Document.Sections(Integer(1))
    fails: Word.Sections.Footers(Integer(1))
    fails: Word.Footers.PageNumbers
    fails: Word.PageNumbers.Add(PageNumberAlignment:=Integer(1), FirstPage:=False)
    fails: Word.Application.ActivePrinter
    fails: Word.Application.ActivePrinter = "Adobe PDF"
        let Word go
        raise the failure
    fails: look for 13387663 in the current folder
    fails: length C:\Temp\13387663.ps
        go on
    fails: Word.Document.PrintOut(Outputfilename:="C:\Temp\13387663.ps")
    fails: sleep 2000 ms
    fails: pump messages
        let Word go
        raise the failure
    fails: length C:\Temp\13387663.ps
        go on, but
        + pump messages
        + length C:\Temp\13387663.ps -> 1000
    fails: length C:\Temp\13387663.ps
    fails: sleep 1000 ms
    fails: length C:\Temp\13387663.ps
    fails: Word.Application.ActivePrinter = "Office printer"
    fails: Word.Application.DisplayAlerts = Integer(-1)
    fails: Word.Document.Close(False)
        let Word go
        raise the failure
    fails: Word.Application.Quit()
        quit Word
        raise the failure
    fails: length C:\out\letter.pdf
        go on, but
        - delete C:\out\letter.pdf
    fails: delete C:\out\letter.pdf
    fails: create Distiller
        raise the failure
    fails: listen to Distiller
        release Distiller
        raise the failure
    fails: Distiller.bShowWindow = False
    fails: Distiller.bSpoolJobs = False
    fails: Distiller.FileToPDF("C:\Temp\13387663.ps", "C:\out\letter.pdf", "")
        let Distiller go
        raise the failure
    fails: delete C:\Temp\13387663.ps
        raise the failure
)"});

const tests::MemberFaults faults_with_security({.member = "CreatePDFfromWord",
                                                .of = "WithSecurity",
                                                .arrange = put_document_and_old_output,
                                                .arguments = {"C:\\out\\letter.pdf", "C:\\in\\letter.doc",
                                                              named("blnApplySecurity", true)}},
                                               {.from = "delete C:\\out\\letter.pdf", .report = R"(
    fails: delete C:\out\letter.pdf
    fails: create SecureDistiller
        raise the failure
    fails: SecureDistiller.bShowWindow = False
    fails: SecureDistiller.bSpoolJobs = False
    fails: SecureDistiller.FileToPDF2("C:\Temp\13387663.ps", "C:\out\letter.pdf", "", True)
        release SecureDistiller
        raise the failure
    fails: delete C:\Temp\13387663.ps
        raise the failure
)"});

}  // namespace
}  // namespace foliant::members
