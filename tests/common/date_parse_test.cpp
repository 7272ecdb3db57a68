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

}  // namespace
}  // namespace lupin::vb
