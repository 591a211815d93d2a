#include "core/build_pdf.h"
#include "engines/default_printer.h"

namespace foliant::core {

void BuildPDF::SetDefPrinter(std::string strPrinter) {
    engines::SetDefPrinter(session_, strPrinter);
}

}  // namespace foliant::core
