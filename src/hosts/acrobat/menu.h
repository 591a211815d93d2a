#pragma once

#include <string_view>

#include "hosts/acrobat/program.h"

namespace foliant::hosts::acrobat {

/// Does what a menu item does, named as Acrobat names it for programs:
///
///     Open                       asks for a file, and for its password where it has one, and shows it
///
/// Whether it was done. Raises for an item that is not known, and what the item raises.
bool execute_menu_item(Program& program, std::string_view name);

}  // namespace foliant::hosts::acrobat
