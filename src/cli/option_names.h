#pragma once

#include <string>
#include <string_view>

/// `foliant`: the class as a command. Parses, calls, shows progress and results; owns no step of any member.
namespace foliant::cli {

/// "first-page-number" for "lngFirstPageNumber", "pdf-file" for "strPDFFile": the type prefix goes, words
/// part.
std::string option_name(std::string_view parameter);

/// "PDF_FILE" for "strPDFFile", as help texts show a value.
std::string placeholder(std::string_view parameter);

}  // namespace foliant::cli
