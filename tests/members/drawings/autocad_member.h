#pragma once

#include <string>

#include "automation/error.h"
#include "platform/stage/stage_object.h"
#include "registered/keys.h"
#include "support/fault_cases.h"
#include "support/member_cases.h"
#include "support/member_test.h"

/// What the tests of the two AutoCAD members share.
namespace foliant::members {

/// Temporary files go to C:\Temp; the clock of the stage seeds the random generator so that the first two are
/// 13387663.pdf and 90360397.pdf.
inline void put_drawing(platform::stage::Stage& stage) {
    stage.library_folder = "C:\\Temp";
    stage.put_file("C:\\in\\house.dwg");
}

/// AutoCAD plots to that file by itself, as PDFWriter has it do.
inline void have_pdf_writer(platform::stage::Stage& stage, const std::string& target) {
    stage.when("AutoCAD.Plot.PlotToDevice",
               [target](platform::stage::StageObject& self, const automation::Arguments&) {
                   self.stage().put_file(target);
                   return automation::Value(true);
               });
}

/// In the trap the drawing is closed without arguments, other than at the normal end.
inline constexpr tests::Ending let_autocad_go{"let AutoCAD go", R"(
    AutoCAD.Document.Close()
    release AutoCAD.Document
    AutoCAD.Application.Quit()
    release AutoCAD.Application
)"};

/// Before there is a drawing, and after it was closed.
inline constexpr tests::Ending quit_autocad{"quit AutoCAD", R"(
    AutoCAD.Application.Quit()
    release AutoCAD.Application
)"};

class AutoCADMember : public tests::MemberTest {
  protected:
    using MemberTest::MemberTest;

    void make_autocad_fail_in(const std::string& class_and_member) {
        using namespace platform::stage;
        stage.when(class_and_member, [](StageObject&, const automation::Arguments&) -> automation::Value {
            throw automation::Error(-2145320901, "AutoCAD", "AutoCAD cannot do that.");
        });
    }
};

}  // namespace foliant::members
