#pragma once

#include <string>

#include "hosts/access/sql/datum.h"

namespace foliant::hosts::access {

/// How dates, numbers and truth values are written where the user lives.
struct LocaleForms {
    std::string date = "%Y-%m-%d";  ///< of strftime, with years of four digits
    std::string time = "%H:%M:%S";
    std::string decimal_point = ".";
    std::string thousands = "";  ///< between thousands of money
    std::string currency = "";   ///< its sign; empty where nobody says one
    bool currency_precedes = true;
    bool currency_has_space = false;
    int currency_decimals = 2;
    std::string yes = "Yes";
    std::string no = "No";

    /// Those of the process's locale. The locale C, which is nobody's country, has dates that nobody misreads and no
    /// currency.
    static LocaleForms of_process();
};

/// A value as a report shows it: by its column's format where that is understood, else as the column was declared.
/// Empty for Null.
std::string shown(const Datum& datum, const Column& column, const LocaleForms& forms);

}  // namespace foliant::hosts::access
