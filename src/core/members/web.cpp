#include "acrobat/web_capture.h"
#include "core/build_pdf.h"

namespace foliant::core {

void BuildPDF::CreatePDFfromWebPage(std::string& strURL, std::string& strPDFFile, bool& blnHideAcrobat,
                                    std::int16_t& intSecsToWaitForPDF) {
    acrobat::CreatePDFfromWebPage(session_, strURL, strPDFFile, blnHideAcrobat, intSecsToWaitForPDF);
}

}  // namespace foliant::core
