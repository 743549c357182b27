#include "numerics/dates.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace tessara {

std::ostream& operator<<(std::ostream& out, const CalendarDay& day) { return out << ShortDate(day); }

namespace {

void ExpectDay(const std::vector<std::string>& texts, const CalendarDay& day) {
  for (const std::string& text : texts) {
    EXPECT_EQ(ParseDate(text), day) << '"' << text << '"';
    EXPECT_TRUE(IsDate(text));
    EXPECT_EQ(ToDayNumber(text).value_or(-99999), static_cast<double>(DayNumber(day)));
  }
}

void ExpectNoDates(const std::vector<std::string>& texts) {
  for (const std::string& text : texts) {
    EXPECT_EQ(ParseDate(text), std::nullopt) << '"' << text << '"';
    EXPECT_FALSE(IsDate(text));
    EXPECT_TRUE(ToDayNumber(text).failed());
  }
}

TEST(DateIn, MonthDayYear) {
  ExpectDay({"11/5/2026", "11/05/2026", "11-5-2026", "11.5.2026", "11/5/26", "11-05-26", "11.5.26"}, {2026, 11, 5});
  ExpectDay({"1/1/02"}, {2002, 1, 1});
}

TEST(DateIn, YearMonthDay) { ExpectDay({"2026-11-05", "2026-11-5", "2026/11/05", "2026/11/5"}, {2026, 11, 5}); }

TEST(DateIn, DayMonthNameYear) {
  ExpectDay({"5 Nov 2026", "05 Nov 2026", "5 November 2026", "5 nov 2026", "5 NOVEMBER 2026", "5  nOv  2026"},
            {2026, 11, 5});
}

TEST(DateIn, MonthNameDayYear) {
  ExpectDay({"Nov 5, 2026", "November 5, 2026", "NOV 05, 2026", "nov 5 2026", "november 5 2026", "Nov  5,  2026"},
            {2026, 11, 5});
}

TEST(DateIn, EveryMonthHasTwoNames) {
  const std::vector<std::string> names = {"January", "February", "March",     "April",   "May",      "June",
                                          "July",    "August",   "September", "October", "November", "December"};
  for (std::size_t i = 0; i < names.size(); ++i) {
    const int month = static_cast<int>(i + 1);
    ExpectDay({names[i] + " 7, 1999", names[i].substr(0, 3) + " 7, 1999", "7 " + names[i] + " 1999"}, {1999, month, 7});
  }
}

TEST(DateIn, BlanksAround) {
  ExpectDay({"  11/5/2026", "11/5/2026  ", " 2026-11-05 ", " Nov 5 2026 "}, {2026, 11, 5});
  ExpectNoDates({"\t11/5/2026", "11/5/2026\r", "11 / 5 / 2026", "11/ 5/2026"});
}

TEST(DateIn, ATwoDigitYearBelowThirtyIsOfThisCentury) {
  ExpectDay({"1/2/00"}, {2000, 1, 2});
  ExpectDay({"1/2/29"}, {2029, 1, 2});
  ExpectDay({"1/2/30"}, {1930, 1, 2});
  ExpectDay({"1/2/99"}, {1999, 1, 2});
}

TEST(DateIn, AYearHasTwoOrFourDigits) {
  ExpectNoDates({"1/2/1", "1/2/123", "1/2/12345", "1/2/", "123-1-2", "12345-1-2"});
}

TEST(DateIn, BesideAMonthNameFour) {
  ExpectNoDates({"5 Nov 26", "Nov 5, 26", "Nov 5 126", "5 Nov", "Nov 2026", "Nov 5,"});
}

TEST(DateIn, OneSeparatorThroughout) {
  ExpectNoDates({"11/5-2026", "11-5/2026", "11.5/26", "2026-11/05", "2026/11-05", "2026.11.05", "11,5,2026",
                 "11 5 2026", "11:5:2026"});
}

TEST(DateIn, DaysThatDoNotExist) {
  ExpectNoDates({"2/30/2026", "2/29/2026", "4/31/2026", "13/1/2026", "0/1/2026", "1/0/2026", "1/32/2026", "2026-02-30",
                 "30 Feb 2026", "Feb 30, 2026", "31/12/2026", "2026-13-01"});
}

TEST(DateIn, LeapYears) {
  ExpectDay({"2/29/2024", "29 Feb 2024"}, {2024, 2, 29});
  ExpectDay({"2/29/2000"}, {2000, 2, 29});
  ExpectNoDates({"2/29/1900", "2/29/2100", "2/29/2023"});
}

TEST(DateIn, OtherTextIsNoDate) {
  ExpectNoDates({"",
                 " ",
                 "11",
                 "11/5",
                 "11/5/2026x",
                 "11/5/2026 3:07",
                 "x11/5/2026",
                 "Novem 5, 2026",
                 "No 5, 2026",
                 "5Nov2026",
                 "5-Nov-2026",
                 "Nov5 2026",
                 "Nov, 5 2026",
                 "5, Nov 2026",
                 "Nov 5 , 2026",
                 "111/5/2026",
                 "11/555/2026",
                 "-1/2/2026",
                 "2026-011-05",
                 "2026-11-005",
                 "//",
                 "1//2026",
                 "99999999999/1/1",
                 "46331"});
}

TEST(DateIn, ACommaNeedsNoBlankBehindIt) { ExpectDay({"Nov 5,2026"}, {2026, 11, 5}); }

TEST(DayNumbers, DayZero) {
  EXPECT_EQ(DayNumber({1899, 12, 30}), 0);
  EXPECT_EQ(DayNumber({1899, 12, 31}), 1);
  EXPECT_EQ(DayNumber({1900, 1, 1}), 2);
  EXPECT_EQ(DayNumber({1899, 12, 29}), -1);
}

TEST(DayNumbers, KnownDays) {
  EXPECT_EQ(DayNumber({1900, 3, 1}), 61);  // 1900 had no 29 February: 2 + 31 + 28
  EXPECT_EQ(DayNumber({1970, 1, 1}), 25569);
  EXPECT_EQ(DayNumber({2000, 1, 1}), 36526);
  EXPECT_EQ(DayNumber({2026, 11, 5}), 46331);  // 36526, 26 years with 7 leap days, 308 days into the year
}

TEST(DayNumbers, TheCalendarInOrder) {
  CalendarDay day{1599, 12, 31};
  long number = DayNumber(day);
  while (day.year < 2101) {
    const CalendarDay next = DayOfNumber(++number);
    const bool same_month = next.month == day.month && next.year == day.year;
    if (same_month) {
      ASSERT_EQ(next.day, day.day + 1);
    } else {
      ASSERT_EQ(next.day, 1);
      ASSERT_EQ(next.year * 12 + next.month, day.year * 12 + day.month + 1);
      ASSERT_GE(day.day, 28);
    }
    ASSERT_EQ(DayNumber(next), number);
    day = next;
  }
}

TEST(DayNumbers, TheEndsOfFourDigitYears) {
  for (const CalendarDay& day : {CalendarDay{0, 1, 1}, CalendarDay{0, 2, 29}, CalendarDay{9999, 12, 31}}) {
    EXPECT_EQ(DayOfNumber(DayNumber(day)), day);
  }
}

TEST(DateOut, ShortDateHasNoLeadingZeros) {
  EXPECT_EQ(ShortDate({2026, 11, 5}), "11/5/2026");
  EXPECT_EQ(ShortDate({1999, 1, 31}), "1/31/1999");
}

TEST(DateOut, DateAndTime) {
  EXPECT_EQ(ShortDateTime({{2026, 11, 5}, 15, 7, 9}), "11/5/2026 3:07:09 PM");
  EXPECT_EQ(ShortDateTime({{2026, 11, 5}, 0, 0, 0}), "11/5/2026 12:00:00 AM");
  EXPECT_EQ(ShortDateTime({{2026, 11, 5}, 12, 0, 1}), "11/5/2026 12:00:01 PM");
  EXPECT_EQ(ShortDateTime({{2026, 11, 5}, 11, 59, 59}), "11/5/2026 11:59:59 AM");
  EXPECT_EQ(ShortDateTime({{2026, 11, 5}, 23, 30, 10}), "11/5/2026 11:30:10 PM");
}

}  // namespace
}  // namespace tessara
