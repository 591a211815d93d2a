#include "hosts/write_failure.h"

#include <gtest/gtest.h>
#include <system_error>

namespace foliant::hosts {
namespace {

std::filesystem::filesystem_error failure(std::errc reason) {
    return {"", "/there/out.pdf", std::make_error_code(reason)};
}

automation::Error error(std::errc reason) {
    return write_failure("Microsoft Word", failure(reason));
}

TEST(WriteFailure, HasTheClassicNumberOfItsReason) {
    EXPECT_EQ(error(std::errc::no_such_file_or_directory).number(), 76);
    EXPECT_EQ(error(std::errc::permission_denied).number(), 70);
    EXPECT_EQ(error(std::errc::read_only_file_system).number(), 70);
    EXPECT_EQ(error(std::errc::no_space_on_device).number(), 61);
    EXPECT_EQ(error(std::errc::file_too_large).number(), 61);
    EXPECT_EQ(error(std::errc::is_a_directory).number(), 75);
    EXPECT_EQ(error(std::errc::io_error).number(), 75);
}

TEST(WriteFailure, IsTheApplicationsOwn) {
    EXPECT_EQ(error(std::errc::io_error).source(), "Microsoft Word");
}

TEST(WriteFailure, SaysOnWhichFileWhyAndWhatToDo) {
    EXPECT_EQ(write_failure_text(failure(std::errc::no_such_file_or_directory)),
              "Cannot write /there/out.pdf: the folder /there does not exist. Create it, or choose another "
              "one.");
    EXPECT_EQ(write_failure_text(failure(std::errc::no_space_on_device), "the PDF"),
              "Cannot write the PDF /there/out.pdf: the disk is full. Free some space there, or choose "
              "another folder.");
    EXPECT_EQ(write_failure_text(failure(std::errc::not_supported)),
              "Cannot write /there/out.pdf: it is a device or a pipe. Give the name of a file.");
    EXPECT_EQ(write_failure_text(failure(std::errc::io_error)),
              "Cannot write /there/out.pdf: Input/output error. Choose another name or folder.");
}

}  // namespace
}  // namespace foliant::hosts
