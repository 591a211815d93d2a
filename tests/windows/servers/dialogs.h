#pragma once

#include <string>

namespace foliant::tests::servers {

/// What a PDF printer asks its user before it prints, in real dialogs: "Save PDF File As" with a file name to
/// enter, then "Adobe PDF - Security" with a notice. Returns when both have been answered; a minute after its
/// dialog came up, a user who does not answer counts as one who cancels.
struct PrinterAnswers {
    std::wstring file;   ///< the name that was entered; empty when the dialog was cancelled
    bool notice_closed;  ///< with its button
};
PrinterAnswers ask_where_to_print();

}  // namespace foliant::tests::servers
