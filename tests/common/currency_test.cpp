#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "common/currency.h"

namespace lupin::vb {
namespace {

Currency C(std::int64_t scaled) { return Currency::FromScaled(scaled); }

struct FromDoubleCase {
  double value;
  std::int64_t scaled;
};

TEST(Currency, FromDoubleRoundsHalvesToEvenAtFourDecimals) {
  // Binary fractions, so that the half is exact.
  const FromDoubleCase cases[] = {{0.03125, 312}, {0.09375, 938}, {-0.09375, -938}, {0.08, 800}, {-0.00006, -1}};
  for (const auto& c : cases) EXPECT_EQ(Currency::FromDouble(c.value).Scaled(), c.scaled) << c.value;
}

struct ArithmeticCase {
  std::int64_t a, b, product, quotient;
};

TEST(Currency, ProductsAndQuotientsAreExactBeforeOneRounding) {
  const ArithmeticCase cases[] = {
      {1000, 30000, 3000, 333},                    // 0.1 × 3 = 0.3 exactly; 0.1 / 3 = 0.0333
      {5, 5000, 2, 10},                            // 0.00025 → 0.0002 (even); 0.0005 / 0.5 = 0.001
      {15, 5000, 8, 30},                           // 0.00075 → 0.0008 (even)
      {-5, 5000, -2, -10},                         // negatives round to even as well
      {200000, 30000, 600000, 66667},              // 20 / 3 = 6.6667
      // beyond what a double holds: the last digit survives
      {123456789012345678, 10000, 123456789012345678, 123456789012345678},
  };
  for (const auto& c : cases) {
    EXPECT_EQ((C(c.a) * C(c.b)).Scaled(), c.product) << c.a << " * " << c.b;
    EXPECT_EQ((C(c.a) / C(c.b)).Scaled(), c.quotient) << c.a << " / " << c.b;
  }
}

// The inner tax of 1,080 yen at 8 %, computed the way the order tax computes it.
TEST(Currency, InnerTaxOfAWholePercentRate) {
  const Currency p = Currency::FromDouble(0.08) * Currency::FromLong(100);
  EXPECT_EQ((p * Currency::FromLong(1080) / (p + Currency::FromLong(100))).ToString(), "80");
}

TEST(Currency, RaisesOnOverflowAndDivisionByZero) {
  const Currency max = C(std::numeric_limits<std::int64_t>::max());
  const Currency min = C(std::numeric_limits<std::int64_t>::min());
  EXPECT_NO_THROW(Currency::FromLong(922337203685477));
  EXPECT_THROW(Currency::FromLong(922337203685478), OverflowError);
  EXPECT_THROW(max + C(1), OverflowError);
  EXPECT_THROW(min - C(1), OverflowError);
  EXPECT_THROW(-min, OverflowError);
  EXPECT_THROW(Currency::FromLong(100000000000) * Currency::FromLong(10000), OverflowError);
  EXPECT_THROW(max / C(5000), OverflowError);
  EXPECT_THROW(Currency::FromDouble(1e15), OverflowError);
  EXPECT_THROW(Currency::FromDouble(std::nan("")), OverflowError);
  EXPECT_THROW(C(1) / C(0), DivisionByZeroError);
  EXPECT_EQ((max - C(1) + C(1)).Scaled(), max.Scaled());
}

struct LongCase {
  std::int64_t scaled;
  std::int32_t whole;
};

TEST(Currency, ToLongRoundsHalvesToEven) {
  const LongCase cases[] = {{25000, 2}, {35000, 4}, {-25000, -2}, {-24999, -2}, {21474836474999, 2147483647},
                            {-21474836485000, -2147483647 - 1}};
  for (const auto& c : cases) EXPECT_EQ(C(c.scaled).ToLong(), c.whole) << c.scaled;
  EXPECT_THROW(C(21474836475000).ToLong(), OverflowError);
}

struct TextCase {
  std::int64_t scaled;
  const char* text;
};

TEST(Currency, ToStringIsTheShortestDecimal) {
  const TextCase cases[] = {{1000, "0.1"}, {800, "0.08"}, {100000, "10"}, {-1, "-0.0001"}, {0, "0"},
                            {-125000, "-12.5"}, {std::numeric_limits<std::int64_t>::max(), "922337203685477.5807"},
                            {std::numeric_limits<std::int64_t>::min(), "-922337203685477.5808"}};
  for (const auto& c : cases) EXPECT_EQ(C(c.scaled).ToString(), c.text);
  EXPECT_DOUBLE_EQ(C(800).ToDouble(), 0.08);
}

}  // namespace
}  // namespace lupin::vb
