#include "hosts/viewer.h"

#include <gtest/gtest.h>

namespace foliant::hosts {
namespace {

TEST(ViewerCaption, NamesTheFile) {
    EXPECT_EQ(viewer_caption("/out/My Report.pdf"), "Adobe Acrobat - [My Report.pdf]");
}

}  // namespace
}  // namespace foliant::hosts
