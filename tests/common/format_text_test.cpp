#include <gtest/gtest.h>

#include "common/vb.h"

namespace lupin::vb {
namespace {

struct TextCase {
  const char* text;
  const char* picture;
  const char* expected;
};

class FormatTextTable : public ::testing::TestWithParam<TextCase> {};

TEST_P(FormatTextTable, FormatsByKind) {
  EXPECT_EQ(FormatText(GetParam().text, GetParam().picture), GetParam().expected)
      << "\"" << GetParam().text << "\" in \"" << GetParam().picture << "\"";
}

INSTANTIATE_TEST_SUITE_P(
    CharacterMasks, FormatTextTable,
    ::testing::Values(TextCase{"1234567", "@  @  @    @  @  @  @", "1  2  3    4  5  6  7"},
                      TextCase{"12", "@@@@", "  12"}, TextCase{"0123", "@@@@@", " 0123"},
                      TextCase{"123456", "@@@", "123456"}, TextCase{"abc", "!@@@@@", "abc  "},
                      TextCase{"abcdef", "!@@@", "abcdef"}, TextCase{"abc", ">@@@", "ABC"},
                      TextCase{"東京", "@@@", " 東京"}, TextCase{"12", "&&&&", "12"},
                      TextCase{"1234", "@@@-@", "123-4"}));

INSTANTIATE_TEST_SUITE_P(
    Numbers, FormatTextTable,
    ::testing::Values(TextCase{"20240105", "0000/00/00", "2024/01/05"}, TextCase{"20260304", "0000/00/00", "2026/03/04"},
                      TextCase{"1234.5", "#,##0", "1,235"}, TextCase{"1,234", "#,##0.00", "1,234.00"},
                      TextCase{" 12 ", "00", "12"}, TextCase{"-2.5", "0", "-3"}, TextCase{"abc", "#,##0", "abc"},
                      TextCase{"12abc", "#,##0", "12abc"}, TextCase{"", "#,##0", ""}, TextCase{"012", "", "012"}));

INSTANTIATE_TEST_SUITE_P(
    Dates, FormatTextTable,
    ::testing::Values(TextCase{"2024-1-5", "yyyy/mm/dd", "2024/01/05"}, TextCase{"2024/01/05", "mm   dd", "01   05"},
                      TextCase{"2024年1月5日", "yyyyMMdd", "20240105"}, TextCase{"45351", "yyyy/mm/dd", "2024/02/29"},
                      TextCase{"not a date", "yyyy/mm/dd", "not a date"},
                      TextCase{"20240105", "yyyymmdd", "20240105"},  // a serial beyond 9999 stays as written
                      TextCase{"2024/01/05", "0", "2024/01/05"}));

}  // namespace
}  // namespace lupin::vb
