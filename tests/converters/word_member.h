#pragma once

#include <string>

#include "automation/error.h"
#include "converters/word.h"
#include "platform/stage/stage_object.h"
#include "support/staged_session.h"

namespace foliant::converters {

/// What the tests of the three Word members share. Temporary files go to C:\Temp; the clock of the stage
/// seeds the random generator so that the first is 13387663.ps.
class WordMember : public tests::StagedSession {
  protected:
    WordMember() {
        stage.put_file("C:\\in\\letter.doc");
        stage.library_folder = "C:\\Temp";
        job.document = "C:\\in\\letter.doc";
    }

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

    WordJob job;
    engines::DistillerOptions options;
};

}  // namespace foliant::converters
