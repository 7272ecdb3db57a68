#include <gtest/gtest.h>

#include "common/vb.h"

namespace lupin::vb {
namespace {

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

}  // namespace
}  // namespace lupin::vb
