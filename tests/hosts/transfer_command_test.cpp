#include "hosts/transfer_command.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "support/scratch_folder.h"

namespace foliant::hosts {
namespace {

/// "put LOCAL | REMOTE", or how many readings there are.
std::string read(const std::string& command) {
    const auto readings = transfer_readings(command);
    if (readings.size() != 1) return readings.empty() ? "nothing" : std::to_string(readings.size());
    const TransferCommand& read = readings.front();
    return (read.verb == TransferCommand::Verb::put ? "put " : "get ") + read.local_file + " | " +
           read.remote_file;
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
}

TEST(TransferCommand, OfSeveralNamesWhoseFilesAreThereNoneIsPreferred) {
    const tests::ScratchFolder folder;
    const std::string file = folder.write("report", "x").string();
    EXPECT_EQ(read("PUT " + file + " old copy.txt"), "put " + file + " | old copy.txt");
    folder.write("report old", "x");
    EXPECT_EQ(read("PUT " + file + " old copy.txt"), "2");
}

TEST(TransferCommand, WhereNothingIsThereThatTellsANameWithBlanksEveryOneMayBeMeant) {
    EXPECT_EQ(read("PUT none my b.pdf"), "2");
    EXPECT_EQ(read("GET report.txt my file.txt"), "2");
    EXPECT_EQ(read("GET my b.pdf c.pdf"), "2");
    EXPECT_EQ(read("GET  b.pdf   c.pdf"), "get c.pdf | b.pdf");
}

TEST(TransferCommand, OfNamesWithBlanksTheOneCountsWhoseFolderIsThere) {
    const tests::ScratchFolder folder;
    std::filesystem::create_directory(folder / "my in");
    const std::string target = (folder / "my in" / "my c.pdf").string();
    EXPECT_EQ(read("GET my b.pdf " + target), "get " + target + " | my b.pdf");
}

TEST(TransferCommand, NamesInQuotationMarksStandAsTheyAre) {
    EXPECT_EQ(read(R"(GET "my b.pdf" "my c.pdf")"), "get my c.pdf | my b.pdf");
    EXPECT_EQ(read(R"(PUT " a ""1"" "   """" )"), R"(put  a "1"  | ")");
    EXPECT_EQ(read(R"(GET "" "c.pdf")"), "nothing");
    EXPECT_EQ(read(R"(GET "b.pdf" "c.pdf)"), "nothing");
}

TEST(TransferCommand, IsWrittenSoThatItHasOneReading) {
    using Verb = TransferCommand::Verb;
    const std::vector<std::string> names{"a.pdf", "my a.pdf",      " lead", "trail ", "\"a",
                                         "x\"",   "\"all of it\"", "\"",    "\" \"",  "a\" \"b"};
    for (const std::string& local : names) {
        for (const std::string& remote : names) {
            EXPECT_EQ(read(unmistakable_text({Verb::put, local, remote})), "put " + local + " | " + remote);
            EXPECT_EQ(read(unmistakable_text({Verb::get, local, remote})), "get " + local + " | " + remote);
        }
    }
    EXPECT_EQ(unmistakable_text({Verb::get, "/in/a.pdf", "b.pdf"}), "GET b.pdf /in/a.pdf");
    EXPECT_EQ(unquoted_text({Verb::get, "my a.pdf", "b.pdf"}), "GET b.pdf my a.pdf");
    EXPECT_EQ(unquoted_text({Verb::put, "my a.pdf", "b.pdf"}), "PUT my a.pdf b.pdf");
}

}  // namespace
}  // namespace foliant::hosts
