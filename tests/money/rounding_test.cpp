// Rounding of tax amounts: the order-tax rounding on Currency and the slips' AddTax on whole yen.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "money/add_tax.h"
#include "money/round_tax.h"

namespace lupin::money {
namespace {

using vb::Currency;

struct RoundCase {
  const char* name;
  std::int64_t amount_scaled;  // amount × 10,000
  int kind;
  std::int64_t expected_whole;
};

class RoundTaxAmountTest : public ::testing::TestWithParam<RoundCase> {};

TEST_P(RoundTaxAmountTest, RoundsByKind) {
  const RoundCase& c = GetParam();
  const Currency result = RoundTaxAmount(Currency::FromScaled(c.amount_scaled), 0, c.kind);
  EXPECT_EQ(result.Scaled(), c.expected_whole * 10000) << c.name;
}

INSTANTIATE_TEST_SUITE_P(
    Boundaries, RoundTaxAmountTest,
    ::testing::Values(
        // Kind 0: half away from zero on both sides.
        RoundCase{"k0_below_half", 1004999, 0, 100}, RoundCase{"k0_half", 1005000, 0, 101},
        RoundCase{"k0_neg_below_half", -1004999, 0, -100}, RoundCase{"k0_neg_half", -1005000, 0, -101},
        RoundCase{"k0_zero", 0, 0, 0}, RoundCase{"k0_small_half", 5000, 0, 1},
        RoundCase{"k0_small_neg_half", -5000, 0, -1}, RoundCase{"k0_whole", 1000000, 0, 100},
        // Kind 1: towards zero.
        RoundCase{"k1_high_fraction", 1009999, 1, 100}, RoundCase{"k1_neg_high_fraction", -1009999, 1, -100},
        RoundCase{"k1_whole_neg", -1000000, 1, -100},
        // Kind 2: 0.9 added away from zero, so a fraction below 0.1 is cut.
        RoundCase{"k2_005_is_cut", 1000500, 2, 100}, RoundCase{"k2_00999_is_cut", 1000999, 2, 100},
        RoundCase{"k2_01_rounds_up", 1001000, 2, 101}, RoundCase{"k2_09999", 1009999, 2, 101},
        RoundCase{"k2_whole_stays", 1000000, 2, 100}, RoundCase{"k2_neg_01", -1001000, 2, -101},
        RoundCase{"k2_neg_00999", -1000999, 2, -100}, RoundCase{"k2_zero", 0, 2, 0},
        // Any other kind: no tax at all.
        RoundCase{"k3_no_tax", 123456000, 3, 0}, RoundCase{"k_neg1_no_tax", -123456000, -1, 0},
        // Far from zero a double sum would already land on the next whole number.
        RoundCase{"k2_large_00999", 100000000000000999, 2, 10000000000000},
        RoundCase{"k0_large_below_half", 100000000000004999, 0, 10000000000000},
        RoundCase{"k0_large_neg_below_half", -100000000000004999, 0, -10000000000000}),
    [](const ::testing::TestParamInfo<RoundCase>& p) { return std::string(p.param.name); });

TEST(RoundTaxAmountEdge, OverflowAtTheCurrencyLimitRaises) {
  const Currency top = Currency::FromScaled(std::numeric_limits<std::int64_t>::max() - 100);
  const Currency bottom = Currency::FromScaled(std::numeric_limits<std::int64_t>::min() + 100);
  EXPECT_THROW(RoundTaxAmount(top, 0, 0), vb::OverflowError);
  EXPECT_THROW(RoundTaxAmount(bottom, 0, 2), vb::OverflowError);
  EXPECT_NO_THROW(RoundTaxAmount(top, 0, 1));
}

struct AddTaxCase {
  const char* name;
  std::int32_t amount;
  std::int64_t rate_percent_scaled;  // percent × 10,000
  int kind;
  std::int32_t expected;
};

class AddTaxTest : public ::testing::TestWithParam<AddTaxCase> {};

TEST_P(AddTaxTest, AddsRoundedTax) {
  const AddTaxCase& c = GetParam();
  EXPECT_EQ(AddTax(c.amount, Currency::FromScaled(c.rate_percent_scaled), c.kind), c.expected) << c.name;
}

INSTANTIATE_TEST_SUITE_P(
    Boundaries, AddTaxTest,
    ::testing::Values(
        AddTaxCase{"k2_100_at_8", 100, 80000, 2, 108},
        AddTaxCase{"k0_whole_tax", 1000, 100000, 0, 1100},
        AddTaxCase{"k0_below_half", 105, 80000, 0, 113},       // 8.4
        AddTaxCase{"k0_above_half", 107, 80000, 0, 116},       // 8.56
        AddTaxCase{"k0_exact_half", 50, 50000, 0, 53},         // 2.5
        // Zero and negative amounts add 0.5 and truncate: -2.5 becomes -2, not -3.
        AddTaxCase{"k0_neg_half", -50, 50000, 0, -52},
        AddTaxCase{"k0_neg_1_9", -19, 100000, 0, -20},         // -1.9 + 0.5 → -1
        AddTaxCase{"k0_neg_0_4", -4, 100000, 0, -4},           // -0.4 + 0.5 → 0
        AddTaxCase{"k1_cut", 199, 100000, 1, 218},             // 19.9
        AddTaxCase{"k1_neg_cut", -199, 100000, 1, -218},
        AddTaxCase{"k2_01_up", 1001, 100000, 2, 1102},         // 100.1
        AddTaxCase{"k2_005_cut", 10005, 10000, 2, 10105},      // 100.05
        AddTaxCase{"k2_neg", -1001, 100000, 2, -1100},         // -100.1 + 0.9 → -99
        AddTaxCase{"k2_neg_whole", -1000, 100000, 2, -1099},   // -100 + 0.9 → -99.1 → -99
        AddTaxCase{"fractional_rate", 1000, 85000, 0, 1085},   // 8.5 %
        AddTaxCase{"fractional_rate_half", 100, 85000, 0, 109},  // 8.5
        AddTaxCase{"zero_amount", 0, 100000, 2, 0},
        AddTaxCase{"other_kind", 1000, 100000, 3, 1000},
        AddTaxCase{"negative_kind", 1000, 100000, -1, 1000},
        // A positive amount floors, even when a negative rate makes the tax negative.
        AddTaxCase{"floor_below_zero", 100, -50000, 0, 95}),
    [](const ::testing::TestParamInfo<AddTaxCase>& p) { return std::string(p.param.name); });

TEST(AddTaxEdge, ResultOutsideLongRaises) {
  EXPECT_THROW(AddTax(std::numeric_limits<std::int32_t>::max(), Currency::FromScaled(100000), 0),
               vb::OverflowError);
  EXPECT_THROW(AddTax(std::numeric_limits<std::int32_t>::min(), Currency::FromScaled(100000), 1),
               vb::OverflowError);
  EXPECT_EQ(AddTax(std::numeric_limits<std::int32_t>::max(), Currency::FromScaled(100000), 7),
            std::numeric_limits<std::int32_t>::max());
}

}  // namespace
}  // namespace lupin::money
