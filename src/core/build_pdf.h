#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "automation/object.h"
#include "automation/value.h"
#include "platform/platform.h"
#include "session/session.h"

/// `BuildPDF` itself: the facade that names all members, the table that describes them, and dispatch by that
/// table.
namespace foliant::core {

/// Where a header, footer or page number stands. Callers may pass other numbers; each member says what they
/// mean.
enum class AlignType : std::int32_t { qrxAlignLeft = 0, qrxAlignCenter = 1, qrxAlignRight = 2 };

/// What `OpenPDF` reads aloud.
enum class ReadType : std::int32_t { qrxReadNone = 0, qrxReadCurrentPage = 1, qrxReadDocument = 2 };

/// The class that clients create: every member is one self-contained sequence on the caller's thread, which
/// releases every outside object that it created before it returns.
///
/// Names, parameter order and types are the interface that existing clients call; `member_table.h` adds
/// numbers, defaults and what is optional. A reference parameter may be written to. Failures are
/// `automation::Error` with the source "Foliant".
class BuildPDF {
  public:
    /// Reads the settings (see session::Session). `events` receives the component's events by name, on the
    /// caller's thread; it and the ports outlive the object.
    BuildPDF(const platform::Platform& platform, automation::EventSink& events)
        : session_(platform, events) {}

