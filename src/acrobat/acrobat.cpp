#include "acrobat/acrobat.h"

#include "engines/host_program.h"
#include "registered/classes.h"

namespace foliant::acrobat {

using automation::Value;
using session::Session;

Value new_application(const Session& session) {
    return session.outside().servers.create(registered::acrobat);
}

Value new_viewer(const Session& session) {
    return session.outside().servers.create(registered::acrobat_viewer);
}

Value new_document(const Session& session) {
    return session.outside().servers.create(registered::acrobat_document);
}

Value new_bookmark(const Session& session) {
    return session.outside().servers.create(registered::acrobat_bookmark);
}

void Acrobat::close_and_exit() {
    viewer.call("Close", {true});
    application.call("Exit");
    release();
}

void Acrobat::close_both_and_exit() {
    viewer.call("Close", {true});
    document.call("Close");
    application.call("Exit");
    release();
}

void Acrobat::release() noexcept {
    viewer = {};
    document = {};
    application = {};
}

void Acrobat::let_go() noexcept {
    engines::end_with_if_held(viewer, "Close", {true});
    document = {};
    engines::end_with_if_held(application, "Exit");
}

void Acrobat::let_both_go() noexcept {
    engines::end_with_if_held(viewer, "Close", {true});
    engines::end_with_if_held(document, "Close");
    engines::end_with_if_held(application, "Exit");
}

}  // namespace foliant::acrobat
