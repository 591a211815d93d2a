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

}  // namespace
}  // namespace foliant::end_to_end
