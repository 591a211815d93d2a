#include "acrobat/images.h"
#include "acrobat/merge.h"
#include "acrobat/page_count.h"
#include "core/build_pdf.h"

namespace foliant::core {

std::int32_t BuildPDF::GetNumPagesPDF(std::string& strPDFFile, std::string& strOpenPassword) {
    return acrobat::GetNumPagesPDF(session_, {.path = strPDFFile, .password = strOpenPassword});
}

void BuildPDF::CreatePDFfromMultiPDFinDir(std::string& strPDFFile, std::string& strDirectory,
                                          std::string& strFiles) {
    acrobat::CreatePDFfromMultiPDFinDir(session_, strPDFFile, strDirectory, strFiles);
}

void BuildPDF::CreatePDFfromMultiPDF(std::string& strPDFFile, automation::Value& varPDFFiles) {
    acrobat::CreatePDFfromMultiPDF(session_, strPDFFile, varPDFFiles);
}

void BuildPDF::CreatePDFfromImageFile(std::string& strPDFFile, std::string& strImageFile,
                                      std::string& strTitle, std::string& strAuthor, std::string& strSubject,
                                      std::string& strKeywords) {
    acrobat::CreatePDFfromImageFile(
        session_, strPDFFile, strImageFile,
        {.title = strTitle, .author = strAuthor, .subject = strSubject, .keywords = strKeywords});
}

void BuildPDF::CreatePDFfromMultiImage(std::string& strPDFFile, automation::Value& varImageFiles) {
    acrobat::CreatePDFfromMultiImage(session_, strPDFFile, varImageFiles);
}

}  // namespace foliant::core
