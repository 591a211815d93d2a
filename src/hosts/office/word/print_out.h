#pragma once

#include <string_view>
#include <vector>

#include "hosts/late_bound.h"
#include "hosts/office/print/print_job.h"

namespace foliant::hosts::office {

/// The parameters of Word's PrintOut, in its order.
std::vector<std::string_view> print_out_parameters();

/// Reads the arguments of PrintOut: Range 0 is all pages, 3 is From to To, 4 is Pages. Background, Append,
/// Item and PrintToFile make no difference here: a print is done when the call returns, and it goes to a file
/// when one is named. Raises 4608 for another Range, for copies, and for an argument that cannot be honoured.
PrintRequest read_print_request(const Bound& arguments);

}  // namespace foliant::hosts::office
