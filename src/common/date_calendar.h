#pragma once
// Proleptic Gregorian day numbers behind the date serials.
#include <cstdint>

namespace lupin::vb {

// Serial day of a calendar date whose month is 1..12; days may run past the month.
std::int64_t DayNumberOf(std::int64_t year, int month, std::int64_t day);
void CalendarOf(std::int64_t day_number, int& year, int& month, int& day);
int DaysInMonth(int year, int month);

// A serial split into its day (towards zero, as the runtime stores it) and its time in whole
// seconds; a time that rounds up to midnight moves to the next day.
struct DayAndSecond {
  std::int64_t day;
  int second;
};
DayAndSecond SplitSerial(double serial);
double JoinSerial(std::int64_t day, int second);
// Raises OverflowError for a serial outside 0100-01-01 .. 9999-12-31.
double CheckedSerial(double serial);

}  // namespace lupin::vb
