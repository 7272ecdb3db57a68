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

}  // namespace
}  // namespace lupin::vb
