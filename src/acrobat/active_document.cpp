#include "acrobat/active_document.h"

#include <algorithm>

#include "acrobat/save_flags.h"
#include "automation/coerce.h"
#include "engines/acrobat_windows.h"

namespace foliant::acrobat {

using automation::to_int16;
using session::Session;

namespace {

void save(Acrobat& acrobat, const std::string& path) {
    acrobat.document = acrobat.viewer.call("GetPDDoc");
    acrobat.document.call("Save", {compact_save, path});
    acrobat.document.call("Close");
}

}  // namespace

void let_acrobat_finish(const Session& session, std::int16_t seconds) {
    const std::int16_t milliseconds = to_int16(std::int32_t{seconds} * 1000);
    session.outside().clock.settle(static_cast<std::uint32_t>(std::max<std::int16_t>(milliseconds, 0)));
}

void save_active_document_and_exit(const Session& session, Acrobat& acrobat, const std::string& path) {
    acrobat.viewer = new_viewer(session);
    acrobat.viewer = acrobat.application.call("GetActiveDoc");
    if (automation::to_bool(acrobat.viewer.call("IsValid"))) save(acrobat, path);
    acrobat.viewer.call("Close", {true});
    acrobat.application.call("Exit");
    engines::close_acrobat_main_windows(session);
    acrobat.document = {};
    acrobat.viewer = {};
    acrobat.application = {};
}

}  // namespace foliant::acrobat