    void SetDefPrinter(std::string strPrinter);
    std::int32_t GetNumPagesPDF(std::string& strPDFFile, std::string& strOpenPassword);
    void CreateTextfileFromPDF(std::string& strPDFFile, std::string& strTextfile, bool& blnDoubleSpace,
                               std::string& strOpenPassword);
    void PrintPDFinDir(std::string& strDirectory, std::string& strFiles, std::string& strPrinter,
                       bool& blnSilent);
    void PrintPDF(std::string& strPDFFile, std::string& strPrinter, bool& blnSilent,
                  std::int32_t& lngFirstPageNo, std::int32_t& lngLastPageNo, std::string& strOpenPassword);
    void OpenPDF(std::string& strPDFFile, std::string& strBookmark, std::int32_t& lngGoToPageNo,
                 ReadType lngReadType, std::string& strOpenPassword);
    std::string PrinterName();
    std::string AcrobatVersion();
    void CreatePDFfromMultiPDFinDir(std::string& strPDFFile, std::string& strDirectory,
                                    std::string& strFiles);
    void CreatePDFfromMultiPDF(std::string& strPDFFile, automation::Value& varPDFFiles);
    void CreatePDFfromImageFile(std::string& strPDFFile, std::string& strImageFile, std::string& strTitle,
                                std::string& strAuthor, std::string& strSubject, std::string& strKeywords);
    void CreatePDFfromMultiImage(std::string& strPDFFile, automation::Value& varImageFiles);
    void CreatePDFfromExcel(std::string& strPDFFile, std::string& strExcelWorkbook,
                            automation::Value& varExcelWorksheet, std::string& strRange,
                            std::string& strPassword, std::string& strWriteResPassword, bool& blnUseGrid,
                            bool& blnLandscape, std::string& strHeader, AlignType& lngHeaderAlignment,
                            std::string& strFooter, AlignType& lngFooterAlignment, double& dblTopMargin,
                            double& dblLeftMargin, double& dblRightMargin, double& dblBottomMargin,
                            double& dblHeaderMargin, double& dblFooterMargin,
                            std::int32_t& lngFirstPageNumber, std::string& strDistiller, bool& blnShowWindow,
                            bool& blnSpoolJobs, std::string& strJobOptionsFile, bool& blnApplySecurity);
    void CreatePDFfromExcel2(std::string& strPDFFile, std::string& strExcelWorkbook,
                             automation::Value& varExcelWorksheet, std::string& strRange,
                             std::string& strPassword, std::string& strWriteResPassword, bool& blnUseGrid,
                             bool& blnLandscape, std::string& strHeader, AlignType& lngHeaderAlignment,
                             std::string& strFooter, AlignType& lngFooterAlignment, double& dblTopMargin,
                             double& dblLeftMargin, double& dblRightMargin, double& dblBottomMargin,
                             double& dblHeaderMargin, double& dblFooterMargin,
                             std::int32_t& lngFirstPageNumber, std::string& strDistiller,
                             bool& blnCloseAcrobat);
    void CreatePDFfromMultiExcel(std::string& strPDFFile, std::string& strExcelWorkbook,
                                 automation::Value& varExcelWorksheets, automation::Value& varRanges,
                                 std::string& strPassword, std::string& strWriteResPassword, bool& blnUseGrid,
                                 automation::Value& varLandscape, std::string& strHeader,
                                 AlignType& lngHeaderAlignment, std::string& strFooter,
                                 AlignType& lngFooterAlignment, double& dblTopMargin, double& dblLeftMargin,
                                 double& dblRightMargin, double& dblBottomMargin, double& dblHeaderMargin,
                                 double& dblFooterMargin, automation::Value& varFirstPageNumber,
                                 std::string& strDistiller, bool& blnShowWindow, bool& blnSpoolJobs,
                                 bool& blnApplySecurity);
    void CreatePDFfromMultiExcel2(std::string& strPDFFile, std::string& strExcelWorkbook,
                                  automation::Value& varExcelWorksheets, automation::Value& varRanges,
                                  std::string& strPassword, std::string& strWriteResPassword,
                                  bool& blnUseGrid, automation::Value& varLandscape, std::string& strHeader,
                                  AlignType& lngHeaderAlignment, std::string& strFooter,
                                  AlignType& lngFooterAlignment, double& dblTopMargin, double& dblLeftMargin,
                                  double& dblRightMargin, double& dblBottomMargin, double& dblHeaderMargin,
                                  double& dblFooterMargin, automation::Value& varFirstPageNumber,
                                  std::string& strDistiller, bool& blnCloseAcrobat);
    void CreatePSfromExcel(std::string& strPSFile, std::string& strExcelWorkbook,
                           automation::Value& varExcelWorksheet, std::string& strRange,
                           std::string& strPassword, std::string& strWriteResPassword, bool& blnUseGrid,
                           bool& blnLandscape, std::string& strHeader, AlignType& lngHeaderAlignment,
                           std::string& strFooter, AlignType& lngFooterAlignment, double& dblTopMargin,
                           double& dblLeftMargin, double& dblRightMargin, double& dblBottomMargin,
                           double& dblHeaderMargin, double& dblFooterMargin, std::int32_t& lngFirstPageNumber,
                           std::string& strDistiller, bool& blnShowWindow, bool& blnSpoolJobs);
    void FindTextInPDF(std::string& strPDFFile, std::string& strText, bool& blnCaseSensitive,
                       bool& blnWholeWordsOnly, std::string& strOpenPassword);
    void CreatePDFfromWebPage(std::string& strURL, std::string& strPDFFile, bool& blnHideAcrobat,
                              std::int16_t& intSecsToWaitForPDF);
    void CreatePDFfromVisio(std::string& strPDFFile, std::string& strVisioFile, std::string& strDistiller,
                            bool& blnCloseAcrobat);
    void CreatePDF(std::string& strSourceFile, std::string& strPDFFile, std::int16_t& intSecsToWaitForPDF);
    void CreateBookmarksInPDF(std::string& strPDFFile, automation::Value& varBookmarkTitles,
                              bool& blnCaseSensitive, bool& blnWholeWordsOnly, bool& blnReset,
                              std::string& strOpenPassword);
    void CreateBookmarkInPDF(std::string& strPDFFile, std::string& strBookmarkTitle, bool& blnCaseSensitive,
                             bool& blnWholeWordsOnly, bool& blnReset, std::string& strOpenPassword);
    void CreateLinksInPDF(std::string& strPDFFile, std::string& strOpenPassword);
    void CreatePDFfromWord(std::string& strPDFFile, std::string& strWordDocument, std::string& strPassword,
                           std::string& strWritePassword, std::string& strPages, bool& blnLandscape,
                           bool& blnPageNumberInFooter, bool& blnPageNumberInHeader,
                           AlignType& lngPageNumberAlignment, bool& blnFirstPage, std::string& strDistiller,
                           bool& blnShowWindow, bool& blnSpoolJobs, std::string& strJobOptionsFile,
                           bool& blnApplySecurity);
    void CreatePDFfromWord2(std::string& strPDFFile, std::string& strWordDocument, std::string& strPassword,
                            std::string& strWritePassword, std::string& strPages, bool& blnLandscape,
                            bool& blnPageNumberInFooter, bool& blnPageNumberInHeader,
                            AlignType& lngPageNumberAlignment, bool& blnFirstPage, std::string& strDistiller,
                            bool& blnCloseAcrobat);
    void CreatePDFfromMultiAutoCAD(std::string& strPDFFile, std::string& strDWGFile,
                                   automation::Value& varLayouts, std::string strPDFWriter,
                                   bool& blnCloseAcrobat);
    void CreatePDFfromAutoCAD(std::string& strPDFFile, std::string& strDWGFile, automation::Value& varLayout,
                              std::string strPDFWriter, bool& blnCloseAcrobat);
    void CreatePDFfromAccessReport(std::string& strPDFFile, std::string& strDatabase,
                                   std::string& strReportName, std::string& strPassword,
                                   std::string& strFilter, std::string& strWhereCondition,
                                   std::string strPDFWriter, bool& blnCloseAcrobat);
    void CreatePDFfromMultiAccessReport(std::string& strPDFFile, std::string& strDatabase,
                                        automation::Value& varReportNames, std::string& strPassword,
                                        std::string strPDFWriter, bool& blnCloseAcrobat);
    void SetOpenPassword(std::string& strPDFFile, std::string& strOpenPassword);
    void CreatePDFfromCrystalReport(std::string& strPDFFile, std::string& strCrystalReport,
                                    std::string& strDistiller, bool& blnCloseAcrobat);
    void CreatePSfromWord(std::string& strPSFile, std::string& strWordDocument, std::string& strPassword,
                          std::string& strWritePassword, std::string& strPages, bool& blnLandscape,
                          bool& blnPageNumberInFooter, bool& blnPageNumberInHeader,
                          AlignType& lngPageNumberAlignment, bool& blnFirstPage, std::string& strDistiller);
    void CreatePDFfromTextFile(std::string& strPDFFile, std::string& strTextfile, bool& blnLandscape,
                               std::string& strFont, bool& blnFontBold, std::int16_t& intFontSize,
                               std::int32_t& lngFontColor, bool& blnFontItalic, bool& blnFontUnderline,
                               bool& blnPageNumberInFooter, bool& blnPageNumberInHeader,
                               AlignType& lngPageNumberAlignment, float& sngTopMargin, float& sngLeftMargin,
                               float& sngRightMargin, float& sngBottomMargin, bool& blnFirstPage,
                               std::string& strDistiller, bool& blnShowWindow, bool& blnSpoolJobs,
                               std::string& strJobOptionsFile, bool& blnApplySecurity);
    void CreatePDFfromTextFile2(std::string& strPDFFile, std::string& strTextfile, bool& blnLandscape,
                                std::string& strFont, bool& blnFontBold, std::int16_t& intFontSize,
                                std::int32_t& lngFontColor, bool& blnFontItalic, bool& blnFontUnderline,
                                bool& blnPageNumberInFooter, bool& blnPageNumberInHeader,
                                AlignType& lngPageNumberAlignment, float& sngTopMargin, float& sngLeftMargin,
                                float& sngRightMargin, float& sngBottomMargin, bool& blnFirstPage,
                                std::string& strDistiller, bool& blnCloseAcrobat);
    void CreatePDFfromTextFile3(std::string& strPDFFile, std::string& strTextfile, std::string& strDistiller,
                                bool& blnCloseAcrobat);
    void CreatePSfromTextFile(std::string& strPSFile, std::string& strTextfile, bool& blnLandscape,
                              std::string& strFont, bool& blnFontBold, std::int16_t& intFontSize,
                              std::int32_t& lngFontColor, bool& blnFontItalic, bool& blnFontUnderline,
                              bool& blnPageNumberInFooter, bool& blnPageNumberInHeader,
                              AlignType& lngPageNumberAlignment, float& sngTopMargin, float& sngLeftMargin,
                              float& sngRightMargin, float& sngBottomMargin, bool& blnFirstPage,
                              std::string& strDistiller);
    void CreatePDFfromPowerPoint(std::string& strPDFFile, std::string& strPPDocument,
                                 std::int32_t& lngStartSlide, std::int32_t& lngEndSlide,
                                 bool& blnHorizontalOrientation, std::string& strDistiller,
                                 bool& blnShowWindow, bool& blnSpoolJobs, std::string& strJobOptionsFile,
                                 bool& blnApplySecurity);
    void CreatePDFfromPowerPoint2(std::string& strPDFFile, std::string& strPPDocument,
                                  std::int32_t& lngStartSlide, std::int32_t& lngEndSlide,
                                  bool& blnHorizontalOrientation, std::string& strDistiller,
                                  bool& blnCloseAcrobat);
    void CreatePSfromPowerPoint(std::string& strPSFile, std::string& strPPDocument,
                                std::int32_t& lngStartSlide, std::int32_t& lngEndSlide,
                                bool& blnHorizontalOrientation, std::string& strDistiller);
    void CreatePDFfromPS(std::string& strPDFFile, std::string& strPSFile, std::string& strDistiller,
                         bool& blnShowWindow, bool& blnSpoolJobs, std::string& strJobOptionsFile,
                         bool& blnApplySecurity);
    void CreatePDFfromMultiPS(std::string& strPDFFile, automation::Value& varPSFiles,
                              std::string& strDistiller, bool& blnShowWindow, bool& blnSpoolJobs,
                              std::string& strJobOptionsFile, bool& blnApplySecurity);
    void UploadFile(automation::ObjectPtr& inet, std::string& strRemoteHost, std::string& strRemoteDirectory,
                    std::string& strLocalFile, std::string& strRemoteFile, std::string& strUsername,
                    std::string& strUserPassword);
    void DownloadFile(automation::ObjectPtr& inet, std::string& strRemoteHost,
                      std::string& strRemoteDirectory, std::string& strLocalFile, std::string& strRemoteFile,
                      std::string& strUsername, std::string& strUserPassword);
    std::string get_TempFilePath();
    void put_TempFilePath(std::string strFolder);

    session::Session& session() noexcept { return session_; }

  private:
    session::Session session_;
};

}  // namespace foliant::core
