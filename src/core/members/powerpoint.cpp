#include "converters/powerpoint.h"

#include "core/build_pdf.h"
#include "core/members/distiller_options.h"

namespace foliant::core {
namespace {

/// What the members of the family have in common.
converters::SlidesJob slides_job(const std::string& strPPDocument, std::int32_t lngStartSlide,
                                 std::int32_t lngEndSlide, bool blnHorizontalOrientation,
                                 const std::string& strDistiller) {
    return {.presentation = strPPDocument,
            .first_slide = lngStartSlide,
            .last_slide = lngEndSlide,
            .horizontal = blnHorizontalOrientation,
            .printer = strDistiller};
}

}  // namespace

void BuildPDF::CreatePDFfromPowerPoint(std::string& strPDFFile, std::string& strPPDocument,
                                       std::int32_t& lngStartSlide, std::int32_t& lngEndSlide,
                                       bool& blnHorizontalOrientation, std::string& strDistiller,
                                       bool& blnShowWindow, bool& blnSpoolJobs,
                                       std::string& strJobOptionsFile, bool& blnApplySecurity) {
    converters::CreatePDFfromPowerPoint(
        session_, strPDFFile,
        slides_job(strPPDocument, lngStartSlide, lngEndSlide, blnHorizontalOrientation, strDistiller),
        distiller_options(blnShowWindow, blnSpoolJobs, strJobOptionsFile, blnApplySecurity));
}

void BuildPDF::CreatePDFfromPowerPoint2(std::string& strPDFFile, std::string& strPPDocument,
                                        std::int32_t& lngStartSlide, std::int32_t& lngEndSlide,
                                        bool& blnHorizontalOrientation, std::string& strDistiller,
                                        bool& blnCloseAcrobat) {
    converters::CreatePDFfromPowerPoint2(
        session_, strPDFFile,
        slides_job(strPPDocument, lngStartSlide, lngEndSlide, blnHorizontalOrientation, strDistiller),
        blnCloseAcrobat);
}

void BuildPDF::CreatePSfromPowerPoint(std::string& strPSFile, std::string& strPPDocument,
                                      std::int32_t& lngStartSlide, std::int32_t& lngEndSlide,
                                      bool& blnHorizontalOrientation, std::string& strDistiller) {
    converters::CreatePSfromPowerPoint(
        session_, strPSFile,
        slides_job(strPPDocument, lngStartSlide, lngEndSlide, blnHorizontalOrientation, strDistiller));
}

}  // namespace foliant::core
