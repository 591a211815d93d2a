#include "hosts/acrobat/application.h"

#include <utility>

#include "automation/coerce.h"
#include "hosts/acrobat/acrobat_error.h"
#include "hosts/acrobat/av_document.h"
#include "hosts/acrobat/menu.h"

namespace foliant::hosts::acrobat {

automation::ObjectPtr make_application(ProgramPtr program) {
    auto application = std::make_shared<LateBound>(application_name);
    application->add_method("Show", {}, [program](const Bound&) {
        program->become_visible();
        return true;
    });
    application->add_method("GetActiveDoc", {}, [program](const Bound&) {
        program->show_handed_over();
        return automation::ObjectPtr(std::make_shared<AvDocument>(program, program->active_view()));
    });
    application->add_method("MenuItemExecute", {"szMenuItemName"}, [program](const Bound& given) {
        return execute_menu_item(*program, automation::to_text(given[0]));
    });
    application->add_method("Exit", {}, [program](const Bound&) {
        program->close_all();
        return true;
    });
    return application;
}

}  // namespace foliant::hosts::acrobat
