// Date pictures: y, m, d, h, n, s in any case; "m" next to an hour or a second is a minute.
#include <cctype>
#include <cstdio>

#include "common/date_calendar.h"
#include "common/format_picture.h"
#include "common/vb.h"

namespace lupin::vb {

namespace {

constexpr const char* kWeekdayShort[] = {"日", "月", "火", "水", "木", "金", "土"};

char Lower(char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); }

std::string Padded(int value, int width) {
  char buffer[16];
  std::snprintf(buffer, sizeof buffer, "%0*d", width, value);
  return buffer;
}

struct Parts {
  int year, month, day, hour, minute, second, weekday, day_of_year;
};

Parts PartsOf(DateSerial date) {
  Parts p{};
  const DayAndSecond split = SplitSerial(date);
  CalendarOf(split.day, p.year, p.month, p.day);
  p.hour = split.second / 3600;
  p.minute = split.second / 60 % 60;
  p.second = split.second % 60;
  p.weekday = Weekday(date);
  p.day_of_year = static_cast<int>(split.day - DayNumberOf(p.year, 1, 1)) + 1;
  return p;
}

// Length of the run of the same letter (case-insensitive) at i.
std::size_t RunLength(std::string_view picture, std::size_t i) {
  std::size_t n = 1;
  while (i + n < picture.size() && Lower(picture[i + n]) == Lower(picture[i])) ++n;
  return n;
}

// Whether the next letter token after i is a second, for "mm:ss".
bool SecondFollows(std::string_view picture, std::size_t i) {
  for (; i < picture.size(); ++i) {
    const char c = Lower(picture[i]);
    if (c == 's') return true;
    if (std::isalpha(static_cast<unsigned char>(picture[i])) != 0) return false;
  }
  return false;
}

bool StartsWithNoCase(std::string_view text, std::string_view prefix) {
  if (text.size() < prefix.size()) return false;
  for (std::size_t i = 0; i < prefix.size(); ++i) {
    if (Lower(text[i]) != Lower(prefix[i])) return false;
  }
  return true;
}

}  // namespace

std::string FormatDate(DateSerial date, std::string_view picture) {
  const Parts p = PartsOf(CheckedSerial(date));
  const bool twelve_hour = StartsWithNoCase(picture, "am/pm") || picture.find("AM/PM") != std::string_view::npos ||
                           picture.find("am/pm") != std::string_view::npos;
  std::string out;
  bool after_hour = false;
  for (std::size_t i = 0; i < picture.size();) {
    const char c = picture[i];
    const char lower = Lower(c);
    if (c == '"') {
      const std::size_t close = picture.find('"', i + 1);
      const std::size_t end = close == std::string_view::npos ? picture.size() : close;
      out += picture.substr(i + 1, end - i - 1);
      i = end + 1;
      continue;
    }
    if (c == '\\' && i + 1 < picture.size()) {
      out += picture[i + 1];
      i += 2;
      continue;
    }
    if (StartsWithNoCase(picture.substr(i), "am/pm")) {
      out += p.hour < 12 ? "AM" : "PM";
      i += 5;
      continue;
    }
    std::size_t n = RunLength(picture, i);
    switch (lower) {
      case 'y':
        if (n >= 4) {
          out += Padded(p.year, 4), n = 4;
        } else if (n >= 2) {
          out += Padded(p.year % 100, 2), n = 2;
        } else {
          out += std::to_string(p.day_of_year);
        }
        break;
      case 'm':
        n = std::min<std::size_t>(n, 4);
        if (n <= 2 && (after_hour || SecondFollows(picture, i + n))) {
          out += n == 2 ? Padded(p.minute, 2) : std::to_string(p.minute);
        } else if (n <= 2) {
          out += n == 2 ? Padded(p.month, 2) : std::to_string(p.month);
        } else {
          out += std::to_string(p.month) + "月";
        }
        break;
      case 'd':
        n = std::min<std::size_t>(n, 4);
        if (n <= 2) out += n == 2 ? Padded(p.day, 2) : std::to_string(p.day);
        else if (n == 3) out += kWeekdayShort[p.weekday - 1];
        else out += std::string(kWeekdayShort[p.weekday - 1]) + "曜日";
        break;
      case 'a':
        if (n < 3) {
          out += picture.substr(i, n);
        } else {
          n = std::min<std::size_t>(n, 4);
          out += kWeekdayShort[p.weekday - 1];
          if (n == 4) out += "曜日";
        }
        break;
      case 'h': {
        n = std::min<std::size_t>(n, 2);
        const int hour = twelve_hour ? (p.hour % 12 == 0 ? 12 : p.hour % 12) : p.hour;
        out += n == 2 ? Padded(hour, 2) : std::to_string(hour);
        break;
      }
      case 'n':
        n = std::min<std::size_t>(n, 2);
        out += n == 2 ? Padded(p.minute, 2) : std::to_string(p.minute);
        break;
      case 's':
        n = std::min<std::size_t>(n, 2);
        out += n == 2 ? Padded(p.second, 2) : std::to_string(p.second);
        break;
      case 'w':
        if (n >= 2) {
          n = 2;
          const int jan1_weekday = Weekday(DayNumberOf(p.year, 1, 1));
          out += std::to_string((p.day_of_year + jan1_weekday - 2) / 7 + 1);
        } else {
          out += std::to_string(p.weekday);
        }
        break;
      case 'q':
        n = 1;
        out += std::to_string((p.month - 1) / 3 + 1);
        break;
      default:
        out += picture.substr(i, n);
        break;
    }
    if (std::isalpha(static_cast<unsigned char>(c)) != 0) after_hour = lower == 'h';
    i += n;
  }
  return out;
}

}  // namespace lupin::vb
