#include "converters/word.h"

#include "core/build_pdf.h"
#include "core/members/distiller_options.h"

namespace foliant::core {
namespace {

/// What the members of the family have in common.
converters::WordJob word_job(const std::string& strWordDocument, const std::string& strPassword,
                             const std::string& strWritePassword, const std::string& strPages,
                             bool blnLandscape, bool blnPageNumberInFooter, bool blnPageNumberInHeader,
                             AlignType lngPageNumberAlignment, bool blnFirstPage,
                             const std::string& strDistiller) {
    return {.document = strWordDocument,
            .password = strPassword,
            .write_password = strWritePassword,
            .pages = strPages,
            .landscape = blnLandscape,
            .page_numbers = {.in_footer = blnPageNumberInFooter,
                             .in_header = blnPageNumberInHeader,
                             .alignment = static_cast<std::int32_t>(lngPageNumberAlignment),
                             .on_first_page = blnFirstPage},
            .printer = strDistiller};
}

}  // namespace

void BuildPDF::CreatePDFfromWord(std::string& strPDFFile, std::string& strWordDocument,
                                 std::string& strPassword, std::string& strWritePassword,
                                 std::string& strPages, bool& blnLandscape, bool& blnPageNumberInFooter,
                                 bool& blnPageNumberInHeader, AlignType& lngPageNumberAlignment,
                                 bool& blnFirstPage, std::string& strDistiller, bool& blnShowWindow,
                                 bool& blnSpoolJobs, std::string& strJobOptionsFile, bool& blnApplySecurity) {
    converters::CreatePDFfromWord(
        session_, strPDFFile,
        word_job(strWordDocument, strPassword, strWritePassword, strPages, blnLandscape,
                 blnPageNumberInFooter, blnPageNumberInHeader, lngPageNumberAlignment, blnFirstPage,
                 strDistiller),
        distiller_options(blnShowWindow, blnSpoolJobs, strJobOptionsFile, blnApplySecurity));
}

void BuildPDF::CreatePDFfromWord2(std::string& strPDFFile, std::string& strWordDocument,
                                  std::string& strPassword, std::string& strWritePassword,
                                  std::string& strPages, bool& blnLandscape, bool& blnPageNumberInFooter,
                                  bool& blnPageNumberInHeader, AlignType& lngPageNumberAlignment,
                                  bool& blnFirstPage, std::string& strDistiller, bool& blnCloseAcrobat) {
    converters::CreatePDFfromWord2(session_, strPDFFile,
                                   word_job(strWordDocument, strPassword, strWritePassword, strPages,
                                            blnLandscape, blnPageNumberInFooter, blnPageNumberInHeader,
                                            lngPageNumberAlignment, blnFirstPage, strDistiller),
                                   blnCloseAcrobat);
}

void BuildPDF::CreatePSfromWord(std::string& strPSFile, std::string& strWordDocument,
                                std::string& strPassword, std::string& strWritePassword,
                                std::string& strPages, bool& blnLandscape, bool& blnPageNumberInFooter,
                                bool& blnPageNumberInHeader, AlignType& lngPageNumberAlignment,
                                bool& blnFirstPage, std::string& strDistiller) {
    converters::CreatePSfromWord(session_, strPSFile,
                                 word_job(strWordDocument, strPassword, strWritePassword, strPages,
                                          blnLandscape, blnPageNumberInFooter, blnPageNumberInHeader,
                                          lngPageNumberAlignment, blnFirstPage, strDistiller));
}

}  // namespace foliant::core
