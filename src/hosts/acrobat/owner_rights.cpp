#include "hosts/acrobat/owner_rights.h"

#include <string>

#include "hosts/acrobat/acrobat_error.h"
#include "hosts/acrobat/open_file.h"

namespace foliant::hosts::acrobat {

using automation::RuntimeError;
using structure::Right;

bool may(Document& document, Right right) {
    try {
        while (!document.allows(right)) {
            const auto password = ask(document.machine(), "Password");
            if (!password) return false;
            document.use_owner_password(*password);
        }
        return true;
    } catch (const automation::Error& refused) {
        if (!refused.is(RuntimeError::action_not_supported)) throw;
        return false;  // nobody is there
    }
}

void require_right(Document& document, Right right, std::string_view refusal) {
    if (may(document, right)) return;
    const char* const advice = right == Right::protect
                                   ? " Take its protection off with that first, as qpdf --decrypt does."
                                   : " Give that to open it.";
    throw document_error(document.name() + " " + std::string(refusal) + ": " + owner_only + advice);
}

}  // namespace foliant::hosts::acrobat
