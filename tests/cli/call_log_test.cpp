#include "cli/call_log.h"

#include <gtest/gtest.h>

#include "core/dispatch.h"
#include "support/scratch_folder.h"

namespace foliant::cli {
namespace {

TEST(CallLog, NoPasswordIsShownOrKept) {
    const tests::ScratchFolder folder;
    Request request;
    request.member = core::find_member(*core::find_dispid("GetNumPagesPDF"), automation::Access::call);
    request.arguments = {automation::named("strPDFFile", "x.pdf"),
                         automation::named("strOpenPassword", "A SECRET")};
    request.options.verbose = true;
    request.options.log_file = (folder / "log").string();
    testing::internal::CaptureStderr();
    CallLog log(request);
    log.line("start /system/quorixsend.exe password~Edit~A SECRET~0~0~");
    log.file_line("failed: A SECRET");
    for (const std::string& text :
         {testing::internal::GetCapturedStderr(), tests::read_file(folder / "log")}) {
        EXPECT_NE(text.find("quorixsend.exe password~Edit~***~0~0~"), std::string::npos) << text;
        EXPECT_EQ(text.find("A SECRET"), std::string::npos) << text;
    }
    EXPECT_NE(tests::read_file(folder / "log").find("failed: ***"), std::string::npos);
}

}  // namespace
}  // namespace foliant::cli
