#include "hosts/office/engine/installation.h"

#include <gtest/gtest.h>

#include "hosts/office/engine/profile.h"
#include "hosts/office/support.h"
#include "hosts/office/word/word_error.h"
#include "support/error_of.h"

namespace foliant::hosts::office {
namespace {

TEST(OfficeInstallation, KnowsItsVersionWithoutBeingStarted) {
    EXPECT_TRUE(test::is_version(office_version())) << office_version();
}

TEST(OfficeInstallation, HasNoVersionWhereThereIsNone) {
    EXPECT_EQ(office_version("/nowhere"), "");
}

TEST(OfficeProfile, LeavesOutTheDesktopsSettingsAndEveryExtension) {
    const std::string layers = configuration_layers(office_folder());
    EXPECT_NE(layers.find("xcsxcu:"), std::string::npos) << layers;
    EXPECT_NE(layers.find("user:"), std::string::npos) << layers;
    EXPECT_EQ(layers.find("dconf:"), std::string::npos) << layers;
    EXPECT_EQ(layers.find("ext:"), std::string::npos) << layers;
}

TEST(OfficeProfile, SaysWhenItCannotBeWritten) {
    const auto error =
        tests::error_of([] { write_profile("/proc/office", office_folder(), microsoft_word); });
    EXPECT_EQ(error.number(), 75);
    EXPECT_NE(error.description().find("/proc/office"), std::string::npos) << error.description();
}

}  // namespace
}  // namespace foliant::hosts::office
