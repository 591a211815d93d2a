#pragma once

#include <string>

#include "automation/error.h"
#include "members/endings.h"
#include "platform/stage/stage_object.h"
#include "support/fault_cases.h"
#include "support/member_cases.h"
#include "support/member_test.h"

/// What the tests of the three Word members share.
namespace foliant::members {

/// Temporary files go to C:\Temp; the clock of the stage seeds the random generator so that the first is
/// 13387663.ps.
inline void put_document(platform::stage::Stage& stage) {
    stage.library_folder = "C:\\Temp";
    stage.put_file("C:\\in\\letter.doc");
}

inline void put_document_and_old_output(platform::stage::Stage& stage) {
    put_document(stage);
    stage.put_file("C:\\out\\letter.pdf");
}

inline constexpr tests::Ending let_word_go{"let Word go", R"(
    Word.Document.Close(False)
    release Word.Document
    Word.Application.Quit()
    release Word.Application
)"};

/// Before there is a document, and after it was closed.
inline constexpr tests::Ending quit_word{"quit Word", R"(
    Word.Application.Quit()
    release Word.Application
)"};

class WordMember : public tests::MemberTest {
  protected:
    using MemberTest::MemberTest;

    /// Word fails in that member, "Word.Document.PrintOut", as real hosts do: with an HRESULT and its own
    /// name.
    void make_word_fail_in(const std::string& class_and_member) {
        using namespace platform::stage;
        stage.when(class_and_member, [](StageObject&, const automation::Arguments&) -> automation::Value {
            throw automation::Error(-2147352567, "Microsoft Word", "Word cannot do that.");
        });
    }

    /// The printer writes that file, whoever answers its dialog, and no window of Acrobat opens.
    void have_the_printer_write(const std::string& target) {
        using namespace platform::stage;
        stage.when("Word.Document.PrintOut", [target](StageObject& document, const automation::Arguments&) {
            document.stage().put_file(target);
            return automation::Value();
        });
    }
};

}  // namespace foliant::members
