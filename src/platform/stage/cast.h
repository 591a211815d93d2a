#pragma once

#include "platform/stage/stage.h"

namespace foliant::platform::stage {

/// Puts on stage what a usual machine has: Acrobat 6.0 with its PDF printer, the window sender in the system
/// folder, a Word that prints, a Distiller that converts. What a host would write appears among the stage's
/// files.
void cast_usual_machine(Stage& stage);

/// A Word whose `PrintOut` makes the output file: the one named, or the one that the sender was told to type
/// into the save dialog.
void cast_word(Stage& stage);

/// A Distiller, in both of its classes, that announces its job, one page and its end, and makes the output
/// file.
void cast_distiller(Stage& stage);

}  // namespace foliant::platform::stage
