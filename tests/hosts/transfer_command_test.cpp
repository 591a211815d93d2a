#include "hosts/transfer_command.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "support/scratch_folder.h"

namespace foliant::hosts {
namespace {

/// "put LOCAL | REMOTE".
std::string read(const std::string& command) {
    const auto parsed = transfer_command(command);
    if (!parsed) return "nothing";
    return (parsed->verb == TransferCommand::Verb::put ? "put " : "get ") + parsed->local_file + " | " +
           parsed->remote_file;
}

TEST(TransferCommand, NamesItsTwoFiles) {
    EXPECT_EQ(read("PUT /out/a.pdf a.pdf"), "put /out/a.pdf | a.pdf");
    EXPECT_EQ(read("GET a.pdf /in/a.pdf"), "get /in/a.pdf | a.pdf");
    EXPECT_EQ(read("get  a.pdf   b.pdf "), "get b.pdf | a.pdf");
}

TEST(TransferCommand, IsNothingWithoutTwoFiles) {
    for (const char* command : {"", "PUT", "PUT a", "GET a ", "CD folder", "PUTS a b"})
        EXPECT_EQ(read(command), "nothing") << command;
}

TEST(TransferCommand, TakesNamesInQuotationMarks) {
    EXPECT_EQ(read("PUT \"/my out/a b.pdf\" c d.pdf"), "put /my out/a b.pdf | c d.pdf");
    EXPECT_EQ(read("GET \"a b.pdf\" \"/my in/c d.pdf\""), "get /my in/c d.pdf | a b.pdf");
}

TEST(TransferCommand, OfNamesWithBlanksTheOneCountsWhoseFileIsThere) {
    const tests::ScratchFolder folder;
    const std::string file = folder.write("my a.pdf", "x").string();
    EXPECT_EQ(read("PUT " + file + " my b.pdf"), "put " + file + " | my b.pdf");
    EXPECT_EQ(read("PUT " + file + ".gone my b.pdf"),
              "put " + file.substr(0, file.size() - 6) + " | a.pdf.gone my b.pdf");
}

TEST(TransferCommand, OfNamesWithBlanksTheOneCountsWhoseFolderIsThere) {
    const tests::ScratchFolder folder;
    std::filesystem::create_directory(folder / "my in");
    const std::string target = (folder / "my in" / "my c.pdf").string();
    EXPECT_EQ(read("GET my b.pdf " + target), "get " + target + " | my b.pdf");
    EXPECT_EQ(read("GET my b.pdf c.pdf"), "get c.pdf | my b.pdf");
}

}  // namespace
}  // namespace foliant::hosts
