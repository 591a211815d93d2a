#include "hosts/missing_engine.h"

#include <gtest/gtest.h>

namespace foliant::hosts {
namespace {

TEST(MissingEngine, NamesEngineReasonAndPackage) {
    const automation::Error error =
        missing_engine("Microsoft Word", "LibreOffice", "it is not there", "libreoffice-writer-nogui");
    EXPECT_EQ(error.number(), 429);
    EXPECT_EQ(error.source(), "Microsoft Word");
    EXPECT_EQ(error.description(),
              "LibreOffice cannot be used: it is not there. Install or reinstall the package "
              "libreoffice-writer-nogui.");
}

TEST(MissingEngine, NamesThePackageOfALibraryThatIsMissing) {
    const auto package = [](const std::string& library) {
        return package_of_library(library + ": cannot open shared object file: No such file or directory");
    };
    EXPECT_EQ(package("libgif.so.7"), "libgif7");
    EXPECT_EQ(package("/lib/libpoppler-glib.so.8"), "libpoppler-glib8");
    EXPECT_EQ(package("libpangocairo-1.0.so.0"), "libpangocairo-1.0-0");
    EXPECT_EQ(package("libuno_sal.so.3"), "");
    EXPECT_EQ(package("libmergedlo.so"), "");
    EXPECT_EQ(package("acrobat-engine.so"), "");
    EXPECT_EQ(package_of_library("it is not there"), "");
    EXPECT_EQ(
        missing_engine("Adobe Acrobat", "qpdf", "libgif.so.7: file too short", "libqpdf29").description(),
        "qpdf cannot be used: libgif.so.7: file too short. Install or reinstall the package libgif7.");
}

TEST(MissingEngine, NamesNoPackageWhereNoneHelps) {
    EXPECT_EQ(missing_engine("Crystal Reports", "Its engine", "there is none", "").description(),
              "Its engine cannot be used: there is none.");
}

}  // namespace
}  // namespace foliant::hosts
