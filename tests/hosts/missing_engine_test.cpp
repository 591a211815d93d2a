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

TEST(MissingEngine, NamesNoPackageWhereNoneHelps) {
    EXPECT_EQ(missing_engine("Crystal Reports", "Its engine", "there is none", "").description(),
              "Its engine cannot be used: there is none.");
}

}  // namespace
}  // namespace foliant::hosts
