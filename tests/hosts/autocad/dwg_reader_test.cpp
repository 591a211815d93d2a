// Programs in Node.js's place.

#include "hosts/autocad/dwg_reader.h"

#include <gtest/gtest.h>

#include "support/scratch_folder.h"

namespace foliant::hosts::autocad {
namespace {

class DwgReaderTest : public testing::Test {
  protected:
    /// What comes of a drawing when the program in Node.js's place does this.
    std::string problem_with(const std::string& commands) const {
        const std::filesystem::path program = folder.write("node", "#!/bin/sh\n" + commands + "\n");
        std::filesystem::permissions(program, std::filesystem::perms::owner_all);
        try {
            read_dwg({program, "/nowhere/libredwg.js", {}}, folder.write("in.dwg", "AC1015"), folder.path());
        } catch (const DwgFailure& failure) {
            return failure.what();
        }
        return "none";
    }

    tests::ScratchFolder folder;
};

TEST_F(DwgReaderTest, SaysThatNodeIsTooOldWhenItDoesNotKnowAnOption) {
    EXPECT_EQ(problem_with("echo \"$0: bad option: $1\" >&2; exit 9"),
              "takes Node.js 20.15 or later to read, and " + (folder / "node").string() +
                  " is older. Install a newer one as /usr/local/bin/node");
}

TEST_F(DwgReaderTest, SaysWhyElseADrawingWasNotRead) {
    EXPECT_EQ(problem_with("exit 3"), "is damaged, or of a release that LibreDWG cannot read");
    EXPECT_EQ(problem_with("exit 1"), "makes LibreDWG fail");
    EXPECT_EQ(problem_with("kill -XCPU $$"), "takes LibreDWG too long to read");
    EXPECT_EQ(problem_with("exit 0"), "makes LibreDWG fail") << "it has written nothing";
}

TEST_F(DwgReaderTest, TakesTheDrawingAndTheLayersThatAreOffAndLeavesNoFile) {
    folder.write("node",
                 "#!/bin/sh\nfor last; do :; done\n"
                 "printf 'the drawing' > \"$last\"; printf 'Walls\\nDoors' > \"$last.off\"\n");
    std::filesystem::permissions(folder / "node", std::filesystem::perms::owner_all);
    const DwgContent content =
        read_dwg({folder / "node", "/nowhere/libredwg.js", {}}, folder.write("in.dwg", ""), folder.path());
    EXPECT_EQ(content.dxf, "the drawing");
    EXPECT_EQ(content.layers_off, (NameSet{"doors", "walls"}));
    EXPECT_FALSE(std::filesystem::exists(folder / "drawing.dxf"));
    EXPECT_FALSE(std::filesystem::exists(folder / "drawing.dxf.off"));
}

}  // namespace
}  // namespace foliant::hosts::autocad
