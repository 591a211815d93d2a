#include "hosts/document_file.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace foliant::hosts {
namespace {

namespace fs = std::filesystem;

class DocumentFileTest : public testing::Test {
  protected:
    DocumentFileTest() {
        std::string name = (fs::temp_directory_path() / "document-XXXXXX").string();
        folder = ::mkdtemp(name.data());
        std::ofstream(folder / "letter") << "words";
    }
    ~DocumentFileTest() override { fs::remove_all(folder); }

    static std::errc failure(const fs::path& path) {
        try {
            open_document_file(path);
        } catch (const fs::filesystem_error& error) {
            EXPECT_EQ(error.path1(), path);
            return static_cast<std::errc>(error.code().value());
        }
        return {};
    }

    fs::path folder;
};

TEST_F(DocumentFileTest, StaysTheFileThatWasFound) {
    const DocumentFile document = open_document_file(folder / "letter");
    fs::remove(folder / "letter");
    char words[5];
    EXPECT_EQ(::pread(document.descriptor.get(), words, sizeof words, 0), 5);
    EXPECT_EQ(std::string(words, 5), "words");
    EXPECT_EQ(document.path, folder / "letter");
}

TEST_F(DocumentFileTest, IsNoFolderNorAnythingThatIsNotThere) {
    EXPECT_EQ(failure(folder), std::errc::is_a_directory);
    EXPECT_EQ(failure(folder / "none"), std::errc::no_such_file_or_directory);
}

TEST_F(DocumentFileTest, IsNoPipeThatOneWouldWaitForAndNoDevice) {
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(failure(folder / "pipe"), std::errc::not_supported);
    EXPECT_EQ(failure("/dev/zero"), std::errc::not_supported);
}

}  // namespace
}  // namespace foliant::hosts
