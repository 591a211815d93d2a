#pragma once

#include <cmath>
#include <span>
#include <string>

#include "hosts/access/sql/datum.h"

/// Values as functions and calculations take and give them.
namespace foliant::hosts::access {

using Arguments = std::span<const Datum>;

/// Raises SqlError for what is none; `what` needs it.
double number(const Datum& datum, const char* what = "a calculation");
/// Raises SqlError for binary data.
std::string text(const Datum& datum);

bool is_whole(const Datum& datum) noexcept;
bool is_money(const Datum& datum) noexcept;

/// A half goes to the even neighbour, as in Access.
double rounded(double value);
/// Both raise SqlError for a number that is too large.
Datum whole(double value);
Datum money(double value);

}  // namespace foliant::hosts::access
