#include "hosts/distiller/output_error.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <system_error>

#include "hosts/distiller/fixture.h"

namespace foliant::hosts::distiller {
namespace {

std::string words(std::errc reason) {
    return output_error({"", "/there/x.pdf", std::make_error_code(reason)}).what();
}

TEST(OutputError, SaysWhatToDo) {
    EXPECT_EQ(
        words(std::errc::no_such_file_or_directory),
        "Cannot write the PDF /there/x.pdf: No such file or directory. Create the folder /there first.");
    EXPECT_EQ(words(std::errc::permission_denied),
              "Cannot write the PDF /there/x.pdf: Permission denied. Choose a folder that you may write to.");
    EXPECT_EQ(words(std::errc::no_space_on_device),
              "Cannot write the PDF /there/x.pdf: No space left on device. "
              "Free some space there, or choose another folder.");
    EXPECT_EQ(words(std::errc::not_supported),
              "Cannot write the PDF /there/x.pdf: It is a device or a pipe. Choose another name or folder.");
}

class OutputErrorTest : public DistillerTest {};

TEST_F(OutputErrorTest, IsWhatAJobFailsWith) {
    DistillJob job{.input_ps = write("one.ps", plain_pages(1)), .output_pdf = scratch};
    EXPECT_EQ(distill(job).error, "Cannot write the PDF " + scratch.string() +
                                      ": Is a directory. Choose another name or folder.");
    job.output_pdf = folder / "pipe";
    ASSERT_EQ(::mkfifo(job.output_pdf.c_str(), 0600), 0);
    EXPECT_EQ(distill(job).error, "Cannot write the PDF " + job.output_pdf.string() +
                                      ": It is a device or a pipe. Choose another name or folder.");
    EXPECT_TRUE(std::filesystem::is_fifo(job.output_pdf));
}

}  // namespace
}  // namespace foliant::hosts::distiller
