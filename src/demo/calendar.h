#pragma once
// Civil dates as day numbers, so the demo data never depends on the clock or the time zone.
#include <cstddef>
#include <string>

namespace lupin::demo {

// Days since 1970/01/01 of a proleptic Gregorian date.
constexpr int DaysFromCivil(int y, int m, int d) {
  y -= m <= 2;
  const int era = (y >= 0 ? y : y - 399) / 400;
  const int yoe = y - era * 400;
  const int doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
  const int doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
  return era * 146097 + doe - 719468;
}

struct Civil {
  int year, month, day;
};

constexpr Civil CivilFromDays(int z) {
  z += 719468;
  const int era = (z >= 0 ? z : z - 146096) / 146097;
  const int doe = z - era * 146097;
  const int yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
  const int doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
  const int mp = (5 * doy + 2) / 153;
  const int d = doy - (153 * mp + 2) / 5 + 1;
  const int m = mp + (mp < 10 ? 3 : -9);
  return {yoe + era * 400 + (m <= 2), m, d};
}

// "YYYY/MM/DD", the form every date of the order tables has (years 1000 to 9999).
inline std::string DateText(int days) {
  const Civil c = CivilFromDays(days);
  std::string text = "0000/00/00";
  auto put = [&text](std::size_t end, int value, int width) {
    for (int i = 0; i < width; ++i, value /= 10) text[end - static_cast<std::size_t>(i)] = static_cast<char>('0' + value % 10);
  };
  put(3, c.year, 4);
  put(6, c.month, 2);
  put(9, c.day, 2);
  return text;
}

// The fiscal year, which starts in April.
constexpr int FiscalYear(int days) {
  const Civil c = CivilFromDays(days);
  return c.month >= 4 ? c.year : c.year - 1;
}

}  // namespace lupin::demo
