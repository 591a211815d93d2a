#pragma once

#include <string>

#include "automation/error.h"
#include "members/endings.h"
#include "members/pdf/lists_of_files.h"
#include "platform/stage/stage_object.h"
#include "support/fault_cases.h"
#include "support/member_cases.h"
#include "support/member_test.h"

/// What the tests of the five Excel members share.
namespace foliant::members {

/// Temporary files go to C:\Temp; the clock of the stage seeds the random generator so that the first three
/// are 13387663, 90360397 and 43590340.
inline void put_workbook(platform::stage::Stage& stage) {
    stage.library_folder = "C:\\Temp";
    stage.put_file("C:\\in\\sales.xls");
}

inline void put_workbook_and_old_output(platform::stage::Stage& stage) {
    put_workbook(stage);
    stage.put_file("C:\\out\\sales.pdf");
}

inline constexpr tests::Ending let_excel_go{"let Excel go", R"(
    Excel.Workbook.Close(False)
    release Excel.Workbook
    Excel.Application.Quit()
    release Excel.Application
)"};

/// Before there is a workbook, and after it was closed.
inline constexpr tests::Ending quit_excel{"quit Excel", R"(
    Excel.Application.Quit()
    release Excel.Application
)"};

class ExcelMember : public tests::MemberTest {
  protected:
    using MemberTest::MemberTest;

    /// Excel fails in that member, "Excel.Range.PrintOut", as real hosts do: with an HRESULT and its own
    /// name.
    void make_excel_fail_in(const std::string& class_and_member) {
        using namespace platform::stage;
        stage.when(class_and_member, [](StageObject&, const automation::Arguments&) -> automation::Value {
            throw automation::Error(-2147352567, "Microsoft Excel", "Excel cannot do that.");
        });
    }
};

}  // namespace foliant::members
