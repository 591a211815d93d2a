#include "converters/autocad.h"
#include "converters/visio.h"
#include "core/build_pdf.h"

namespace foliant::core {

void BuildPDF::CreatePDFfromVisio(std::string& strPDFFile, std::string& strVisioFile,
                                  std::string& strDistiller, bool& blnCloseAcrobat) {
    converters::CreatePDFfromVisio(session_, strPDFFile, strVisioFile, strDistiller, blnCloseAcrobat);
}

void BuildPDF::CreatePDFfromAutoCAD(std::string& strPDFFile, std::string& strDWGFile,
                                    automation::Value& varLayout, std::string strPDFWriter,
                                    bool& blnCloseAcrobat) {
    converters::CreatePDFfromAutoCAD(session_, strPDFFile, strDWGFile, varLayout, std::move(strPDFWriter),
                                     blnCloseAcrobat);
}

void BuildPDF::CreatePDFfromMultiAutoCAD(std::string& strPDFFile, std::string& strDWGFile,
                                         automation::Value& varLayouts, std::string strPDFWriter,
                                         bool& blnCloseAcrobat) {
    converters::CreatePDFfromMultiAutoCAD(session_, strPDFFile, strDWGFile, varLayouts,
                                          std::move(strPDFWriter), blnCloseAcrobat);
}

}  // namespace foliant::core
