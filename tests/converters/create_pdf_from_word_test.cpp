#include <algorithm>
#include <gtest/gtest.h>

#include "converters/word_member.h"

namespace foliant::converters {
namespace {

using automation::Arguments;
using automation::Error;
using automation::RuntimeError;
using automation::Value;
using platform::stage::StageObject;

class CreatePDFfromWord : public WordMember {
  protected:
    void call() {
        run([&] { converters::CreatePDFfromWord(session(), "C:\\out\\letter.pdf", job, options); });
    }

    /// What happens from Word's end on.
    tests::Lines after_word() const {
        const auto quit = std::find(stage.lines().begin(), stage.lines().end(), "release Word.Application");
        return {quit, stage.lines().end()};
    }
};

TEST_F(CreatePDFfromWord, PrintsToATemporaryFileQuitsWordAndHasDistillerConvert) {
    call();
    expect_journal(R"(
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
}

TEST_F(CreatePDFfromWord, PrintsTheRangeOfPagesThatIsNamed) {
    job.pages = "1-3,5";
    call();
    EXPECT_EQ(stage.lines().at(11),
              "Word.Document.PrintOut(Outputfilename:=\"C:\\Temp\\13387663.ps\", Range:=Integer(4), "
              "Pages:=\"1-3,5\")");
}

TEST_F(CreatePDFfromWord, PassesTheRangeUntrimmedAndTakesBlanksForNone) {
    job.pages = " 2 ";
    call();
    EXPECT_EQ(stage.lines().at(11),
              "Word.Document.PrintOut(Outputfilename:=\"C:\\Temp\\13387663.ps\", Range:=Integer(4), "
              "Pages:=\" 2 \")");
    stage.clear_journal();
    job.pages = "  ";
    call();
    EXPECT_EQ(stage.lines().at(11), "Word.Document.PrintOut(Outputfilename:=\"C:\\Temp\\90360397.ps\")");
}

TEST_F(CreatePDFfromWord, DeletesATemporaryFileOfThatNameBeforePrinting) {
    stage.put_file("C:\\Temp\\13387663.ps");
    call();
    const tests::Lines middle(stage.lines().begin() + 9, stage.lines().begin() + 13);
    tests::expect_text(middle, R"(
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
    options = {.show_window = true,
               .spool_jobs = true,
               .job_options_file = "C:\\Press.joboptions",
               .apply_security = false};
    call();
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
    options.apply_security = true;
    call();
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
    options.apply_security = true;
    call();
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
    expect_journal(R"(
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
    EXPECT_EQ(stage.lines().back(), "raise 51 from Foliant: the test has seen enough");
}

}  // namespace
}  // namespace foliant::converters
