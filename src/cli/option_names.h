#pragma once

#include <string>
#include <string_view>

#include "core/member.h"

/// `foliant`: the class as a command. Parses, calls, shows progress and results; owns no step of any member.
namespace foliant::cli {

/// "first-page-number" for "lngFirstPageNumber", "pdf-file" for "strPDFFile": the type prefix goes, words
/// part.
std::string option_name(std::string_view parameter);

/// "PDF_FILE" for "strPDFFile", as help texts show a value.
std::string placeholder(std::string_view parameter);

/// Whether a member cannot do without a parameter that may be left out all the same: the layout of a drawing.
bool is_needed_all_the_same(const core::Member& member, const core::Parameter& parameter);

/// How a member is called with what it needs: "foliant CreatePDFfromMultiPS PDF_FILE PS_FILES ...".
std::string usage_line(const core::Member& member);

/// Whether a parameter may be given by its place alone: a required one, but for a list where another is required too,
/// because two in a row could not be told apart.
bool may_stand_in_order(const core::Member& member, const core::Parameter& parameter);

/// Whether a usage shows a parameter behind its option: what may not stand in order, and passwords, which have an
/// option for a file and one for the terminal as well.
bool is_shown_with_option(const core::Member& member, const core::Parameter& parameter);

/// Whether a parameter has no option, because the program makes its value itself: the transfer control.
bool is_made_by_the_command(const core::Parameter& parameter);

}  // namespace foliant::cli
