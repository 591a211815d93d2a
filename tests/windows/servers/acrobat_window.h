#pragma once

#include <memory>
#include <string>

#include "windows/servers/scene.h"

namespace foliant::tests::servers {

/// Acrobat's window comes up with a document, or a web page, in it. It is not shown; those who look for it by
/// its caption find it.
void show_in_acrobat(std::wstring name);

/// The document has gone. The window stays, and records in `scene` when it is closed; nothing happens where
/// there is none.
void empty_acrobat(const std::shared_ptr<Scene>& scene);

/// What Acrobat does when an item of its menu is chosen: the dialogs that it puts up, one after the other, and
/// for a captured web page the window.
void run_menu_item(Scene& scene, const std::wstring& item);

}  // namespace foliant::tests::servers
