#include "hosts/acrobat/structure/rights.h"

namespace foliant::hosts::acrobat::structure {

bool allows(QPDF& pdf, Right right) {
    if (!pdf.isEncrypted() || pdf.ownerPasswordMatched()) return true;
    switch (right) {
        case Right::print:
            return pdf.allowPrintLowRes();
        case Right::take_text:
            return pdf.allowExtractAll();
        case Right::hear:
            return pdf.allowAccessibility() || pdf.allowExtractAll();
        case Right::mark:
            return pdf.allowModifyAssembly() || pdf.allowModifyOther();
        case Right::link:
            return pdf.allowModifyOther();
        case Right::give_pages:
            return pdf.allowModifyAssembly() && pdf.allowExtractAll();
        case Right::gain_pages:
            return pdf.allowModifyAssembly();
        case Right::protect:
            return false;
    }
    return false;
}

}  // namespace foliant::hosts::acrobat::structure
