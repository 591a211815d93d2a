#pragma once

#include <cstdint>
#include <string>

#include "acrobat/open_document.h"
#include "session/session.h"

namespace foliant::acrobat {

/// Where a viewer begins, and what Acrobat then reads aloud.
struct ViewSettings {
    std::string bookmark = {};    ///< blank for none; whether there is such a one is not looked at
    std::int32_t page = 0;        ///< counted from 1; a number that is no page of the document names none
    std::int32_t read_aloud = 0;  ///< 1 the current page, 2 the document; every other number nothing
};

/// Opens a PDF in an Acrobat that is shown, and leaves it to the user, also after a failure. Read-aloud needs
/// an Acrobat newer than 5 and is left out in an older one. Raises the missing-file error, the component's error
/// when there is a password or a page to go to and no sender, and what Acrobat raises.
void OpenPDF(const session::Session& session, const PdfFile& file, const ViewSettings& settings);

}  // namespace foliant::acrobat
