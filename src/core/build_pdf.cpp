#include "core/build_pdf.h"

#include "converters/postscript.h"
#include "converters/word.h"
#include "engines/default_printer.h"

namespace foliant::core {

using engines::DistillerOptions;

std::string BuildPDF::PrinterName() {
    return session_.PrinterName();
}

std::string BuildPDF::AcrobatVersion() {
    return session_.AcrobatVersion();
}

std::string BuildPDF::get_TempFilePath() {
    return session_.TempFilePath();
}

void BuildPDF::put_TempFilePath(std::string strFolder) {
    session_.set_TempFilePath(strFolder);
}

void BuildPDF::SetDefPrinter(std::string strPrinter) {
    engines::SetDefPrinter(session_, strPrinter);
}

void BuildPDF::CreatePDFfromPS(std::string& strPDFFile, std::string& strPSFile, std::string& strDistiller,
                               bool& blnShowWindow, bool& blnSpoolJobs, std::string& strJobOptionsFile,
                               bool& blnApplySecurity) {
    const DistillerOptions options{blnShowWindow, blnSpoolJobs, strJobOptionsFile, blnApplySecurity};
    converters::CreatePDFfromPS(session_, strPDFFile, strPSFile, strDistiller, options);
}

void BuildPDF::CreatePDFfromMultiPS(std::string& strPDFFile, automation::Value& varPSFiles,
                                    std::string& strDistiller, bool& blnShowWindow, bool& blnSpoolJobs,
                                    std::string& strJobOptionsFile, bool& blnApplySecurity) {
    const DistillerOptions options{blnShowWindow, blnSpoolJobs, strJobOptionsFile, blnApplySecurity};
    converters::CreatePDFfromMultiPS(session_, strPDFFile, varPSFiles, strDistiller, options);
}

void BuildPDF::CreatePDFfromWord(std::string& strPDFFile, std::string& strWordDocument,
                                 std::string& strPassword, std::string& strWritePassword,
                                 std::string& strPages, bool& blnLandscape, bool& blnPageNumberInFooter,
                                 bool& blnPageNumberInHeader, AlignType& lngPageNumberAlignment,
                                 bool& blnFirstPage, std::string& strDistiller, bool& blnShowWindow,
                                 bool& blnSpoolJobs, std::string& strJobOptionsFile, bool& blnApplySecurity) {
    const converters::WordJob job{strWordDocument,       strPassword,
                                  strWritePassword,      strPages,
                                  blnLandscape,          blnPageNumberInFooter,
                                  blnPageNumberInHeader, static_cast<std::int32_t>(lngPageNumberAlignment),
                                  blnFirstPage,          strDistiller};
    const DistillerOptions options{blnShowWindow, blnSpoolJobs, strJobOptionsFile, blnApplySecurity};
    converters::CreatePDFfromWord(session_, strPDFFile, job, options);
}

void BuildPDF::CreatePDFfromWord2(std::string& strPDFFile, std::string& strWordDocument,
                                  std::string& strPassword, std::string& strWritePassword,
                                  std::string& strPages, bool& blnLandscape, bool& blnPageNumberInFooter,
                                  bool& blnPageNumberInHeader, AlignType& lngPageNumberAlignment,
                                  bool& blnFirstPage, std::string& strDistiller, bool& blnCloseAcrobat) {
    const converters::WordJob job{strWordDocument,       strPassword,
                                  strWritePassword,      strPages,
                                  blnLandscape,          blnPageNumberInFooter,
                                  blnPageNumberInHeader, static_cast<std::int32_t>(lngPageNumberAlignment),
                                  blnFirstPage,          strDistiller};
    converters::CreatePDFfromWord2(session_, strPDFFile, job, blnCloseAcrobat);
}

void BuildPDF::CreatePSfromWord(std::string& strPSFile, std::string& strWordDocument,
                                std::string& strPassword, std::string& strWritePassword,
                                std::string& strPages, bool& blnLandscape, bool& blnPageNumberInFooter,
                                bool& blnPageNumberInHeader, AlignType& lngPageNumberAlignment,
                                bool& blnFirstPage, std::string& strDistiller) {
    const converters::WordJob job{strWordDocument,       strPassword,
                                  strWritePassword,      strPages,
                                  blnLandscape,          blnPageNumberInFooter,
                                  blnPageNumberInHeader, static_cast<std::int32_t>(lngPageNumberAlignment),
                                  blnFirstPage,          strDistiller};
    converters::CreatePSfromWord(session_, strPSFile, job);
}

}  // namespace foliant::core
