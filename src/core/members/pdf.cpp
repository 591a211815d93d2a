#include "acrobat/page_count.h"
#include "core/build_pdf.h"

namespace foliant::core {

std::int32_t BuildPDF::GetNumPagesPDF(std::string& strPDFFile, std::string& strOpenPassword) {
    return acrobat::GetNumPagesPDF(session_, {.path = strPDFFile, .password = strOpenPassword});
}

}  // namespace foliant::core
