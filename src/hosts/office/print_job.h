#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "hosts/office/late_bound.h"
#include "hosts/office/word_session.h"

namespace foliant::hosts::office {

/// What is asked of a print.
struct PrintRequest {
    std::string output;  ///< the file to print to; empty for the printer itself
    std::string pages;   ///< a page-range expression; empty for all pages
};

/// The parameters of Word's PrintOut, in its order.
std::vector<std::string_view> print_out_parameters();

/// Reads the arguments of PrintOut: Range 0 is all pages, 3 is From to To, 4 is Pages. Background, Append,
/// Item and PrintToFile make no difference here: a print is done when the call returns, and it goes to a file
/// when one is named. Raises 4608 for another Range, for copies, and for an argument that cannot be honoured.
PrintRequest read_print_request(const Bound& arguments);

/// Prints as Word does with its active printer: to PostScript in the named file; else, on the PDF printer, to
/// the PDF file that its "Save PDF File As" dialog is answered with; else on the spooler's queue. The work is
/// complete when it returns. Raises what the document, the machine and the dialog raise, and 4198 when the
/// dialog is cancelled.
void print_out(const WordSession& session, const TextDocument& document, const PrintRequest& request);

}  // namespace foliant::hosts::office
