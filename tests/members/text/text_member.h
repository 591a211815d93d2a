#pragma once

#include "members/word/word_member.h"

/// What the tests of the members share that turn a text file into something.
namespace foliant::members {

/// Temporary files go to C:\Temp; the first is 13387663.ps (see word/word_member.h).
inline void put_text(platform::stage::Stage& stage) {
    stage.library_folder = "C:\\Temp";
    stage.put_file("C:\\in\\notes.txt");
}

inline void put_text_and_old_output(platform::stage::Stage& stage) {
    put_text(stage);
    stage.put_file("C:\\out\\notes.pdf");
    stage.put_file("C:\\out\\notes.ps");
}

}  // namespace foliant::members
