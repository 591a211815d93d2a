#include <utility>

#include "converters/access.h"
#include "converters/crystal.h"
#include "core/build_pdf.h"

namespace foliant::core {

void BuildPDF::CreatePDFfromAccessReport(std::string& strPDFFile, std::string& strDatabase,
                                         std::string& strReportName, std::string& strPassword,
                                         std::string& strFilter, std::string& strWhereCondition,
                                         std::string strPDFWriter, bool& blnCloseAcrobat) {
    converters::CreatePDFfromAccessReport(session_, strPDFFile,
                                          {.database = strDatabase,
                                           .password = strPassword,
                                           .name = strReportName,
                                           .filter = strFilter,
                                           .where_condition = strWhereCondition},
                                          std::move(strPDFWriter), blnCloseAcrobat);
}

void BuildPDF::CreatePDFfromMultiAccessReport(std::string& strPDFFile, std::string& strDatabase,
                                              automation::Value& varReportNames, std::string& strPassword,
                                              std::string strPDFWriter, bool& blnCloseAcrobat) {
    converters::CreatePDFfromMultiAccessReport(session_, strPDFFile, strDatabase, varReportNames, strPassword,
                                               std::move(strPDFWriter), blnCloseAcrobat);
}

void BuildPDF::CreatePDFfromCrystalReport(std::string& strPDFFile, std::string& strCrystalReport,
                                          std::string& strDistiller, bool& blnCloseAcrobat) {
    converters::CreatePDFfromCrystalReport(session_, strPDFFile, strCrystalReport, strDistiller,
                                           blnCloseAcrobat);
}

}  // namespace foliant::core
