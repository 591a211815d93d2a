#include <algorithm>
#include <fstream>
#include <qpdf/QPDF.hh>
#include <sstream>

#include "hosts/distiller/fixture.h"

namespace foliant::hosts::distiller {
namespace {

class ProtectedJob : public DistillerTest {
  protected:
    DistillResult distill_with(const Security& security) {
        DistillJob job;
        job.input_ps = write("in.ps", plain_pages(2));
        job.security = security;
        return distill(job);
    }
    /// The lines of `qpdf --show-encryption` that end so.
    bool encryption_says(const std::string& line, const std::string& password = {}) const {
        const std::string text =
            output_of("qpdf --password='" + password + "' --show-encryption '" + output.string() + "'");
        return ("\n" + text).find("\n" + line + "\n") != std::string::npos;
    }
};

TEST_F(ProtectedJob, LocksThePdfByDefaultAgainstCopyingAndChanging) {
    const auto result = distill_with({});
    ASSERT_TRUE(result.succeeded) << result.error;
    EXPECT_TRUE(facts_of(output).encrypted) << "and it opens without a password";
    EXPECT_EQ(facts_of(output).pages, 2);
    EXPECT_TRUE(encryption_says("R = 6"));
    EXPECT_TRUE(encryption_says("stream encryption method: AESv3"));
    EXPECT_TRUE(encryption_says("print high resolution: allowed"));
    EXPECT_TRUE(encryption_says("extract for accessibility: allowed"));
    EXPECT_TRUE(encryption_says("extract for any purpose: not allowed"));
    EXPECT_TRUE(encryption_says("modify anything: not allowed"));
    EXPECT_TRUE(encryption_says("Supplied password is user password"));
    EXPECT_FALSE(encryption_says("Supplied password is owner password"));
}

TEST_F(ProtectedJob, HasPagesAndPercentLikeAnyOther) {
    distill_with({});
    EXPECT_EQ(journal.lines_with("page "), (std::vector<std::string>{"page 1", "page 2"}));
    EXPECT_EQ(journal.percents.back(), 100);
    EXPECT_EQ(std::count(journal.percents.begin(), journal.percents.end(), 100), 1);
}

TEST_F(ProtectedJob, AsksForTheOpenPassword) {
    Security security;
    security.open_password = "s\xC3\xA9same";
    security.owner_password = "master";
    ASSERT_TRUE(distill_with(security).succeeded);
    EXPECT_THROW(facts_of(output), QPDFExc);
    EXPECT_EQ(facts_of(output, "s\xC3\xA9same").pages, 2);
    EXPECT_EQ(facts_of(output, "master").pages, 2);
    EXPECT_TRUE(encryption_says("Supplied password is owner password", "master"));
}

TEST_F(ProtectedJob, GivesThePermissionsAskedFor) {
    Security security;
    security.allow_printing = false;
    security.allow_copying = true;
    security.allow_changing = true;
    ASSERT_TRUE(distill_with(security).succeeded);
    EXPECT_TRUE(encryption_says("print low resolution: not allowed"));
    EXPECT_TRUE(encryption_says("extract for any purpose: allowed"));
    EXPECT_TRUE(encryption_says("modify anything: allowed"));
}

TEST_F(ProtectedJob, DoesNotHoldItsTextInTheClear) {
    const auto holds_title = [this] {
        std::ostringstream bytes;
        bytes << std::ifstream(output, std::ios::binary).rdbuf();
        return bytes.str().find("Secret words") != std::string::npos;
    };
    DistillJob job;
    job.input_ps = write("in.ps", "%!\n[ /Title (Secret words) /DOCINFO pdfmark showpage\n");
    ASSERT_TRUE(distill(job).succeeded);
    EXPECT_TRUE(holds_title()) << "as long as nothing is protected";
    job.security = Security{};
    ASSERT_TRUE(distill(job).succeeded);
    EXPECT_FALSE(holds_title());
}

TEST_F(ProtectedJob, ThatFailsLeavesNoUnprotectedPdf) {
    DistillJob job;
    job.input_ps = write("in.ps", "%!\nshowpage foo\n");
    job.security = Security{};
    EXPECT_FALSE(distill(job).succeeded);
    EXPECT_EQ(tests::names_in(folder), (std::vector<std::string>{"in.ps", "scratch"}));
}

}  // namespace
}  // namespace foliant::hosts::distiller
