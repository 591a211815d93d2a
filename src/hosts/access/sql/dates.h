#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "hosts/access/sql/datum.h"

namespace foliant::hosts::access {

/// A moment from the parts of a calendar; months and days beyond their ends count on. Hours, minutes and seconds
/// are added.
Date make_date(std::int64_t year, std::int64_t month, std::int64_t day, double seconds = 0);

/// The parts of a moment.
struct CalendarDate {
    std::int64_t year = 1899;
    int month = 12;
    int day = 30;
    int weekday = 6;  ///< 0 for Sunday
    int hour = 0;
    int minute = 0;
    int second = 0;
    bool has_day = false;   ///< it is not the day from which days are counted
    bool has_time = false;  ///< it is not midnight
};
CalendarDate calendar_date(Date date);

/// Reads a date as Access writes it between # and #: month before day, 1996-07-04, 4-Jul-1996, and times. Nothing
/// for what is none.
std::optional<Date> read_date(std::string_view text);

}  // namespace foliant::hosts::access
