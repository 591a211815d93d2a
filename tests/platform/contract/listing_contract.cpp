// What a listing promises.

#include <algorithm>
#include <gtest/gtest.h>
#include <optional>
#include <set>
#include <string>

#include "platform/contract/world.h"

namespace foliant::platform::contract {
namespace {

/// The names that a listing gives, each with a blank after it.
std::string listed(const Platform& ports, const std::string& pattern) {
    std::string names;
    const auto listing = ports.files.list(pattern);
    while (const auto name = listing->next())
        names += *name + " ";
    return names;
}

TEST_P(PortContract, AListingNamesTheFilesThatMatchWithoutTheirFolder) {
    for (const char* name : {"b.pdf", "a.pdf", "a.txt", "c"})
        world->put_file(name);
    EXPECT_EQ(listed(ports, world->path("*.pdf")), "a.pdf b.pdf ");
    EXPECT_EQ(listed(ports, world->path("a.txt")), "a.txt ");
}

TEST_P(PortContract, AListingIgnoresCaseInThePatternAndInTheOrder) {
    for (const char* name : {"C.PDF", "b.pdf", "A.Pdf", "_d.pdf"})
        world->put_file(name);
    EXPECT_EQ(listed(ports, world->path("*.pdf")), "A.Pdf b.pdf C.PDF _d.pdf ");
    EXPECT_EQ(listed(ports, world->path("c.PDF")), "C.PDF ");
}

TEST_P(PortContract, StarAndQuestionMarkOfAListingStandForWhatTheySay) {
    for (const char* name : {"a1.pdf", "a12.pdf", "b", "c.x.pdf", "\xC3\xA9.doc"})
        world->put_file(name);
    EXPECT_EQ(listed(ports, world->path("*.*")), "a1.pdf a12.pdf b c.x.pdf \xC3\xA9.doc ");
    EXPECT_EQ(listed(ports, world->path("*")), "a1.pdf a12.pdf b c.x.pdf \xC3\xA9.doc ");
    EXPECT_EQ(listed(ports, world->path("a?.pdf")), "a1.pdf ");
    EXPECT_EQ(listed(ports, world->path("a*.pdf")), "a1.pdf a12.pdf ");
    EXPECT_EQ(listed(ports, world->path("?.doc")), "\xC3\xA9.doc ");
    EXPECT_EQ(listed(ports, world->path("\xC3\x89.d?c")), "\xC3\xA9.doc ");
    EXPECT_EQ(listed(ports, world->path("*x*")), "c.x.pdf ");
}

TEST_P(PortContract, AListingLeavesOutFoldersAndWhatIsHidden) {
    world->put_folder("folder.pdf");
    world->put_hidden_file("hidden.pdf");
    world->put_file("file.pdf");
    EXPECT_EQ(listed(ports, world->path("*.pdf")), "file.pdf ");
    EXPECT_EQ(listed(ports, world->path("folder.pdf")), "");
}

TEST_P(PortContract, AListingWithoutAMatchOrAFolderIsEmpty) {
    world->put_file("a.txt");
    EXPECT_EQ(listed(ports, world->path("*.pdf")), "");
    EXPECT_EQ(listed(ports, world->path("nowhere") + ports.files.separator() + "*.pdf"), "");
}

TEST_P(PortContract, AListingOfAFolderNamesEveryFile) {
    world->put_file("a.txt");
    world->put_file("b");
    EXPECT_EQ(listed(ports, world->path("")), "a.txt b ");
}

TEST_P(PortContract, AListingWithoutAFolderIsOfTheCurrentOne) {
    world->enter_folder();
    world->put_file("a.pdf");
    world->put_file("b");
    EXPECT_EQ(listed(ports, "*.pdf"), "a.pdf ");
    EXPECT_EQ(listed(ports, ""), "a.pdf b ");
}

TEST_P(PortContract, AListingStaysAtItsEnd) {
    world->put_file("a.pdf");
    const auto listing = ports.files.list(world->path("*.pdf"));
    EXPECT_EQ(listing->next(), "a.pdf");
    EXPECT_EQ(listing->next(), std::nullopt);
    world->put_file("b.pdf");
    EXPECT_EQ(listing->next(), std::nullopt);
}

TEST_P(PortContract, AListingNamesEachFileThatStaysWhateverComesAndGoes) {
    for (const char* name : {"a.pdf", "b.pdf", "c.pdf", "d.pdf", "e.pdf"})
        world->put_file(name);
    const auto listing = ports.files.list(world->path("*.pdf"));
    EXPECT_EQ(listing->next(), "a.pdf");
    ports.files.remove(world->path("a.pdf"));
    ports.files.remove(world->path("d.pdf"));
    world->put_file("bb.pdf");
    std::multiset<std::string> names;
    while (const auto name = listing->next())
        names.insert(*name);
    names.erase("d.pdf");
    names.erase("bb.pdf");
    EXPECT_EQ(names, (std::multiset<std::string>{"b.pdf", "c.pdf", "e.pdf"}));
}

TEST_P(PortContract, AListingDoesNotDisturbAnother) {
    world->put_file("a.pdf");
    world->put_file("b.pdf");
    const auto one = ports.files.list(world->path("*.pdf"));
    EXPECT_EQ(one->next(), "a.pdf");
    const auto other = ports.files.list(world->path("*.pdf"));
    EXPECT_EQ(other->next(), "a.pdf");
    EXPECT_EQ(one->next(), "b.pdf");
    EXPECT_EQ(other->next(), "b.pdf");
}

}  // namespace
}  // namespace foliant::platform::contract
