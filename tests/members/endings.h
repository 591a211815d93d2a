#pragma once

#include "support/fault_scene.h"

/// How failures of several families end.
namespace foliant::members {

inline constexpr tests::Ending let_distiller_go{"let Distiller go", R"(
    stop listening to Distiller
    release Distiller
)"};

}  // namespace foliant::members
