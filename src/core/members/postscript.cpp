#include "converters/postscript.h"

#include "core/build_pdf.h"
#include "core/members/distiller_options.h"

namespace foliant::core {

void BuildPDF::CreatePDFfromPS(std::string& strPDFFile, std::string& strPSFile, std::string& strDistiller,
                               bool& blnShowWindow, bool& blnSpoolJobs, std::string& strJobOptionsFile,
                               bool& blnApplySecurity) {
    converters::CreatePDFfromPS(
        session_, strPDFFile, strPSFile, strDistiller,
        distiller_options(blnShowWindow, blnSpoolJobs, strJobOptionsFile, blnApplySecurity));
}

void BuildPDF::CreatePDFfromMultiPS(std::string& strPDFFile, automation::Value& varPSFiles,
                                    std::string& strDistiller, bool& blnShowWindow, bool& blnSpoolJobs,
                                    std::string& strJobOptionsFile, bool& blnApplySecurity) {
    converters::CreatePDFfromMultiPS(
        session_, strPDFFile, varPSFiles, strDistiller,
        distiller_options(blnShowWindow, blnSpoolJobs, strJobOptionsFile, blnApplySecurity));
}

}  // namespace foliant::core
