#include "core/build_pdf.h"

namespace foliant::core {

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

}  // namespace foliant::core
