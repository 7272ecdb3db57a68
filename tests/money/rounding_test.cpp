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
      {1004999, 0, 100}, {-1005000, 0, -101},  // half away from zero
      {-1009999, 1, -100},                     // towards zero
      // 0.9 added away from zero: a fraction below 0.1 is cut, a whole number stays.
      {1000999, 2, 100}, {-1001000, 2, -101}, {1000000, 2, 100},
      {-123456000, -1, 0},  // any other kind: no tax at all
      // Far from zero a double sum would already land on the next whole number.
      {100000000000000999, 2, 10000000000000},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::to_string(c.amount_scaled) + " kind " + std::to_string(c.kind));
    EXPECT_EQ(RoundTaxAmount(Currency::FromScaled(c.amount_scaled), 0, c.kind).Scaled(), c.expected_whole * 10000);
  }
  const Currency top = Currency::FromScaled(std::numeric_limits<std::int64_t>::max() - 100);
  EXPECT_THROW(RoundTaxAmount(top, 0, 0), vb::OverflowError);
  EXPECT_THROW(RoundTaxAmount(Currency::FromScaled(std::numeric_limits<std::int64_t>::min() + 100), 0, 2),
               vb::OverflowError);
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
      {105, 80000, 0, 113}, {100, 85000, 0, 109},  // 8.4 and 8.5
      // Negative amounts add the offset and truncate: -2.5 becomes -2, -1.9 becomes -1.
      {-50, 50000, 0, -52}, {-19, 100000, 0, -20},
      {-199, 100000, 1, -218},                      // 19.9 cut
      {10005, 10000, 2, 10105}, {-1000, 100000, 2, -1099},
      {1000, 100000, 3, 1000},
      {100, -50000, 0, 95},  // a positive amount floors, even when the tax is negative
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::to_string(c.amount) + " at " + std::to_string(c.rate_percent_scaled) + " kind " +
                 std::to_string(c.kind));
    EXPECT_EQ(AddTax(c.amount, Currency::FromScaled(c.rate_percent_scaled), c.kind), c.expected);
  }
  constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
  EXPECT_THROW(AddTax(kMax, Currency::FromScaled(100000), 0), vb::OverflowError);
  EXPECT_THROW(AddTax(std::numeric_limits<std::int32_t>::min(), Currency::FromScaled(100000), 1), vb::OverflowError);
  EXPECT_EQ(AddTax(kMax, Currency::FromScaled(100000), 7), kMax);
}

}  // namespace
}  // namespace lupin::money
