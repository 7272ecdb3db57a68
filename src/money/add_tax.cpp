#include "money/add_tax.h"

#include <limits>

namespace lupin::money {

namespace {

// amount × rate.Scaled() is t × 1,000,000: 10,000 for the Currency scale, 100 for the percent.
constexpr std::int64_t kDenominator = 1000000;

std::int64_t FloorDiv(std::int64_t numerator) {
  std::int64_t q = numerator / kDenominator;
  if (numerator % kDenominator != 0 && numerator < 0) --q;
  return q;
}

std::int64_t CheckedAdd(std::int64_t a, std::int64_t b) {
  std::int64_t sum = 0;
  if (__builtin_add_overflow(a, b, &sum)) throw vb::OverflowError();
  return sum;
}

}  // namespace

std::int32_t AddTax(std::int32_t amount, vb::Currency rate_percent, int tax_calkbn) {
  std::int64_t offset = 0;
  switch (tax_calkbn) {
    case 0: offset = kDenominator / 2; break;
    case 1: break;
    case 2: offset = kDenominator * 9 / 10; break;
    default: return amount;
  }
  std::int64_t scaled_tax = 0;
  if (__builtin_mul_overflow(std::int64_t{amount}, rate_percent.Scaled(), &scaled_tax)) {
    throw vb::OverflowError();
  }
  const std::int64_t shifted = CheckedAdd(scaled_tax, offset);
  // The slip adds the offset on both sides of zero; only the cut differs (floor, or truncation
  // for zero and negative amounts), so -2.5 becomes -2 here, unlike RoundTaxAmount.
  const std::int64_t tax = amount > 0 ? FloorDiv(shifted) : shifted / kDenominator;
  const std::int64_t result = CheckedAdd(amount, tax);
  if (result < std::numeric_limits<std::int32_t>::min() ||
      result > std::numeric_limits<std::int32_t>::max()) {
    throw vb::OverflowError();
  }
  return static_cast<std::int32_t>(result);
}

}  // namespace lupin::money
