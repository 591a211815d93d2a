// No document may bring another file of its user into the PDF, whatever way its format has to name one, nor
// have another program run. Each document of hostile/ tries one way, which its name tells.

#include <cstdlib>
#include <gtest/gtest.h>

#include "end_to_end/command.h"

namespace foliant::end_to_end {
namespace {

/// Whether a picture (PPM, 8 bits) shows the colour of the files that nobody may see.
bool shows_the_colour(const std::string& picture) {
    const std::size_t header = picture.find("\n255\n");
    if (header == std::string::npos) return false;
    int seen = 0;
    for (std::size_t at = header + 5; at + 2 < picture.size(); at += 3) {
        const auto level = [&](std::size_t channel) {
            return static_cast<unsigned char>(picture[at + channel]);
        };
        if (level(0) > 230 && level(1) < 40 && level(2) > 230) ++seen;
    }
    return seen > 3;  // one drop of it may come from somewhere else
}

class Leaks : public testing::TestWithParam<const char*> {
  protected:
    void SetUp() override {
        REQUIRE_HOST("Word");
        put_programs_on_the_path();
        ASSERT_EQ(shop.run({"python3", HOSTILE_DOCUMENTS "/make_hostile_documents.py", shop.path("made")})
                      .exit_code,
                  0);
    }

    void TearDown() override { setenv("PATH", former_path_.c_str(), 1); }

    /// The programs that LibreOffice would have draw what it cannot draw itself; these say that they were
    /// run.
    void put_programs_on_the_path() {
        const std::filesystem::path folder = shop.path("programs");
        std::filesystem::create_directory(folder);
        for (const char* name : {"pstoedit", "gs", "convert"}) {
            shop.write(std::string("programs/") + name,
                       "#!/bin/sh\necho \"$0\" >>" + shop.path("ran").string() + "\n");
            std::filesystem::permissions(folder / name, std::filesystem::perms::owner_all);
        }
        setenv("PATH", (folder.string() + ":" + former_path_).c_str(), 1);
    }

    /// What of the user's files a PDF shows: "text", "colour", "" for nothing.
    std::string leaked_into(const std::string& pdf) {
        if (shop.text(pdf).find("CANARYWORD") != std::string::npos) return "text";
        shop.run({"pdftoppm", "-r", "20", shop.path(pdf), shop.path("page")});
        std::string leaked;
        for (const std::string& name : shop.files()) {
            if (!name.starts_with("page")) continue;
            if (shows_the_colour(shop.read(name))) leaked = "colour";
            std::filesystem::remove(shop.path(name));
        }
        return leaked;
    }

    Workshop shop;

  private:
    const std::string former_path_ = std::getenv("PATH");
};

TEST_P(Leaks, NoWayOfTheFormatBringsAnotherFileIn) {
    const std::string ending = GetParam();
    int converted = 0;
    for (const auto& entry : std::filesystem::directory_iterator(shop.path("made/documents"))) {
        if (entry.path().extension() != ending) continue;
        const Finished call =
            shop.foliant({"CreatePDFfromWord2", "out.pdf", entry.path().string(), "--timeout", "20"});
        SCOPED_TRACE(entry.path().filename().string());
        // A document that is refused shows nothing either; one that never ends is a way to be a nuisance.
        EXPECT_TRUE(call.exit_code == 0 || call.exit_code == 5) << call.exit_code << ": " << call.errors;
        if (call.exit_code != 0) continue;
        ++converted;
        EXPECT_EQ(leaked_into("out.pdf"), "");
        std::filesystem::remove(shop.path("out.pdf"));
    }
    EXPECT_GE(converted, 15);
    EXPECT_FALSE(std::filesystem::exists(shop.path("ran"))) << shop.read("ran") << " was run";
    EXPECT_TRUE(shop.is_clean_soon()) << shop.leftovers();
}

INSTANTIATE_TEST_SUITE_P(Formats, Leaks, testing::Values(".fodt", ".docx", ".rtf", ".html"),
                         [](const auto& format) { return std::string(format.param).substr(1); });

}  // namespace
}  // namespace foliant::end_to_end
