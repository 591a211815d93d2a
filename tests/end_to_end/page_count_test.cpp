#include <gtest/gtest.h>

#include "end_to_end/command_test.h"

namespace foliant::end_to_end {
namespace {

const std::string two_pages =
    "%PDF-1.4\n"
    "1 0 obj << /Type /Catalog /Pages 2 0 R >> endobj\n"
    "2 0 obj << /Type /Pages /Count 2 /Kids [3 0 R 4 0 R] >> endobj\n"
    "3 0 obj << /Type /Page /Parent 2 0 R /MediaBox [0 0 9 9] >> endobj\n"
    "4 0 obj << /Type /Page /Parent 2 0 R /MediaBox [0 0 9 9] >> endobj\n"
    "trailer << /Size 5 /Root 1 0 R >>\n"
    "%%EOF\n";

class CountingPages : public CommandTest {
  protected:
    void SetUp() override { REQUIRE_HOST("Acrobat"); }

    void protect(const std::string& name) const {
        shop.write("open.pdf", two_pages);
        // qpdf mends the file, and says so by its exit code.
        EXPECT_EQ(
            shop.run({"qpdf", "--encrypt", "geheim ß", "owner", "256", "--", "open.pdf", name}).exit_code, 3);
    }
};

TEST_F(CountingPages, PrintsTheirNumber) {
    shop.write("a.pdf", two_pages);
    const Finished call = shop.foliant({"GetNumPagesPDF", "a.pdf"});
    EXPECT_EQ(call.exit_code, 0) << call.errors;
    EXPECT_EQ(call.output, "2\n");
}

/// A few kilobytes that unpack to half a gigabyte of objects.
TEST_F(CountingPages, OfAnObjectStreamThatUnpacksWithoutEndKeepsToItsMemory) {
    shop.run(
        {"python3", "-c",
         "import zlib\n"
         "def pack(pieces):\n"
         "    packer = zlib.compressobj(9)\n"
         "    return b''.join([packer.compress(piece) for piece in pieces] + [packer.flush()])\n"
         "inner = pack([b'1 0 2 9 '] + [b' ' * 2**20] * 512)\n"
         "data = pack([inner])\n"
         "table = bytes([0, 0, 0, 0,  2, 0, 3, 0,  2, 0, 3, 1,  1, 0, 9, 0])\n"
         "bomb = b'%%PDF-1.5\\n3 0 obj <</Type/ObjStm/N 2/First 8/Filter[/FlateDecode/FlateDecode]/Length %d>>"
         "stream\\n' % len(data) + data + b'\\nendstream endobj\\n'\n"
         "start = len(bomb)\n"
         "bomb += b'4 0 obj <</Type/XRef/W[1 2 1]/Size 4/Root 1 0 R/Length %d>>stream\\n' % len(table) + table\n"
         "bomb += b'\\nendstream endobj\\nstartxref\\n%d\\n%%%%EOF\\n' % start\n"
         "open('bomb.pdf', 'wb').write(bomb)"});
    ASSERT_LT(shop.read("bomb.pdf").size(), 100'000U);
    const Finished call = shop.foliant({"GetNumPagesPDF", "bomb.pdf", "--memory", "300M"});
    EXPECT_EQ(call.exit_code, 125) << call.errors;
    EXPECT_NE(call.errors.find("--memory"), std::string::npos) << call.errors;
}

TEST_F(CountingPages, OfAProtectedFileTakesAnyOfItsPasswords) {
    protect("a.pdf");
    for (const char* password : {"geheim ß", "owner"}) {
        const Finished call =
            shop.foliant({"GetNumPagesPDF", "a.pdf", std::string("--open-password=") + password});
        EXPECT_EQ(call.exit_code, 0) << call.errors;
        EXPECT_EQ(call.output, "2\n");
    }
}

TEST_F(CountingPages, OfAProtectedFileFailsWithTheReasonWhenThePasswordIsWrongOrMissing) {
    protect("a.pdf");
    const Finished wrong = shop.foliant({"GetNumPagesPDF", "a.pdf", "--open-password=other"});
    EXPECT_EQ(wrong.exit_code, 5);
    EXPECT_EQ(wrong.errors,
              "foliant: a.pdf cannot be opened: the password is not the one that protects it.\n");
    const Finished missing = shop.foliant({"GetNumPagesPDF", "a.pdf"});
    EXPECT_EQ(missing.exit_code, 5);
    EXPECT_EQ(missing.errors,
              "foliant: a.pdf cannot be opened: it is protected. Give the password that opens it.\n");
}

TEST_F(CountingPages, OfADamagedFileFailsWithTheReason) {
    shop.write("a.pdf", "%PDF-1.4\n1 0 obj << /Type /Catalog");
    const Finished call = shop.foliant({"GetNumPagesPDF", "a.pdf"});
    EXPECT_EQ(call.exit_code, 5);
    EXPECT_EQ(call.output, "");
    EXPECT_TRUE(call.errors.starts_with("foliant: a.pdf cannot be opened: it seems to be damaged ("))
        << call.errors;
}

}  // namespace
}  // namespace foliant::end_to_end
