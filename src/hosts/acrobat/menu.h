#pragma once

#include <string_view>

#include "hosts/acrobat/program.h"

namespace foliant::hosts::acrobat {

/// Does what a menu item does, named as Acrobat names it for programs:
///
///     NewBookmark                a bookmark "Untitled" on what the window in front shows
///     Open                       asks for a file, and for its password where it has one, and shows it
///     Weblink:CreateURLs         makes links of the addresses that are written in the document; web_links.h
///
/// Whether it was done. Raises for an item that is not known, and what the item raises.
bool execute_menu_item(Program& program, std::string_view name);

}  // namespace foliant::hosts::acrobat
