#include "converters/excel.h"

#include "core/build_pdf.h"
#include "core/members/distiller_options.h"

namespace foliant::core {
namespace {

converters::SheetStyle sheet_style(bool blnUseGrid, const std::string& strHeader,
                                   AlignType lngHeaderAlignment, const std::string& strFooter,
                                   AlignType lngFooterAlignment, const converters::Margins& margins) {
    return {.grid = blnUseGrid,
            .header = strHeader,
            .header_alignment = static_cast<std::int32_t>(lngHeaderAlignment),
            .footer = strFooter,
            .footer_alignment = static_cast<std::int32_t>(lngFooterAlignment),
            .margins = margins};
}

}  // namespace

void BuildPDF::CreatePDFfromExcel(std::string& strPDFFile, std::string& strExcelWorkbook,
                                  automation::Value& varExcelWorksheet, std::string& strRange,
                                  std::string& strPassword, std::string& strWriteResPassword,
                                  bool& blnUseGrid, bool& blnLandscape, std::string& strHeader,
                                  AlignType& lngHeaderAlignment, std::string& strFooter,
                                  AlignType& lngFooterAlignment, double& dblTopMargin, double& dblLeftMargin,
                                  double& dblRightMargin, double& dblBottomMargin, double& dblHeaderMargin,
                                  double& dblFooterMargin, std::int32_t& lngFirstPageNumber,
                                  std::string& strDistiller, bool& blnShowWindow, bool& blnSpoolJobs,
                                  std::string& strJobOptionsFile, bool& blnApplySecurity) {
    converters::CreatePDFfromExcel(
        session_, strPDFFile,
        {.workbook = {.path = strExcelWorkbook,
                      .password = strPassword,
                      .write_reservation_password = strWriteResPassword},
         .worksheet = varExcelWorksheet,
         .range = strRange,
         .style = sheet_style(blnUseGrid, strHeader, lngHeaderAlignment, strFooter, lngFooterAlignment,
                              {.top = dblTopMargin,
                               .left = dblLeftMargin,
                               .right = dblRightMargin,
                               .bottom = dblBottomMargin,
                               .header = dblHeaderMargin,
                               .footer = dblFooterMargin}),
         .landscape = blnLandscape,
         .first_page_number = lngFirstPageNumber},
        strDistiller, distiller_options(blnShowWindow, blnSpoolJobs, strJobOptionsFile, blnApplySecurity));
}

void BuildPDF::CreatePDFfromExcel2(std::string& strPDFFile, std::string& strExcelWorkbook,
                                   automation::Value& varExcelWorksheet, std::string& strRange,
                                   std::string& strPassword, std::string& strWriteResPassword,
                                   bool& blnUseGrid, bool& blnLandscape, std::string& strHeader,
                                   AlignType& lngHeaderAlignment, std::string& strFooter,
                                   AlignType& lngFooterAlignment, double& dblTopMargin, double& dblLeftMargin,
                                   double& dblRightMargin, double& dblBottomMargin, double& dblHeaderMargin,
                                   double& dblFooterMargin, std::int32_t& lngFirstPageNumber,
                                   std::string& strDistiller, bool& blnCloseAcrobat) {
    converters::CreatePDFfromExcel2(
        session_, strPDFFile,
        {.workbook = {.path = strExcelWorkbook,
                      .password = strPassword,
                      .write_reservation_password = strWriteResPassword},
         .worksheet = varExcelWorksheet,
         .range = strRange,
         .style = sheet_style(blnUseGrid, strHeader, lngHeaderAlignment, strFooter, lngFooterAlignment,
                              {.top = dblTopMargin,
                               .left = dblLeftMargin,
                               .right = dblRightMargin,
                               .bottom = dblBottomMargin,
                               .header = dblHeaderMargin,
                               .footer = dblFooterMargin}),
         .landscape = blnLandscape,
         .first_page_number = lngFirstPageNumber},
        strDistiller, blnCloseAcrobat);
}

void BuildPDF::CreatePDFfromMultiExcel(
    std::string& strPDFFile, std::string& strExcelWorkbook, automation::Value& varExcelWorksheets,
    automation::Value& varRanges, std::string& strPassword, std::string& strWriteResPassword,
    bool& blnUseGrid, automation::Value& varLandscape, std::string& strHeader, AlignType& lngHeaderAlignment,
    std::string& strFooter, AlignType& lngFooterAlignment, double& dblTopMargin, double& dblLeftMargin,
    double& dblRightMargin, double& dblBottomMargin, double& dblHeaderMargin, double& dblFooterMargin,
    automation::Value& varFirstPageNumber, std::string& strDistiller, bool& blnShowWindow, bool& blnSpoolJobs,
    bool& blnApplySecurity) {
    converters::CreatePDFfromMultiExcel(
        session_, strPDFFile,
        {.workbook = {.path = strExcelWorkbook,
                      .password = strPassword,
                      .write_reservation_password = strWriteResPassword},
         .worksheets = varExcelWorksheets,
         .ranges = varRanges,
         .style = sheet_style(blnUseGrid, strHeader, lngHeaderAlignment, strFooter, lngFooterAlignment,
                              {.top = dblTopMargin,
                               .left = dblLeftMargin,
                               .right = dblRightMargin,
                               .bottom = dblBottomMargin,
                               .header = dblHeaderMargin,
                               .footer = dblFooterMargin}),
         .landscape = varLandscape,
         .first_page_numbers = varFirstPageNumber},
        strDistiller, distiller_options(blnShowWindow, blnSpoolJobs, "", blnApplySecurity));
}

void BuildPDF::CreatePDFfromMultiExcel2(
    std::string& strPDFFile, std::string& strExcelWorkbook, automation::Value& varExcelWorksheets,
    automation::Value& varRanges, std::string& strPassword, std::string& strWriteResPassword,
    bool& blnUseGrid, automation::Value& varLandscape, std::string& strHeader, AlignType& lngHeaderAlignment,
    std::string& strFooter, AlignType& lngFooterAlignment, double& dblTopMargin, double& dblLeftMargin,
    double& dblRightMargin, double& dblBottomMargin, double& dblHeaderMargin, double& dblFooterMargin,
    automation::Value& varFirstPageNumber, std::string& strDistiller, bool& blnCloseAcrobat) {
    converters::CreatePDFfromMultiExcel2(
        session_, strPDFFile,
        {.workbook = {.path = strExcelWorkbook,
                      .password = strPassword,
                      .write_reservation_password = strWriteResPassword},
         .worksheets = varExcelWorksheets,
         .ranges = varRanges,
         .style = sheet_style(blnUseGrid, strHeader, lngHeaderAlignment, strFooter, lngFooterAlignment,
                              {.top = dblTopMargin,
                               .left = dblLeftMargin,
                               .right = dblRightMargin,
                               .bottom = dblBottomMargin,
                               .header = dblHeaderMargin,
                               .footer = dblFooterMargin}),
         .landscape = varLandscape,
         .first_page_numbers = varFirstPageNumber},
        strDistiller, blnCloseAcrobat);
}

void BuildPDF::CreatePSfromExcel(std::string& strPSFile, std::string& strExcelWorkbook,
                                 automation::Value& varExcelWorksheet, std::string& strRange,
                                 std::string& strPassword, std::string& strWriteResPassword, bool& blnUseGrid,
                                 bool& blnLandscape, std::string& strHeader, AlignType& lngHeaderAlignment,
                                 std::string& strFooter, AlignType& lngFooterAlignment, double& dblTopMargin,
                                 double& dblLeftMargin, double& dblRightMargin, double& dblBottomMargin,
                                 double& dblHeaderMargin, double& dblFooterMargin,
                                 std::int32_t& lngFirstPageNumber, std::string& strDistiller,
                                 bool& /*blnShowWindow*/, bool& /*blnSpoolJobs*/) {
    converters::CreatePSfromExcel(
        session_, strPSFile,
        {.workbook = {.path = strExcelWorkbook,
                      .password = strPassword,
                      .write_reservation_password = strWriteResPassword},
         .worksheet = varExcelWorksheet,
         .range = strRange,
         .style = sheet_style(blnUseGrid, strHeader, lngHeaderAlignment, strFooter, lngFooterAlignment,
                              {.top = dblTopMargin,
                               .left = dblLeftMargin,
                               .right = dblRightMargin,
                               .bottom = dblBottomMargin,
                               .header = dblHeaderMargin,
                               .footer = dblFooterMargin}),
         .landscape = blnLandscape,
         .first_page_number = lngFirstPageNumber},
        strDistiller);
}

}  // namespace foliant::core
