#include <gtest/gtest.h>

#include "common/vb.h"

namespace lupin::vb {
namespace {

TEST(FormatText, FormatsByKind) {
  const struct {
    const char *text, *picture, *expected;
  } cases[] = {
      // Character masks
      {"1234567", "@  @  @    @  @  @  @", "1  2  3    4  5  6  7"}, {"12", "@@@@", "  12"}, {"0123", "@@@@@", " 0123"},
      {"123456", "@@@", "123456"}, {"abc", "!@@@@@", "abc  "}, {"abcdef", "!@@@", "abcdef"}, {"abc", ">@@@", "ABC"},
      {"東京", "@@@", " 東京"}, {"12", "&&&&", "12"}, {"1234", "@@@-@", "123-4"},
      // Numbers
      {"20240105", "0000/00/00", "2024/01/05"}, {"1234.5", "#,##0", "1,235"}, {"1,234", "#,##0.00", "1,234.00"},
      {" 12 ", "00", "12"}, {"-2.5", "0", "-3"}, {"abc", "#,##0", "abc"}, {"12abc", "#,##0", "12abc"},
      {"", "#,##0", ""}, {"012", "", "012"},
      // Dates
      {"2024-1-5", "yyyy/mm/dd", "2024/01/05"}, {"2024年1月5日", "yyyyMMdd", "20240105"},
      {"45351", "yyyy/mm/dd", "2024/02/29"}, {"not a date", "yyyy/mm/dd", "not a date"},
      {"20240105", "yyyymmdd", "20240105"},  // a serial beyond 9999 stays as written
      {"2024/01/05", "0", "2024/01/05"},
  };
  for (const auto& c : cases) EXPECT_EQ(FormatText(c.text, c.picture), c.expected) << "\"" << c.text << "\" in \"" << c.picture << "\"";
}

TEST(FormatDate, WritesThePicture) {
  const struct {
    const char *date, *picture, *expected;
  } cases[] = {
      {"2024/02/29 13:05:09", "yyyymmdd", "20240229"},       {"2024/02/29 13:05:09", "yy   mm  dd", "24   02  29"},
      {"2024/02/29 13:05:09", "hh:mm", "13:05"},  // m after an hour is minutes
      {"2024/02/29 13:05:09", "mm:ss", "05:09"},             {"2024/02/29 13:05:09", "aaaa", "木曜日"},
      {"2024/01/05 09:03:04", "yyyy年m月d日(aaa)", "2024年1月5日(金)"}, {"2024/01/05 09:03:04", "h:n:s", "9:3:4"},
      {"2024/03/31", "\"第\"q\"四半期\"", "第1四半期"},         {"2024/12/31", "y", "366"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(FormatDate(*CDate(c.date), c.picture), c.expected) << c.date << " in \"" << c.picture << "\"";
  }
}

TEST(FormatDate, NumbersTakeADatePictureAsTheirSerial) {
  EXPECT_EQ(Format(45351, "yyyy/mm/dd"), "2024/02/29");
  EXPECT_EQ(Format(45351.75, "YYYY/MM/DD HH:NN"), "2024/02/29 18:00");
  EXPECT_EQ(Format(kLowestDate, "yyyy/mm/dd"), "0100/01/01");
  EXPECT_THROW(FormatDate(kLowestDate - 1, "yyyy"), OverflowError);
}

TEST(FormatNumber, WritesThePicture) {
  const struct {
    double value;
    const char *picture, *expected;
  } cases[] = {
      // Thousands
      {1234567, "#,##0", "1,234,567"}, {-1234, "#,##0", "-1,234"}, {0, "#,##0", "0"}, {999, "#,##0", "999"},
      {0.05, "#,##0.0", "0.1"}, {1234.567, "#,##0.00", "1,234.57"}, {-0.5, "#,##0.00", "-0.50"},
      {1234567, "#,##0,", "1,235"},
      // Halves go away from zero on the decimal digits, unlike CLng.
      {2.5, "0", "3"}, {-2.5, "0", "-3"}, {0.5, "0", "1"}, {1233.5, "#,##0", "1,234"}, {1.005, "0.00", "1.01"},
      {0.125, "0.00", "0.13"}, {9.995, "0.00", "10.00"}, {99999.5, "#,##0", "100,000"}, {-0.4, "0", "-0"},
      // Digit placeholders, literals, percent, exponents and sections
      {5, "00", "05"}, {123, "00", "123"}, {42, "0000000000", "0000000042"}, {0, "#", ""}, {42, "#", "42"},
      {5.1, "0.0#", "5.1"}, {5.126, "0.0#", "5.13"}, {0.5, "#.00", ".50"}, {20240105, "0000/00/00", "2024/01/05"},
      {5, "0円", "5円"}, {0.125, "0.0%", "12.5%"}, {12345, "0.00E+00", "1.23E+04"}, {0.00012, "0.0E-00", "1.2E-04"},
      {-5, "0;(0)", "(5)"}, {0, "0;(0);\"なし\"", "なし"}, {3, "0;(0);\"なし\"", "3"},
      // No picture and the named ones
      {0.1 + 0.2, "", "0.3"}, {1e15, "", "1E+15"}, {123456789012345, "", "123456789012345"}, {0.0001, "", "0.0001"},
      {0.00001, "", "1E-05"}, {-2.5, "", "-2.5"}, {1.0 / 3, "", "0.333333333333333"}, {1.5e-10, "", "1.5E-10"},
      {-1234567.25, "", "-1234567.25"}, {0, "", "0"}, {1234.5, "Standard", "1,234.50"}, {2, "General Number", "2"},
  };
  for (const auto& c : cases) EXPECT_EQ(Format(c.value, c.picture), c.expected) << c.value << " in \"" << c.picture << "\"";
}

}  // namespace
}  // namespace lupin::vb
