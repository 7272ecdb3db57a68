#include <gtest/gtest.h>

#include "common/vb.h"

namespace lupin::vb {
namespace {

struct FormatCase {
  double value;
  const char* picture;
  const char* expected;
};

class FormatNumberTable : public ::testing::TestWithParam<FormatCase> {};

TEST_P(FormatNumberTable, WritesThePicture) {
  EXPECT_EQ(Format(GetParam().value, GetParam().picture), GetParam().expected)
      << GetParam().value << " in \"" << GetParam().picture << "\"";
}

INSTANTIATE_TEST_SUITE_P(
    Thousands, FormatNumberTable,
    ::testing::Values(FormatCase{1234567, "#,##0", "1,234,567"}, FormatCase{-1234, "#,##0", "-1,234"},
                      FormatCase{0, "#,##0", "0"}, FormatCase{999, "#,##0", "999"},
                      FormatCase{1234.5, "#,##0.0", "1,234.5"}, FormatCase{0.05, "#,##0.0", "0.1"},
                      FormatCase{1234.567, "#,##0.00", "1,234.57"}, FormatCase{-0.5, "#,##0.00", "-0.50"},
                      FormatCase{1234567, "#,##0,", "1,235"}));

// Format rounds halves away from zero on the decimal digits, unlike CLng.
INSTANTIATE_TEST_SUITE_P(
    Rounding, FormatNumberTable,
    ::testing::Values(FormatCase{2.5, "0", "3"}, FormatCase{-2.5, "0", "-3"}, FormatCase{0.5, "0", "1"},
                      FormatCase{1.5, "0", "2"}, FormatCase{1233.5, "#,##0", "1,234"},
                      FormatCase{-1233.5, "#,##0", "-1,234"}, FormatCase{1.005, "0.00", "1.01"},
                      FormatCase{0.125, "0.00", "0.13"}, FormatCase{-0.125, "0.00", "-0.13"},
                      FormatCase{9.995, "0.00", "10.00"}, FormatCase{99999.5, "#,##0", "100,000"},
                      FormatCase{-0.4, "0", "-0"}));

INSTANTIATE_TEST_SUITE_P(
    Digits, FormatNumberTable,
    ::testing::Values(FormatCase{5, "00", "05"}, FormatCase{123, "00", "123"}, FormatCase{3.14159, "0.00", "3.14"},
                      FormatCase{42, "0000000000", "0000000042"}, FormatCase{1234567890, "0000000000", "1234567890"},
                      FormatCase{0, "#", ""}, FormatCase{42, "#", "42"}, FormatCase{5.1, "0.0#", "5.1"},
                      FormatCase{5.126, "0.0#", "5.13"}, FormatCase{0.5, "#.00", ".50"},
                      FormatCase{20240105, "0000/00/00", "2024/01/05"}, FormatCase{5, "0円", "5円"},
                      FormatCase{0.125, "0.0%", "12.5%"}, FormatCase{12345, "0.00E+00", "1.23E+04"},
                      FormatCase{0.00012, "0.0E-00", "1.2E-04"}, FormatCase{-5, "0;(0)", "(5)"},
                      FormatCase{0, "0;(0);\"なし\"", "なし"}, FormatCase{3, "0;(0);\"なし\"", "3"}));

INSTANTIATE_TEST_SUITE_P(
    General, FormatNumberTable,
    ::testing::Values(FormatCase{0.1 + 0.2, "", "0.3"}, FormatCase{1e15, "", "1E+15"},
                      FormatCase{123456789012345, "", "123456789012345"}, FormatCase{0.0001, "", "0.0001"},
                      FormatCase{0.00001, "", "1E-05"}, FormatCase{-2.5, "", "-2.5"},
                      FormatCase{1.0 / 3, "", "0.333333333333333"}, FormatCase{1.5e-10, "", "1.5E-10"},
                      FormatCase{-1234567.25, "", "-1234567.25"}, FormatCase{0, "", "0"},
                      FormatCase{1234.5, "Standard", "1,234.50"}, FormatCase{2, "General Number", "2"}));

}  // namespace
}  // namespace lupin::vb
