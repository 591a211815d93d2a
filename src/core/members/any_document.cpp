#include "converters/pdfmaker.h"
#include "core/build_pdf.h"

namespace foliant::core {

void BuildPDF::CreatePDF(std::string& strSourceFile, std::string& strPDFFile,
                         std::int16_t& intSecsToWaitForPDF) {
    converters::CreatePDF(session_, strSourceFile, strPDFFile, intSecsToWaitForPDF);
}

}  // namespace foliant::core
