// Rounding of tax amounts: the order-tax rounding on Currency and the slips' AddTax on whole yen.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

#include "money/add_tax.h"
#include "money/round_tax.h"

namespace lupin::money {
namespace {

using vb::Currency;

TEST(RoundTaxAmount, RoundsByKind) {
  struct Case {
    std::int64_t amount_scaled;  // amount × 10,000
    int kind;
    std::int64_t expected_whole;
  };
  const Case cases[] = {
      // Kind 0: half away from zero on both sides.
      {1004999, 0, 100}, {1005000, 0, 101}, {-1004999, 0, -100}, {-1005000, 0, -101},
      // Kind 1: towards zero.
      {1009999, 1, 100}, {-1009999, 1, -100},
      // Kind 2: 0.9 added away from zero, so a fraction below 0.1 is cut and a whole number stays.
      {1000999, 2, 100}, {1001000, 2, 101}, {1000000, 2, 100}, {-1001000, 2, -101}, {-1000999, 2, -100},
      {0, 2, 0},
      // Any other kind: no tax at all.
      {123456000, 3, 0}, {-123456000, -1, 0},
      // Far from zero a double sum would already land on the next whole number.
      {100000000000000999, 2, 10000000000000}, {100000000000004999, 0, 10000000000000},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::to_string(c.amount_scaled) + " kind " + std::to_string(c.kind));
    EXPECT_EQ(RoundTaxAmount(Currency::FromScaled(c.amount_scaled), 0, c.kind).Scaled(), c.expected_whole * 10000);
  }
}

TEST(RoundTaxAmount, OverflowAtTheCurrencyLimitRaises) {
  const Currency top = Currency::FromScaled(std::numeric_limits<std::int64_t>::max() - 100);
  const Currency bottom = Currency::FromScaled(std::numeric_limits<std::int64_t>::min() + 100);
  EXPECT_THROW(RoundTaxAmount(top, 0, 0), vb::OverflowError);
  EXPECT_THROW(RoundTaxAmount(bottom, 0, 2), vb::OverflowError);
  EXPECT_NO_THROW(RoundTaxAmount(top, 0, 1));
}

TEST(AddTax, AddsRoundedTax) {
  struct Case {
    std::int32_t amount;
    std::int64_t rate_percent_scaled;  // percent × 10,000
    int kind;
    std::int32_t expected;
  };
  const Case cases[] = {
      {100, 80000, 2, 108},
      {105, 80000, 0, 113},    // 8.4
      {50, 50000, 0, 53},      // 2.5
      {100, 85000, 0, 109},    // 8.5 % gives 8.5
      // Zero and negative amounts add the offset and truncate: -2.5 becomes -2, -1.9 becomes -1.
      {-50, 50000, 0, -52}, {-19, 100000, 0, -20},
      {199, 100000, 1, 218}, {-199, 100000, 1, -218},   // 19.9
      {1001, 100000, 2, 1102},                          // 100.1
      {10005, 10000, 2, 10105},                         // 100.05
      {-1000, 100000, 2, -1099},                        // -100 + 0.9 → -99.1 → -99
      {1000, 100000, 3, 1000},
      // A positive amount floors, even when a negative rate makes the tax negative.
      {100, -50000, 0, 95},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::to_string(c.amount) + " at " + std::to_string(c.rate_percent_scaled) + " kind " +
                 std::to_string(c.kind));
    EXPECT_EQ(AddTax(c.amount, Currency::FromScaled(c.rate_percent_scaled), c.kind), c.expected);
  }
}

TEST(AddTax, ResultOutsideLongRaises) {
  EXPECT_THROW(AddTax(std::numeric_limits<std::int32_t>::max(), Currency::FromScaled(100000), 0),
               vb::OverflowError);
  EXPECT_THROW(AddTax(std::numeric_limits<std::int32_t>::min(), Currency::FromScaled(100000), 1),
               vb::OverflowError);
  EXPECT_EQ(AddTax(std::numeric_limits<std::int32_t>::max(), Currency::FromScaled(100000), 7),
            std::numeric_limits<std::int32_t>::max());
}

}  // namespace
}  // namespace lupin::money
