#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "hosts/access/report/locale_forms.h"
#include "hosts/access/sql/dates.h"

namespace foliant::hosts::access {

/// A number by a format that somebody wrote: #,##0.00 $;-0.0%;"none". Nothing for a format that is not understood.
std::optional<std::string> number_by(std::string_view format, double number, const LocaleForms& forms);

/// A moment by a format that somebody wrote: dd.mm.yyyy hh:nn, d mmmm yyyy, with the names of the locale. Nothing for a format
/// that is not understood.
std::optional<std::string> date_by(std::string_view format, const CalendarDate& date);

/// A truth value by a format that somebody wrote: ;"there";"gone". Nothing for a format that is not understood.
std::optional<std::string> truth_by(std::string_view format, bool truth);

}  // namespace foliant::hosts::access
