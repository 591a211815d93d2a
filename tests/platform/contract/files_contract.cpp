// What the port of files promises.

#include <gtest/gtest.h>

#include "platform/contract/world.h"

namespace foliant::platform::contract {
namespace {

TEST_P(PortContract, AFileHasALengthAndWhatIsNoFileRaises53) {
    world->put_file("there.doc");
    world->put_folder("folder");
    EXPECT_GT(ports.files.length(world->path("there.doc")), 0);
    for (const char* name : {"missing.doc", "folder", "there.doc/below"})
        EXPECT_EQ(tests::error_number([&] { ports.files.length(world->path(name)); }), 53) << name;
    EXPECT_EQ(tests::error_number([&] { ports.files.length(""); }), 53);
}

TEST_P(PortContract, ADeletedFileIsGoneAndCannotBeDeletedAgain) {
    world->put_file("old.pdf");
    ports.files.remove(world->path("old.pdf"));
    EXPECT_EQ(tests::error_number([&] { ports.files.length(world->path("old.pdf")); }), 53);
    EXPECT_EQ(tests::error_number([&] { ports.files.remove(world->path("old.pdf")); }), 53);
    EXPECT_EQ(tests::error_number([&] { ports.files.remove(""); }), 53);
}

TEST_P(PortContract, AFolderIsMadeOnceAndOnlyBelowOneThatExists) {
    EXPECT_EQ(tests::error_number([&] { ports.files.make_folder(world->path("new")); }), 0);
    EXPECT_EQ(tests::error_number([&] { ports.files.make_folder(world->path("new")); }), 75);
    const std::string trailing = world->path("new") + ports.files.separator();
    EXPECT_EQ(tests::error_number([&] { ports.files.make_folder(trailing); }), 75);
    EXPECT_EQ(tests::error_number([&] { ports.files.make_folder(trailing + "deeper"); }), 0);
    const std::string orphan = world->path("nowhere") + ports.files.separator() + "deeper";
    EXPECT_EQ(tests::error_number([&] { ports.files.make_folder(orphan); }), 76);
    EXPECT_EQ(tests::error_number([&] { ports.files.make_folder(""); }), 76);
}

TEST_P(PortContract, ATextFileHoldsItsLinesEachWithCarriageReturnAndLineFeed) {
    const auto file = ports.files.create_text(world->path("driver.ps"), TextPurpose::result);
    file->write_line("%!PS");
    file->write_line("");
    file->write_line("(caf\xC3\xA9) show");
    file->close();
    EXPECT_EQ(world->content("driver.ps"), "%!PS\r\n\r\n(caf\xC3\xA9) show\r\n");
}

TEST_P(PortContract, ATextFileIsEmptiedWhenItIsMadeAgain) {
    for (const char* line : {"long first content", "b"}) {
        const auto file = ports.files.create_text(world->path("a.txt"), TextPurpose::result);
        file->write_line(line);
        file->close();
    }
    EXPECT_EQ(world->content("a.txt"), "b\r\n");
}

TEST_P(PortContract, AScratchTextIsThereUnderItsPathUntilItIsRemoved) {
    const std::string path = world->path("book.ps");
    const auto text = ports.files.create_text(path, TextPurpose::scratch);
    text->write_line("%!PS");
    text->close();
    EXPECT_GT(ports.files.length(path), 0);
    ports.files.remove(path);
    EXPECT_EQ(tests::error_number([&] { ports.files.length(path); }), 53);
    EXPECT_EQ(tests::error_number([&] { ports.files.remove(path); }), 53);
}

TEST_P(PortContract, ABareNameIsLookedForInTheCurrentFolder) {
    world->enter_folder();
    world->put_file("123");
    EXPECT_TRUE(ports.files.exists_in_current_folder("123"));
    EXPECT_FALSE(ports.files.exists_in_current_folder("124"));
    EXPECT_FALSE(ports.files.exists_in_current_folder(world->path("123")));
}

}  // namespace
}  // namespace foliant::platform::contract
