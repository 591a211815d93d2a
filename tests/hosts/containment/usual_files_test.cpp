#include "hosts/containment/usual_files.h"

#include <cstdlib>
#include <gtest/gtest.h>

#include "support/scratch_folder.h"

namespace foliant::hosts::containment {
namespace {

Paths named_in(const std::string& configuration) {
    const tests::ScratchFolder folder;
    folder.write("fonts.conf", "<fontconfig>" + configuration + "</fontconfig>");
    return font_folders_in(folder / "fonts.conf");
}

TEST(Fonts, LieWhereFontconfigSaysSo) {
    ASSERT_EQ(setenv("HOME", "/users/somebody", 1), 0);
    ASSERT_EQ(setenv("XDG_DATA_HOME", "/data", 1), 0);
    EXPECT_EQ(
        named_in("<dir>/opt/type</dir>\n<dir prefix=\"xdg\">fonts</dir><dir>~/.type</dir><dir>/srv/a/</dir>"),
        (Paths{"/opt/type", "/data/fonts", "/users/somebody/.type", "/srv/a"}));
}

TEST(Fonts, DoNotOpenTheUsersHome) {
    ASSERT_EQ(setenv("HOME", "/users/somebody", 1), 0);
    EXPECT_EQ(named_in("<dir>/</dir><dir>/users</dir><dir>/users/somebody</dir><dir>~/</dir>"
                       "<dir>/opt/../users/somebody/</dir><dir>relative</dir><dir>"),
              Paths());
    EXPECT_EQ(font_folders_in("/nowhere/fonts.conf"), Paths());
}

}  // namespace
}  // namespace foliant::hosts::containment
