#include "hosts/acrobat/view/read_aloud.h"

#include "hosts/acrobat/acrobat_error.h"
#include "hosts/acrobat/owner_rights.h"
#include "hosts/acrobat/text/words.h"

namespace foliant::hosts::acrobat::view {

namespace {

bool read(Program& program, bool to_end) {
    const ViewPtr view = program.active_view();
    if (!view)
        throw acrobat_error(automation::RuntimeError::object_not_set, "There is no document to read aloud.");
    Document& document = *view->document;
    require_right(document, structure::Right::hear, "may not be read aloud");
    std::string text;
    with_file_named(document, [&](structure::Pdf&) {
        const int last = to_end ? document.text().pages().page_count() - 1 : view->page;
        for (int page = view->page; page <= last; ++page)
            text += text::words(*document.text().pages().page(page)).letters;
    });
    program.read_aloud(text);
    return true;
}

}  // namespace

bool read_page_aloud(Program& program) {
    return read(program, false);
}

bool read_to_end_aloud(Program& program) {
    return read(program, true);
}

}  // namespace foliant::hosts::acrobat::view
