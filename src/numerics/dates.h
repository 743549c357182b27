#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "numerics/checked.h"

// Dates as day numbers: day 0 is 30 December 1899, and days compare as numbers.

namespace tessara {

struct CalendarDay {
  int year = 1899;
  int month = 12;  // 1 to 12
  int day = 30;    // 1 to 31

  friend bool operator==(const CalendarDay&, const CalendarDay&) = default;
};

struct DateTime {
  CalendarDay date;
  int hour = 0;  // 0 to 23
  int minute = 0;
  int second = 0;

  friend bool operator==(const DateTime&, const DateTime&) = default;
};

// The day that a text stands for, blanks around it allowed: m/d/yy, m/d/yyyy (also with "-" or "."), yyyy-mm-dd,
// yyyy/mm/dd, d mmm yyyy, mmm d, yyyy and mmm d yyyy with English month names, full or of three letters, in any case. A
// two-digit year below 30 is 20yy, else 19yy; beside a month's name a year has four digits. Nothing for any other text
// and for days that do not exist.
std::optional<CalendarDay> ParseDate(std::string_view text) noexcept;

// The date test.
inline bool IsDate(std::string_view text) noexcept { return ParseDate(text).has_value(); }

// Conversion of a text to its day number; fails when the text is not a date.
Checked ToDayNumber(std::string_view text) noexcept;

long DayNumber(const CalendarDay& day) noexcept;
CalendarDay DayOfNumber(long day_number) noexcept;

// 11/5/2026
std::string ShortDate(const CalendarDay& day);

// 11/5/2026 3:07:09 PM
std::string ShortDateTime(const DateTime& moment);

}  // namespace tessara
