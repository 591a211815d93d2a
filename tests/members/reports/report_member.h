#pragma once

#include <string>

#include "automation/error.h"
#include "platform/stage/stage_object.h"
#include "support/fault_cases.h"
#include "support/member_cases.h"
#include "support/member_test.h"

/// What the tests of the members share that print reports.
namespace foliant::members {

/// Temporary files go to C:\Temp; the clock of the stage seeds the random generator so that the first two are
/// 13387663.pdf and 90360397.pdf.
inline void put_database(platform::stage::Stage& stage) {
    stage.library_folder = "C:\\Temp";
    stage.put_file("C:\\in\\sales.mdb");
}

inline void put_database_and_old_output(platform::stage::Stage& stage) {
    put_database(stage);
    stage.put_file("C:\\out\\sales.pdf");
}

/// The end in the error traps, whether there is a database open or not.
inline constexpr tests::Ending let_access_go{"let Access go", R"(
    Access.Application.CloseCurrentDatabase()
    Access.Application.Quit()
    release Access.Application
)"};

class ReportMember : public tests::MemberTest {
  protected:
    using MemberTest::MemberTest;

    /// A host fails in that member, as real hosts do: with an HRESULT and its own name.
    void make_host_fail_in(const std::string& class_and_member) {
        using namespace platform::stage;
        stage.when(class_and_member, [](StageObject&, const automation::Arguments&) -> automation::Value {
            throw automation::Error(-2147352567, "Microsoft Access", "Access cannot do that.");
        });
    }
};

}  // namespace foliant::members
