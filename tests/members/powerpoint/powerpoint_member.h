#pragma once

#include <string>

#include "automation/error.h"
#include "members/endings.h"
#include "platform/stage/stage_object.h"
#include "support/fault_cases.h"
#include "support/member_cases.h"
#include "support/member_test.h"

/// What the tests of the three PowerPoint members share.
namespace foliant::members {

/// Temporary files go to C:\Temp; the clock of the stage seeds the random generator so that the first is
/// 13387663.ps.
inline void put_presentation(platform::stage::Stage& stage) {
    stage.library_folder = "C:\\Temp";
    stage.put_file("C:\\in\\talk.ppt");
}

inline void put_presentation_and_old_output(platform::stage::Stage& stage) {
    put_presentation(stage);
    stage.put_file("C:\\out\\talk.pdf");
}

inline constexpr tests::Ending let_powerpoint_go{"let PowerPoint go", R"(
    Powerpoint.Presentation.Close()
    release Powerpoint.Presentation
    Powerpoint.Application.Quit()
    release Powerpoint.Application
)"};

/// Before there is a presentation, and after it was closed.
inline constexpr tests::Ending quit_powerpoint{"quit PowerPoint", R"(
    Powerpoint.Application.Quit()
    release Powerpoint.Application
)"};

class PowerPointMember : public tests::MemberTest {
  protected:
    using MemberTest::MemberTest;

    /// PowerPoint fails in that member, "Powerpoint.Presentation.PrintOut", as real hosts do: with an HRESULT
    /// and its own name.
    void make_powerpoint_fail_in(const std::string& class_and_member) {
        using namespace platform::stage;
        stage.when(class_and_member, [](StageObject&, const automation::Arguments&) -> automation::Value {
            throw automation::Error(-2147352567, "Microsoft PowerPoint", "PowerPoint cannot do that.");
        });
    }
};

}  // namespace foliant::members
