#include <gtest/gtest.h>

#include "common/vb.h"

namespace lupin::vb {
namespace {

struct DateFormatCase {
  const char* date;
  const char* picture;
  const char* expected;
};

class FormatDateTable : public ::testing::TestWithParam<DateFormatCase> {};

TEST_P(FormatDateTable, WritesThePicture) {
  EXPECT_EQ(FormatDate(*CDate(GetParam().date), GetParam().picture), GetParam().expected)
      << GetParam().date << " in \"" << GetParam().picture << "\"";
}

INSTANTIATE_TEST_SUITE_P(
    Pictures, FormatDateTable,
    ::testing::Values(DateFormatCase{"2024/02/29 13:05:09", "YYYY/MM/DD", "2024/02/29"},
                      DateFormatCase{"2024/02/29 13:05:09", "yyyy/mm/dd", "2024/02/29"},
                      DateFormatCase{"2024/02/29 13:05:09", "yyyymmdd", "20240229"},
                      DateFormatCase{"2024/02/29 13:05:09", "yyyyMMdd", "20240229"},
                      DateFormatCase{"2024/02/29 13:05:09", "mm   dd", "02   29"},
                      DateFormatCase{"2024/02/29 13:05:09", "yy   mm  dd", "24   02  29"},
                      DateFormatCase{"2024/02/29 13:05:09", "yyyy      mm      dd", "2024      02      29"},
                      DateFormatCase{"2024/02/29 13:05:09", "HH:NN:SS", "13:05:09"},
                      DateFormatCase{"2024/02/29 13:05:09", "YYYY/MM/DD HH:NN:SS", "2024/02/29 13:05:09"},
                      DateFormatCase{"2024/02/29 13:05:09", "hh:mm", "13:05"},  // m after an hour is minutes
                      DateFormatCase{"2024/02/29 13:05:09", "mm:ss", "05:09"},
                      DateFormatCase{"2024/02/29 13:05:09", "aaa", "木"},
                      DateFormatCase{"2024/02/29 13:05:09", "aaaa", "木曜日"},
                      DateFormatCase{"2024/01/05 09:03:04", "m/d", "1/5"},
                      DateFormatCase{"2024/01/05 09:03:04", "mm/dd", "01/05"},
                      DateFormatCase{"2024/01/05 09:03:04", "h:n:s", "9:3:4"},
                      DateFormatCase{"2024/01/05 09:03:04", "yyyy年m月d日(aaa)", "2024年1月5日(金)"},
                      DateFormatCase{"2024/01/05", "YYYY", "2024"}, DateFormatCase{"2024/01/05", "MM", "01"},
                      DateFormatCase{"2024/01/05", "DD", "05"}, DateFormatCase{"0100/01/01", "yyyy/mm/dd", "0100/01/01"},
                      DateFormatCase{"9999/12/31", "yyyy/mm/dd", "9999/12/31"},
                      DateFormatCase{"2024/03/31", "\"第\"q\"四半期\"", "第1四半期"},
                      DateFormatCase{"2024/12/31", "y", "366"}));

TEST(FormatDate, NumbersTakeADatePictureAsTheirSerial) {
  EXPECT_EQ(Format(45351, "yyyy/mm/dd"), "2024/02/29");
  EXPECT_EQ(Format(45351.75, "YYYY/MM/DD HH:NN"), "2024/02/29 18:00");
  EXPECT_EQ(Format(kLowestDate, "yyyy/mm/dd"), "0100/01/01");
}

TEST(FormatDate, RaisesOutsideTheDateRange) { EXPECT_THROW(FormatDate(kLowestDate - 1, "yyyy"), OverflowError); }

}  // namespace
}  // namespace lupin::vb
