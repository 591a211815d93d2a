#include "hosts/distiller/output_error.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "hosts/distiller/fixture.h"

namespace foliant::hosts::distiller {
namespace {

class OutputErrorTest : public DistillerTest {};

TEST_F(OutputErrorTest, IsWhatAJobFailsWith) {
    DistillJob job{.input_ps = write("one.ps", plain_pages(1)), .output_pdf = scratch};
    EXPECT_EQ(distill(job).error,
              "Cannot write the PDF " + scratch.string() + ": it is a folder. Give the name of a file.");
    job.output_pdf = folder / "pipe";
    ASSERT_EQ(::mkfifo(job.output_pdf.c_str(), 0600), 0);
    EXPECT_EQ(distill(job).error, "Cannot write the PDF " + job.output_pdf.string() +
                                      ": it is a device or a pipe. Give the name of a file.");
    EXPECT_TRUE(std::filesystem::is_fifo(job.output_pdf));
}

TEST_F(OutputErrorTest, LeavesWhatIsNoOrdinaryFileAsItIs) {
    DistillJob job;
    job.input_ps = write("one.ps", plain_pages(1));
    std::filesystem::create_directory(folder / "full");
    write("full/of.txt", "content");
    std::filesystem::create_symlink("/dev/full", folder / "link");
    for (const char* name : {"full", "link", "/dev/null"}) {
        for (const bool is_protected : {false, true}) {
            job.output_pdf = folder / name;
            job.security = is_protected ? std::optional(Security{}) : std::nullopt;
            EXPECT_FALSE(distill(job).succeeded) << name;
        }
    }
    EXPECT_EQ(std::filesystem::file_size(folder / "full/of.txt"), 7U);
    EXPECT_EQ(std::filesystem::read_symlink(folder / "link"), "/dev/full");
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
}

// Each makes something else than a PDF of the output, or nothing at all.
TEST_F(OutputErrorTest, ADocumentThatSpoilsItsOutputLeavesTheOlderOne) {
    write("out.pdf", "old");
    for (const char* spoiling :
         {"<< /OutputDevice /png16m /PageSize [100 100] >> setpagedevice showpage",
          "(png16m) selectdevice showpage", "<< /OutputFile (%stdout) >> setpagedevice showpage",
          "showpage << /OutputFile (/dev/null) >> setpagedevice showpage",
          "showpage << /OutputFile (/nowhere/x.pdf) >> setpagedevice showpage"}) {
        EXPECT_FALSE(distill_text("%!\n" + std::string(spoiling) + "\n").succeeded) << spoiling;
        EXPECT_EQ(std::filesystem::file_size(output), 3U) << spoiling;
    }
}

}  // namespace
}  // namespace foliant::hosts::distiller
