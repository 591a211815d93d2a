#include "hosts/distiller/source_file.h"

#include <sys/stat.h>

#include "hosts/distiller/distill_error.h"
#include "hosts/distiller/fixture.h"

namespace foliant::hosts::distiller {
namespace {

TEST(DeclaredPages, AreThoseOfTheHeader) {
    EXPECT_EQ(declared_pages("%!PS-Adobe-3.0\n%%Pages: 12\n%%EndComments\n", ""), 12);
    EXPECT_EQ(declared_pages("%!PS-Adobe-3.0\r\n%%Pages: 12 1\r\n", ""), 12);
    EXPECT_EQ(declared_pages("%!PS-Adobe-3.0\r%%Pages:3\r", ""), 3);
}

TEST(DeclaredPages, AreThoseAtTheEndWhereTheHeaderSaysSo) {
    EXPECT_EQ(
        declared_pages("%!PS-Adobe-3.0\n%%Pages: (atend)\n", "%%Pages: 5\n%%Trailer\n%%Pages: 7\n%%EOF\n"),
        7);
}

TEST(DeclaredPages, AreUnknownWhereNothingIsDeclared) {
    EXPECT_FALSE(declared_pages("%!\n", "%%Pages: 7\n"));
    EXPECT_FALSE(declared_pages("%!\n%%Pages: (atend)\n", "%%EOF\n"));
    EXPECT_FALSE(declared_pages("%!\n%%Pages: many\n", ""));
    EXPECT_FALSE(declared_pages("%!\n%%Pages: -1\n", ""));
    EXPECT_FALSE(declared_pages("%!\n%%Pages: 99999999999\n", ""));
    EXPECT_FALSE(declared_pages("", ""));
}

TEST(DeclaredPages, AreNotThoseOfAnEmbeddedDocument) {
    EXPECT_FALSE(declared_pages("%!\n%%EndComments\n%%BeginDocument: x.eps\n%%Pages: 1\n", ""));
    EXPECT_FALSE(declared_pages("%!\nsave\n%%Pages: 1\n", ""));
}

class ExamineSource : public DistillerTest {
  protected:
    std::string failure(const std::filesystem::path& path) {
        try {
            examine_source(path);
        } catch (const DistillError& error) {
            return error.what();
        }
        return "no failure";
    }
};

TEST_F(ExamineSource, NamesAMissingFile) {
    EXPECT_EQ(failure("/nowhere/x.ps"),
              "Cannot read the PostScript file /nowhere/x.ps: No such file or directory. Check the name and "
              "the file.");
}

TEST_F(ExamineSource, RefusesAFolderAndAPipe) {
    EXPECT_NE(failure(folder).find("it is a folder"), std::string::npos);
    const auto pipe = folder / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_NE(failure(pipe).find("it is not an ordinary file"), std::string::npos);
}

TEST_F(ExamineSource, RefusesAnEmptyFile) {
    EXPECT_NE(failure(write("empty.ps", "")).find("it is empty"), std::string::npos);
}

TEST_F(ExamineSource, RefusesAPdfAlsoBehindAFewOtherBytes) {
    EXPECT_NE(failure(write("a.ps", "%PDF-1.4\n")).find("is a PDF already"), std::string::npos);
    EXPECT_NE(failure(write("b.ps", "\n\n junk %PDF-1.4\n")).find("is a PDF already"), std::string::npos);
    EXPECT_EQ(failure(write("c.ps", "%!PS\n(%PDF-1.4) =\n")), "no failure");
}

TEST_F(ExamineSource, KnowsHowPostScriptBegins) {
    EXPECT_TRUE(examine_source(write("a.ps", "%!\n")).main.looks_like_postscript);
    EXPECT_TRUE(examine_source(write("b.ps", "\x04%!\n")).main.looks_like_postscript);
    EXPECT_TRUE(examine_source(write("c.ps", "\x1b%-12345X@PJL\n")).main.looks_like_postscript);
    EXPECT_FALSE(examine_source(write("d.ps", "hello\n")).main.looks_like_postscript);
}

}  // namespace
}  // namespace foliant::hosts::distiller
