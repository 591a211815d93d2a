#include "hosts/process/wire.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "hosts/process/channel.h"

namespace foliant::hosts::process {
namespace {

TEST(Wire, ReadsWhatWasWritten) {
    Writer writer;
    writer.put(std::uint8_t{7}).put(-3).put(true).put("text").put(2.5);
    Reader reader(writer.bytes(), {});
    EXPECT_EQ(reader.number<std::uint8_t>(), 7);
    EXPECT_EQ(reader.number<int>(), -3);
    EXPECT_TRUE(reader.truth());
    EXPECT_EQ(reader.text(), "text");
    EXPECT_EQ(reader.number<double>(), 2.5);
    EXPECT_THROW(reader.number<std::uint8_t>(), Garbled);
}

TEST(Wire, NeverReadsBeyondTheEnd) {
    EXPECT_THROW(Reader("abc", {}).number<std::uint32_t>(), Garbled);
    EXPECT_THROW(Reader(std::string("\xFF\xFF\xFF\xFFx", 5), {}).text(), Garbled);
    EXPECT_THROW(Reader("\x02", {}).truth(), Garbled);
    EXPECT_THROW(Reader("", {}).descriptor(), Garbled);
}

TEST(Channel, CarriesOpenFiles) {
    auto [mine, its] = Channel::pair();
    Writer writer;
    writer.put("two files").attach(posix::FileDescriptor(::open("/dev/null", O_RDONLY)));
    writer.attach(posix::FileDescriptor(::open("/dev/zero", O_RDONLY)));
    ASSERT_TRUE(mine.send(writer));
    auto message = its.receive();
    ASSERT_TRUE(message);
    EXPECT_EQ(message->text(), "two files");
    const posix::FileDescriptor null = message->descriptor();
    const posix::FileDescriptor zero = message->descriptor();
    struct stat status {};
    struct stat expected {};
    ASSERT_EQ(::fstat(zero.get(), &status), 0);
    ASSERT_EQ(::stat("/dev/zero", &expected), 0);
    EXPECT_EQ(status.st_rdev, expected.st_rdev);
    EXPECT_EQ(::fcntl(null.get(), F_GETFD) & FD_CLOEXEC, FD_CLOEXEC);
    EXPECT_THROW(message->descriptor(), Garbled);
}

TEST(Channel, NoticesThatTheOtherEndIsGone) {
    auto [mine, its] = Channel::pair();
    its.close();
    EXPECT_FALSE(mine.send(Writer().put("anybody there?")));
    EXPECT_FALSE(mine.receive());
}

}  // namespace
}  // namespace foliant::hosts::process
