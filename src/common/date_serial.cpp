#include <chrono>
#include <cmath>
#include <algorithm>
#include <ctime>
#include <stdexcept>

#include "common/date_calendar.h"
#include "common/text.h"
#include "common/vb.h"

namespace lupin::vb {

namespace {

constexpr std::int64_t kUnixEpochSerial = 25569;  // 1970-01-01
constexpr double kHighestDate = 2958465;           // 9999-12-31

std::int64_t FloorDiv(std::int64_t a, std::int64_t b) { return a / b - ((a % b != 0) && ((a < 0) != (b < 0))); }

}  // namespace

std::int64_t DayNumberOf(std::int64_t year, int month, std::int64_t day) {
  year -= month <= 2;
  const std::int64_t era = FloorDiv(year, 400);
  const std::int64_t year_of_era = year - era * 400;
  const std::int64_t day_of_year = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5;
  const std::int64_t day_of_era = year_of_era * 365 + year_of_era / 4 - year_of_era / 100 + day_of_year;
  return era * 146097 + day_of_era - 719468 + kUnixEpochSerial + (day - 1);
}

void CalendarOf(std::int64_t day_number, int& year, int& month, int& day) {
  const std::int64_t z = day_number - kUnixEpochSerial + 719468;
  const std::int64_t era = FloorDiv(z, 146097);
  const std::int64_t day_of_era = z - era * 146097;
  const std::int64_t year_of_era = (day_of_era - day_of_era / 1460 + day_of_era / 36524 - day_of_era / 146096) / 365;
  const std::int64_t day_of_year = day_of_era - (365 * year_of_era + year_of_era / 4 - year_of_era / 100);
  const std::int64_t mp = (5 * day_of_year + 2) / 153;
  day = static_cast<int>(day_of_year - (153 * mp + 2) / 5 + 1);
  month = static_cast<int>(mp < 10 ? mp + 3 : mp - 9);
  year = static_cast<int>(year_of_era + era * 400 + (month <= 2));
}

int DaysInMonth(int year, int month) {
  static constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
  return month == 2 && leap ? 29 : kDays[month - 1];
}

DayAndSecond SplitSerial(double serial) {
  double whole = std::trunc(serial);
  auto second = static_cast<int>(std::llround(std::fabs(serial - whole) * 86400.0));
  if (second >= 86400) {
    second -= 86400;
    whole += serial < 0 ? -1 : 1;
  }
  return {static_cast<std::int64_t>(whole), second};
}

double JoinSerial(std::int64_t day, int second) {
  // Before 1899-12-30 the time is stored as a positive fraction behind a negative day.
  const double fraction = second / 86400.0;
  return day < 0 ? static_cast<double>(day) - fraction : static_cast<double>(day) + fraction;
}

double CheckedSerial(double serial) {
  if (!(serial > static_cast<double>(kLowestDate) - 1 && serial < kHighestDate + 1)) throw OverflowError();
  const std::int64_t day = SplitSerial(serial).day;
  if (day < static_cast<std::int64_t>(kLowestDate) || day > static_cast<std::int64_t>(kHighestDate)) throw OverflowError();
  return serial;
}

DateSerial DateSerialOf(int year, int month, int day) {
  // Two-digit years fall in 1930..2029, as the runtime's window puts them.
  if (year >= 0 && year < 30) year += 2000;
  else if (year >= 30 && year < 100) year += 1900;
  const std::int64_t months = static_cast<std::int64_t>(year) * 12 + (month - 1);
  const std::int64_t whole_year = FloorDiv(months, 12);
  const int month_of_year = static_cast<int>(months - whole_year * 12) + 1;
  return CheckedSerial(static_cast<double>(DayNumberOf(whole_year, month_of_year, day)));
}

void SplitDate(DateSerial date, int& year, int& month, int& day) {
  CalendarOf(SplitSerial(date).day, year, month, day);
}

void SplitTime(DateSerial date, int& hour, int& minute, int& second) {
  const int seconds = SplitSerial(date).second;
  hour = seconds / 3600;
  minute = seconds / 60 % 60;
  second = seconds % 60;
}

DateSerial TimeSerialOf(int hour, int minute, int second) {
  const std::int64_t seconds = static_cast<std::int64_t>(hour) * 3600 + minute * 60 + second;
  const std::int64_t day = FloorDiv(seconds, 86400);
  return CheckedSerial(JoinSerial(day, static_cast<int>(seconds - day * 86400)));
}

int Weekday(DateSerial date) {
  const std::int64_t day = SplitSerial(date).day;
  // Serial 0 was a Saturday.
  return static_cast<int>(((day + 6) % 7 + 7) % 7) + 1;
}

DateSerial DateAdd(std::string_view interval, int number, DateSerial date) {
  const std::string unit = text::ToLower(interval);
  const DayAndSecond split = SplitSerial(CheckedSerial(date));
  std::int64_t months = 0;
  std::int64_t days = 0;
  std::int64_t seconds = 0;
  if (unit == "yyyy") months = 12LL * number;
  else if (unit == "q") months = 3LL * number;
  else if (unit == "m") months = number;
  else if (unit == "d" || unit == "y" || unit == "w") days = number;
  else if (unit == "ww") days = 7LL * number;
  else if (unit == "h") seconds = 3600LL * number;
  else if (unit == "n") seconds = 60LL * number;
  else if (unit == "s") seconds = number;
  else throw std::invalid_argument("DateAdd: unknown interval " + unit);

  std::int64_t day = split.day;
  if (months != 0) {
    int year = 0, month = 0, day_of_month = 0;
    CalendarOf(day, year, month, day_of_month);
    const std::int64_t total = static_cast<std::int64_t>(year) * 12 + (month - 1) + months;
    const std::int64_t new_year = FloorDiv(total, 12);
    const int new_month = static_cast<int>(total - new_year * 12) + 1;
    if (new_year < 100 || new_year > 9999) throw OverflowError();
    // The 31st plus a month is the last day of a shorter month.
    const int clamped = std::min(day_of_month, DaysInMonth(static_cast<int>(new_year), new_month));
    day = DayNumberOf(new_year, new_month, clamped);
  }
  day += days;
  if (seconds != 0) {
    const std::int64_t line = day * 86400 + split.second + seconds;
    const std::int64_t new_day = FloorDiv(line, 86400);
    return CheckedSerial(JoinSerial(new_day, static_cast<int>(line - new_day * 86400)));
  }
  return CheckedSerial(JoinSerial(day, split.second));
}

DateSerial Today() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return DateSerialOf(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
}

DateSerial Now() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return DateSerialOf(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday) +
         (local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec) / 86400.0;
}

std::string DateText(DateSerial date) { return FormatDate(date, "yyyy/mm/dd"); }

}  // namespace lupin::vb
