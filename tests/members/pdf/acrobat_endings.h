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

}  // namespace foliant::members
