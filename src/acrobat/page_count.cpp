#include "acrobat/page_count.h"

#include "acrobat/acrobat.h"
#include "acrobat/pages.h"
#include "session/errors.h"

namespace foliant::acrobat {

std::int32_t GetNumPagesPDF(const session::Session& session, const PdfFile& file) {
    session.require_file(file.path);
    Acrobat acrobat;
    std::int32_t pages = 0;
    session::with_error_trap(
        [&] {
            acrobat.application = new_application(session);
            acrobat.viewer = new_viewer(session);
            acrobat.document = new_document(session);
            open_in_viewer(session, acrobat, file);
            pages = page_count(acrobat.document);
            acrobat.close_and_exit();
        },
        [&] { acrobat.let_go(); });
    return pages;
}

}  // namespace foliant::acrobat
