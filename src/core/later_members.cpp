// Members that later versions bring. Until then each raises the same error before it has touched anything, so
// that no client takes silence for success.

#include "automation/error.h"
#include "core/build_pdf.h"
#include "session/errors.h"

namespace foliant::core {
namespace {

[[noreturn]] void not_available(const char* member) {
    throw automation::Error(static_cast<std::int32_t>(automation::RuntimeError::action_not_supported),
                            std::string(session::application_title),
                            std::string(member) + std::string(not_available_ending));
}

}  // namespace

std::int32_t BuildPDF::GetNumPagesPDF(std::string&, std::string&) {
    not_available("GetNumPagesPDF");
}
void BuildPDF::CreateTextfileFromPDF(std::string&, std::string&, bool&, std::string&) {
    not_available("CreateTextfileFromPDF");
}
void BuildPDF::PrintPDFinDir(std::string&, std::string&, std::string&, bool&) {
    not_available("PrintPDFinDir");
}
void BuildPDF::PrintPDF(std::string&, std::string&, bool&, std::int32_t&, std::int32_t&, std::string&) {
    not_available("PrintPDF");
}
void BuildPDF::OpenPDF(std::string&, std::string&, std::int32_t&, ReadType, std::string&) {
    not_available("OpenPDF");
}
void BuildPDF::CreatePDFfromMultiPDFinDir(std::string&, std::string&, std::string&) {
    not_available("CreatePDFfromMultiPDFinDir");
}
void BuildPDF::CreatePDFfromMultiPDF(std::string&, automation::Value&) {
    not_available("CreatePDFfromMultiPDF");
}
void BuildPDF::CreatePDFfromImageFile(std::string&, std::string&, std::string&, std::string&, std::string&,
                                      std::string&) {
    not_available("CreatePDFfromImageFile");
}
void BuildPDF::CreatePDFfromMultiImage(std::string&, automation::Value&) {
    not_available("CreatePDFfromMultiImage");
}
void BuildPDF::CreatePDFfromExcel(std::string&, std::string&, automation::Value&, std::string&, std::string&,
                                  std::string&, bool&, bool&, std::string&, AlignType&, std::string&,
                                  AlignType&, double&, double&, double&, double&, double&, double&,
                                  std::int32_t&, std::string&, bool&, bool&, std::string&, bool&) {
    not_available("CreatePDFfromExcel");
}
void BuildPDF::CreatePDFfromExcel2(std::string&, std::string&, automation::Value&, std::string&, std::string&,
                                   std::string&, bool&, bool&, std::string&, AlignType&, std::string&,
                                   AlignType&, double&, double&, double&, double&, double&, double&,
                                   std::int32_t&, std::string&, bool&) {
    not_available("CreatePDFfromExcel2");
}
void BuildPDF::CreatePDFfromMultiExcel(std::string&, std::string&, automation::Value&, automation::Value&,
                                       std::string&, std::string&, bool&, automation::Value&, std::string&,
                                       AlignType&, std::string&, AlignType&, double&, double&, double&,
                                       double&, double&, double&, automation::Value&, std::string&, bool&,
                                       bool&, bool&) {
    not_available("CreatePDFfromMultiExcel");
}
void BuildPDF::CreatePDFfromMultiExcel2(std::string&, std::string&, automation::Value&, automation::Value&,
                                        std::string&, std::string&, bool&, automation::Value&, std::string&,
                                        AlignType&, std::string&, AlignType&, double&, double&, double&,
                                        double&, double&, double&, automation::Value&, std::string&, bool&) {
    not_available("CreatePDFfromMultiExcel2");
}
void BuildPDF::CreatePSfromExcel(std::string&, std::string&, automation::Value&, std::string&, std::string&,
                                 std::string&, bool&, bool&, std::string&, AlignType&, std::string&,
                                 AlignType&, double&, double&, double&, double&, double&, double&,
                                 std::int32_t&, std::string&, bool&, bool&) {
    not_available("CreatePSfromExcel");
}
void BuildPDF::FindTextInPDF(std::string&, std::string&, bool&, bool&, std::string&) {
    not_available("FindTextInPDF");
}
void BuildPDF::CreatePDFfromWebPage(std::string&, std::string&, bool&, std::int16_t&) {
    not_available("CreatePDFfromWebPage");
}
void BuildPDF::CreatePDFfromVisio(std::string&, std::string&, std::string&, bool&) {
    not_available("CreatePDFfromVisio");
}
void BuildPDF::CreatePDF(std::string&, std::string&, std::int16_t&) {
    not_available("CreatePDF");
}
void BuildPDF::CreateBookmarksInPDF(std::string&, automation::Value&, bool&, bool&, bool&, std::string&) {
    not_available("CreateBookmarksInPDF");
}
void BuildPDF::CreateBookmarkInPDF(std::string&, std::string&, bool&, bool&, bool&, std::string&) {
    not_available("CreateBookmarkInPDF");
}
void BuildPDF::CreateLinksInPDF(std::string&, std::string&) {
    not_available("CreateLinksInPDF");
}
void BuildPDF::CreatePDFfromMultiAutoCAD(std::string&, std::string&, automation::Value&, std::string, bool&) {
    not_available("CreatePDFfromMultiAutoCAD");
}
void BuildPDF::CreatePDFfromAutoCAD(std::string&, std::string&, automation::Value&, std::string, bool&) {
    not_available("CreatePDFfromAutoCAD");
}
void BuildPDF::CreatePDFfromAccessReport(std::string&, std::string&, std::string&, std::string&, std::string&,
                                         std::string&, std::string, bool&) {
    not_available("CreatePDFfromAccessReport");
}
void BuildPDF::CreatePDFfromMultiAccessReport(std::string&, std::string&, automation::Value&, std::string&,
                                              std::string, bool&) {
    not_available("CreatePDFfromMultiAccessReport");
}
void BuildPDF::SetOpenPassword(std::string&, std::string&) {
    not_available("SetOpenPassword");
}
void BuildPDF::CreatePDFfromCrystalReport(std::string&, std::string&, std::string&, bool&) {
    not_available("CreatePDFfromCrystalReport");
}
void BuildPDF::CreatePDFfromTextFile(std::string&, std::string&, bool&, std::string&, bool&, std::int16_t&,
                                     std::int32_t&, bool&, bool&, bool&, bool&, AlignType&, float&, float&,
                                     float&, float&, bool&, std::string&, bool&, bool&, std::string&, bool&) {
    not_available("CreatePDFfromTextFile");
}
void BuildPDF::CreatePDFfromTextFile2(std::string&, std::string&, bool&, std::string&, bool&, std::int16_t&,
                                      std::int32_t&, bool&, bool&, bool&, bool&, AlignType&, float&, float&,
                                      float&, float&, bool&, std::string&, bool&) {
    not_available("CreatePDFfromTextFile2");
}
void BuildPDF::CreatePDFfromTextFile3(std::string&, std::string&, std::string&, bool&) {
    not_available("CreatePDFfromTextFile3");
}
void BuildPDF::CreatePSfromTextFile(std::string&, std::string&, bool&, std::string&, bool&, std::int16_t&,
                                    std::int32_t&, bool&, bool&, bool&, bool&, AlignType&, float&, float&,
                                    float&, float&, bool&, std::string&) {
    not_available("CreatePSfromTextFile");
}
void BuildPDF::CreatePDFfromPowerPoint(std::string&, std::string&, std::int32_t&, std::int32_t&, bool&,
                                       std::string&, bool&, bool&, std::string&, bool&) {
    not_available("CreatePDFfromPowerPoint");
}
void BuildPDF::CreatePDFfromPowerPoint2(std::string&, std::string&, std::int32_t&, std::int32_t&, bool&,
                                        std::string&, bool&) {
    not_available("CreatePDFfromPowerPoint2");
}
void BuildPDF::CreatePSfromPowerPoint(std::string&, std::string&, std::int32_t&, std::int32_t&, bool&,
                                      std::string&) {
    not_available("CreatePSfromPowerPoint");
}
void BuildPDF::UploadFile(automation::ObjectPtr&, std::string&, std::string&, std::string&, std::string&,
                          std::string&, std::string&) {
    not_available("UploadFile");
}
void BuildPDF::DownloadFile(automation::ObjectPtr&, std::string&, std::string&, std::string&, std::string&,
                            std::string&, std::string&) {
    not_available("DownloadFile");
}

}  // namespace foliant::core
