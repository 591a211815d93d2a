// AutoCAD drawings: text that is made here, and a .dwg that make_house.c has made.

#include <gtest/gtest.h>

#include "end_to_end/command_test.h"

namespace foliant::end_to_end {
namespace {

std::string text_on(const std::string& words, const std::string& more = "") {
    return "0\nTEXT\n8\n0\n10\n0\n20\n0\n40\n5\n1\n" + words + "\n" + more;
}

/// Whether Node.js is there and not too old, and LibreDWG, which nobody has to have.
bool can_read_dwg(const Workshop& shop) {
    if (!std::filesystem::exists(std::filesystem::path(LIBREDWG) / "wasm" / "libredwg-web.js")) return false;
    for (const char* node : {"/usr/local/bin/node", "/usr/bin/node", "/usr/bin/nodejs"})
        if (std::filesystem::exists(node))
            return shop.run({node, "--disable-wasm-trap-handler", "--eval", "0"}).exit_code == 0;
    return false;
}

class DrawingToPdf : public CommandTest {
  protected:
    void SetUp() override {
        REQUIRE_HOST("AutoCAD");
        REQUIRE_HOST("Acrobat");
        shop.write("house.dxf", "0\nSECTION\n2\nENTITIES\n" + text_on("the model") +
                                    text_on("the sheet", "67\n1\n") + "0\nENDSEC\n0\nEOF\n");
    }
};

TEST_F(DrawingToPdf, OneLayoutOrSeveral) {
    const Finished one = shop.foliant({"CreatePDFfromAutoCAD", "a.pdf", "house.dxf", "--layout", "layout1"});
    EXPECT_EQ(one.exit_code, 0) << one.errors;
    EXPECT_EQ(shop.pages("a.pdf"), 1);
    EXPECT_NE(shop.text("a.pdf").find("the sheet"), std::string::npos);
    const Finished both =
        shop.foliant({"CreatePDFfromMultiAutoCAD", "b.pdf", "house.dxf", "--layouts", "1", "Model"});
    EXPECT_EQ(both.exit_code, 0) << both.errors;
    EXPECT_EQ(shop.pages("b.pdf"), 2);
    const std::string text = shop.text("b.pdf");
    EXPECT_LT(text.find("the sheet"), text.find("the model")) << text;
}

TEST_F(DrawingToPdf, LayoutsThatAreNotThereAreTold) {
    for (const std::vector<std::string>& layout :
         {std::vector<std::string>{}, std::vector<std::string>{"--layout", "Roof"}}) {
        std::vector<std::string> words{"CreatePDFfromAutoCAD", "a.pdf", "house.dxf"};
        words.insert(words.end(), layout.begin(), layout.end());
        const Finished call = shop.foliant(words);
        EXPECT_EQ(call.exit_code, 5) << call.errors;
        EXPECT_NE(call.errors.find("0 \"Model\", 1 \"Layout1\""), std::string::npos) << call.errors;
    }
    EXPECT_EQ(shop.pages("a.pdf"), 0) << "there is no such file";
}

TEST_F(DrawingToPdf, ALayoutThatIsNotNamedIsAskedForByItsOption) {
    const std::string order =
        "The order is: foliant CreatePDFfromAutoCAD PDF_FILE DWG_FILE --layout LAYOUT\n";
    const Finished none = shop.foliant({"CreatePDFfromAutoCAD", "a.pdf", "house.dxf"});
    EXPECT_TRUE(none.errors.ends_with("1 \"Layout1\".\n" + order)) << none.errors;
    const Finished misplaced = shop.foliant({"CreatePDFfromAutoCAD", "a.pdf", "house.dxf", "Model"});
    EXPECT_EQ(misplaced.exit_code, 2);
    EXPECT_NE(misplaced.errors.find(order), std::string::npos) << misplaced.errors;
    const Finished wrong = shop.foliant({"CreatePDFfromAutoCAD", "a.pdf", "house.dxf", "--layout", "Roof"});
    EXPECT_EQ(wrong.errors.find(order), std::string::npos) << wrong.errors;
}

TEST_F(DrawingToPdf, ADwgIsReadWhereThatCanBeAndRefusedWithWhatItTakesElsewhere) {
    std::filesystem::copy_file(HOUSE_DWG, shop.path("real.dwg"));
    const Finished call =
        shop.foliant({"CreatePDFfromMultiAutoCAD", "a.pdf", "real.dwg", "--layouts", "Model", "1"});
    if (!can_read_dwg(shop)) {
        EXPECT_EQ(call.exit_code, 5);
        EXPECT_NE(call.errors.find("takes Node.js 20.15 or later"), std::string::npos) << call.errors;
        EXPECT_NE(call.errors.find("save it as DXF"), std::string::npos) << call.errors;
        EXPECT_EQ(shop.pages("a.pdf"), 0) << "there is no such file";
        return;
    }
    EXPECT_EQ(call.exit_code, 0) << call.errors;
    EXPECT_EQ(shop.pages("a.pdf"), 2);
    EXPECT_EQ(shop.text("a.pdf"), "the model\n\n\fthe sheet\n\n\f")
        << "without what is on a layer that is off";
}

}  // namespace
}  // namespace foliant::end_to_end
