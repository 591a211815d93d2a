#include "hosts/office/installation.h"

#include <gtest/gtest.h>
#include <regex>

#include "hosts/office/profile.h"
#include "hosts/office/support.h"

namespace foliant::hosts::office {
namespace {

TEST(OfficeInstallation, KnowsItsVersionWithoutBeingStarted) {
    EXPECT_TRUE(std::regex_match(office_version(), std::regex("[0-9]+(\\.[0-9]+){2,3}"))) << office_version();
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
    const auto error = test::error_of([] { write_profile("/proc/office", office_folder()); });
    EXPECT_EQ(error.number(), 75);
    EXPECT_NE(error.description().find("/proc/office"), std::string::npos) << error.description();
}

}  // namespace
}  // namespace foliant::hosts::office
