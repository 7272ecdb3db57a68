#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "common/vb.h"

namespace lupin::vb {
namespace {

struct ValCase {
  const char* text;
  double expected;
};

TEST(Val, ReadsTheLeadingNumber) {
  const ValCase cases[] = {
      {"1 2 3", 123}, {"1,000", 1},  {"1.5D2", 150}, {"1e+x", 1}, {"&HFFFF", -1}, {"&H10000", 65536},
      {"&17", 15},    {"&Hzz", 0},   {"-.5", -0.5},  {"--7", 0},  {"１２．５", 12.5}, {"－１　２", -12},
  };
  for (const auto& c : cases) EXPECT_DOUBLE_EQ(Val(c.text), c.expected) << c.text;
  EXPECT_THROW(Val("1e999"), OverflowError) << "beyond a double";
}

struct NumericCase {
  const char* text;
  bool numeric;
  double value;
};

TEST(IsNumeric, AcceptsWhatTheRuntimeConverts) {
  const NumericCase cases[] = {
      {"1,234", true, 1234}, {"1.", true, 1}, {"(5)", true, -5}, {"¥1,000", true, 1000}, {"&H1F", true, 31},
      {"１，２３４", true, 1234}, {"   ", false, 0}, {"12abc", false, 0}, {",1", false, 0}, {"1 2", false, 0},
      {"2024/01/05", false, 0}, {"1-", false, 0}, {"&HFFFFFFFF", true, -1}, {"&H100000000", false, 0},
      {"&044444444433 ", false, 0},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(IsNumeric(c.text), c.numeric) << c.text;
    if (c.numeric) {
      EXPECT_DOUBLE_EQ(NumericValue(c.text).value_or(std::nan("")), c.value) << c.text;
    }
  }
}

struct RoundCase {
  double value;
  std::int32_t expected;
};

TEST(CLng, RoundsHalvesToEven) {
  const RoundCase cases[] = {
      {0.5, 0}, {2.5, 2}, {3.5, 4}, {-2.5, -2}, {2.5001, 3}, {-2147483648.5, -2147483647 - 1},
  };
  for (const auto& c : cases) EXPECT_EQ(CLng(c.value), c.expected) << c.value;
}

TEST(CLng, RaisesOutsideTheRangeAndCIntInSixteenBits) {
  for (double v : {2147483647.5, -2147483649.0, std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_THROW(CLng(v), OverflowError) << v;
  }
  EXPECT_EQ(CInt(-32768.5), -32768);
  EXPECT_EQ(CInt(5.5), 6);
  EXPECT_THROW(CInt(32767.5), OverflowError);
}

TEST(IntFix, DifferOnlyForNegatives) {
  const struct {
    double value, int_value, fix_value;
  } cases[] = {{2.7, 2, 2}, {-2.7, -3, -2}, {-2.0, -2, -2}, {0.3, 0, 0}, {-0.3, -1, -0.0}};
  for (const auto& c : cases) {
    EXPECT_EQ(Int(c.value), c.int_value) << c.value;
    EXPECT_EQ(Fix(c.value), c.fix_value) << c.value;
  }
}

}  // namespace
}  // namespace lupin::vb
