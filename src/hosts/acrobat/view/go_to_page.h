#pragma once

#include "hosts/acrobat/program.h"

namespace foliant::hosts::acrobat::view {

/// The dialog "Go To Page" asks for the number of a page of the document in front, from 1, and brings it into
/// view. False when it was cancelled. Raises when there is no such page, and when nobody answers.
bool go_to_page_by_dialog(Program& program);

}  // namespace foliant::hosts::acrobat::view
