#include <gtest/gtest.h>

#include "end_to_end/command_test.h"

namespace foliant::end_to_end {
namespace {

class AnyDocument : public CommandTest {
  protected:
    void SetUp() override {
        REQUIRE_HOST("PDFMaker");
        REQUIRE_HOST("Acrobat");
    }
};

TEST_F(AnyDocument, BecomesAPdfThatAcrobatHasSaved) {
    shop.write("Größe.first.html", "<html><body>some words</body></html>");
    const Finished call = shop.foliant({"CreatePDF", "Größe.first.html", "out.pdf"});
    EXPECT_EQ(call.exit_code, 0) << call.errors;
    EXPECT_NE(shop.text("out.pdf").find("some words"), std::string::npos);
    EXPECT_NE(shop.run({"pdfinfo", "out.pdf"}).output.find("Optimized:       yes"), std::string::npos)
        << "as its flags ask for";
    EXPECT_EQ(shop.files(), (std::set<std::string>{"Größe.first.html", "out.pdf"}));
}

TEST_F(AnyDocument, ThatCannotBeReadFailsInsteadOfWaiting) {
    std::string noise;
    for (int i = 0; i < 4096; ++i)
        noise += static_cast<char>(i * 7);
    shop.write("noise", noise);
    const Finished call = shop.foliant({"CreatePDF", "noise", "out.pdf"});
    EXPECT_EQ(call.exit_code, 5);
    EXPECT_NE(call.errors.find("noise is not a document that PDFMaker reads"), std::string::npos)
        << call.errors;
    EXPECT_EQ(shop.files(), std::set<std::string>{"noise"});
}

}  // namespace
}  // namespace foliant::end_to_end
