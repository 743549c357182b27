#include "numerics/dates.h"

#include <array>
#include <cstddef>

namespace tessara {

namespace {

constexpr std::array<std::string_view, 12> kMonthNames = {"january",   "february", "march",    "april",
                                                          "may",       "june",     "july",     "august",
                                                          "september", "october",  "november", "december"};

constexpr bool IsLeapYear(int year) { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }

constexpr int DaysInMonth(int year, int month) {
  constexpr std::array<int, 12> kDays = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && IsLeapYear(year) ? 29 : kDays[static_cast<std::size_t>(month - 1)];
}

// Days from 1 March of year 0 in the Gregorian calendar, counted over years that begin in March: the leap day is then
// the last of its year, and months have their lengths in a pattern of 153 days for each five.
constexpr long DaysFromMarchOfYearZero(const CalendarDay& day) {
  constexpr long kDaysInEra = 146097;  // 400 years
  const long year = day.year - (day.month <= 2 ? 1 : 0);
  const long era = (year >= 0 ? year : year - 399) / 400;
  const long year_of_era = year - era * 400;
  const long month_from_march = (day.month + 9) % 12;
  const long day_of_year = (153 * month_from_march + 2) / 5 + day.day - 1;
  return era * kDaysInEra + year_of_era * 365 + year_of_era / 4 - year_of_era / 100 + day_of_year;
}

constexpr long kDayZero = DaysFromMarchOfYearZero({1899, 12, 30});

// A run of digits, and how many there were: a year is told by its two or four digits.
struct DigitRun {
  int value = 0;
  int length = 0;
};

constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }
constexpr bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
constexpr char LowerCase(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// Takes a date's pieces from the front of a text.
class DateReader {
 public:
  explicit DateReader(std::string_view text) : rest_(text) {
    SkipBlanks();
    while (rest_.ends_with(' ')) rest_.remove_suffix(1);
  }

  bool at_end() const { return rest_.empty(); }
  bool at_letter() const { return !rest_.empty() && IsLetter(rest_.front()); }

  // Nothing when there is no digit, or a run that is too long for any piece of a date.
  std::optional<DigitRun> TakeDigits() {
    constexpr int kLongestRun = 4;
    DigitRun run;
    for (; !rest_.empty() && IsDigit(rest_.front()); rest_.remove_prefix(1)) {
      if (++run.length > kLongestRun) return std::nullopt;
      run.value = run.value * 10 + (rest_.front() - '0');
    }
    return run.length > 0 ? std::optional(run) : std::nullopt;
  }

  // The month of a name, full or of three letters.
  std::optional<int> TakeMonthName() {
    std::size_t length = 0;
    while (length < rest_.size() && IsLetter(rest_[length])) ++length;
    const std::string_view name = rest_.substr(0, length);
    rest_.remove_prefix(length);
    for (std::size_t month = 0; month < kMonthNames.size(); ++month) {
      if (SameName(name, kMonthNames[month]) || SameName(name, kMonthNames[month].substr(0, 3))) {
        return static_cast<int>(month + 1);
      }
    }
    return std::nullopt;
  }

  char TakeCharacter() {
    if (rest_.empty()) return '\0';
    const char taken = rest_.front();
    rest_.remove_prefix(1);
    return taken;
  }

  bool TakeCharacter(char wanted) {
    if (!rest_.starts_with(wanted)) return false;
    rest_.remove_prefix(1);
    return true;
  }

  // Whether there was at least one.
  bool SkipBlanks() {
    const std::size_t length = rest_.size();
    while (rest_.starts_with(' ')) rest_.remove_prefix(1);
    return rest_.size() < length;
  }

 private:
  static bool SameName(std::string_view name, std::string_view lower_case) {
    if (name.size() != lower_case.size()) return false;
    for (std::size_t i = 0; i < name.size(); ++i) {
      if (LowerCase(name[i]) != lower_case[i]) return false;
    }
    return true;
  }

  std::string_view rest_;
};

bool IsShort(const DigitRun& run) { return run.length <= 2; }

std::optional<int> YearOf(const DigitRun& run) {
  constexpr int kFirstYearOfLastCentury = 30;
  if (run.length == 4) return run.value;
  if (run.length == 2) return run.value + (run.value < kFirstYearOfLastCentury ? 2000 : 1900);
  return std::nullopt;
}

std::optional<CalendarDay> ExistingDay(int year, int month, int day) {
  if (month < 1 || month > 12 || day < 1 || day > DaysInMonth(year, month)) return std::nullopt;
  return CalendarDay{year, month, day};
}

// mmm d, yyyy and mmm d yyyy
std::optional<CalendarDay> ReadMonthFirst(DateReader& reader) {
  const std::optional<int> month = reader.TakeMonthName();
  if (!month || !reader.SkipBlanks()) return std::nullopt;
  const std::optional<DigitRun> day = reader.TakeDigits();
  if (!day || !IsShort(*day)) return std::nullopt;
  const bool comma = reader.TakeCharacter(',');
  if (!reader.SkipBlanks() && !comma) return std::nullopt;
  const std::optional<DigitRun> year = reader.TakeDigits();
  if (!year || year->length != 4) return std::nullopt;
  return ExistingDay(year->value, *month, day->value);
}

// d mmm yyyy, behind its first number
std::optional<CalendarDay> ReadDayFirst(const DigitRun& day, DateReader& reader) {
  if (!IsShort(day) || !reader.SkipBlanks()) return std::nullopt;
  const std::optional<int> month = reader.TakeMonthName();
  if (!month || !reader.SkipBlanks()) return std::nullopt;
  const std::optional<DigitRun> year = reader.TakeDigits();
  if (!year || year->length != 4) return std::nullopt;
  return ExistingDay(year->value, *month, day.value);
}

// Three numbers with one separator between them, behind the first: m/d/yy and m/d/yyyy, or yyyy/mm/dd.
std::optional<CalendarDay> ReadNumbers(const DigitRun& first, DateReader& reader) {
  const char separator = reader.TakeCharacter();
  if (separator != '/' && separator != '-' && separator != '.') return std::nullopt;
  const std::optional<DigitRun> second = reader.TakeDigits();
  if (!second || !IsShort(*second) || !reader.TakeCharacter(separator)) return std::nullopt;
  const std::optional<DigitRun> third = reader.TakeDigits();
  if (!third) return std::nullopt;
  if (first.length == 4) {
    if (!IsShort(*third) || separator == '.') return std::nullopt;
    return ExistingDay(first.value, second->value, third->value);
  }
  const std::optional<int> year = YearOf(*third);
  if (!IsShort(first) || !year) return std::nullopt;
  return ExistingDay(*year, first.value, second->value);
}

std::string TwoDigits(int value) { return {static_cast<char>('0' + value / 10), static_cast<char>('0' + value % 10)}; }

}  // namespace

std::optional<CalendarDay> ParseDate(std::string_view text) noexcept {
  DateReader reader(text);
  std::optional<CalendarDay> day;
  if (reader.at_letter()) {
    day = ReadMonthFirst(reader);
  } else if (const std::optional<DigitRun> first = reader.TakeDigits()) {
    DateReader behind_blanks = reader;
    behind_blanks.SkipBlanks();
    day = behind_blanks.at_letter() ? ReadDayFirst(*first, reader) : ReadNumbers(*first, reader);
  }
  return reader.at_end() ? day : std::nullopt;
}

Checked ToDayNumber(std::string_view text) noexcept {
  const std::optional<CalendarDay> day = ParseDate(text);
  return day ? Checked(static_cast<double>(DayNumber(*day))) : Checked::Failed();
}

long DayNumber(const CalendarDay& day) noexcept { return DaysFromMarchOfYearZero(day) - kDayZero; }

CalendarDay DayOfNumber(long day_number) noexcept {
  constexpr long kDaysInEra = 146097;
  const long days = day_number + kDayZero;
  const long era = (days >= 0 ? days : days - (kDaysInEra - 1)) / kDaysInEra;
  const long day_of_era = days - era * kDaysInEra;
  const long year_of_era = (day_of_era - day_of_era / 1460 + day_of_era / 36524 - day_of_era / 146096) / 365;
  const long day_of_year = day_of_era - (365 * year_of_era + year_of_era / 4 - year_of_era / 100);
  const long month_from_march = (5 * day_of_year + 2) / 153;
  const int day = static_cast<int>(day_of_year - (153 * month_from_march + 2) / 5 + 1);
  const int month = static_cast<int>(month_from_march < 10 ? month_from_march + 3 : month_from_march - 9);
  const int year = static_cast<int>(era * 400 + year_of_era + (month <= 2 ? 1 : 0));
  return {year, month, day};
}

std::string ShortDate(const CalendarDay& day) {
  return std::to_string(day.month) + '/' + std::to_string(day.day) + '/' + std::to_string(day.year);
}

std::string ShortDateTime(const DateTime& moment) {
  const int hour = moment.hour % 12 == 0 ? 12 : moment.hour % 12;
  return ShortDate(moment.date) + ' ' + std::to_string(hour) + ':' + TwoDigits(moment.minute) + ':' +
         TwoDigits(moment.second) + (moment.hour < 12 ? " AM" : " PM");
}

}  // namespace tessara
