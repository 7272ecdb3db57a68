#include <gtest/gtest.h>

#include "common/vb.h"

namespace lupin::vb {
namespace {

struct ParseCase {
  const char* text;
  int year, month, day, hour, minute, second;
};

TEST(CDate, ReadsTheFormsTheDataHolds) {
  const ParseCase cases[] = {
      {"2024/1/5", 2024, 1, 5, 0, 0, 0},            {"2024-01-05", 2024, 1, 5, 0, 0, 0},
      {"2024年1月5日", 2024, 1, 5, 0, 0, 0},        {"2024/02/29 9:05:07", 2024, 2, 29, 9, 5, 7},
      {"２０２４／０１／０５", 2024, 1, 5, 0, 0, 0}, {"0100/01/01", 100, 1, 1, 0, 0, 0},
      {"24/01/05", 2024, 1, 5, 0, 0, 0},            {"13:30", 1899, 12, 30, 13, 30, 0},
  };
  for (const auto& c : cases) {
    EXPECT_TRUE(IsDate(c.text)) << c.text;
    const auto date = CDate(c.text);
    ASSERT_TRUE(date.has_value()) << c.text;
    int y = 0, m = 0, d = 0, h = 0, n = 0, s = 0;
    SplitDate(*date, y, m, d);
    SplitTime(*date, h, n, s);
    EXPECT_EQ((std::array{y, m, d, h, n, s}), (std::array{c.year, c.month, c.day, c.hour, c.minute, c.second}))
        << c.text;
  }
}

TEST(CDate, RejectsPackedDigitsAndImpossibleDates) {
  const char* cases[] = {"20240105", "1900/02/29", "2024/00/10", "2024/01", "2024/01/05 25:00", "2024年1月5",
                         "2024/1-5", "12-14", "0099/12/31"};
  for (const char* text : cases) {
    EXPECT_FALSE(IsDate(text)) << text;
    EXPECT_FALSE(CDate(text).has_value()) << text;
  }
}

TEST(DateText, WritesTheTableForm) {
  EXPECT_EQ(DateText(DateSerialOf(2024, 1, 5)), "2024/01/05");
  EXPECT_EQ(DateText(kLowestDate), "0100/01/01");
  EXPECT_EQ(DateText(*CDate(DateText(Today()))), DateText(Today()));
}

struct SerialCase {
  int year, month, day;
  DateSerial serial;
};

TEST(DateSerialOf, MatchesTheRuntimeSerials) {
  const SerialCase cases[] = {
      {1899, 12, 30, 0}, {1900, 3, 1, 61}, {2024, 2, 29, 45351}, {100, 1, 1, kLowestDate}, {9999, 12, 31, 2958465},
      {1899, 12, 29, -1},
      // month and day run over, as DateSerial lets them
      {2024, 13, 1, 45658}, {2024, 3, 0, 45351}, {2024, 0, 1, 45261},
      // two-digit years land in 1930..2029
      {24, 2, 29, 45351}, {30, 1, 1, 10959},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(DateSerialOf(c.year, c.month, c.day), c.serial) << c.year << "-" << c.month << "-" << c.day;
  }
  EXPECT_THROW(DateSerialOf(100, 1, 0), OverflowError);
  EXPECT_THROW(DateSerialOf(9999, 12, 32), OverflowError);
}

TEST(SplitDate, InvertsDateSerialOverTheWholeRange) {
  for (int serial = static_cast<int>(kLowestDate); serial <= 2958465; serial += 997) {
    int y = 0, m = 0, d = 0;
    SplitDate(serial, y, m, d);
    ASSERT_EQ(DateSerialOf(y, m, d), serial) << y << "-" << m << "-" << d;
    ASSERT_GE(m, 1);
    ASSERT_LE(m, 12);
  }
}

TEST(SplitDate, TakesTheDayTowardsZeroAndTheTimeAsItsFraction) {
  int y = 0, m = 0, d = 0, h = 0, n = 0, s = 0;
  SplitDate(-1.25, y, m, d);  // 1899-12-29 06:00 is stored as -1.25
  SplitTime(-1.25, h, n, s);
  EXPECT_EQ((std::array{y, m, d, h, n, s}), (std::array{1899, 12, 29, 6, 0, 0}));
  SplitDate(45351.9999999, y, m, d);  // rounds up to the next midnight
  SplitTime(45351.9999999, h, n, s);
  EXPECT_EQ((std::array{y, m, d, h, n, s}), (std::array{2024, 3, 1, 0, 0, 0}));
  EXPECT_DOUBLE_EQ(TimeSerialOf(18, 0, 0), 0.75);
}

struct WeekdayCase {
  const char* date;
  int weekday;
};

TEST(Weekday, CountsFromSunday) {
  const WeekdayCase cases[] = {{"1899/12/30", 7}, {"1899/12/29", 6}, {"0100/01/01", 6}, {"2026/11/22 23:59", 1}};
  for (const auto& c : cases) EXPECT_EQ(Weekday(*CDate(c.date)), c.weekday) << c.date;
}

struct AddCase {
  const char* interval;
  int number;
  const char* from;
  const char* expected;
};

TEST(DateAdd, AddsCalendarUnits) {
  const AddCase cases[] = {
      {"ww", 2, "2024/12/25", "2025/01/08"},  {"m", 1, "2023/01/31", "2023/02/28"},
      {"m", -1, "2024/03/31", "2024/02/29"},  {"M", 13, "2024/01/15", "2025/02/15"},
      {"yyyy", 1, "2024/02/29", "2025/02/28"}, {"q", 1, "2024/11/30", "2025/02/28"},
      {"h", 25, "2024/02/28 12:00", "2024/02/29 13:00:00"}, {"n", -1, "1899/12/30", "1899/12/29 23:59:00"},
      // the time of day stays, also before the base date
      {"d", 2, "1899/12/29 06:00", "1899/12/31 06:00"}, {"m", 1, "2024/01/31 10:30", "2024/02/29 10:30"},
  };
  for (const auto& c : cases) {
    const DateSerial result = DateAdd(c.interval, c.number, *CDate(c.from));
    EXPECT_EQ(result, *CDate(c.expected)) << c.interval << " " << c.number << " " << c.from;
  }
}

TEST(DateAdd, RaisesBeyondTheDateRangeAndOnUnknownUnits) {
  EXPECT_THROW(DateAdd("d", -1, kLowestDate), OverflowError);
  EXPECT_THROW(DateAdd("yyyy", 1, *CDate("9999/06/01")), OverflowError);
  EXPECT_THROW(DateAdd("fortnight", 1, 0), std::invalid_argument);
}

}  // namespace
}  // namespace lupin::vb
