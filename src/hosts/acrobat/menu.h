#pragma once

#include <string_view>

#include "hosts/acrobat/program.h"

namespace foliant::hosts::acrobat {

/// Does what a menu item does, named as Acrobat names it for programs:
///
///     ADBE:ReadAloudStart        reads the page in view aloud when the call is over
///     ADBE:ReadAloudToEnd        the same from that page to the end
///     GoToPage                   asks for the number of a page, and brings it into view
///     NewBookmark                a bookmark "Untitled" on what the window in front shows
///     Open                       asks for a file, and for its password where it has one, and shows it
///     Save                       saves the document in front, all of it, under its own name
///     SecureApplyPwdSecurity     protects it with a password to open it; see password_security.h
///     Web2PDF:OpnURL             asks for the address of a web page, and shows it as a PDF; web_capture.h
///     Weblink:CreateURLs         makes links of the addresses that are written in the document; web_links.h
///
/// Whether it was done. Raises for an item that is not known, and what the item raises.
bool execute_menu_item(Program& program, std::string_view name);

}  // namespace foliant::hosts::acrobat
