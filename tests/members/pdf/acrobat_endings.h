#pragma once

#include "support/fault_scene.h"

/// How failures end in the members that have Acrobat open a PDF.
namespace foliant::members {

inline constexpr tests::Ending let_acrobat_go{"let Acrobat go", R"(
    AcroExch.AVDoc.Close(True)
    release AcroExch.AVDoc
    release AcroExch.PDDoc
    AcroExch.App.Exit()
    release AcroExch.App
)"};

/// ... with a trap that closes the document as well.
inline constexpr tests::Ending let_both_go{"let both go", R"(
    AcroExch.AVDoc.Close(True)
    release AcroExch.AVDoc
    AcroExch.PDDoc.Close()
    release AcroExch.PDDoc
    AcroExch.App.Exit()
    release AcroExch.App
)"};

/// ... with a trap that closes nothing.
inline constexpr tests::Ending release_acrobat{"release Acrobat", R"(
    release AcroExch.AVDoc
    release AcroExch.PDDoc
    release AcroExch.App
)"};

/// ... without an application.
inline constexpr tests::Ending close_viewer_and_release{"close the viewer and release", R"(
    AcroExch.AVDoc.Close(True)
    release AcroExch.AVDoc
    release AcroExch.PDDoc
)"};

inline constexpr tests::Ending leave_acrobat_to_user{"leave Acrobat to the user", R"(
    release AcroExch.AVDoc
    release AcroExch.PDDoc
    release AcroExch.PDBookmark
    release AcroExch.App
)"};

inline constexpr tests::Ending release_both_documents{"release both documents", R"(
    release AcroExch.PDDoc
    release AcroExch.PDDoc
)"};

}  // namespace foliant::members
