#include "hosts/process/wire.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <thread>

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

TEST(Channel, SendsWhatNobodyWaitsForWithTheNextMessage) {
    auto [mine, its] = Channel::pair();
    mine.send_with_next(Writer().put("first"));
    char byte = 0;
    EXPECT_EQ(::recv(its.descriptor(), &byte, 1, MSG_DONTWAIT), -1) << "nothing was sent yet";
    ASSERT_TRUE(mine.send(Writer().put("second")));
    EXPECT_EQ(its.receive()->text(), "first");
    EXPECT_EQ(its.receive()->text(), "second");
}

TEST(Channel, TellsTheFilesOfOneMessageFromThoseOfAnother) {
    auto [mine, its] = Channel::pair();
    const auto open_file = [](const char* path) { return posix::FileDescriptor(::open(path, O_RDONLY)); };
    mine.send(Writer().put("none"));
    mine.send_with_next(Writer().put("none either"));
    mine.send(Writer().put("null").attach(open_file("/dev/null")));
    mine.send(Writer().put("zero").attach(open_file("/dev/zero")));
    for (const char* text : {"none", "none either"}) {
        auto message = its.receive();
        ASSERT_TRUE(message);
        EXPECT_EQ(message->text(), text);
        EXPECT_THROW(message->descriptor(), Garbled);
    }
    for (const char* text : {"null", "zero"}) {
        auto message = its.receive();
        ASSERT_TRUE(message);
        EXPECT_EQ(message->text(), text);
        struct stat status {};
        struct stat expected {};
        ASSERT_EQ(::fstat(message->descriptor().get(), &status), 0);
        ASSERT_EQ(::stat((std::string("/dev/") + text).c_str(), &expected), 0);
        EXPECT_EQ(status.st_rdev, expected.st_rdev);
    }
}

TEST(Channel, CarriesMessagesLargerThanItsBuffers) {
    auto [mine, its] = Channel::pair();
    const std::string large(std::size_t{3} << 20U, 'x');
    std::thread sender([&mine = mine, &large] {
        mine.send(Writer().put("small"));
        mine.send(Writer().put(large));
        mine.send(Writer().put("small again"));
    });
    EXPECT_EQ(its.receive()->text(), "small");
    EXPECT_EQ(its.receive()->text(), large);
    EXPECT_EQ(its.receive()->text(), "small again");
    sender.join();
}

TEST(Channel, RefusesAMessageWhoseFilesHaveNotCome) {
    auto [mine, its] = Channel::pair();
    const std::uint32_t front = 1U << 28U;  // no bytes, one file
    ASSERT_EQ(::send(mine.descriptor(), &front, sizeof front, 0), static_cast<ssize_t>(sizeof front));
    EXPECT_THROW(its.receive(), Garbled);
}

TEST(Channel, RefusesAMessageThatIsTooLong) {
    auto [mine, its] = Channel::pair();
    const std::uint32_t front = (1U << 28U) - 1;
    ASSERT_EQ(::send(mine.descriptor(), &front, sizeof front, 0), static_cast<ssize_t>(sizeof front));
    EXPECT_THROW(its.receive(), Garbled);
}

TEST(Channel, NoticesThatTheOtherEndIsGone) {
    auto [mine, its] = Channel::pair();
    its.close();
    EXPECT_FALSE(mine.send(Writer().put("anybody there?")));
    EXPECT_FALSE(mine.receive());
}

}  // namespace
}  // namespace foliant::hosts::process
