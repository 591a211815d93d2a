#include <cstdlib>
#include <gtest/gtest.h>

#include "end_to_end/command.h"

namespace foliant::end_to_end {
namespace {

TEST(PrintPDF, RefusesAPrinterThatDoesNotExistBeforeAnythingIsPrinted) {
    REQUIRE_HOST("Acrobat");
    const Workshop workshop;
    workshop.write("a.pdf", "not even looked at");
    const Finished refused = workshop.foliant({"PrintPDF", "a.pdf", "--printer", "No such printer"});
    EXPECT_EQ(refused.exit_code, 5);
    EXPECT_EQ(refused.errors,
              "foliant: There is no printer \"No such printer\". The printers are: \"Adobe PDF\".\n");
    const Finished folder = workshop.foliant({"PrintPDFinDir", ".", "--printer", "No such printer"});
    EXPECT_EQ(folder.exit_code, 5);
    EXPECT_EQ(folder.errors, refused.errors);
}

TEST(PrintPDF, SaysWithoutPrintersThatThereIsNone) {
    REQUIRE_HOST("Acrobat");
    const Workshop workshop;
    workshop.write("a.pdf", "not even looked at");
    for (const std::vector<std::string>& words :
         std::vector<std::vector<std::string>>{{"PrintPDF", "a.pdf", "--silent"},
                                               {"PrintPDF", "a.pdf", "--printer", "Adobe PDF"},
                                               {"PrintPDFinDir", "."}}) {
        const Finished refused = workshop.foliant(words);
        EXPECT_EQ(refused.exit_code, 5);
        EXPECT_EQ(
            refused.errors,
            "foliant: \"Adobe PDF\" prints into a file, and nobody is there to say into which. There is no other "
            "printer here: set one up with CUPS, and lpstat -e lists it.\n");
    }
    EXPECT_EQ(workshop.foliant({"PrintPDF", "none.pdf"}).exit_code, 3);
}

TEST(Printers, ThatDoNotExistAreRefusedByEveryMemberThatPrints) {
    const Workshop workshop;
    workshop.write("a.txt", "not even looked at");
    const std::vector<std::string> sheet{"Sheet", "A1:B2"};
    for (const auto& [member, needed] : std::vector<std::pair<std::string, std::vector<std::string>>>{
             {"CreatePDFfromTextFile", {}},
             {"CreatePDFfromTextFile2", {}},
             {"CreatePDFfromTextFile3", {}},
             {"CreatePSfromTextFile", {}},
             {"CreatePDFfromWord", {}},
             {"CreatePDFfromWord2", {}},
             {"CreatePSfromWord", {}},
             {"CreatePDFfromExcel", sheet},
             {"CreatePDFfromExcel2", sheet},
             {"CreatePSfromExcel", sheet},
             {"CreatePDFfromPowerPoint", {}},
             {"CreatePDFfromPowerPoint2", {}},
             {"CreatePSfromPowerPoint", {}},
             {"CreatePDFfromVisio", {}},
             {"CreatePDFfromCrystalReport", {}},
         }) {
        std::vector<std::string> words{member, "made", "a.txt"};
        words.insert(words.end(), needed.begin(), needed.end());
        words.insert(words.end(), {"--distiller", "No such printer"});
        const Finished refused = workshop.foliant(words);
        EXPECT_EQ(refused.exit_code, 5) << member;
        EXPECT_EQ(refused.errors,
                  "foliant: There is no printer \"No such printer\". The printers are: \"Adobe PDF\".\n")
            << member;
        EXPECT_FALSE(std::filesystem::exists(workshop.path("made"))) << member;
    }
}

/// A machine with a real spooler and a real network printer, which keeps what it gets in the folder "jobs".
class PrintServer : public testing::Test {
  protected:
    PrintServer() {
        shop.run({"mkdir", "in"});
        for (const std::string pages : {"1", "4"})
            shop.run({"gs", "-q", "-dBATCH", "-dNOPAUSE", "-sDEVICE=pdfwrite", "-o", "in/" + pages + ".pdf",
                      "-c",
                      "/Helvetica 20 selectfont 1 1 " + pages +
                          " { 72 700 moveto (page ) show 3 string cvs show showpage } for"});
    }

    Finished foliant(std::vector<std::string> words) const {
        words.insert(words.begin(), {PRINT_SERVER, "jobs", FOLIANT_COMMAND});
        return shop.run(words);
    }

    std::vector<std::string> jobs() const { return tests::names_in(shop.path("jobs")); }

    Workshop shop;
};

constexpr int no_print_server = 77;

#define REQUIRE_PRINT_SERVER(finished)                                                      \
    if ((finished).exit_code == no_print_server) {                                          \
        if (std::getenv("FOLIANT_REQUIRE_ENGINES") != nullptr) FAIL() << (finished).errors; \
        GTEST_SKIP() << (finished).errors;                                                  \
    }

TEST_F(PrintServer, GetsThePagesThatAreAskedFor) {
    REQUIRE_HOST("Acrobat");
    const Finished printed = foliant({"PrintPDF", "in/4.pdf", "--printer", "Paper", "--silent",
                                      "--first-page-no", "2", "--last-page-no", "3"});
    REQUIRE_PRINT_SERVER(printed);
    EXPECT_EQ(printed.exit_code, 0) << printed.errors;
    ASSERT_EQ(jobs(), tests::Names{"1-4_pdf.pdf"});
    EXPECT_EQ(shop.text("jobs/1-4_pdf.pdf"), "page 2\n\n\fpage 3\n\n\f");
}

TEST_F(PrintServer, IsNamedWhereTheDefaultPrinterMakesPdfs) {
    REQUIRE_HOST("Acrobat");
    const Finished refused = foliant({"PrintPDF", "in/1.pdf", "--printer", "Adobe PDF"});
    REQUIRE_PRINT_SERVER(refused);
    EXPECT_EQ(refused.exit_code, 5);
    EXPECT_EQ(
        refused.errors,
        "foliant: \"Adobe PDF\" prints into a file, and nobody is there to say into which. Name another printer "
        "with --printer: \"Paper\".\n");
}

TEST_F(PrintServer, GetsEveryFileOfAFolder) {
    REQUIRE_HOST("Acrobat");
    const Finished printed = foliant({"PrintPDFinDir", "in", "--printer", "Paper"});
    REQUIRE_PRINT_SERVER(printed);
    EXPECT_EQ(printed.exit_code, 0) << printed.errors;
    ASSERT_EQ(jobs().size(), 2U);
    EXPECT_EQ(shop.pages("jobs/" + jobs()[0]) + shop.pages("jobs/" + jobs()[1]), 5);
}

}  // namespace
}  // namespace foliant::end_to_end
