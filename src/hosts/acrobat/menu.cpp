#include "hosts/acrobat/menu.h"

#include <algorithm>
#include <array>
#include <string>

#include "hosts/acrobat/acrobat_error.h"
#include "hosts/acrobat/open_file.h"
#include "hosts/acrobat/password_security.h"
#include "hosts/acrobat/pd_bookmark.h"
#include "hosts/acrobat/save.h"
#include "hosts/acrobat/view/go_to_page.h"
#include "hosts/acrobat/view/read_aloud.h"
#include "hosts/acrobat/web_capture.h"
#include "hosts/acrobat/web_links.h"

namespace foliant::hosts::acrobat {

namespace {

struct MenuItem {
    std::string_view name;
    bool (*execute)(Program&);
};

constexpr std::array menu{
    MenuItem{"ADBE:ReadAloudStart", view::read_page_aloud},
    MenuItem{"ADBE:ReadAloudToEnd", view::read_to_end_aloud},
    MenuItem{"GoToPage", view::go_to_page_by_dialog},
    MenuItem{"NewBookmark", add_bookmark_for_view},
    MenuItem{"Open", open_by_dialog},
    MenuItem{"Save", save_active_document},
    MenuItem{"SecureApplyPwdSecurity", protect_active_document},
    MenuItem{"Web2PDF:OpnURL", capture_page_by_dialog},
    MenuItem{"Weblink:CreateURLs", create_web_links},
};

}  // namespace

bool execute_menu_item(Program& program, std::string_view name) {
    const auto item = std::ranges::find(menu, name, &MenuItem::name);
    if (item == menu.end())
        throw acrobat_error(automation::RuntimeError::action_not_supported,
                            "There is no menu item \"" + std::string(name) + "\" here.");
    return item->execute(program);
}

}  // namespace foliant::hosts::acrobat
