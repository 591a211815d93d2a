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

}  // namespace
}  // namespace foliant::hosts::distiller
