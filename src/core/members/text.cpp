#include "converters/text_file.h"
#include "core/build_pdf.h"
#include "core/members/distiller_options.h"

namespace foliant::core {
namespace {

/// What the members of the family have in common that print with Word.
converters::TextFileJob text_file_job(const std::string& strTextfile, bool blnLandscape,
                                      const std::string& strFont, bool blnFontBold, std::int16_t intFontSize,
                                      std::int32_t lngFontColor, bool blnFontItalic, bool blnFontUnderline,
                                      bool blnPageNumberInFooter, bool blnPageNumberInHeader,
                                      AlignType lngPageNumberAlignment, float sngTopMargin,
                                      float sngLeftMargin, float sngRightMargin, float sngBottomMargin,
                                      bool blnFirstPage, const std::string& strDistiller) {
    return {.file = strTextfile,
            .landscape = blnLandscape,
            .font = {.name = strFont,
                     .bold = blnFontBold,
                     .size = intFontSize,
                     .color = lngFontColor,
                     .italic = blnFontItalic,
                     .underline = blnFontUnderline},
            .page_numbers = {.in_footer = blnPageNumberInFooter,
                             .in_header = blnPageNumberInHeader,
                             .alignment = static_cast<std::int32_t>(lngPageNumberAlignment),
                             .on_first_page = blnFirstPage},
            .margins = {.top = sngTopMargin,
                        .left = sngLeftMargin,
                        .right = sngRightMargin,
                        .bottom = sngBottomMargin},
            .printer = strDistiller};
}

}  // namespace

void BuildPDF::CreatePDFfromTextFile(std::string& strPDFFile, std::string& strTextfile, bool& blnLandscape,
                                     std::string& strFont, bool& blnFontBold, std::int16_t& intFontSize,
                                     std::int32_t& lngFontColor, bool& blnFontItalic, bool& blnFontUnderline,
                                     bool& blnPageNumberInFooter, bool& blnPageNumberInHeader,
                                     AlignType& lngPageNumberAlignment, float& sngTopMargin,
                                     float& sngLeftMargin, float& sngRightMargin, float& sngBottomMargin,
                                     bool& blnFirstPage, std::string& strDistiller, bool& blnShowWindow,
                                     bool& blnSpoolJobs, std::string& strJobOptionsFile,
                                     bool& blnApplySecurity) {
    converters::CreatePDFfromTextFile(
        session_, strPDFFile,
        text_file_job(strTextfile, blnLandscape, strFont, blnFontBold, intFontSize, lngFontColor,
                      blnFontItalic, blnFontUnderline, blnPageNumberInFooter, blnPageNumberInHeader,
                      lngPageNumberAlignment, sngTopMargin, sngLeftMargin, sngRightMargin, sngBottomMargin,
                      blnFirstPage, strDistiller),
        distiller_options(blnShowWindow, blnSpoolJobs, strJobOptionsFile, blnApplySecurity));
}

void BuildPDF::CreatePDFfromTextFile2(std::string& strPDFFile, std::string& strTextfile, bool& blnLandscape,
                                      std::string& strFont, bool& blnFontBold, std::int16_t& intFontSize,
                                      std::int32_t& lngFontColor, bool& blnFontItalic, bool& blnFontUnderline,
                                      bool& blnPageNumberInFooter, bool& blnPageNumberInHeader,
                                      AlignType& lngPageNumberAlignment, float& sngTopMargin,
                                      float& sngLeftMargin, float& sngRightMargin, float& sngBottomMargin,
                                      bool& blnFirstPage, std::string& strDistiller, bool& blnCloseAcrobat) {
    converters::CreatePDFfromTextFile2(
        session_, strPDFFile,
        text_file_job(strTextfile, blnLandscape, strFont, blnFontBold, intFontSize, lngFontColor,
                      blnFontItalic, blnFontUnderline, blnPageNumberInFooter, blnPageNumberInHeader,
                      lngPageNumberAlignment, sngTopMargin, sngLeftMargin, sngRightMargin, sngBottomMargin,
                      blnFirstPage, strDistiller),
        blnCloseAcrobat);
}

void BuildPDF::CreatePDFfromTextFile3(std::string& strPDFFile, std::string& strTextfile,
                                      std::string& strDistiller, bool& blnCloseAcrobat) {
    converters::CreatePDFfromTextFile3(session_, strPDFFile, strTextfile, strDistiller, blnCloseAcrobat);
}

void BuildPDF::CreatePSfromTextFile(std::string& strPSFile, std::string& strTextfile, bool& blnLandscape,
                                    std::string& strFont, bool& blnFontBold, std::int16_t& intFontSize,
                                    std::int32_t& lngFontColor, bool& blnFontItalic, bool& blnFontUnderline,
                                    bool& blnPageNumberInFooter, bool& blnPageNumberInHeader,
                                    AlignType& lngPageNumberAlignment, float& sngTopMargin,
                                    float& sngLeftMargin, float& sngRightMargin, float& sngBottomMargin,
                                    bool& blnFirstPage, std::string& strDistiller) {
    converters::CreatePSfromTextFile(
        session_, strPSFile,
        text_file_job(strTextfile, blnLandscape, strFont, blnFontBold, intFontSize, lngFontColor,
                      blnFontItalic, blnFontUnderline, blnPageNumberInFooter, blnPageNumberInHeader,
                      lngPageNumberAlignment, sngTopMargin, sngLeftMargin, sngRightMargin, sngBottomMargin,
                      blnFirstPage, strDistiller));
}

}  // namespace foliant::core
