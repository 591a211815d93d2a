#pragma once

#include <string>

#include "automation/value.h"
#include "session/session.h"

namespace foliant::acrobat {

/// What is written into a PDF about it, as it stands; a blank text is not written.
struct DocumentInformation {
    std::string title = {};
    std::string author = {};
    std::string subject = {};
    std::string keywords = {};
};

/// Turns an image into a PDF: Acrobat converts it when it opens it. Writes over an old output, which is
/// deleted once the image is open; an image of which Acrobat makes no document leaves it, and is no error.
/// Acrobat is exited before this returns, also when it fails. Raises the missing-file error for the image, the
/// component's error when the PDF cannot be saved, and what Acrobat raises.
void CreatePDFfromImageFile(const session::Session& session, const std::string& strPDFFile,
                            const std::string& strImageFile, const DocumentInformation& information);

/// Turns images into one PDF, by way of a temporary PDF for each. Images that do not exist, or make no PDF,
/// are passed over; when none exists, nothing is done. Raises 13 when the list is no array, 6 for more than
/// 32,767 images, and what the conversion of an image and the merge raise; the temporary files stay then.
void CreatePDFfromMultiImage(const session::Session& session, const std::string& strPDFFile,
                             const automation::Value& varImageFiles);

}  // namespace foliant::acrobat
